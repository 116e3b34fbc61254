// The languages of diagram text.
#pragma once

#include <string_view>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Diagramparsers {

/// By the extension in any case; dgAuto for an unknown one.
TZORDiagramFormat ZORDiagramFormatFromExt(std::string_view aFileName);

}  // namespace Zor::inline Diagramparsers
