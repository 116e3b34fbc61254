#pragma once

#include <string>

#include "host/TKDXLabel.hpp"

namespace Zor::Program {

/// Reads a document from a file, or from standard input for "-". Errors name it. Images are looked for beside
/// it.
void LoadDocument(TKDXLabel& aDocument, const std::string& aName);

}  // namespace Zor::Program
