#include "kaldrix/utils/TDraw2D.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/utils/Values.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {

// --- Scalars and vectors -----------------------------------------------------------------------------------

Int64 TDraw2D::Distance(Int64 x1, Int64 y1, Int64 x2, Int64 y2) { return Utils::Distance(x1, y1, x2, y2); }

Int64 TDraw2D::Int64Sqrt(Int64 aValue) { return TruncHeld(std::sqrt(static_cast<double>(aValue))); }

double TDraw2D::Magnitude(Int64 x, Int64 y) { return std::sqrt(SquareSum(Span(0, x), Span(0, y))); }

Int64 TDraw2D::DotProduct(Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
  return ToInt64Held(WideDot(Span(0, x1), Span(0, y1), Span(0, x2), Span(0, y2)));
}

double TDraw2D::CrossProduct(double x1, double y1, double x2, double y2, double x3, double y3) {
  return (x2 - x1) * (y3 - y1) - (y2 - y1) * (x3 - x1);
}

TZORPto64 TDraw2D::VectorPerpendicular(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2) {
  return {Span(Y2, Y1), Span(X1, X2)};
}

TPointF TDraw2D::VectorPerpendicular(Single X1, Single Y1, Single X2, Single Y2) {
  return {Y1 - Y2, X2 - X1};
}

Int64 TDraw2D::PointSide(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2, Int64 PX, Int64 PY) {
  const TZORPto64 normal = VectorPerpendicular(X1, Y1, X2, Y2);
  return ToInt64Held(WideDot(normal.X, normal.Y, Span(X1, PX), Span(Y1, PY)));
}

Int64 TDraw2D::DistancePointToLine(Int64 pX, Int64 pY, Int64 ax1, Int64 ay1, Int64 ax2, Int64 ay2) {
  const Int64 dx = Span(ax1, ax2);
  const Int64 dy = Span(ay1, ay2);
  const Int64 length = TruncHeld(std::sqrt(SquareSum(dx, dy)));
  if (length == 0) return 0;
  const Int128 equation = WideCross(dx, dy, Span(ax1, pX), Span(ay1, pY));
  return ToInt64Held((equation < 0 ? -equation : equation) / length);
}

double TDraw2D::AnglePointToLine(Int64 pX, Int64 pY, Int64 ax1, Int64 ay1, Int64 ax2, Int64 ay2) {
  constexpr double degreesInRadian = 57.29577951308232;
  const Int64 lx = Span(ax1, ax2);
  const Int64 ly = Span(ay1, ay2);
  const Int64 rx = Span(ax1, pX);
  const Int64 ry = Span(ay1, pY);
  const double cosine = ToDouble(WideDot(lx, ly, rx, ry)) / (Magnitude(lx, ly) * Magnitude(rx, ry));
  return std::acos(std::clamp(cosine, -1.0, 1.0)) * degreesInRadian;
}

// --- Angles ------------------------------------------------------------------------------------------------

double TDraw2D::NormalizeAngle(double angle) {
  if (angle >= 0 && angle <= TwoPi) return angle;
  return angle - std::floor(angle / TwoPi) * TwoPi;
}

double TDraw2D::AngleDiff(double a, double b) {
  const double difference = std::fabs(a - b);
  return difference > Pi ? TwoPi - difference : difference;
}

double TDraw2D::SweepCCW(double aStart, double aEnd) {
  const double sweep = aEnd - aStart;
  return sweep < 0 ? sweep + TwoPi : sweep;
}

double TDraw2D::ArcSweep(double aStartAng, double aEndAng, bool aClockWise) {
  if (aClockWise) return (aStartAng > aEndAng ? aEndAng + TwoPi : aEndAng) - aStartAng;
  return aStartAng - (aEndAng > aStartAng ? aEndAng - TwoPi : aEndAng);
}

double TDraw2D::ArcParam(double startAng, double /*endAng*/, bool aClockWise, double ang) {
  return ArcSweep(NormalizeAngle(startAng), NormalizeAngle(ang), aClockWise);
}

bool TDraw2D::ArcContainsAngle(double angStart, double angEnd, double angFind, bool ClockWise) {
  if (angStart > angEnd) {
    std::swap(angStart, angEnd);
    ClockWise = !ClockWise;
  }
  if (ClockWise) return angStart <= angFind && angFind <= angEnd;
  return angFind <= angStart || angFind >= angEnd;
}

bool TDraw2D::IsAngleWithinArc(double angle, double initialAngle, double finalAngle) {
  const auto centred = [](double x) { return x - std::floor((x + Pi) / TwoPi) * TwoPi; };
  const double found = centred(angle);
  const double first = centred(initialAngle);
  const double last = centred(finalAngle);
  if (last >= first) return first <= found && found <= last;
  return found >= first || found <= last;
}

}  // namespace Zor::inline Utils
