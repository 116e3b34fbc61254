#pragma once

#include <string>
#include <vector>

namespace Zor::inline Base {

/// An object whose values another of its class can take.
class TPersistent {
 public:
  TPersistent() = default;
  TPersistent(const TPersistent&) = delete;
  TPersistent& operator=(const TPersistent&) = delete;
  virtual ~TPersistent() = default;

  /// Takes the values of `aSource`. Raises EConvertError where the classes do not fit.
  virtual void Assign(const TPersistent& aSource);

 protected:
  /// The name that the error of Assign gives.
  virtual const char* ClassName() const { return "TPersistent"; }
};

enum class TOperation { opInsert, opRemove };

/// A named object that may belong to another one, which frees it.
class TComponent : public TPersistent {
 public:
  /// With an owner, the component belongs to it and is freed with it.
  explicit TComponent(TComponent* aOwner);
  ~TComponent() override;

  /// Runs after the component's values have been streamed in.
  virtual void Loaded() { fState.loading = false; }
  /// Another component of the same owner, or one that this one asked about, comes or goes.
  virtual void Notification(TComponent& /*aComponent*/, TOperation /*aOperation*/) {}

  /// Asks that `aComponent` tells this one when it goes; and the other way round.
  void FreeNotification(TComponent& aComponent);
  void RemoveFreeNotification(TComponent& aComponent);

  TComponent* Owner() const { return fComponentOwner; }
  bool IsLoading() const { return fState.loading; }
  bool IsDestroying() const { return fState.destroying; }
  bool IsDesigning() const { return fState.designing; }
  void SetLoading(bool aValue) { fState.loading = aValue; }
  void SetDesigning(bool aValue) { fState.designing = aValue; }

  std::string fName;

 protected:
  void BeginDestruction() { fState.destroying = true; }
  const char* ClassName() const override { return "TComponent"; }

 private:
  struct TState {
    bool loading = false;
    bool destroying = false;
    bool designing = false;
  };

  TComponent* fComponentOwner;
  std::vector<TComponent*> fComponents;  ///< owned
  std::vector<TComponent*> fNotify;      ///< those that hear when this one goes; not owned
  TState fState;
};

}  // namespace Zor::inline Base
