#include <gtest/gtest.h>

#include "kaldrix/host/TShaper.hpp"

namespace Zor {
namespace {

/// The short way of plain texts gives the glyphs and places that are painted.
TEST(TShaper, PlainTextsAreShapedAsTheyArePainted) {
  TShaper shaper;
  const char* texts[] = {"Hamburg",     "AVATAR To. W.A.",    "office fluffy",   "0123456789",
                         "A1-B2/C3_#*", "  blanks  in ",      "(x) [y] {z} <w>", "fi",
                         "\"quoted\"",  "1/2 % $ & @ ~ ^ ` |"};
  const TFontSpec fonts[] = {{},
                             {.name = "DejaVu Sans"},
                             {.name = "Liberation Serif", .bold = true, .italic = true},
                             {.name = "DejaVu Sans Mono"},
                             {.name = "DejaVu Math TeX Gyre", .bold = true, .italic = true},
                             {.name = "No Such Family,DejaVu Serif"},
                             {.name = "Liberation Sans Narrow"}};
  for (const TFontSpec& font : fonts) {
    const TFace& face = shaper.Face(font);
    EXPECT_TRUE(face.plain['A']) << font.name << ": the short way would not be tried";
    for (const char* text : texts) {
      const TGlyphLine plain = shaper.Glyphs(text, face);
      const TShapedLine painted = shaper.Shape(text, face);
      const double em = painted.unitsPerEm * PANGO_SCALE;
      EXPECT_NEAR(plain.width, painted.width / painted.unitsPerEm, 1e-6) << text;
      std::size_t at = 0;
      for (const GSList* l = painted.line->runs; l != nullptr; l = l->next) {
        const auto* run = static_cast<const PangoLayoutRun*>(l->data);
        ASSERT_EQ(run->item->analysis.font, plain.runs.at(0).font) << font.name << ": " << text;
        for (int i = 0; i < run->glyphs->num_glyphs; ++i, ++at) {
          ASSERT_LT(at, plain.glyphs.size()) << text;
          const TPlacedGlyph& glyph = plain.glyphs[at];
          EXPECT_EQ(glyph.glyph, run->glyphs->glyphs[i].glyph) << text;
          EXPECT_EQ(glyph.cluster,
                    static_cast<std::size_t>(run->item->offset + run->glyphs->log_clusters[i]));
          EXPECT_NEAR(glyph.advance, run->glyphs->glyphs[i].geometry.width / em, 1e-6) << text;
          EXPECT_NEAR(glyph.x, run->glyphs->glyphs[i].geometry.x_offset / em, 1e-6) << text;
          EXPECT_NEAR(glyph.y, -run->glyphs->glyphs[i].geometry.y_offset / em, 1e-6) << text;
        }
      }
      EXPECT_EQ(at, plain.glyphs.size()) << text;
    }
  }
}

}  // namespace
}  // namespace Zor
