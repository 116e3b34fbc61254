#pragma once

#include <chrono>

#include "kaldrix/types/Events.hpp"

namespace Zor::inline Utils {

/// Thins out the mouse moves of a surface: drops one that comes both soon after the last accepted one and
/// close to it. Not enabled at creation. TMouseFilter takes whole positions, TMouseFilterS fractions.
template <class TCoordinate>
class TMouseFilterOf {
 public:
  TMouseFilterOf() = default;

  /// True when the move is to be handled.
  bool FilterMouseMove(const void* Sender, TZORShift Shift, TCoordinate X, TCoordinate Y);
  /// Forgets the last position; the time starts anew.
  void ResetPos();
  void SetEnabled(bool aValue) { FEnabled = aValue; }

 private:
  using TClock = std::chrono::steady_clock;

  struct TPosition {
    TCoordinate X;
    TCoordinate Y;
    bool operator==(const TPosition&) const = default;
  };
  /// Stands for no position yet.
  static constexpr TPosition NoPosition{-1, -1};

  Int64 Elapsed() const;
  bool IsNear(TCoordinate X, TCoordinate Y) const;

  TPosition FLastPosition = NoPosition;
  Int64 FLastUpdateTime = 0;           ///< milliseconds of FStopwatch
  Int64 FMinTimeBetweenUpdates = 50;   ///< milliseconds
  int FMinDistanceBetweenUpdates = 5;  ///< in the unit of the positions
  TClock::time_point FStopwatch = TClock::now();
  bool FEnabled = false;
};

using TMouseFilter = TMouseFilterOf<int>;
using TMouseFilterS = TMouseFilterOf<Single>;

extern template class TMouseFilterOf<int>;
extern template class TMouseFilterOf<Single>;

}  // namespace Zor::inline Utils
