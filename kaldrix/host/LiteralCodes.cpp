#include "kaldrix/host/LiteralCodes.hpp"

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

std::vector<std::string> LiteralCodeProblems(const TKDXLabel& aDocument, TZOLayerOp aOption) {
  std::vector<std::string> problems;
  for (const TKDXBaseItem* item : aDocument.fItems) {
    const bool shown = item->Shows(lopVisible) && item->Shows(aOption);
    if (!shown || item->aIsData || dynamic_cast<const IZORBar1D2D*>(item) == nullptr) continue;
    const std::string problem = item->ValueProblem();
    if (!problem.empty()) problems.push_back(item->fID + ": " + problem);
  }
  return problems;
}

void CheckLiteralCodes(const TKDXLabel& aDocument) {
  std::string problems;
  for (const std::string& problem : LiteralCodeProblems(aDocument, lopPrint)) problems += "\n  " + problem;
  if (!problems.empty()) throw Exception("Barcodes of this print:" + problems);
}

}  // namespace Zor::inline Host
