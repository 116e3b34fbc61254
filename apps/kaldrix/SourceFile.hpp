// Files that records are read from, and "-" for standard input.
#pragma once

#include <string>

#include "kaldrix/platform/TFileWindow.hpp"

namespace Zor::Program {

/// A file through a window; standard input and what else is no plain file is read whole. Raises
/// EFileNotFoundException that tells files of its kind that there are, and EStreamError.
TFileWindow OpenSourceFile(const std::string& aName);

/// The same message of a file that is to be opened elsewhere, where it does not exist.
void RequireSourceFile(const std::string& aName);

}  // namespace Zor::Program
