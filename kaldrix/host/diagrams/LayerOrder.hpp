#pragma once

#include "kaldrix/host/diagrams/TLayerGraph.hpp"

namespace Zor::inline Host {

/// Puts the cells of each layer in an order in which few strands cross: sweeps that sort a layer by the
/// medians of its neighbours, and exchanges of neighbours (Gansner et al., 1993); crossings are counted with
/// an accumulator (Barth, Jünger and Mutzel, 2002). Where it makes no difference, long edges cross at their
/// ends, and branches stand as they were told. The same graph comes out the same way.
void OrderLayers(TLayerGraph& aGraph);

}  // namespace Zor::inline Host
