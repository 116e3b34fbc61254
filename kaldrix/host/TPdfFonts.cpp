#include "kaldrix/host/TPdfFonts.hpp"

#include <fontconfig/fontconfig.h>
#include <hb-ot.h>
#include <pango/pangofc-font.h>

#include <algorithm>

#include "kaldrix/host/TPdfContent.hpp"

namespace Zor::inline Host {

namespace {

/// Fonts of Pango's that are remembered: every size of a face is one.
constexpr std::size_t MostStyles = 4096;

/// What fontconfig asks for where a family lacks a style.
void ReadPattern(PangoFont* font, TPdfStyle& style) {
  if (!PANGO_IS_FC_FONT(font)) return;
  FcPattern* pattern = pango_fc_font_get_pattern(PANGO_FC_FONT(font));
  FcBool bolder = FcFalse;
  style.bolder = FcPatternGetBool(pattern, FC_EMBOLDEN, 0, &bolder) == FcResultMatch && bolder == FcTrue;
  FcMatrix* matrix = nullptr;
  if (FcPatternGetMatrix(pattern, FC_MATRIX, 0, &matrix) == FcResultMatch) {
    style.slant = {matrix->xx, matrix->yx, matrix->xy, matrix->yy, 0, 0};
  }
}

/// Whether a variable font was asked for another design than the one its tables hold.
bool IsVaried(hb_font_t* font) {
  unsigned count = 0;
  const int* axes = hb_font_get_var_coords_normalized(font, &count);
  return std::any_of(axes, axes + count, [](int v) { return v != 0; });
}

}  // namespace

TPdfFont* TPdfFonts::FaceOf(hb_font_t* font) {
  hb_face_t* face = hb_font_get_face(font);
  const auto [found, isNew] = fFaces.try_emplace(face, nullptr);
  if (isNew) {
    auto made = std::make_unique<TPdfFont>(face, static_cast<int>(fFonts.size()));
    // Kept in any case: the face must not go, lest another comes in its place.
    found->second = made.get();
    fFonts.push_back(std::move(made));
  }
  return found->second->Embeddable() ? found->second : nullptr;
}

TPdfStyle TPdfFonts::StyleOf(PangoFont* font) {
  if (const auto found = fStyles.find(font); found != fStyles.end()) return found->second.style;
  if (fStyles.size() >= MostStyles) fStyles.clear();
  TKnown& known = fStyles[font];
  known.held.reset(static_cast<PangoFont*>(g_object_ref(font)));
  hb_font_t* hbFont = pango_font_get_hb_font(font);
  hb_face_t* face = hb_font_get_face(hbFont);
  known.style.pictures = hb_ot_color_has_png(face) || hb_ot_color_has_layers(face);
  known.style.font = FaceOf(hbFont);
  known.style.drawn = known.style.pictures || known.style.font == nullptr || IsVaried(hbFont);
  ReadPattern(font, known.style);
  return known.style;
}

std::string TPdfFonts::Write(TPdfWriter& writer) const {
  std::string names = "<<";
  for (const auto& font : fFonts) {
    if (font->Embeddable()) names += font->Name() + " " + PdfRef(font->Write(writer));
  }
  return names + ">>";
}

}  // namespace Zor::inline Host
