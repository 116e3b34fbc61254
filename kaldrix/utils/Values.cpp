#include "kaldrix/utils/Values.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <compare>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/types/Units.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {
namespace {

double DotsFromBase(Int64 aBase, int aDpi, Int64 aScale) {
  return static_cast<double>(MulHeld(aBase, aDpi)) / (static_cast<double>(aScale) * BaseInInch);
}

int ToInt(double aValue) { return static_cast<int>(std::clamp<Int64>(Round(aValue), INT32_MIN, INT32_MAX)); }

}  // namespace

Int64 AdjustGrid(Int64 aValue, Int64 aGrid) {
  if (aGrid < 1) return aValue;
  const Int64 quotient = aValue / aGrid;
  const bool next = aValue % aGrid > aGrid / 2;
  return MulHeld(aGrid, next ? quotient + 1 : quotient);
}

Int64 AdjustGrid(Int64 aValue, Int64 aGrid, bool aUp) {
  if (aGrid < 1) return aValue;
  Int64 quotient = aValue / aGrid;
  if (aUp) {
    quotient = AddHeld(quotient, 1);
  } else if (aValue % aGrid == 0) {
    quotient = SubHeld(quotient, 1);
  }
  return MulHeld(aGrid, std::max<Int64>(quotient, 0));
}

Int64 Distance(Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
  const Int64 dx = Span(x1, x2);
  const Int64 dy = Span(y1, y2);
  if (dx == 0) return std::abs(dy);
  if (dy == 0) return std::abs(dx);
  return RoundHeld(std::sqrt(SquareSum(dx, dy)));
}

Single Distance(Single x1, Single y1, Single x2, Single y2) {
  if (x1 == x2) return std::fabs(y2 - y1);
  if (y1 == y2) return std::fabs(x2 - x1);
  const double dx = double{x2} - x1;
  const double dy = double{y2} - y1;
  return static_cast<Single>(std::nearbyint(std::sqrt(dx * dx + dy * dy)));
}

int ScalePos(int pos, int dpi) {
  return dpi == ScreenDpi ? pos : ToInt(static_cast<double>(pos) * dpi / ScreenDpi);
}

Single ScalePos(Single pos, int dpi) {
  return dpi == ScreenDpi ? pos : static_cast<Single>(double{pos} * dpi / ScreenDpi);
}

int RevScalePos(int pos, int dpi) {
  return dpi == ScreenDpi ? pos : ToInt(static_cast<double>(pos) * ScreenDpi / dpi);
}

Single DegAngle(TZORAngle aAngle) { return static_cast<Single>(-90 * static_cast<int>(aAngle)); }

Single PrintAngle(TZORAngle aAngle) {
  constexpr std::array<Single, 4> radians{0.0F, -1.5707964F, -3.1415927F, -4.712389F};
  return aAngle < radians.size() ? radians[aAngle] : 0.0F;
}

double Median(std::span<double> aValues) {
  if (aValues.empty()) return 0;
  // A total order, so that a value that is no number cannot upset the sort.
  std::sort(aValues.begin(), aValues.end(), [](double a, double b) { return std::strong_order(a, b) < 0; });
  const std::size_t middle = aValues.size() / 2;
  if (aValues.size() % 2 == 1) return aValues[middle];
  return (aValues[middle - 1] + aValues[middle]) / 2;
}

Single DrawFromBaseX(Int64 aBase, const TKDXBaseDraw& drw) {
  return static_cast<Single>(DotsFromBase(aBase, drw.fDpix, drw.fDrawScale));
}

Single DrawFromBaseY(Int64 aBase, const TKDXBaseDraw& drw) {
  return static_cast<Single>(DotsFromBase(aBase, drw.fDpiy, drw.fDrawScale));
}

Int64 PrintFromBaseX(Int64 aBase, const TKDXBaseDraw& drw) {
  return Round(DotsFromBase(aBase, drw.fDpix, drw.fDrawScale));
}

Int64 PrintFromBaseY(Int64 aBase, const TKDXBaseDraw& drw) {
  return Round(DotsFromBase(aBase, drw.fDpiy, drw.fDrawScale));
}

Cardinal StrToCardinal(std::string_view aText) {
  const std::size_t first = std::min(aText.find_first_not_of(' '), aText.size());
  const std::size_t last = aText.find_last_not_of(' ') + 1;
  const std::string_view digits = aText.substr(first, std::max(first, last) - first);
  Cardinal number = 0;
  const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || stop != digits.data() + digits.size()) {
    throw EConvertError("StrToCardinal invalid value");
  }
  return number;
}

}  // namespace Zor::inline Utils
