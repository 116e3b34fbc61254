// What turns diagram text into items. It is supplied from outside: the document knows no layout.
#pragma once

#include <string>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// Draws the diagram that the text tells in the document; false when there was nothing to draw.
using TZORDiagramLoader = bool (*)(TKDXBaseLabel& aDocument, const std::string& aText,
                                   TZORDiagramFormat aFormat);

/// Registers the loader for all documents of the process; null takes it away.
void ZORSetDiagramLoader(TZORDiagramLoader aLoader);

}  // namespace Zor::inline Base
