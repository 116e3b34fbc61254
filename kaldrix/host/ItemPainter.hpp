// How each kind of item is painted and measured. What Paint puts on a surface is the picture of the item's
// SVG; lengths that SVG output rounds are exact here, and a text may be struck out and cut at its display
// width.
#pragma once

#include "kaldrix/core/TKDXBasePoint.hpp"
#include "kaldrix/host/TSurface.hpp"
#include "kaldrix/items/TKDXBaseArc.hpp"
#include "kaldrix/items/TKDXBaseBezier.hpp"
#include "kaldrix/items/TKDXBaseCircle.hpp"
#include "kaldrix/items/TKDXBaseEllipse.hpp"
#include "kaldrix/items/TKDXBaseFlow.hpp"
#include "kaldrix/items/TKDXBaseLine.hpp"
#include "kaldrix/items/TKDXBaseLink.hpp"
#include "kaldrix/items/TKDXBasePolyLine.hpp"
#include "kaldrix/items/TKDXBasePolygon.hpp"
#include "kaldrix/items/TKDXBaseRectangle.hpp"
#include "kaldrix/items/TKDXBaseSector.hpp"
#include "kaldrix/items/TKDXBaseText.hpp"
#include "kaldrix/items/ZOR.Barcode.hpp"

namespace Zor::inline Host {

/// A point shows nothing.
inline void Paint(TSurface&, const TKDXBasePoint&) {}
void Paint(TSurface& aSurface, const TKDXBaseLine& aLine);
void Paint(TSurface& aSurface, const TKDXBasePolyLine& aLine);
void Paint(TSurface& aSurface, const TKDXBaseArc& aArc);
/// A link without both its nodes shows nothing.
void Paint(TSurface& aSurface, const TKDXBaseLink& aLink);
void Paint(TSurface& aSurface, const TKDXBaseRectangle& aRect);
void Paint(TSurface& aSurface, const TKDXBasePolygon& aPolygon);
void Paint(TSurface& aSurface, const TKDXBaseBezier& aBezier);
void Paint(TSurface& aSurface, const TKDXBaseCircle& aCircle);
void Paint(TSurface& aSurface, const TKDXBaseSector& aSector);
void Paint(TSurface& aSurface, const TKDXBaseEllipse& aEllipse);
void Paint(TSurface& aSurface, const TKDXBaseText& aText);
void Paint(TSurface& aSurface, const TKDXBaseBarcode& aBarcode);
/// QR Code, Data Matrix and PDF417.
void Paint(TSurface& aSurface, const TModuleItem& aSymbol);
/// With dashes, shadow and gradient, which the SVG has not.
void Paint(TSurface& aSurface, const TKDXBaseFlow& aFlow);

/// Measures the text with `aFonts` and stores its size; the bounds follow.
void Measure(TFontEngine& aFonts, TKDXBaseText& aText);
/// Measures the font of the barcode with `aFonts` and encodes it; the bounds follow.
void Measure(TFontEngine& aFonts, TKDXBaseBarcode& aBarcode);
/// Breaks the text of the node into the lines that fit between its paddings and places them. A line that no
/// break makes short enough hangs over.
void Measure(TFontEngine& aFonts, TKDXBaseFlow& aFlow);

}  // namespace Zor::inline Host
