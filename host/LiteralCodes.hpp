#pragma once

#include "host/TKDXLabel.hpp"

namespace Zor::inline Host {

/// Raises Exception that names every printed barcode without data of which a reader would not find the code.
void CheckLiteralCodes(const TKDXLabel& aDocument);

}  // namespace Zor::inline Host
