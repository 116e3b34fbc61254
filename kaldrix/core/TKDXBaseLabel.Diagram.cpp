#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <atomic>

#include "kaldrix/core/DiagramLoader.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TextFile.hpp"
#include "kaldrix/utils/DiagramFormat.hpp"

namespace Zor::inline Base {

namespace {

std::atomic<TZORDiagramLoader> Loader = nullptr;

}  // namespace

void ZORSetDiagramLoader(TZORDiagramLoader aLoader) { Loader = aLoader; }

bool TKDXBaseLabel::LoadFromDiagramText(const std::string& aText, TZORDiagramFormat aFormat) {
  const TZORDiagramLoader loader = Loader;
  return loader != nullptr && loader(*this, aText, aFormat);
}

bool TKDXBaseLabel::LoadFromDiagram(const std::string& aFilename, TZORDiagramFormat aFormat) {
  if (!FileExists(aFilename)) return false;
  const std::string text = TextOfFile(ReadFile(aFilename), aFilename);
  return LoadFromDiagramText(text, aFormat == dgAuto ? ZORDiagramFormatFromExt(aFilename) : aFormat);
}

}  // namespace Zor::inline Base
