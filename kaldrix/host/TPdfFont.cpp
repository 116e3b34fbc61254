#include "kaldrix/host/TPdfFont.hpp"

#include <ft2build.h>
#include <hb-ot.h>
#include <hb-subset.h>
#include FT_FREETYPE_H
#include FT_CID_H

#include <algorithm>
#include <array>
#include <map>

#include "kaldrix/host/TPdfContent.hpp"

namespace Zor::inline Host {

namespace {

constexpr double Thousandths = 1000;
/// Places after the point of widths in thousandths of the em.
constexpr double WidthSteps = 1000;
/// Entries of one section of a map of characters.
constexpr std::size_t MostMapped = 100;

/// What a program that shows the glyphs needs; the rest of a font is about shaping.
constexpr std::array<hb_tag_t, 10> KeptTables{HB_TAG('g', 'l', 'y', 'f'), HB_TAG('l', 'o', 'c', 'a'),
                                              HB_TAG('h', 'e', 'a', 'd'), HB_TAG('h', 'h', 'e', 'a'),
                                              HB_TAG('h', 'm', 't', 'x'), HB_TAG('m', 'a', 'x', 'p'),
                                              HB_TAG('c', 'v', 't', ' '), HB_TAG('f', 'p', 'g', 'm'),
                                              HB_TAG('p', 'r', 'e', 'p'), HB_TAG('C', 'F', 'F', ' ')};

struct TBlobFree {
  void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
};
using TBlob = std::unique_ptr<hb_blob_t, TBlobFree>;

std::string_view BytesOf(const TBlob& blob) {
  unsigned length = 0;
  const char* bytes = hb_blob_get_data(blob.get(), &length);
  return bytes == nullptr ? std::string_view{} : std::string_view(bytes, length);
}

/// FNV-1a, 64 bits.
std::uint64_t HashOf(std::string_view bytes) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  return hash;
}

double Rounded(double value, double steps) { return std::round(value * steps) / steps; }

std::string Hex16(unsigned value) {
  constexpr const char* Digits = "0123456789ABCDEF";
  std::string out = "<";
  for (int shift = 12; shift >= 0; shift -= 4) out.push_back(Digits[value >> shift & 0xF]);
  return out + ">";
}

}  // namespace

/// The face as FreeType reads it.
struct TPdfFont::TFreeType {
  TBlob bytes;
  FT_Library library = nullptr;
  FT_Face face = nullptr;

  explicit TFreeType(hb_face_t* source) : bytes(hb_face_reference_blob(source)) {
    const std::string_view data = BytesOf(bytes);
    if (FT_Init_FreeType(&library) != 0) return;
    FT_New_Memory_Face(library, reinterpret_cast<const FT_Byte*>(data.data()),
                       static_cast<FT_Long>(data.size()), static_cast<FT_Long>(hb_face_get_index(source)),
                       &face);
  }
  ~TFreeType() {
    if (face != nullptr) FT_Done_Face(face);
    if (library != nullptr) FT_Done_FreeType(library);
  }
  TFreeType(const TFreeType&) = delete;
  TFreeType& operator=(const TFreeType&) = delete;

  bool HasCids() const {
    FT_Bool keyed = 0;
    return face != nullptr && FT_Get_CID_Is_Internally_CID_Keyed(face, &keyed) == 0 && keyed != 0;
  }
};

TPdfFont::TPdfFont(hb_face_t* face, int index)
    : fFace(hb_face_reference(face)), fFont(hb_font_create(face)), fName("/F" + std::to_string(index)) {
  if (HasTable(HB_TAG('g', 'l', 'y', 'f'))) fKind = fkTrueType;
  if (HasTable(HB_TAG('C', 'F', 'F', ' '))) fKind = fkCff;
  if (fKind == fkNone) return;
  fGlyphs.resize(std::min(hb_face_get_glyph_count(face), 0xFFFFU));
  if (fKind != fkCff) return;
  fCids = std::make_unique<TFreeType>(face);
  if (!fCids->HasCids()) fCids.reset();
}

TPdfFont::~TPdfFont() = default;

