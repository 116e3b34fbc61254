#include "kaldrix/editor/TBareLabel.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

/// Base points: room for the products below.
constexpr int MostHeight = 500'000'000;

/// Halves of the room that is left, by ordinal of the alignment.
constexpr std::array<int, 4> HorzHalves{0, 1, 2, 0};
constexpr std::array<int, 3> VertHalves{0, 1, 2};

/// Characters, from 0.
struct TLine {
  std::size_t from, count;
};

std::vector<TLine> BrokenLines(std::u32string_view aText, std::size_t aMost) {
  std::vector<TLine> lines;
  for (std::size_t from = 0;; ++from) {
    const std::size_t end = std::min(aText.find(U'\n', from), aText.size());
    while (end - from > aMost) {
      const std::size_t blank = aText.rfind(U' ', from + aMost);
      const bool between = blank != std::u32string_view::npos && blank > from;
      const std::size_t stop = between ? blank : from + aMost;
      lines.push_back({from, stop - from});
      from = between ? stop + 1 : stop;
    }
    lines.push_back({from, end - from});
    if (end == aText.size()) return lines;
    from = end;
  }
}

}  // namespace

void MeasureRoundly(TKDXBaseText& aText) {
  const int height = std::min(aText.fFontHeight, MostHeight);
  const double width = static_cast<double>(Utf8::Count(aText.fText)) * height / 2 * aText.fScaleX;
  aText.SetMeasured(static_cast<int>(std::min<double>(width, MostHeight)), height, height * 4 / 5, height / 5,
                    height / 10, 1.0);
}

void MeasureRoundly(TKDXBaseBarcode& aBarcode) {
  const int height = std::min(aBarcode.fFontHeight, MostHeight);
  aBarcode.SetMeasured(height / 5 * 4, height / 5, height / 10, height / 20, 1.0);
}

namespace {

/// What the lines of a node have in base points of paper, from its point 1.
struct TRoom {
  Int64 left, top, width, height;
};

TRoom RoomOf(const TKDXBaseFlow& aFlow, Int64 aScale) {
  const TZORRect& box = aFlow.fBoundsRect;
  const TZORPto first = aFlow.GetPoint(1);
  return {SubHeld(box.Left, first.bX) / aScale + aFlow.fPaddingX,
          SubHeld(box.Top, first.bY) / aScale + aFlow.fPaddingY,
          box.GetWidth() / aScale - 2 * Int64{aFlow.fPaddingX},
          box.GetHeight() / aScale - 2 * Int64{aFlow.fPaddingY}};
}

}  // namespace

void MeasureRoundly(TKDXBaseFlow& aFlow) {
  const Int64 height = std::clamp(aFlow.fFontHeight, 2, MostHeight), character = height / 2;
  aFlow.fAscent = static_cast<int>(height * 4 / 5);
  aFlow.fDescent = static_cast<int>(height / 5);
  aFlow.fPosUnderline = static_cast<int>(height / 10);
  aFlow.fRatio = 1;
  aFlow.aTxtPoints.clear();
  if (aFlow.fText.empty()) return;
  const Int64 scale = std::max<Int64>(aFlow.fOwner->fMeasure->fDrawScale, 1);
  const TRoom room = RoomOf(aFlow, scale);
  const auto most = static_cast<std::size_t>(std::max<Int64>(room.width / character, 1));
  const std::vector<TLine> lines = BrokenLines(Utf8::ToUtf32(aFlow.fText), most);
  const auto step = static_cast<Int64>(static_cast<double>(height) * aFlow.fInterline);
  const Int64 below = room.height - height - step * static_cast<Int64>(lines.size() - 1);
  Int64 y = room.top + below / 2 * VertHalves[aFlow.fVertAlign];
  for (const TLine& line : lines) {
    const Int64 beside = room.width - static_cast<Int64>(line.count) * character;
    const Int64 x = room.left + beside / 2 * HorzHalves[aFlow.fHorzAlign];
    aFlow.aTxtPoints.push_back({static_cast<int>(line.from) + 1, static_cast<int>(line.count),
                                MulHeld(x, scale), MulHeld(y, scale)});
    y += step;
  }
}

}  // namespace Zor::inline Base
