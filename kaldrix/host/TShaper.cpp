#include "kaldrix/host/TShaper.hpp"

#include <hb-ot.h>

#include <algorithm>
#include <cmath>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Host {

namespace {

/// Size at which short texts are laid out: fine enough that a thousandth of a millimetre counts in any font.
constexpr double FinestUnitsPerEm = 1000;
/// Pango adds widths in 32 bits, 1024 to the unit: longer texts are laid out coarser, so that even glyphs of
/// several em for each byte stay inside.
constexpr double ByteUnits = 400'000;
/// The longest text laid out at once, bytes: at the coarsest one unit to the em.
constexpr std::size_t LongestRun = 400'000;
constexpr std::size_t MostFaces = 1024;
constexpr const char* Language = "en";
/// Used where a font says nothing, parts of the em.
constexpr double DefaultAscent = 0.8, DefaultDescent = 0.2;
constexpr double DefaultUnderline = 0.1, DefaultThickness = 0.05, DefaultStrikeout = 0.3;

/// Big-endian 16-bit numbers of a font's table (OpenType 1.9, "hhea", "post" and "OS/2").
class TFontTable {
 public:
  TFontTable(hb_face_t* face, hb_tag_t tag) : fBlob(hb_face_reference_table(face, tag)) {
    unsigned length = 0;
    const char* bytes = hb_blob_get_data(fBlob, &length);
    fBytes = {bytes, bytes == nullptr ? 0U : length};
  }
  ~TFontTable() { hb_blob_destroy(fBlob); }
  TFontTable(const TFontTable&) = delete;
  TFontTable& operator=(const TFontTable&) = delete;

  bool Has(std::size_t size) const { return fBytes.size() >= size; }
  double Int16(std::size_t at) const {
    const unsigned high = static_cast<unsigned char>(fBytes[at]);
    const unsigned low = static_cast<unsigned char>(fBytes[at + 1]);
    return static_cast<std::int16_t>(high << 8 | low);
  }

 private:
  hb_blob_t* fBlob;
  std::string_view fBytes;
};

void ReadTables(hb_face_t* hbFace, TFace& face) {
  const double em = std::max(1U, hb_face_get_upem(hbFace));
  const TFontTable hhea(hbFace, HB_TAG('h', 'h', 'e', 'a'));
  if (hhea.Has(8) && hhea.Int16(4) - hhea.Int16(6) > 0) {
    face.ascent = hhea.Int16(4) / em;
    face.descent = -hhea.Int16(6) / em;
  }
  const TFontTable post(hbFace, HB_TAG('p', 'o', 's', 't'));
  if (post.Has(12) && post.Int16(10) > 0) {
    face.underline = -post.Int16(8) / em;
    face.underlineThickness = post.Int16(10) / em;
  }
  const TFontTable os2(hbFace, HB_TAG('O', 'S', '/', '2'));
  if (os2.Has(30) && os2.Int16(26) > 0) {
    face.strikeoutThickness = os2.Int16(26) / em;
    face.strikeout = os2.Int16(28) / em;
  }
}

bool HasPictures(const PangoLayoutLine* line) {
  for (const GSList* run = line->runs; run != nullptr; run = run->next) {
    hb_face_t* face = hb_font_get_face(
        pango_font_get_hb_font(static_cast<PangoLayoutRun*>(run->data)->item->analysis.font));
    if (hb_ot_color_has_png(face) || hb_ot_color_has_layers(face)) return true;
  }
  return false;
}

/// The ASCII characters of which `font` can shape any text alone: those it has, unless something else than
/// its tables has a say.
std::bitset<128> PlainCharacters(PangoFont* font) {
  std::bitset<128> plain;
  hb_feature_t feature;
  unsigned features = 0;
  pango_font_get_features(font, &feature, 1, &features);
  if (features > 0) return plain;
  hb_font_t* hbFont = pango_font_get_hb_font(font);
  for (unsigned c = ' '; c < 127; ++c) {
    hb_codepoint_t glyph = 0;
    plain[c] = hb_font_get_nominal_glyph(hbFont, c, &glyph) != 0;
  }
  return plain;
}

/// The one script of a plain text, as itemising finds it.
hb_script_t PlainScript(std::string_view text) {
  const auto isLetter = [](char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; };
  return std::any_of(text.begin(), text.end(), isLetter) ? HB_SCRIPT_LATIN : HB_SCRIPT_COMMON;
}

double LineWidth(PangoLayoutLine* line) {
  PangoRectangle logical;
  pango_layout_line_get_extents(line, nullptr, &logical);
  return static_cast<double>(logical.width) / PANGO_SCALE;
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

/// The longest start of `text` of at most `most` bytes that ends with a whole character.
std::string_view WholeCharacters(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0) == 0x80) --most;
  return text.substr(0, most);
}

}  // namespace