bool TPdfFont::HasTable(hb_tag_t tag) const {
  return !BytesOf(TBlob(hb_face_reference_table(fFace.get(), tag))).empty();
}

double TPdfFont::Width(unsigned glyph) {
  double& width = fGlyphs[glyph].width;
  if (width < 0) {
    const double em = std::max(1U, hb_face_get_upem(fFace.get()));
    const double advance = hb_font_get_glyph_h_advance(fFont.get(), glyph) / em;
    width = Rounded(std::max(0.0, advance) * Thousandths, WidthSteps) / Thousandths;
  }
  return width;
}

unsigned TPdfFont::Code(unsigned glyph) const {
  FT_UInt cid = 0;
  if (fCids && FT_Get_CID_From_Glyph_Index(fCids->face, glyph, &cid) == 0) return cid & 0xFFFF;
  return glyph;
}

bool TPdfFont::Tells(unsigned glyph, std::string_view text) {
  std::string& told = fGlyphs[glyph].text;
  if (told.empty()) told = text;
  return told == text;
}

std::unique_ptr<hb_face_t, TFaceFree> TPdfFont::Subset() const {
  hb_subset_input_t* input = hb_subset_input_create_or_fail();
  if (input == nullptr) return nullptr;
  hb_subset_input_set_flags(input, HB_SUBSET_FLAGS_RETAIN_GIDS);
  for (unsigned glyph = 0; glyph < fGlyphs.size(); ++glyph) {
    if (fGlyphs[glyph].width >= 0) hb_set_add(hb_subset_input_glyph_set(input), glyph);
  }
  std::array<hb_tag_t, 64> tags;
  auto count = static_cast<unsigned>(tags.size());
  for (unsigned start = 0; count == tags.size(); start += count) {
    hb_face_get_table_tags(fFace.get(), start, &count, tags.data());
    for (const hb_tag_t tag : std::span(tags).first(count)) {
      if (std::find(KeptTables.begin(), KeptTables.end(), tag) == KeptTables.end()) {
        hb_set_add(hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG), tag);
      }
    }
  }
  std::unique_ptr<hb_face_t, TFaceFree> subset(hb_subset_or_fail(fFace.get(), input));
  hb_subset_input_destroy(input);
  return subset;
}

