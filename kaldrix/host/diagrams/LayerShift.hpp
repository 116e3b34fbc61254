#pragma once

#include "kaldrix/host/diagrams/LayeredGaps.hpp"
#include "kaldrix/host/diagrams/TLayerGraph.hpp"

namespace Zor::inline Host {

/// Makes the edges of placed cells shorter, and straight where little is missing: what hangs together by
/// straight strands moves as one, as far as its neighbours let it. No straight strand bends, and no layer
/// changes its order. n log n.
void ShiftGroups(TLayerGraph& aGraph, const TLayeredGaps& aGaps);

}  // namespace Zor::inline Host
