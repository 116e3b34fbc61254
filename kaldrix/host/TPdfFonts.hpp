// The fonts of a PDF. Only sources include it: it shows Pango's types.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "kaldrix/host/TMatrix.hpp"
#include "kaldrix/host/TPdfFont.hpp"
#include "kaldrix/host/TShaper.hpp"

namespace Zor::inline Host {

/// How a font of Pango's comes into a PDF: as an embedded face, with what is done to its glyphs.
struct TPdfStyle {
  /// None where the face has no outlines that a PDF can hold.
  TPdfFont* font = nullptr;
  /// The glyphs have to be drawn as outlines or pictures; the font can only carry invisible text.
  bool drawn = false;
  /// Glyphs that are pictures.
  bool pictures = false;
  /// Strokes are added, since the family has no bold.
  bool bolder = false;
  /// A slant, since the family has no italic; y upwards.
  TMatrix slant;
};

/// Finds and keeps the embedded faces of a document.
class TPdfFonts {
 public:
  /// The face in it is valid as long as this is.
  TPdfStyle StyleOf(PangoFont* font);
  /// Writes all faces; the dictionary of resources that names them.
  std::string Write(TPdfWriter& writer) const;

 private:
  struct TKnown {
    std::unique_ptr<PangoFont, TGObjectFree> held;
    TPdfStyle style;
  };

  TPdfFont* FaceOf(hb_font_t* font);

  std::vector<std::unique_ptr<TPdfFont>> fFonts;
  std::unordered_map<hb_face_t*, TPdfFont*> fFaces;
  std::unordered_map<PangoFont*, TKnown> fStyles;
};

}  // namespace Zor::inline Host
