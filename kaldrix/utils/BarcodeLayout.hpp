// Where the bars and texts of a linear barcode lie: what is written as SVG and painted by hosts alike.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/types/Interfaces.hpp"

namespace Zor::inline Utils {

/// A bar or a run of modules, in millimetres of paper.
struct TBarRect {
  double x, y, width, height;

  friend bool operator==(const TBarRect&, const TBarRect&) = default;
};

/// Turns about a point by quarters, against the clock on the page.
TBarRect Turned(const TBarRect& aRect, double aX, double aY, TZORAngle aAngle);

/// How a text hangs on its point: by the middle, end or start of its upper edge, or by the start of its
/// baseline.
enum TBarTextHang : std::uint8_t { bhMiddle, bhEnd, bhStart, bhBaseline };

/// A text of a barcode, in millimetres of paper before the turn.
struct TBarText {
  double x, y;
  TBarTextHang hang;
  std::string text;  ///< UTF-8
};

/// Where a barcode stands.
struct TBarcodePlace {
  Int64 length = 0;  ///< of the symbol along its text, padding included, in base points of the drawn object
  Int64 scale = 1;   ///< drawing scale
  double x = 0, y = 0;        ///< anchor, millimetres of paper
  double padX = 0, padY = 0;  ///< millimetres
};

struct TBarcodeLayout {
  std::vector<TBarRect> bars;  ///< turned, from the start of the pattern to its end
  /// Not turned: each turns with the rest about (turnX, turnY).
  std::vector<TBarText> texts;
  double turnX = 0, turnY = 0;
};

/// `aCode` is the prepared code, `aPattern` its pattern.
TBarcodeLayout LayOutBarcode(const IZORBarcode& aBarcode, const TBarcodePlace& aPlace, std::string_view aCode,
                             std::string_view aPattern);

}  // namespace Zor::inline Utils
