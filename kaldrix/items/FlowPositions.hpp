// The places on a flow node where links end.
#pragma once

#include <span>

#include "kaldrix/types/Records.hpp"
#include "kaldrix/types/TZORRect.hpp"

namespace Zor::inline F2d {

/// The link position `aPos` (1 to 16, clockwise from the top left corner) of an outline in `aBounds`, base
/// points. False, and `aPoint` unchanged, for a position that the outline does not have.
bool FlowPosition(TZORFlowType aType, const TZORRect& aBounds, std::uint16_t aPos, TZORBase& aPoint);

/// The positions that an outline offers to the end of a link, in the order in which they are tried.
std::span<const std::uint8_t> FlowOffers(TZORFlowType aType);

}  // namespace Zor::inline F2d
