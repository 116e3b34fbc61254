#include "kaldrix/items/TKDXBaseSector.hpp"

#include <array>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/items/AngleFields.hpp"
#include "kaldrix/items/ShapePaint.hpp"
#include "kaldrix/items/TFitExtent.hpp"
#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor::inline F2d {

namespace {

constexpr Single FullTurn = 360;
constexpr Single LeastStart = -359;
constexpr Single QuarterTurn = 90;

double Radians(double aDegrees) { return aDegrees * TDraw2D::Pi / 180; }

}  // namespace

// Angles ----------------------------------------------------------------------------

void TKDXBaseSector::SetAngleStart(Single aValue) {
  const Single start = std::clamp(Finite(aValue), LeastStart, FullTurn);
  if (start == fAngleStart) return;
  const TEdit edit(*this);
  fAngleStart = start;
  AdjustStartAngle();
  StateUpdate();
}

void TKDXBaseSector::SetAngleGap(Single aValue) {
  const Single most = FullTurn - std::fabs(fAngleStart);
  const Single gap = std::clamp(Finite(aValue), 0.0F, most);
  if (gap == fAngleGap) return;
  const TEdit edit(*this);
  fAngleGap = gap;
  StateUpdate();
}

void TKDXBaseSector::AdjustStartAngle() {
  fCalcStart = fAngleStart - static_cast<Single>(fAngle) * QuarterTurn;
}

void TKDXBaseSector::SetAngle(TZORAngle aValue) {
  TKDXBaseItem::SetAngle(aValue);
  AdjustStartAngle();
}

void TKDXBaseSector::RotateLeft() {
  TKDXBaseItem::RotateLeft();
  AdjustStartAngle();
}

void TKDXBaseSector::RotateRight() {
  TKDXBaseItem::RotateRight();
  AdjustStartAngle();
}

double TKDXBaseSector::FirstAngle() const { return Radians(fCalcStart); }
double TKDXBaseSector::LastAngle() const { return Radians(double{fCalcStart} + double{fAngleGap}); }

// Searching and extent --------------------------------------------------------------

bool TKDXBaseSector::SearchRect(const TZORRect& aRect, bool aInt) const {
  if (!TKDX2DItem::SearchRect(aRect, aInt)) return false;
  if (!aInt || aRect.Contains(fBoundsRect)) return true;
  const std::array<TZORPto, 4> corners{{{aRect.Left, aRect.Top},
                                        {aRect.Right, aRect.Top},
                                        {aRect.Left, aRect.Bottom},
                                        {aRect.Right, aRect.Bottom}}};
  return std::any_of(corners.begin(), corners.end(), [this](const TZORPto& corner) {
    return TDraw2D::PointInCircle(fBaseX, fBaseY, fBaseRadio, corner.bX, corner.bY, 0);
  });
}

void TKDXBaseSector::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  TFitExtent fit(aMinX, aMaxX, aMinY, aMaxY);
  if (IsWhole()) return fit.Add({fBaseX, fBaseY}, fBaseRadio);
  // Intended: the bow between the two ends takes no part.
  fit.Add({fBaseX, fBaseY}, 0);
  fit.Add(Circle().At(FirstAngle()), 0);
  fit.Add(Circle().At(LastAngle()), 0);
}

// Persistence -----------------------------------------------------------------------

void TKDXBaseSector::Record(TRecord& r) {
  TKDX2DItem::Record(r);
  RecordLineType(r);
  RecordAngle(r, fAngleStart, "AngleStart");
  RecordAngle(r, fAngleGap, "AngleGap");
}

void TKDXBaseSector::AfterRead(TZORReadType aReadType) {
  TStyledItem::AfterRead(aReadType);
  AdjustStartAngle();
}

std::unique_ptr<TJsonObject> TKDXBaseSector::WriteJson() const {
  auto json = TKDX2DItem::WriteJson();
  WriteLineType(*json);
  PutSingle(*json, "StartAngle", fAngleStart);
  PutSingle(*json, "SweepAngle", fAngleGap);
  return json;
}

void TKDXBaseSector::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDX2DItem::ReadJson(aVersion, aJson);
  ReadLineType(aJson);
  fAngleStart = static_cast<Single>(GetAngleField(aJson, "StartAngle"));
  fAngleGap = static_cast<Single>(GetAngleField(aJson, "SweepAngle"));
  AdjustStartAngle();
  UpdateBounds();
}

// SVG -------------------------------------------------------------------------------

void TKDXBaseSector::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                              bool attrID) const {
  if (IsWhole()) return WriteCircle(svg, aExportType, aFactor, attrID, fLineType);
  if (!IsPainted()) return;
  const auto x = [this](double aAngle) { return XFromBaseAngle(fBaseX, fBaseRadio, aAngle); };
  const auto y = [this](double aAngle) { return YFromBaseAngle(fBaseY, fBaseRadio, aAngle); };
  const double radius = GetMM(fBaseRadio), first = FirstAngle(), last = LastAngle();
  TSvgElement path(aExportType, aFactor);
  path.Raw("<path").Raw(GetSVGID(attrID)).Raw(" d=\"M").Pair(GetMM(fBaseX), GetMM(fBaseY));
  path.Raw(" L").Pair(x(first), y(first)).Raw(" A").Pair(radius, radius);
  path.Raw(fAngleGap > 180 ? " 0 1,1 " : " 0 0,1 ").Pair(x(last), y(last)).Raw(" Z");
  AppendPaint(path, *this);
  path.Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\" ").Dash(fLineType).Raw("/>");
  svg.push_back(path.Take());
}

}  // namespace Zor::inline F2d
