#pragma once

#include <cstdint>
#include <string>

#include "kaldrix/host/TKDXLabel.hpp"

namespace Zor::Program {

/// Reads a document from a file, or from standard input for "-", and gives the checksum of its bytes. Errors
/// name it. Images are looked for beside it.
std::uint32_t LoadDocument(TKDXLabel& aDocument, const std::string& aName);

}  // namespace Zor::Program
