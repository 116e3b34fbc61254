#include "kaldrix/utils/TMouseFilter.hpp"

#include <cmath>

namespace Zor::inline Utils {

template <class TCoordinate>
bool TMouseFilterOf<TCoordinate>::FilterMouseMove(const void* /*Sender*/, TZORShift /*Shift*/, TCoordinate X,
                                                  TCoordinate Y) {
  if (!FEnabled) return true;
  const Int64 now = Elapsed();
  if (FLastPosition != NoPosition && now - FLastUpdateTime < FMinTimeBetweenUpdates && IsNear(X, Y))
    return false;
  FLastPosition = {X, Y};
  FLastUpdateTime = now;
  return true;
}

template <class TCoordinate>
void TMouseFilterOf<TCoordinate>::ResetPos() {
  FLastPosition = NoPosition;
  FLastUpdateTime = Elapsed();
}

template <class TCoordinate>
Int64 TMouseFilterOf<TCoordinate>::Elapsed() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(TClock::now() - FStopwatch).count();
}

template <class TCoordinate>
bool TMouseFilterOf<TCoordinate>::IsNear(TCoordinate X, TCoordinate Y) const {
  const double dx = static_cast<double>(X) - static_cast<double>(FLastPosition.X);
  const double dy = static_cast<double>(Y) - static_cast<double>(FLastPosition.Y);
  return std::hypot(dx, dy) < FMinDistanceBetweenUpdates;
}

template class TMouseFilterOf<int>;
template class TMouseFilterOf<Single>;

}  // namespace Zor::inline Utils
