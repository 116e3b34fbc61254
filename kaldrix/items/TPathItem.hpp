#pragma once

#include <algorithm>

#include "kaldrix/core/TKDXBaseItem.hpp"
#include "kaldrix/items/PointPath.hpp"
#include "kaldrix/items/TSvgElement.hpp"

namespace Zor::inline Base {

/// An item of a free number of points, over a styled item. It may have no points at all.
template <class TBase>
class TPathItem : public TBase {
 public:
  /// `aCount` sizes the point array.
  TPathItem(TKDXBaseLabel& aOwner, TZORItemType aType, int aCount, bool aPreview)
      : TBase(aOwner, aType, aPreview) {
    SizePoints(aCount);
  }
  TPathItem(TKDXBaseLabel& aOwner, TZORItemType aType, TKDXLayer& aLayer, int aCount, bool aPreview)
      : TBase(aOwner, aType, aLayer, aPreview) {
    SizePoints(aCount);
  }

  /// The segment at the position, 1-based, or -1; see the free function.
  int PickLines(Int64 x, Int64 y, int gap) const {
    return Base::PickLines(this->fPoints, this->fItemType == itPolygon, x, y, gap);
  }

  // Operations of the classes -----------------------------------------------

  /// Puts (bx, by), base points, behind the first point of the segment there; false without a segment.
  /// Neither recorded nor reported.
  bool InsertPoint(Int64 bx, Int64 by, int gap) override {
    const int segment = PickLines(bx, by, gap);
    if (segment < 1) return false;
    const typename TBase::TEdit edit(*this);
    this->fPoints.insert(this->fPoints.begin() + segment, TZORPto{bx, by});
    this->UpdateBounds();
    return true;
  }
  /// The mean of the points; (0, 0) without points.
  TZORBase CenterPoint() const override { return MeanPoint(this->fPoints); }

 protected:
  /// "x,y x,y ..." in millimetres of paper, from point `aFrom` on, 1-based.
  void WritePairs(TSvgElement& aElement, int aFrom) const {
    for (int i = aFrom; i <= this->NumPoints(); ++i) {
      if (i > aFrom) aElement.Raw(" ");
      aElement.Pair(this->GetPointMMX(i), this->GetPointMMY(i));
    }
  }
  /// Appends the terminators at both ends, of items that have them; none without a second point.
  void WriteTermsAtEnds(TSvgList& svg, TZORExportSVG aType, Single aFactor) const {
    const int last = this->NumPoints();
    if (last < 2) return;
    this->WriteFromTerm(svg, aType, aFactor, this->GetPointMMX(1), this->GetPointMMY(1), this->GetPointMMX(2),
                        this->GetPointMMY(2), false);
    this->WriteToTerm(svg, aType, aFactor, this->GetPointMMX(last), this->GetPointMMY(last),
                      this->GetPointMMX(last - 1), this->GetPointMMY(last - 1), false);
  }

 private:
  void SizePoints(int aCount) { this->fPoints.resize(static_cast<std::size_t>((std::max)(aCount, 0))); }
};

}  // namespace Zor::inline Base
