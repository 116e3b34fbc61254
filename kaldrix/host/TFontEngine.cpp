#include "kaldrix/host/TFontEngine.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/host/TShaper.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Host {

namespace {

/// Texts that are kept, over all faces; then all are dropped.
constexpr std::size_t MostWords = 8192;
/// Longer texts are measured each time, so that what is kept stays below a few tens of megabytes.
constexpr std::size_t LongestWord = 256;
/// Millimetres that make no difference.
constexpr double Touch = 0.001;

/// What a character takes on average where there is no font to ask, part of the em.
constexpr double EstimatedWidth = 0.5;

double Positive(double value) { return std::isfinite(value) && value > 0 ? value : 0; }

}  // namespace

/// How many widths the faces hold; the widths themselves stand with the face.
struct TFontEngine::TCache {
  std::size_t words = 0;
  unsigned generation = 0;
  std::vector<TFace*> filled;

  void Count(const TShaper& shaper, TFace& face) {
    if (generation != shaper.Generation()) {
      generation = shaper.Generation();
      words = 0;
      filled.clear();
    }
    if (words >= MostWords) {
      for (TFace* each : filled) each->widths.clear();
      words = 0;
      filled.clear();
    }
    if (face.widths.empty()) filled.push_back(&face);
    ++words;
  }
};

TFontEngine::TFontEngine() : fShaper(std::make_unique<TShaper>()), fCache(std::make_unique<TCache>()) {}

TFontEngine::~TFontEngine() = default;

TTextSize TFontEngine::Measure(std::string_view text, const TFontSpec& font) {
  TFace& face = fShaper->Face(font);
  const double height = Positive(font.heightMM);
  double width = 0;
  if (const auto found = face.widths.find(text); found != face.widths.end()) {
    width = found->second;
  } else {
    width = WidthInEm(text, face);
    if (text.size() <= LongestWord) {
      fCache->Count(*fShaper, face);
      face.widths.emplace(text, width);
    }
  }
  return {width * height, face.ascent * height, face.descent * height, face.underline * height,
          face.underlineThickness * height};
}

double TFontEngine::WidthInEm(std::string_view text, const TFace& face) {
  std::string buffer;
  const std::string_view clean = CleanText(text, buffer);
  if (face.font != nullptr) return fShaper->WidthInEm(clean, face);
  fEstimated |= !clean.empty();
  return static_cast<double>(Utf8::Count(clean)) * EstimatedWidth;
}

void TFontEngine::RequireFonts() const {
  if (fEstimated) RaiseNoFont();
}

std::vector<TTextLine> TFontEngine::BreakLines(std::string_view text, const TFontSpec& font, double widthMM) {
  std::vector<TTextLine> lines;
  std::string buffer;
  for (std::size_t start = 0;;) {
    const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
    const std::size_t before = lines.size();
    AppendParagraph(lines, CleanText(text.substr(start, end - start), buffer), font, widthMM);
    for (std::size_t i = before; i < lines.size(); ++i) {
      // Bytes that were no text have grown: what stands behind them is held inside the text.
      lines[i].start = std::min(start + lines[i].start, end);
      lines[i].length = std::min(lines[i].length, end - lines[i].start);
    }
    if (end == text.size()) return lines;
    start = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
  }
}

void TFontEngine::AppendParagraph(std::vector<TTextLine>& lines, std::string_view paragraph,
                                  const TFontSpec& font, double widthMM) {
  const bool estimated = fShaper->Face(font).font == nullptr;
  if (paragraph.size() <= LongestWord || estimated) {
    const double width = Measure(paragraph, font).width;
    // At the very edge the layout decides.
    if (width < widthMM - Touch || estimated) return lines.push_back({0, paragraph.size(), width});
  }
  const double height = Positive(font.heightMM);
  const double limit = height > 0 ? Positive(widthMM) / height : 0;
  for (TTextLine line : fShaper->Break(paragraph, fShaper->Face(font), limit)) {
    const bool atBreak = line.start + line.length < paragraph.size();
    const std::size_t full = line.length;
    while (atBreak && line.length > 0 && paragraph[line.start + line.length - 1] == ' ') --line.length;
    line.width = line.length == full ? line.width * height
                                     : Measure(paragraph.substr(line.start, line.length), font).width;
    lines.push_back(line);
  }
}

std::vector<std::string> TFontEngine::FontNames() const { return fShaper->Families(); }

}  // namespace Zor::inline Host
