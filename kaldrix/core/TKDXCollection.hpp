#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "kaldrix/platform/TNameFinder.hpp"

namespace Zor::inline Base {

/// A list of described things that owns its members; places count from 0. A member is made with the list's
/// owner and has a caption, by which it is found.
template <class TMember, class TOwner>
class TKDXCollection {
 public:
  /// Shared, so that a list can be set aside and its members be in another one meanwhile.
  using TMembers = std::vector<std::shared_ptr<TMember>>;

  explicit TKDXCollection(TOwner* aOwner) : fOwner(aOwner) {}
  TKDXCollection(const TKDXCollection&) = delete;
  TKDXCollection& operator=(const TKDXCollection&) = delete;

  int Count() const { return static_cast<int>(fMembers.size()); }
  auto begin() const { return fMembers.begin(); }
  auto end() const { return fMembers.end(); }
  /// 0-based; none out of range.
  TMember* GetItem(int aIndex) const {
    return aIndex >= 0 && aIndex < Count() ? fMembers[static_cast<std::size_t>(aIndex)].get() : nullptr;
  }
  /// The member of that place, 0-based, takes the values of `aValue`. Nothing out of range.
  void SetItem(int aIndex, const TMember& aValue) {
    if (TMember* member = GetItem(aIndex)) member->Assign(aValue);
  }
  TMember& Add() { return Insert(Count()); }
  /// A new member in front of the one at `aIndex`, 0-based, which is held inside the list.
  TMember& Insert(int aIndex) {
    const int place = aIndex < 0 ? 0 : aIndex > Count() ? Count() : aIndex;
    return **fMembers.insert(fMembers.begin() + place, std::make_shared<TMember>(*this));
  }
  /// 0-based; nothing out of range.
  void Delete(int aIndex) {
    if (GetItem(aIndex) != nullptr) fMembers.erase(fMembers.begin() + aIndex);
  }
  void Clear() { fMembers.clear(); }
  void Exchange(TMembers& aMembers) { fMembers.swap(aMembers); }
  void Assign(const TKDXCollection& aSource) {
    if (&aSource == this) return;
    Clear();
    for (const auto& member : aSource) Add().Assign(*member);
  }

  /// Captions are compared without case; -1 and none when there is none.
  int IndexOf(std::string_view aCaption) const {
    return fFinder.Find(aCaption, Count(), [this](int i) -> const std::string& {
      return fMembers[static_cast<std::size_t>(i)]->fCaption;
    });
  }
  TMember* Find(std::string_view aCaption) const { return GetItem(IndexOf(aCaption)); }

  TOwner* fOwner;

 private:
  TMembers fMembers;
  mutable TNameFinder fFinder;
};

}  // namespace Zor::inline Base