std::string_view CleanText(std::string_view text, std::string& buffer) {
  const bool valid = Utf8::IsValid(text);
  if (valid && std::none_of(text.begin(), text.end(), IsControl)) return text;
  buffer = valid ? std::string(text) : Utf8::Repaired(text);
  std::replace_if(buffer.begin(), buffer.end(), IsControl, ' ');
  return buffer;
}

TShaper::TShaper()
    : fMap(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)),
      fContext(pango_font_map_create_context(fMap.get())),
      fBuffer(hb_buffer_create()),
      fLanguage(hb_language_from_string(Language, -1)) {
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  pango_cairo_context_set_font_options(fContext.get(), options);
  cairo_font_options_destroy(options);
  pango_context_set_round_glyph_positions(fContext.get(), FALSE);
  pango_context_set_base_dir(fContext.get(), PANGO_DIRECTION_LTR);
  // It decides among fallback fonts: the user's locale must not.
  pango_context_set_language(fContext.get(), pango_language_from_string(Language));
  fLayout.reset(pango_layout_new(fContext.get()));
  pango_layout_set_auto_dir(fLayout.get(), FALSE);
  pango_layout_set_wrap(fLayout.get(), PANGO_WRAP_WORD_CHAR);
  // A break inside a word adds nothing to the text.
  PangoAttrList* attributes = pango_attr_list_new();
  pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE));
  pango_layout_set_attributes(fLayout.get(), attributes);
  pango_attr_list_unref(attributes);
}

TFace& TShaper::Face(const TFontSpec& font) {
  if (const auto found = fFaces.find(font); found != fFaces.end()) return found->second;
  if (fFaces.size() >= MostFaces) {
    fFaces.clear();
    ++fGeneration;
  }
  return fFaces.emplace(TFaceKey{font.name, font.bold, font.italic}, LoadFace(font)).first->second;
}

