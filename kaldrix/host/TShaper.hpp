// What Pango does for the host. The one header of the folder with its types: only sources include it.
#pragma once

#include <hb.h>
#include <pango/pangocairo.h>

#include <bitset>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kaldrix/host/TFontEngine.hpp"

namespace Zor::inline Host {

/// Frees what GLib, Pango and Cairo count or own.
struct TGObjectFree {
  void operator()(gpointer object) const { g_object_unref(object); }
};
struct TDescriptionFree {
  void operator()(PangoFontDescription* d) const { pango_font_description_free(d); }
};

struct TBufferFree {
  void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
};

struct TTextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

/// A family in one style, with what its tables say; lengths are parts of the em.
struct TFace {
  std::unique_ptr<PangoFontDescription, TDescriptionFree> description;
  double ascent = 0;
  double descent = 0;
  /// From the baseline down to the upper edge.
  double underline = 0;
  double underlineThickness = 0;
  /// From the baseline up to the upper edge.
  double strikeout = 0;
  double strikeoutThickness = 0;
  /// The font of the first choice at FinestUnitsPerEm, if there is one.
  std::unique_ptr<PangoFont, TGObjectFree> font;
  /// The ASCII characters that `font` shapes by itself, without a choice to be made; none when it may not.
  std::bitset<128> plain;
  /// Which face of all that this shaper ever found.
  unsigned id = 0;
  /// Widths of texts that were measured, filled by the engine.
  std::unordered_map<std::string, double, TTextHash, std::equal_to<>> widths;
};

/// A text in visual order, ready to be painted; lengths in units of which `unitsPerEm` make the em.
struct TShapedLine {
  PangoLayoutLine* line = nullptr;
  double unitsPerEm = 1;
  double width = 0;
  /// Glyphs that are pictures and have no outline.
  bool pictures = false;
};

/// A glyph on its line; lengths are parts of the em, y grows upwards.
struct TPlacedGlyph {
  unsigned glyph = 0;
  /// Position of the first byte in the text that it shows; neighbours of the same position belong together.
  std::size_t cluster = 0;
  double advance = 0;
  /// From the place that the advances before it lead to.
  double x = 0, y = 0;
};

/// Neighbouring glyphs of one font, from left to right, that show a piece of the text.
struct TGlyphRun {
  PangoFont* font = nullptr;
  std::size_t start = 0, length = 0;
  std::size_t firstGlyph = 0, glyphs = 0;
};

/// A text in visual order as glyphs.
struct TGlyphLine {
  std::vector<TGlyphRun> runs;
  std::vector<TPlacedGlyph> glyphs;
  /// Part of the em.
  double width = 0;
  /// Size of the fonts in the runs.
  double unitsPerEm = 1;
};

/// Raises Exception: a text cannot be shown on this machine.
[[noreturn]] void RaiseNoFont();

/// Finds faces and shapes texts, without hinting and rounding. Texts have to be clean (see CleanText).
/// On a machine without any font what shapes raises Exception.
class TShaper {
 public:
  TShaper();

  /// The face stays valid until the next call.
  TFace& Face(const TFontSpec& font);
  /// Valid until the next call; a text longer than any sheet is cut.
  TShapedLine Shape(std::string_view text, const TFace& face);
  /// The glyphs of a text, the same that Shape gives to be painted; valid until the next call. Plain text
  /// takes a shorter way.
  const TGlyphLine& Glyphs(std::string_view text, const TFace& face);
  /// Width of a line of any length, as part of the em.
  double WidthInEm(std::string_view text, const TFace& face);
  /// Lines of one paragraph with the width limit `widthInEm`; widths as parts of the em.
  std::vector<TTextLine> Break(std::string_view text, const TFace& face, double widthInEm);
  std::vector<std::string> Families() const;
  /// Grows by one whenever faces were dropped, and with them their widths.
  unsigned Generation() const { return fGeneration; }

 private:
  struct TFaceKey {
    std::string name;
    bool bold = false;
    bool italic = false;
  };
  struct TFaceHash {
    using is_transparent = void;
    template <class T>
    std::size_t operator()(const T& key) const {
      return std::hash<std::string_view>{}(key.name) * 4 + (key.bold ? 2U : 0U) + (key.italic ? 1U : 0U);
    }
  };
  struct TSameFace {
    using is_transparent = void;
    template <class T, class U>
    bool operator()(const T& a, const U& b) const {
      return a.bold == b.bold && a.italic == b.italic && a.name == b.name;
    }
  };

  TFace LoadFace(const TFontSpec& font);
  bool ShapePlain(std::string_view text, const TFace& face);
  double SetText(std::string_view text, const TFace& face);
  /// Lays out a text that begins at byte `start` of its paragraph.
  void AppendLines(std::vector<TTextLine>& lines, std::string_view run, std::size_t start, const TFace& face,
                   double widthInEm);

  std::unique_ptr<PangoFontMap, TGObjectFree> fMap;
  std::unique_ptr<PangoContext, TGObjectFree> fContext;
  std::unique_ptr<PangoLayout, TGObjectFree> fLayout;
  std::unordered_map<TFaceKey, TFace, TFaceHash, TSameFace> fFaces;
  unsigned fGeneration = 0;
  unsigned fLoaded = 0;
  TGlyphLine fGlyphs;
  std::unique_ptr<hb_buffer_t, TBufferFree> fBuffer;
  hb_language_t fLanguage = nullptr;
};

/// `text` as the shaper takes it: valid UTF-8 without control characters. `buffer` holds the result when it
/// is not `text` itself. Valid UTF-8 keeps the positions of its bytes.
std::string_view CleanText(std::string_view text, std::string& buffer);

}  // namespace Zor::inline Host
