// How large the outlines of flow nodes are for their texts, and where links end on them.
#pragma once

#include <array>
#include <vector>

#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

namespace Zor::inline Host {

/// The box, in whole millimetres, of an outline that holds a text of that size.
TLayoutSize FlowSize(TZORFlowType aShape, const TLayoutSize& aText);

/// The part in the middle of such a box that belongs to the text.
TLayoutSize FlowTextArea(TZORFlowType aShape, const TLayoutSize& aBox);

/// The ends for links, by TLayoutSide: those that lie on the outline and can be told apart.
std::array<std::vector<TLayoutPort>, 4> FlowPorts(TZORFlowType aShape, const TLayoutSize& aBox);

}  // namespace Zor::inline Host
