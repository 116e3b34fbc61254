#pragma once

#include <string>
#include <vector>

#include "kaldrix/host/TKDXLabel.hpp"

namespace Zor::inline Host {

/// A line for every shown barcode without data of which a reader would not find the code: its name, and why.
/// Shown is what has `aOption` (lopPrint or lopExport) and is visible, as its layer is.
std::vector<std::string> LiteralCodeProblems(const TKDXLabel& aDocument, TZOLayerOp aOption);

/// Raises Exception that names those which are printed.
void CheckLiteralCodes(const TKDXLabel& aDocument);

}  // namespace Zor::inline Host
