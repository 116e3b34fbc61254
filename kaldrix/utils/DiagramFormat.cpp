#include "kaldrix/utils/DiagramFormat.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Diagramparsers {

namespace {

struct TExtension {
  std::string_view extension;
  TZORDiagramFormat format;
};

constexpr std::array Extensions{
    TExtension{".mmd", dgMermaid},       TExtension{".mermaid", dgMermaid}, TExtension{".puml", dgPlantUML},
    TExtension{".plantuml", dgPlantUML}, TExtension{".pu", dgPlantUML},     TExtension{".iuml", dgPlantUML},
    TExtension{".wsd", dgPlantUML},
};

}  // namespace

TZORDiagramFormat ZORDiagramFormatFromExt(std::string_view aFileName) {
  const std::string extension = ExtractFileExt(aFileName);
  const auto* found = std::find_if(Extensions.begin(), Extensions.end(),
                                   [&](const TExtension& e) { return SameText(e.extension, extension); });
  return found == Extensions.end() ? dgAuto : found->format;
}

}  // namespace Zor::inline Diagramparsers
