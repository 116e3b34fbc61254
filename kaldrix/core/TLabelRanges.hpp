#pragma once

#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {

/// From first to last, both 1-based.
struct TLabelRange {
  int first = 1;
  int last = 0;
};

/// Some labels of a print, told by their numbers: each once, in ascending order, however they were told.
class TLabelRanges {
 public:
  /// The last label of a range without an end.
  static constexpr int End = (std::numeric_limits<int>::max)();

  TLabelRanges() = default;
  TLabelRanges(int aFirst, int aLast) { Add(aFirst, aLast); }

  /// Ranges "A-B", "A-" (to the end) and "A", with commas between them; none for another text.
  static std::optional<TLabelRanges> Parse(std::string_view aText);
  /// The same form: "1,3,5-7".
  std::string Text() const;

  /// Nothing for a range below 1 or without labels.
  void Add(int aFirst, int aLast);
  /// Those up to a label.
  TLabelRanges UpTo(int aLast) const;

  bool IsEmpty() const { return fRanges.empty(); }
  /// 0 when there are none.
  int First() const { return IsEmpty() ? 0 : fRanges.front().first; }
  int Last() const { return IsEmpty() ? 0 : fRanges.back().last; }
  Int64 Count() const;
  /// The label at a place, from 1; behind the end the numbers go on. There must be one.
  Int64 At(Int64 aPlace) const;
  /// The first one behind a label, 1-based; 0 when there is none.
  int Behind(int aLabel) const;

  bool Has(int aLabel) const { return aLabel > 0 && Behind(aLabel - 1) == aLabel; }

  /// Ascending, with at least one label between each two.
  const std::vector<TLabelRange>& Ranges() const { return fRanges; }

 private:
  std::vector<TLabelRange> fRanges;
};

}  // namespace Zor::inline Base
