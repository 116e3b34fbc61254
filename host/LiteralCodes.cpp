#include "host/LiteralCodes.hpp"

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

void CheckLiteralCodes(const TKDXLabel& aDocument) {
  std::string problems;
  for (const TKDXBaseItem* item : aDocument.fItems) {
    const bool printed = item->Shows(lopVisible) && item->Shows(lopPrint);
    if (!printed || item->aIsData || dynamic_cast<const IZORBar1D2D*>(item) == nullptr) continue;
    const std::string problem = item->ValueProblem();
    if (!problem.empty()) problems += "\n  " + item->fID + ": " + problem;
  }
  if (!problems.empty()) throw Exception("Barcodes of this print:" + problems);
}

}  // namespace Zor::inline Host
