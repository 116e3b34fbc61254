// Text measuring and shaping for a host without a screen.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Zor::inline Host {

class TShaper;
struct TFace;

/// A font as an item asks for it. The name is a family, or several separated by commas in order of
/// preference; what is not installed is replaced by the closest that is.
struct TFontSpec {
  std::string name = "Arial";
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeout = false;
  /// Em size in millimetres of paper.
  double heightMM = 10.0;
};

/// Measures of one line of text, all in millimetres of paper.
struct TTextSize {
  /// Advance width: blanks at either end count, ink that hangs over does not.
  double width = 0;
  /// From the baseline up and down, both positive: those of the font's horizontal header.
  double ascent = 0;
  double descent = 0;
  /// From the baseline down to the upper edge of the underline.
  double underline = 0;
  double underlineThickness = 0;

  double Height() const { return ascent + descent; }
};

/// A piece of a text, as positions of bytes, and its width in millimetres.
struct TTextLine {
  std::size_t start = 0;
  std::size_t length = 0;
  double width = 0;
};

/// Finds fonts, measures texts and keeps both for the next time: a repeated word costs a hash lookup. An
/// engine belongs to one thread; several may live side by side.
///
/// Texts are UTF-8; what is not is replaced by U+FFFD. Control characters, among them tabs and line ends,
/// count as blanks. The base direction is left to right, as in SVG without a `direction`.
class TFontEngine {
 public:
  TFontEngine();
  ~TFontEngine();
  TFontEngine(const TFontEngine&) = delete;
  TFontEngine& operator=(const TFontEngine&) = delete;

  /// Measures of `text` as one line. An empty text has width 0 and the font's ascent and descent. A height
  /// that is not a positive number counts as 0.
  TTextSize Measure(std::string_view text, const TFontSpec& font);

  /// Breaks `text` into lines no wider than `widthMM`, at the places where its script allows it, and inside a
  /// word that is wider than a line; line ends in the text always break. The blanks at a break and the line
  /// ends themselves belong to no line. A text without characters has one empty line. `text` has to be valid
  /// UTF-8 where the positions are to be used.
  std::vector<TTextLine> BreakLines(std::string_view text, const TFontSpec& font, double widthMM);

  /// Raises Exception when a text has been measured on a machine without any font. Its measures are estimates
  /// then: enough to look at a document, not to draw it.
  void RequireFonts() const;

  /// Names of the installed families, sorted.
  std::vector<std::string> FontNames() const;

  /// What shapes and paints; for surfaces.
  TShaper& Shaper() { return *fShaper; }

 private:
  struct TCache;

  /// The lines of a text without line ends.
  void AppendParagraph(std::vector<TTextLine>& lines, std::string_view paragraph, const TFontSpec& font,
                       double widthMM);

  double WidthInEm(std::string_view text, const TFace& face);

  std::unique_ptr<TShaper> fShaper;
  std::unique_ptr<TCache> fCache;
  bool fEstimated = false;  ///< a text was measured without a font
};

}  // namespace Zor::inline Host
