// Where the lifelines of a sequence diagram stand.
#pragma once

#include <vector>

namespace Zor::inline Host {

/// Collects how far lifelines have to stand apart, and places them. All lengths are millimetres.
class TLifelines {
 public:
  explicit TLifelines(std::size_t aCount) : fGaps(aCount) {}

  /// Two lifelines have to stand that far apart.
  void Spread(std::size_t aFirst, std::size_t aSecond, double aDistance);
  /// Something takes up so much on the left or right of a lifeline, and `aGap` more up to the next lifeline.
  void NeedLeft(std::size_t aLine, double aRoom, double aGap);
  void NeedRight(std::size_t aLine, double aRoom, double aGap);

  /// Makes the places: neighbours as close as they may be, and what a longer span lacks goes to its gaps in
  /// equal parts, the shorter spans first.
  void Place();

  double operator[](std::size_t aLine) const { return fPlaces[aLine]; }
  /// From the left of the first lifeline's things to the right of the last one's.
  double Width() const;

 private:
  struct TSpan {
    std::size_t first, second;
    double distance;
  };
  std::vector<TSpan> fSpans;
  std::vector<double> fGaps;  ///< behind each lifeline
  double fLeft = 0, fRight = 0;
  std::vector<double> fPlaces;
};

}  // namespace Zor::inline Host
