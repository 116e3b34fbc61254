// How observers and what they observe forget each other, whichever goes first.
#pragma once

#include <vector>

namespace Zor::inline Types {

class TObserver;

/// Something that observers can be attached to.
class IZOSubject {
 public:
  /// The observer goes, and is not to be called any more.
  virtual void ObserverGoes(TObserver& aObserver) = 0;

 protected:
  ~IZOSubject() = default;
};

/// The ground of every observer: whatever it is attached to forgets it when it goes.
class TObserver {
 public:
  TObserver(const TObserver&) = delete;
  TObserver& operator=(const TObserver&) = delete;

  void Join(IZOSubject& aSubject) { fSubjects.push_back(&aSubject); }
  void Part(const IZOSubject& aSubject) { std::erase(fSubjects, &aSubject); }

 protected:
  TObserver() = default;
  ~TObserver() {
    while (!fSubjects.empty()) {
      IZOSubject* subject = fSubjects.back();
      fSubjects.pop_back();
      subject->ObserverGoes(*this);
    }
  }

 private:
  std::vector<IZOSubject*> fSubjects;
};

}  // namespace Zor::inline Types
