#pragma once

#include <algorithm>
#include <exception>
#include <functional>
#include <utility>
#include <vector>

#include "kaldrix/types/Observing.hpp"

namespace Zor::inline Types {

/// Observers in the order in which they were attached. One that goes leaves the list by itself; one that
/// leaves while the others are told takes nothing from them.
template <class T>
class TObserverList final : private IZOSubject {
 public:
  /// `aLost` runs after an observer has left by going.
  explicit TObserverList(std::function<void()> aLost = {}) : fLost(std::move(aLost)) {}
  TObserverList(const TObserverList&) = delete;
  TObserverList& operator=(const TObserverList&) = delete;
  ~TObserverList() { Clear(); }

  bool IsEmpty() const {
    return std::all_of(fMembers.begin(), fMembers.end(), [](const T* member) { return member == nullptr; });
  }
  bool Has(const T* aObserver) const {
    return std::find(fMembers.begin(), fMembers.end(), aObserver) != fMembers.end();
  }
  /// Does `aTest` accept one?
  template <class TTest>
  bool Any(TTest aTest) const {
    return std::any_of(fMembers.begin(), fMembers.end(),
                       [&](T* member) { return member != nullptr && aTest(*member); });
  }

  /// False for none, and for one that is attached already.
  bool Attach(T* aObserver) {
    if (aObserver == nullptr || Has(aObserver)) return false;
    fMembers.push_back(aObserver);
    try {
      aObserver->Join(*this);
    } catch (...) {
      fMembers.pop_back();
      throw;
    }
    return true;
  }
  void Detach(T* aObserver) {
    if (aObserver == nullptr || !Has(aObserver)) return;
    aObserver->Part(*this);
    Forget(*aObserver);
  }
  void Clear() {
    for (T* member : fMembers) {
      if (member != nullptr) member->Part(*this);
    }
    std::fill(fMembers.begin(), fMembers.end(), nullptr);
    DropGaps();
  }

  /// Calls `aTell` with each, those that come meanwhile included. All are told, also when one of them throws;
  /// gives the first exception, or none.
  template <class TTell>
  std::exception_ptr Tell(TTell aTell) {
    std::exception_ptr first;
    ++fTelling;
    for (std::size_t i = 0; i < fMembers.size(); ++i) {
      if (fMembers[i] == nullptr) continue;
      try {
        aTell(*fMembers[i]);
      } catch (...) {
        if (first == nullptr) first = std::current_exception();
      }
    }
    --fTelling;
    DropGaps();
    return first;
  }

 private:
  void ObserverGoes(TObserver& aObserver) override {
    Forget(aObserver);
    if (fLost) fLost();
  }

  void Forget(const TObserver& aObserver) {
    for (T*& member : fMembers) {
      if (member != nullptr && static_cast<const TObserver*>(member) == &aObserver) member = nullptr;
    }
    DropGaps();
  }
  void DropGaps() {
    if (fTelling == 0) std::erase(fMembers, nullptr);
  }

  std::vector<T*> fMembers;  ///< with gaps for those that went while the others are told
  int fTelling = 0;
  std::function<void()> fLost;
};

}  // namespace Zor::inline Types
