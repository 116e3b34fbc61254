#pragma once

#include "kaldrix/core/TKDX2DItem.hpp"
#include "kaldrix/items/TSvgElement.hpp"

namespace Zor::inline Base {

/// Closes the quote of a shape's geometry and writes fill and stroke.
inline void AppendPaint(TSvgElement& aElement, const TKDX2DItem& aItem) {
  aElement.Raw(aItem.fFill ? "\" " : "\"").Fill(aItem.fBackColor, aItem.fFill).Raw(" ").Stroke(aItem.fColor);
}

}  // namespace Zor::inline Base
