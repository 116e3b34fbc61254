// A font in a PDF. Only sources include it: it shows HarfBuzz's types.
#pragma once

#include <hb.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/host/TPdfWriter.hpp"

namespace Zor::inline Host {

struct TFaceFree {
  void operator()(hb_face_t* face) const { hb_face_destroy(face); }
};
struct TFontFree {
  void operator()(hb_font_t* font) const { hb_font_destroy(font); }
};

/// The glyphs of one face that a PDF shows, embedded as a composite font (ISO 32000-1, 9.7) whose codes are
/// glyph numbers of the face, or its CIDs where it has such.
class TPdfFont {
 public:
  /// `index` is part of the name by which pages select it.
  TPdfFont(hb_face_t* face, int index);
  ~TPdfFont();
  TPdfFont(const TPdfFont&) = delete;
  TPdfFont& operator=(const TPdfFont&) = delete;

  /// Whether the face has outlines that a PDF can hold; otherwise nothing else may be asked.
  bool Embeddable() const { return fKind != fkNone; }
  /// With its slash.
  const std::string& Name() const { return fName; }
  bool Has(unsigned glyph) const { return glyph < fGlyphs.size(); }
  /// Advance width as the file will tell it, part of the em. The glyph counts as shown from now on.
  double Width(unsigned glyph);
  unsigned Code(unsigned glyph) const;
  /// Whether programs that read the text find `text` for this glyph; the first text it comes with decides.
  bool Tells(unsigned glyph, std::string_view text);

  /// Writes the subset of what was shown; the object of the font.
  int Write(TPdfWriter& writer) const;

 private:
  enum TKind : std::uint8_t { fkNone, fkTrueType, fkCff };
  struct TGlyph {
    double width = -1;
    std::string text;
  };
  struct TFreeType;

  bool HasTable(hb_tag_t tag) const;
  std::unique_ptr<hb_face_t, TFaceFree> Subset() const;
  std::string SubsetName(std::string_view bytes) const;
  int WriteDescriptor(TPdfWriter& writer, const std::string& name, int file) const;
  std::string Widths() const;
  std::string ToUnicode() const;

  std::unique_ptr<hb_face_t, TFaceFree> fFace;
  std::unique_ptr<hb_font_t, TFontFree> fFont;
  /// Knows the CIDs of faces that have them.
  std::unique_ptr<TFreeType> fCids;
  TKind fKind = fkNone;
  std::string fName;
  std::vector<TGlyph> fGlyphs;
};

}  // namespace Zor::inline Host
