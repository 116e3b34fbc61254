#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace Zor::inline Base {

/// A list that owns its members. Members enter in their own constructors (so it holds plain pointers: a
/// constructor that throws must not leave an owner behind), and this is the one place that frees them.
template <class T>
class TOwnedList {
 public:
  TOwnedList() = default;
  TOwnedList(const TOwnedList&) = delete;
  TOwnedList& operator=(const TOwnedList&) = delete;
  TOwnedList(TOwnedList&& aOther) noexcept : fMembers(std::exchange(aOther.fMembers, {})) {}
  TOwnedList& operator=(TOwnedList&& aOther) noexcept {
    TOwnedList former(std::move(*this));
    fMembers.swap(aOther.fMembers);
    return *this;
  }
  ~TOwnedList() { Clear(); }

  int Count() const { return static_cast<int>(fMembers.size()); }
  bool IsEmpty() const { return fMembers.empty(); }
  /// 0-based.
  T* operator[](int aIndex) const { return fMembers[static_cast<std::size_t>(aIndex)]; }
  T* First() const { return fMembers.front(); }
  T* Last() const { return fMembers.back(); }
  auto begin() const { return fMembers.begin(); }
  auto end() const { return fMembers.end(); }

  void Reserve(std::size_t aCount) { fMembers.reserve(aCount); }
  void Adopt(T* aMember) { fMembers.push_back(aMember); }

  /// 0-based; -1 when it is no member. Searched from the end, where what was made last stands.
  int IndexOf(const T* aMember) const {
    for (std::size_t i = fMembers.size(); i > 0; --i) {
      if (fMembers[i - 1] == aMember) return static_cast<int>(i - 1);
    }
    return -1;
  }

  /// Takes the member out without freeing it.
  void Extract(const T* aMember) {
    const int index = IndexOf(aMember);
    if (index >= 0) fMembers.erase(fMembers.begin() + index);
  }
  void Delete(T* aMember) {
    Extract(aMember);
    delete aMember;
  }
  /// Frees the members from index `aFrom` on, 0-based, last to first.
  void Truncate(int aFrom) {
    while (Count() > aFrom) {
      T* member = fMembers.back();
      fMembers.pop_back();
      delete member;
    }
  }
  void Clear() { Truncate(0); }

  // 0-based.
  void Move(int aFrom, int aTo) {
    T* member = fMembers[static_cast<std::size_t>(aFrom)];
    fMembers.erase(fMembers.begin() + aFrom);
    fMembers.insert(fMembers.begin() + aTo, member);
  }
  void Exchange(int a, int b) {
    std::swap(fMembers[static_cast<std::size_t>(a)], fMembers[static_cast<std::size_t>(b)]);
  }

  /// Takes out, without freeing, every member that `aTest` accepts; the others keep their order. Linear.
  template <class TTest>
  void ExtractIf(TTest aTest) {
    std::erase_if(fMembers, aTest);
  }
  template <class TLess>
  void StableSort(TLess aLess) {
    std::stable_sort(fMembers.begin(), fMembers.end(), aLess);
  }

 private:
  std::vector<T*> fMembers;
};

}  // namespace Zor::inline Base
