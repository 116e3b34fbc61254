// Glyphs that a PDF cannot hold as text. Only sources include it: it shows Pango's types.
#pragma once

#include <memory>
#include <span>

#include "kaldrix/host/TPath.hpp"
#include "kaldrix/host/TPicture.hpp"
#include "kaldrix/host/TShaper.hpp"

namespace Zor::inline Host {

/// The outlines of glyphs from the left end of their baseline; the unit is the em, y grows downwards. `font`
/// has `unitsPerEm`.
TPath GlyphOutlines(PangoFont* font, std::span<const TPlacedGlyph> glyphs, double unitsPerEm);

/// Glyphs as pixels, which fill `box` (parts of the em as above); null when they show nothing.
struct TGlyphPicture {
  std::shared_ptr<const TPicture> picture;
  TPaperBox box;
};
TGlyphPicture PaintGlyphs(PangoFont* font, std::span<const TPlacedGlyph> glyphs, double unitsPerEm);

}  // namespace Zor::inline Host
