// Lines of text as a PDF shows them. Only sources include it: it shows Pango's types.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kaldrix/host/TPath.hpp"
#include "kaldrix/host/TPdfFonts.hpp"
#include "kaldrix/host/TPicture.hpp"
#include "kaldrix/host/TShaper.hpp"

namespace Zor::inline Host {

/// A piece of a line in one font; lengths are parts of the em.
struct TPdfPiece {
  TPdfStyle style;
  /// From the left end of the line.
  double x = 0;
  /// Operators that show the text at size 1, or lay it invisibly over what is drawn.
  std::string shows;
  /// What is drawn otherwise or besides, y downwards: outlines to be filled, or a picture that fills `box`.
  TPath outlines;
  std::shared_ptr<const TPicture> picture;
  TPaperBox box;
};

struct TPdfLine {
  double width = 0;
  std::vector<TPdfPiece> pieces;
};

/// Turns texts into lines and keeps them: they do not depend on size and place, so that a text that comes
/// again costs a hash lookup.
class TPdfLines {
 public:
  TPdfLines(TShaper& shaper, TPdfFonts& fonts) : fShaper(shaper), fFonts(fonts) {}

  /// Valid until the next call. `text` has to be clean.
  const TPdfLine& Of(std::string_view text, const TFace& face);

 private:
  using TKept = std::unordered_map<std::string, TPdfLine, TTextHash, std::equal_to<>>;

  TPdfLine Make(std::string_view text, const TFace& face);
  TPdfPiece MakePiece(std::string_view text, const TFace& face, const TGlyphLine& line, const TGlyphRun& run);

  TShaper& fShaper;
  TPdfFonts& fFonts;
  /// By the number of the face.
  std::unordered_map<unsigned, TKept> fKept;
  std::size_t fCount = 0;
  TPdfLine fLong;
};

}  // namespace Zor::inline Host
