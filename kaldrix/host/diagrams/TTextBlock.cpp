#include "kaldrix/host/diagrams/TTextBlock.hpp"

#include <algorithm>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Host {

TTextBlock MeasureBlock(TFontEngine& aFonts, std::string_view aText, const TFontSpec& aFont,
                        double aMostWidth) {
  TTextBlock block;
  const std::string_view text = Trim(aText);
  if (text.empty()) return block;
  block.lineHeight = aFonts.Measure({}, aFont).Height();
  for (const TTextLine& line : aFonts.BreakLines(text, aFont, aMostWidth)) {
    block.lines.emplace_back(text.substr(line.start, line.length));
    block.size.width = std::max(block.size.width, line.width);
  }
  block.size.height = block.lineHeight * static_cast<double>(block.lines.size());
  return block;
}

}  // namespace Zor::inline Host
