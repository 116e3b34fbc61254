#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

/// Finds names in a list without regard to case, and remembers where the names that were asked for stand, so
/// that asking again does not search. What it remembers is held against the list each time: the list may
/// change in between.
class TNameFinder {
 public:
  /// The place, 0-based, of a name among `aCount`, of which `aNameAt(i)` gives the one at place i; -1 when it
  /// is missing.
  template <class TNameAt>
  int Find(std::string_view aName, int aCount, TNameAt aNameAt) {
    const auto same = [&](int i) { return aNameAt(i) == aName || SameText(aNameAt(i), aName); };
    const auto known = fPlaces.find(aName);
    if (known != fPlaces.end() && known->second < aCount && same(known->second)) return known->second;
    for (int i = 0; i < aCount; ++i) {
      if (!same(i)) continue;
      if (fPlaces.size() >= MostRemembered) fPlaces.clear();
      fPlaces.insert_or_assign(std::string(aName), i);
      return i;
    }
    return -1;
  }

 private:
  static constexpr std::size_t MostRemembered = 4096;
  struct THash {
    using is_transparent = void;
    std::size_t operator()(std::string_view aText) const { return std::hash<std::string_view>()(aText); }
  };
  std::unordered_map<std::string, int, THash, std::equal_to<>> fPlaces;
};

}  // namespace Zor
