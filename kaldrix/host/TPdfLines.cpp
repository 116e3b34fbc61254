#include "kaldrix/host/TPdfLines.hpp"

#include <algorithm>
#include <cmath>
#include <span>

#include "kaldrix/host/GlyphPainter.hpp"
#include "kaldrix/host/TPdfContent.hpp"

namespace Zor::inline Host {

namespace {

/// Lines that are kept; then all are dropped.
constexpr std::size_t MostLines = 4096;
/// Longer texts are not kept, bytes.
constexpr std::size_t LongestKept = 256;
/// Part of the em by which a glyph may stand aside: a thousandth of a millimetre at an em of 50 mm.
constexpr double Slack = 2e-5;
constexpr double Thousandths = 1000;

/// A box with the number of a character that no font has.
bool IsUnknown(const TPlacedGlyph& glyph) {
  return glyph.glyph != PANGO_GLYPH_EMPTY && (glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
}

/// The boxes among the glyphs.
std::vector<TPlacedGlyph> Boxes(std::span<const TPlacedGlyph> glyphs) {
  if (std::none_of(glyphs.begin(), glyphs.end(), IsUnknown)) return {};
  std::vector<TPlacedGlyph> boxes(glyphs.begin(), glyphs.end());
  for (TPlacedGlyph& glyph : boxes) {
    if (!IsUnknown(glyph)) glyph.glyph = PANGO_GLYPH_EMPTY;
  }
  return boxes;
}

/// Neighbouring glyphs that show the same piece of the text.
struct TCluster {
  std::span<const TPlacedGlyph> glyphs;
  std::string_view text;
};

/// Calls `use` with each cluster of a run, from left to right.
template <class TUse>
void ForEachCluster(std::string_view text, const TGlyphRun& run, std::span<const TPlacedGlyph> glyphs,
                    TUse use) {
  const bool backwards = glyphs.front().cluster > glyphs.back().cluster;
  std::size_t end = run.start + run.length;
  for (std::size_t first = 0; first < glyphs.size();) {
    const std::size_t start = glyphs[first].cluster;
    std::size_t next = first + 1;
    while (next < glyphs.size() && glyphs[next].cluster == start) ++next;
    if (!backwards) end = next < glyphs.size() ? glyphs[next].cluster : run.start + run.length;
    use(TCluster{glyphs.subspan(first, next - first),
                 start < end && end <= text.size() ? text.substr(start, end - start) : std::string_view{}});
    end = start;
    first = next;
  }
}

/// Writes the operators that show glyphs at size 1 (ISO 32000-1, 9.4.3). It knows where the program that
/// shows them would put the next one, and says so only where that is wrong.
class TShowing {
 public:
  /// `invisible` text lies over glyphs that are drawn otherwise.
  TShowing(const TPdfStyle& style, bool invisible)
      : fFont(*style.font), fBolder(style.bolder), fInvisible(invisible) {}

  void Add(const TCluster& cluster);
  std::string Finish();

 private:
  static bool Shown(const TPlacedGlyph& glyph) { return glyph.glyph != PANGO_GLYPH_EMPTY; }
  /// What stands in the text for it; glyph 0, which shows nothing, where the font has none.
  unsigned Drawn(const TPlacedGlyph& glyph) const {
    return !fInvisible && fFont.Has(glyph.glyph) ? glyph.glyph : 0;
  }
  bool TellsItself(const TCluster& cluster);
  void Put(const TPlacedGlyph& glyph);
  void PutInvisible(const TPlacedGlyph& glyph);
  void EndString();
  void EndArray();

  TPdfFont& fFont;
  bool fBolder;
  bool fInvisible;
  TPdfContent fOut;
  TPdfContent fArray;  ///< strings and moves
  std::string fString;
  bool fMoves = false;
  double fPen = 0;    ///< where the advances lead
  double fShown = 0;  ///< where the next glyph would be shown
  double fRise = 0;
};

bool TShowing::TellsItself(const TCluster& cluster) {
  if (cluster.text.empty()) return true;
  return cluster.glyphs.size() == 1 && fFont.Tells(Drawn(cluster.glyphs[0]), cluster.text);
}

void TShowing::Add(const TCluster& cluster) {
  const bool any = std::any_of(cluster.glyphs.begin(), cluster.glyphs.end(), Shown);
  const bool span = any && !TellsItself(cluster);
  if (span) {
    EndArray();
    fOut.Raw("/Span<</ActualText").Raw(PdfTextString(cluster.text)).Raw(">>BDC ");
  }
  for (const TPlacedGlyph& glyph : cluster.glyphs) {
    if (fInvisible || IsUnknown(glyph)) {
      PutInvisible(glyph);
    } else if (Shown(glyph)) {
      Put(glyph);
    }
    fPen += glyph.advance;
  }
  if (span) {
    EndArray();
    fOut.Raw("EMC ");
  }
}

void TShowing::Put(const TPlacedGlyph& glyph) {
  if (std::abs(glyph.y - fRise) > Slack) {
    EndArray();
    fOut.Real(glyph.y, 5).Raw("Ts ");
    fRise = glyph.y;
  }
  const double move = fPen + glyph.x - fShown;
  if (std::abs(move) > Slack) {
    EndString();
    const double rounded = std::round(move * Thousandths * 100) / 100;
    fArray.Real(-rounded, 2);
    fMoves = true;
    fShown += rounded / Thousandths;
  }
  const unsigned drawn = Drawn(glyph), code = fFont.Code(drawn);
  fString.push_back(static_cast<char>(code >> 8));
  fString.push_back(static_cast<char>(code & 0xFF));
  fShown += fFont.Width(drawn);
}

/// As wide as what is drawn in its place.
void TShowing::PutInvisible(const TPlacedGlyph& glyph) {
  const double width = fFont.Width(0);
  if (!(width > 0 && glyph.advance > 0)) return;
  EndArray();
  const double move = fPen - fShown;
  const double stretch = glyph.advance / width;
  fOut.Raw("3 Tr ").Real(stretch * 100).Raw("Tz[").Real(-move / stretch * Thousandths);
  fOut.Literal(std::string_view("\0\0", 2)).Raw("]TJ 100 Tz ").Raw(fBolder ? "2 Tr " : "0 Tr ");
  fShown = fPen + glyph.advance;
}

void TShowing::EndString() {
  if (fString.empty()) return;
  fArray.Literal(fString);
  fString.clear();
}

void TShowing::EndArray() {
  EndString();
  if (fArray.Size() == 0) return;
  if (fMoves) {
    fOut.Raw("[").Raw(fArray.Bytes()).Raw("]TJ ");
  } else {
    fOut.Raw(fArray.Bytes()).Raw("Tj ");
  }
  fArray.Clear();
  fMoves = false;
}

std::string TShowing::Finish() {
  EndArray();
  if (fRise != 0) fOut.Raw("0 Ts ");
  return fOut.Bytes();
}

}  // namespace

const TPdfLine& TPdfLines::Of(std::string_view text, const TFace& face) {
  if (text.size() > LongestKept) return fLong = Make(text, face);
  TKept& kept = fKept[face.id];
  if (const auto found = kept.find(text); found != kept.end()) return found->second;
  TPdfLine line = Make(text, face);
  if (++fCount > MostLines) {
    fKept.clear();
    fCount = 1;
  }
  return fKept[face.id].emplace(text, std::move(line)).first->second;
}

TPdfLine TPdfLines::Make(std::string_view text, const TFace& face) {
  const TGlyphLine& shaped = fShaper.Glyphs(text, face);
  TPdfLine line{shaped.width, {}};
  double x = 0;
  for (const TGlyphRun& run : shaped.runs) {
    if (run.glyphs == 0) continue;
    line.pieces.push_back(MakePiece(text, face, shaped, run));
    line.pieces.back().x = x;
    for (const TPlacedGlyph& glyph : std::span(shaped.glyphs).subspan(run.firstGlyph, run.glyphs)) {
      x += glyph.advance;
    }
  }
  return line;
}

/// Glyphs that cannot be embedded are drawn, and the text lies over them in any font that can.
TPdfPiece TPdfLines::MakePiece(std::string_view text, const TFace& face, const TGlyphLine& line,
                               const TGlyphRun& run) {
  const auto glyphs = std::span(line.glyphs).subspan(run.firstGlyph, run.glyphs);
  TPdfPiece piece;
  piece.style = fFonts.StyleOf(run.font);
  const bool drawn = piece.style.drawn;
  if (piece.style.pictures) {
    TGlyphPicture painted = PaintGlyphs(run.font, glyphs, line.unitsPerEm);
    piece.picture = std::move(painted.picture);
    piece.box = painted.box;
  } else {
    const std::vector<TPlacedGlyph> boxes = Boxes(glyphs);
    if (drawn || !boxes.empty()) {
      piece.outlines = GlyphOutlines(run.font, drawn ? glyphs : boxes, line.unitsPerEm);
    }
  }
  if (piece.style.font == nullptr && face.font) piece.style = fFonts.StyleOf(face.font.get());
  if (piece.style.font == nullptr) return piece;
  TShowing showing(piece.style, drawn);
  ForEachCluster(text, run, glyphs, [&showing](const TCluster& cluster) { showing.Add(cluster); });
  piece.shows = showing.Finish();
  return piece;
}

}  // namespace Zor::inline Host
