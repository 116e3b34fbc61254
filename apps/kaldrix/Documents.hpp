#pragma once

#include <cstdint>
#include <string>

#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/platform/TFileSet.hpp"

namespace Zor::Program {

/// Reads a document from a file, or from standard input for "-", and gives the checksum of its bytes. Errors
/// name it. Images are looked for beside it.
std::uint32_t LoadDocument(TKDXLabel& aDocument, const std::string& aName);

/// The picture of the background may stand beside the document as well as where its name leads from here.
void FindPictures(TKDXLabel& aDocument, const std::string& aName);

/// Adds the files of the pictures that a document shows.
void AddPictures(TFileSet& aFiles, const TKDXLabel& aDocument);

}  // namespace Zor::Program
