#pragma once

#include <cstdint>

#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {

/// How the y of a text is told in SVG.
enum TSvgTextForm : std::uint8_t {
  /// As the edge or middle that the text hangs by, named in `alignment-baseline`: the elements of the items
  /// to the letter. Browsers heed the attribute on a `text`; most other readers do not, and draw it too high.
  stExact,
  /// As its baseline, from what the host measured: every reader shows the text in its place.
  stPortable
};

/// How a document writes itself as SVG.
struct TSvgWriting {
  TZORExportSVG type = svCurrentUnit;
  Single factor = 1;
  /// Elements carry the names of their items.
  bool ids = false;
  TSvgTextForm text = stExact;
};

/// The part of the paper that an SVG shows, millimetres.
struct TSvgWindow {
  double x = 0, y = 0, width = 0, height = 0;
};

}  // namespace Zor::inline Base
