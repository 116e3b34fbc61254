// Labels of a run that show again what labels before them have shown, since a sequence came to its end.
#pragma once

#include <string>
#include <vector>

#include "kaldrix/host/TLabelRun.hpp"

namespace Zor::inline Host {

/// The counters in use that end before the labels do, a sentence each: which labels would show which value
/// again.
std::vector<std::string> SpentCounters(const TKDXLabel& aDocument, const TLabelRun& aRun);

/// Where records and counters do not end together, a sentence each: labels that show the last record again,
/// and values of counters that no label comes to.
std::vector<std::string> UnevenEnds(const TKDXLabel& aDocument, const TLabelRun& aRun);

}  // namespace Zor::inline Host