TFace TShaper::LoadFace(const TFontSpec& font) {
  TFace face;
  face.id = ++fLoaded;
  face.ascent = DefaultAscent;
  face.descent = DefaultDescent;
  face.underline = DefaultUnderline;
  face.underlineThickness = face.strikeoutThickness = DefaultThickness;
  face.strikeout = DefaultStrikeout;
  face.description.reset(pango_font_description_new());
  std::string buffer;
  const std::string family(CleanText(font.name.empty() ? TFontSpec{}.name : font.name, buffer));
  pango_font_description_set_family(face.description.get(), family.c_str());
  pango_font_description_set_weight(face.description.get(),
                                    font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_style(face.description.get(),
                                   font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  pango_font_description_set_absolute_size(face.description.get(), FinestUnitsPerEm * PANGO_SCALE);
  face.font.reset(pango_context_load_font(fContext.get(), face.description.get()));
  if (face.font) {
    ReadTables(hb_font_get_face(pango_font_get_hb_font(face.font.get())), face);
    face.plain = PlainCharacters(face.font.get());
  }
  return face;
}

void RaiseNoFont() {
  throw Exception(
      "There is no font on this machine to show a text with; install one, such as fonts-liberation");
}

double TShaper::SetText(std::string_view text, const TFace& face) {
  if (face.font == nullptr) RaiseNoFont();
  const double bytes = static_cast<double>(std::max<std::size_t>(1, text.size()));
  const double units = std::clamp(std::floor(ByteUnits / bytes), 1.0, FinestUnitsPerEm);
  pango_font_description_set_absolute_size(face.description.get(), units * PANGO_SCALE);
  pango_layout_set_font_description(fLayout.get(), face.description.get());
  pango_layout_set_text(fLayout.get(), text.data(), static_cast<int>(text.size()));
  return units;
}

TShapedLine TShaper::Shape(std::string_view text, const TFace& face) {
  pango_layout_set_single_paragraph_mode(fLayout.get(), TRUE);
  pango_layout_set_width(fLayout.get(), -1);
  TShapedLine shaped;
  shaped.unitsPerEm = SetText(WholeCharacters(text, LongestRun), face);
  shaped.line = pango_layout_get_line_readonly(fLayout.get(), 0);
  shaped.width = LineWidth(shaped.line);
  shaped.pictures = HasPictures(shaped.line);
  return shaped;
}

bool TShaper::ShapePlain(std::string_view text, const TFace& face) {
  const auto isPlain = [&face](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < face.plain.size() && face.plain[byte];
  };
  if (static_cast<double>(text.size()) * FinestUnitsPerEm > ByteUnits) return false;
  if (!std::all_of(text.begin(), text.end(), isPlain)) return false;
  const auto length = static_cast<int>(text.size());
  hb_buffer_t* buffer = fBuffer.get();
  hb_buffer_clear_contents(buffer);
  hb_buffer_set_cluster_level(buffer, HB_BUFFER_CLUSTER_LEVEL_MONOTONE_CHARACTERS);
  hb_buffer_set_flags(buffer, static_cast<hb_buffer_flags_t>(HB_BUFFER_FLAG_BOT | HB_BUFFER_FLAG_EOT));
  hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
  hb_buffer_set_script(buffer, PlainScript(text));
  hb_buffer_set_language(buffer, fLanguage);
  hb_buffer_add_utf8(buffer, text.data(), length, 0, length);
  hb_shape(pango_font_get_hb_font(face.font.get()), buffer, nullptr, 0);
  unsigned count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(buffer, &count);
  constexpr double Em = FinestUnitsPerEm * PANGO_SCALE;
  fGlyphs.unitsPerEm = FinestUnitsPerEm;
  fGlyphs.runs.push_back({face.font.get(), 0, text.size(), 0, count});
  for (unsigned i = 0; i < count; ++i) {
    fGlyphs.glyphs.push_back({infos[i].codepoint, infos[i].cluster, places[i].x_advance / Em,
                              places[i].x_offset / Em, places[i].y_offset / Em});
    fGlyphs.width += places[i].x_advance / Em;
  }
  return true;
}

const TGlyphLine& TShaper::Glyphs(std::string_view text, const TFace& face) {
  fGlyphs.runs.clear();
  fGlyphs.glyphs.clear();
  fGlyphs.width = 0;
  if (ShapePlain(text, face)) return fGlyphs;
  const TShapedLine shaped = Shape(text, face);
  const double em = shaped.unitsPerEm * PANGO_SCALE;
  for (const GSList* l = shaped.line->runs; l != nullptr; l = l->next) {
    const auto* run = static_cast<const PangoLayoutRun*>(l->data);
    const auto start = static_cast<std::size_t>(run->item->offset);
    const PangoGlyphString& string = *run->glyphs;
    fGlyphs.runs.push_back({run->item->analysis.font, start, static_cast<std::size_t>(run->item->length),
                            fGlyphs.glyphs.size(), static_cast<std::size_t>(string.num_glyphs)});
    for (int i = 0; i < string.num_glyphs; ++i) {
      const PangoGlyphGeometry& place = string.glyphs[i].geometry;
      fGlyphs.glyphs.push_back({string.glyphs[i].glyph,
                                start + static_cast<std::size_t>(string.log_clusters[i]), place.width / em,
                                place.x_offset / em, -place.y_offset / em});
    }
  }
  fGlyphs.width = shaped.width / shaped.unitsPerEm;
  fGlyphs.unitsPerEm = shaped.unitsPerEm;
  return fGlyphs;
}

double TShaper::WidthInEm(std::string_view text, const TFace& face) {
  if (text.size() <= LongestRun) return Glyphs(text, face).width;
  double width = 0;
  while (!text.empty()) {
    const std::string_view run = WholeCharacters(text, LongestRun);
    const TShapedLine shaped = Shape(run, face);
    width += shaped.width / shaped.unitsPerEm;
    text.remove_prefix(run.size());
  }
  return width;
}

std::vector<TTextLine> TShaper::Break(std::string_view text, const TFace& face, double widthInEm) {
  // Each line costs the rest of what is laid out, so that is a piece of a few lines at a time. The last of
  // them, which the end of the piece may have cut, begins the next piece.
  constexpr std::size_t shortest = 64, first = 512, few = 8;
  std::vector<TTextLine> lines;
  for (std::size_t done = 0, most = first;;) {
    const std::string_view run = WholeCharacters(text.substr(done), most);
    const std::size_t before = lines.size();
    AppendLines(lines, run, done, face, widthInEm);
    if (done + run.size() == text.size()) return lines;
    const std::size_t count = lines.size() - before;
    if (count > 1) {
      done = lines.back().start;
      lines.pop_back();
      if (count > 2 * few) most = std::max(most / 2, shortest);
      if (count < few) most = std::min(most * 2, LongestRun);
    } else if (most < LongestRun) {
      lines.pop_back();
      most = std::min(most * 4, LongestRun);
    } else {
      done += run.size();
    }
  }
}

void TShaper::AppendLines(std::vector<TTextLine>& lines, std::string_view run, std::size_t start,
                          const TFace& face, double widthInEm) {
  pango_layout_set_single_paragraph_mode(fLayout.get(), TRUE);
  const double units = SetText(run, face);
  const double limit = std::clamp(widthInEm * units * PANGO_SCALE, 0.0, static_cast<double>(G_MAXINT32 / 2));
  pango_layout_set_width(fLayout.get(), static_cast<int>(limit));
  for (const GSList* l = pango_layout_get_lines_readonly(fLayout.get()); l != nullptr; l = l->next) {
    auto* line = static_cast<PangoLayoutLine*>(l->data);
    lines.push_back({start + static_cast<std::size_t>(line->start_index),
                     static_cast<std::size_t>(line->length), LineWidth(line) / units});
  }
}

std::vector<std::string> TShaper::Families() const {
  PangoFontFamily** families = nullptr;
  int count = 0;
  pango_font_map_list_families(fMap.get(), &families, &count);
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) names.emplace_back(pango_font_family_get_name(families[i]));
  g_free(families);
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace Zor::inline Host
