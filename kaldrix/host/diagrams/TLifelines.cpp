#include "kaldrix/host/diagrams/TLifelines.hpp"

#include <algorithm>

namespace Zor::inline Host {

namespace {

/// Gaps that grow by ranges and are summed from the first one on, each in logarithmic time (Fenwick 1994):
/// one tree holds what each place adds to the gaps behind it, the other takes back what that adds too much.
class TGapSums {
 public:
  explicit TGapSums(const std::vector<double>& aGaps)
      : fStart(aGaps.size() + 1), fSlope(fStart), fOffset(fStart) {
    for (std::size_t i = 0; i < aGaps.size(); ++i) fStart[i + 1] = fStart[i] + aGaps[i];
  }

  /// The sum of the gaps before the place.
  double Before(std::size_t aPlace) const {
    return fStart[aPlace] + Sum(fSlope, aPlace) * static_cast<double>(aPlace) - Sum(fOffset, aPlace);
  }
  /// To each gap from `aFirst` to just before `aEnd`.
  void Widen(std::size_t aFirst, std::size_t aEnd, double aBy) {
    AddFrom(aFirst, aBy);
    AddFrom(aEnd, -aBy);
  }

 private:
  void AddFrom(std::size_t aPlace, double aBy) {
    Add(fSlope, aPlace, aBy);
    Add(fOffset, aPlace, aBy * static_cast<double>(aPlace));
  }
  static void Add(std::vector<double>& aTree, std::size_t aPlace, double aBy) {
    for (std::size_t i = aPlace + 1; i < aTree.size(); i += i & (~i + 1)) aTree[i] += aBy;
  }
  static double Sum(const std::vector<double>& aTree, std::size_t aCount) {
    double sum = 0;
    for (std::size_t i = aCount; i > 0; i &= i - 1) sum += aTree[i];
    return sum;
  }

  std::vector<double> fStart, fSlope, fOffset;
};

}  // namespace

void TLifelines::Spread(std::size_t aFirst, std::size_t aSecond, double aDistance) {
  const auto [first, second] = std::minmax(aFirst, aSecond);
  if (second - first == 1) {
    fGaps[first] = std::max(fGaps[first], aDistance);
  } else if (second > first) {
    fSpans.push_back({first, second, aDistance});
  }
}

void TLifelines::NeedLeft(std::size_t aLine, double aRoom, double aGap) {
  if (aLine == 0) {
    fLeft = std::max(fLeft, aRoom);
  } else {
    Spread(aLine - 1, aLine, aRoom + aGap);
  }
}

void TLifelines::NeedRight(std::size_t aLine, double aRoom, double aGap) {
  if (aLine + 1 == fGaps.size()) {
    fRight = std::max(fRight, aRoom);
  } else {
    Spread(aLine, aLine + 1, aRoom + aGap);
  }
}

void TLifelines::Place() {
  std::stable_sort(fSpans.begin(), fSpans.end(),
                   [](const TSpan& a, const TSpan& b) { return a.second - a.first < b.second - b.first; });
  TGapSums sums(fGaps);
  for (const TSpan& span : fSpans) {
    const double lacking = span.distance - (sums.Before(span.second) - sums.Before(span.first));
    if (lacking <= 0) continue;
    sums.Widen(span.first, span.second, lacking / static_cast<double>(span.second - span.first));
  }
  for (std::size_t i = 0; i < fGaps.size(); ++i) fPlaces.push_back(fLeft + sums.Before(i));
}

double TLifelines::Width() const { return fPlaces.empty() ? 0 : fPlaces.back() + fRight; }

}  // namespace Zor::inline Host
