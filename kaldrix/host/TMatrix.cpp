#include "kaldrix/host/TMatrix.hpp"

#include <numbers>

namespace Zor::inline Host {

TMatrix TMatrix::Rotation(double degrees) {
  const double turn = std::fmod(Finite(degrees), 360.0);
  double c = std::cos(turn * std::numbers::pi / 180), s = std::sin(turn * std::numbers::pi / 180);
  if (std::fmod(turn, 90.0) == 0) {
    c = std::round(c);
    s = std::round(s);
  }
  return {c, s, -s, c, 0, 0};
}

}  // namespace Zor::inline Host
