// Texts of diagrams, broken into lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/host/TFontEngine.hpp"
#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

namespace Zor::inline Host {

/// Lines one below the other; lengths are millimetres. An empty text has no lines and no size.
struct TTextBlock {
  std::vector<std::string> lines;
  double lineHeight = 0;
  TLayoutSize size;
};

/// Breaks the text at its line ends, and where a line would be wider than `aMostWidth`. Empty lines at either
/// end are left out.
TTextBlock MeasureBlock(TFontEngine& aFonts, std::string_view aText, const TFontSpec& aFont,
                        double aMostWidth);

}  // namespace Zor::inline Host