/// The font's own name behind six letters that differ with the bytes.
std::string TPdfFont::SubsetName(std::string_view bytes) const {
  std::string name;
  std::uint64_t hash = HashOf(bytes);
  for (int i = 0; i < 6; ++i, hash /= 26) name.push_back(static_cast<char>('A' + hash % 26));
  std::array<char, 128> own{};
  auto size = static_cast<unsigned>(own.size());
  hb_ot_name_get_utf8(fFace.get(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, own.data());
  const std::string rest = PdfName(own.data());
  return "/" + name + "+" + (rest.size() > 1 ? rest.substr(1) : "Font");
}

int TPdfFont::Write(TPdfWriter& writer) const {
  const auto subset = Subset();
  hb_face_t* face = subset ? subset.get() : fFace.get();
  const bool cff = fKind == fkCff;
  const TBlob blob(cff ? hb_face_reference_table(face, HB_TAG('C', 'F', 'F', ' '))
                       : hb_face_reference_blob(face));
  const std::string_view bytes = BytesOf(blob);
  const std::string name = SubsetName(bytes);
  const std::string kind = cff ? "/Subtype/CIDFontType0C" : "/Length1 " + std::to_string(bytes.size());
  const int descriptor = WriteDescriptor(writer, name, writer.AddStream(kind, bytes, TPdfWriter::ppSmall));
  const int descendant =
      writer.Add(std::string("<</Type/Font/Subtype/") +
                 (cff ? "CIDFontType0" : "CIDFontType2/CIDToGIDMap/Identity") + "/BaseFont" + name +
                 "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
                 PdfRef(descriptor) + "/W[" + Widths() + "]>>");
  const int toUnicode = writer.AddStream({}, ToUnicode(), TPdfWriter::ppSmall);
  return writer.Add("<</Type/Font/Subtype/Type0/BaseFont" + name + "/Encoding/Identity-H/DescendantFonts[" +
                    PdfRef(descendant) + "]/ToUnicode " + PdfRef(toUnicode) + ">>");
}

int TPdfFont::WriteDescriptor(TPdfWriter& writer, const std::string& name, int file) const {
  constexpr int Symbolic = 4;
  // No table has it; programs use it when they replace a font, which an embedded one is not.
  constexpr int StemWidth = 80;
  const double scale = Thousandths / std::max(1U, hb_face_get_upem(fFace.get()));
  const TBlob head(hb_face_reference_table(fFace.get(), HB_TAG('h', 'e', 'a', 'd')));
  const std::string_view box = BytesOf(head);
  hb_font_extents_t extents{};
  hb_font_get_h_extents(fFont.get(), &extents);
  hb_position_t capHeight = extents.ascender;
  hb_ot_metrics_get_position(fFont.get(), HB_OT_METRICS_TAG_CAP_HEIGHT, &capHeight);
  TPdfContent body;
  body.Raw("<</Type/FontDescriptor/FontName").Raw(name).Raw("/Flags ").Int(Symbolic).Raw("/FontBBox[");
  // xMin, yMin, xMax, yMax of the table "head".
  for (std::size_t at = 36; at < 44; at += 2) {
    const unsigned high = at + 1 < box.size() ? static_cast<unsigned char>(box[at]) : 0U;
    const unsigned low = at + 1 < box.size() ? static_cast<unsigned char>(box[at + 1]) : 0U;
    body.Real(static_cast<std::int16_t>(high << 8 | low) * scale);
  }
  body.Raw("]/ItalicAngle ").Real(double{hb_style_get_value(fFont.get(), HB_STYLE_TAG_SLANT_ANGLE)});
  body.Raw("/Ascent ").Real(extents.ascender * scale).Raw("/Descent ").Real(extents.descender * scale);
  body.Raw("/CapHeight ").Real(capHeight * scale).Raw("/StemV ").Int(StemWidth);
  body.Raw(fKind == fkCff ? "/FontFile3 " : "/FontFile2 ").Raw(PdfRef(file)).Raw(">>");
  return writer.Add(body.Bytes());
}

std::string TPdfFont::Widths() const {
  TPdfContent out;
  // By code, since codes need not grow with glyphs.
  std::map<unsigned, double> widths;
  for (unsigned glyph = 0; glyph < fGlyphs.size(); ++glyph) {
    if (fGlyphs[glyph].width >= 0) widths[Code(glyph)] = fGlyphs[glyph].width;
  }
  unsigned next = 0;
  for (const auto& [code, width] : widths) {
    const bool first = out.Size() == 0;
    if (first || code != next) out.Raw(first ? "" : "]").Int(code).Raw("[");
    out.Real(width * Thousandths);
    next = code + 1;
  }
  if (out.Size() > 0) out.Raw("]");
  return out.Bytes();
}

std::string TPdfFont::ToUnicode() const {
  std::vector<std::string> entries;
  for (unsigned glyph = 0; glyph < fGlyphs.size(); ++glyph) {
    const std::string& text = fGlyphs[glyph].text;
    if (!text.empty()) entries.push_back(Hex16(Code(glyph)) + "<" + PdfUtf16(text) + ">\n");
  }
  std::string map =
      "/CIDInit/ProcSet findresource begin 12 dict begin begincmap\n"
      "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
      "/CMapName/Adobe-Identity-UCS def/CMapType 2 def\n"
      "1 begincodespacerange<0000><FFFF>endcodespacerange\n";
  for (std::size_t start = 0; start < entries.size(); start += MostMapped) {
    const std::size_t count = std::min(MostMapped, entries.size() - start);
    map += std::to_string(count) + " beginbfchar\n";
    for (std::size_t i = start; i < start + count; ++i) map += entries[i];
    map += "endbfchar\n";
  }
  return map + "endcmap CMapName currentdict/CMap defineresource pop end end\n";
}

}  // namespace Zor::inline Host
