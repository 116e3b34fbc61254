#include "apps/kaldrix/Documents.hpp"

#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::Program {

void LoadDocument(TKDXLabel& aDocument, const std::string& aName) {
  if (aName != "-") {
    aDocument.fImageFolder = ExtractFileDir(ExpandFileName(aName));
    return aDocument.LoadFromFile(aName);
  }
  const std::string bytes = ReadInput(aName);
  try {
    aDocument.LoadFromBytes(bytes);
  } catch (const Exception& error) {
    throw Exception("standard input: " + std::string(error.what()));
  }
}

}  // namespace Zor::Program
