#pragma once

#include <cstddef>
#include <string>

namespace Zor::inline Base {

/// Called for each member that is appended to a buffer: once some hundred of `aCount` alike members, which
/// begin at `aHead`, are there, takes room for all, so that a large buffer is not copied as it grows.
inline void ReserveAlike(std::string& aBuffer, std::size_t aHead, int aWritten, int aCount) {
  constexpr int membersToEstimate = 1000;
  if (aWritten != membersToEstimate) return;
  constexpr double allowance = 1.05;  // Numbers get longer.
  const double each = static_cast<double>(aBuffer.size() - aHead) / aWritten;
  aBuffer.reserve(aHead + static_cast<std::size_t>(each * aCount * allowance));
}

}  // namespace Zor::inline Base
