// Measures what an eye would complain about in a drawing of flow nodes, links and texts.
#pragma once

#include <string>
#include <vector>

#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/items/TKDXBaseLink.hpp"

namespace Zor::Testing {

struct TSpot {
  double x = 0, y = 0;
};

/// A drawn line as a chain of short straight pieces.
using TTrace = std::vector<TSpot>;

/// The way of a link, base points; curves are sampled.
TTrace TraceOf(const TKDXBaseLink& aLink);

/// How often traces cross each other; where they meet or run along each other is no crossing.
int Crossings(const std::vector<TTrace>& aTraces);
std::vector<TTrace> LinkTraces(const TKDXLabel& aDocument);
/// The edges in the output of `dot -Tplain`, to the scale of base points.
std::vector<TTrace> PlainTraces(const std::string& aPlain);

/// What is wrong, a sentence each: nodes that overlap, texts on nodes or on each other, links that run
/// through nodes which they do not join, items beyond the page.
std::vector<std::string> Complaints(const TKDXLabel& aDocument);

}  // namespace Zor::Testing
