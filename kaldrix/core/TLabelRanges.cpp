#include "kaldrix/core/TLabelRanges.hpp"

#include <algorithm>
#include <charconv>

namespace Zor::inline Base {

namespace {

/// 0 for what is no number.
int NumberOf(std::string_view aText) {
  int value = 0;
  const auto [end, error] = std::from_chars(aText.data(), aText.data() + aText.size(), value);
  return error == std::errc() && end == aText.data() + aText.size() ? value : 0;
}

TLabelRange RangeOf(std::string_view aText) {
  const std::size_t dash = aText.find('-');
  const int first = NumberOf(aText.substr(0, dash));
  if (dash == std::string_view::npos) return {first, first};
  return {first, dash + 1 == aText.size() ? TLabelRanges::End : NumberOf(aText.substr(dash + 1))};
}

std::string TextOf(const TLabelRange& aRange) {
  const std::string first = std::to_string(aRange.first);
  if (aRange.last == aRange.first) return first;
  return first + "-" + (aRange.last == TLabelRanges::End ? "" : std::to_string(aRange.last));
}

}  // namespace

std::optional<TLabelRanges> TLabelRanges::Parse(std::string_view aText) {
  TLabelRanges ranges;
  for (bool more = true; more;) {
    const std::size_t comma = aText.find(',');
    const TLabelRange range = RangeOf(aText.substr(0, comma));
    if (range.first < 1 || range.last < range.first) return std::nullopt;
    ranges.Add(range.first, range.last);
    more = comma != std::string_view::npos;
    if (more) aText.remove_prefix(comma + 1);
  }
  return ranges;
}

std::string TLabelRanges::Text() const {
  std::string text;
  for (const TLabelRange& range : fRanges) text += (text.empty() ? "" : ",") + TextOf(range);
  return text;
}

void TLabelRanges::Add(int aFirst, int aLast) {
  if (aFirst < 1 || aLast < aFirst) return;
  // What the range overlaps or touches becomes one with it.
  const auto from =
      std::lower_bound(fRanges.begin(), fRanges.end(), aFirst,
                       [](const TLabelRange& range, int first) { return range.last < first - 1; });
  const auto to = std::upper_bound(from, fRanges.end(), aLast,
                                   [](int last, const TLabelRange& range) { return last < range.first - 1; });
  if (from == to) {
    fRanges.insert(from, {aFirst, aLast});
    return;
  }
  from->first = std::min(from->first, aFirst);
  from->last = std::max((to - 1)->last, aLast);
  fRanges.erase(from + 1, to);
}

TLabelRanges TLabelRanges::UpTo(int aLast) const {
  TLabelRanges held;
  for (const TLabelRange& range : fRanges) held.Add(range.first, std::min(range.last, aLast));
  return held;
}

Int64 TLabelRanges::Count() const {
  Int64 count = 0;
  for (const TLabelRange& range : fRanges) count += Int64{range.last} - range.first + 1;
  return count;
}

Int64 TLabelRanges::At(Int64 aPlace) const {
  Int64 before = 0;
  for (const TLabelRange& range : fRanges) {
    const Int64 labels = Int64{range.last} - range.first + 1;
    if (aPlace <= before + labels) return range.first + (aPlace - before - 1);
    before += labels;
  }
  return Last() + (aPlace - before);
}

int TLabelRanges::Behind(int aLabel) const {
  const auto range = std::upper_bound(fRanges.begin(), fRanges.end(), aLabel,
                                      [](int label, const TLabelRange& r) { return label < r.last; });
  return range == fRanges.end() ? 0 : std::max(range->first, aLabel + 1);
}

}  // namespace Zor::inline Base
