#include "apps/kaldrix/Documents.hpp"

#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/platform/CheckSum.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::Program {

std::uint32_t LoadDocument(TKDXLabel& aDocument, const std::string& aName) {
  if (aName != "-") aDocument.fImageFolder = ExtractFileDir(ExpandFileName(aName));
  const std::string bytes = ReadInput(aName);
  try {
    aDocument.LoadFromBytes(bytes);
  } catch (const Exception& error) {
    throw Exception(ToldName(aName) + ": " + error.what());
  }
  return CheckSum(bytes);
}

}  // namespace Zor::Program
