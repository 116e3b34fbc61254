#include "kaldrix/codes/TECC200Placement.hpp"

#include <array>
#include <utility>

#include "kaldrix/codes/TOncePerIndex.hpp"

namespace Zor::inline Datamatrix {

namespace {

/// Row and column; from the bottom or the right where negative.
using TPlace = std::pair<int, int>;
using TCodewordPlaces = std::array<TPlace, 8>;

// ISO/IEC 16022, annex F: the places of a codeword's bits, the highest first, from the place of its lowest,
// and those of the codewords in the four corner cases.
constexpr TCodewordPlaces Utah{{{-2, -2}, {-2, -1}, {-1, -2}, {-1, -1}, {-1, 0}, {0, -2}, {0, -1}, {0, 0}}};
constexpr TCodewordPlaces Corner1{{{-1, 0}, {-1, 1}, {-1, 2}, {0, -2}, {0, -1}, {1, -1}, {2, -1}, {3, -1}}};
constexpr TCodewordPlaces Corner2{{{-3, 0}, {-2, 0}, {-1, 0}, {0, -4}, {0, -3}, {0, -2}, {0, -1}, {1, -1}}};
constexpr TCodewordPlaces Corner3{{{-3, 0}, {-2, 0}, {-1, 0}, {0, -2}, {0, -1}, {1, -1}, {2, -1}, {3, -1}}};
constexpr TCodewordPlaces Corner4{{{-1, 0}, {-1, -1}, {0, -3}, {0, -2}, {0, -1}, {1, -3}, {1, -2}, {1, -1}}};

/// Walks the mapping matrix in the order of the codewords.
class TPlacer {
 public:
  TPlacer(const TECC200SymbolParam& aParam, TECC200Placement& aResult)
      : fParam(aParam),
        fRows(aParam.MappingMatrixRows),
        fCols(aParam.MappingMatrixCols),
        fTaken(static_cast<std::size_t>(fRows * fCols)),
        fResult(aResult) {}

  void Place() {
    int row = 4, col = 0;
    do {
      Corners(row, col);
      for (; row >= 0 && col < fCols; row -= 2, col += 2) {
        if (row < fRows && col >= 0 && !IsTaken(row, col)) Codeword(row, col);
      }
      row += 1;
      col += 3;
      for (; row < fRows && col >= 0; row += 2, col -= 2) {
        if (row >= 0 && col < fCols && !IsTaken(row, col)) Codeword(row, col);
      }
      row += 3;
      col += 1;
    } while (row < fRows || col < fCols);
    if (!IsTaken(fRows - 1, fCols - 1)) FixedCorner();
  }

 private:
  void Corners(int aRow, int aCol) {
    if (aRow == fRows && aCol == 0) CornerCodeword(Corner1);
    if (aRow == fRows - 2 && aCol == 0 && fCols % 4 != 0) CornerCodeword(Corner2);
    if (aRow == fRows - 2 && aCol == 0 && fCols % 8 == 4) CornerCodeword(Corner3);
    if (aRow == fRows + 4 && aCol == 2 && fCols % 8 == 0) CornerCodeword(Corner4);
  }
  void CornerCodeword(const TCodewordPlaces& aPlaces) {
    for (const auto& [row, col] : aPlaces) Bit(row < 0 ? row + fRows : row, col < 0 ? col + fCols : col);
  }
  /// What leaves the matrix at the top or left comes back at the other side, shifted.
  void Codeword(int aRow, int aCol) {
    for (const auto& [rowStep, colStep] : Utah) {
      int row = aRow + rowStep, col = aCol + colStep;
      if (row < 0) {
        row += fRows;
        col += 4 - (fRows + 4) % 8;
      }
      if (col < 0) {
        col += fCols;
        row += 4 - (fCols + 4) % 8;
      }
      Bit(row, col);
    }
  }
  void Bit(int aRow, int aCol) {
    fTaken[static_cast<std::size_t>(aRow * fCols + aCol)] = true;
    fResult.Places.push_back(static_cast<std::uint16_t>(InSymbol(aRow, aCol)));
  }
  void FixedCorner() {
    fResult.Frame[InSymbol(fRows - 1, fCols - 1)] = 1;
    fResult.Frame[InSymbol(fRows - 2, fCols - 2)] = 1;
  }

  bool IsTaken(int aRow, int aCol) const { return fTaken[static_cast<std::size_t>(aRow * fCols + aCol)]; }
  /// The regions stand in the symbol with a finder around each.
  std::size_t InSymbol(int aRow, int aCol) const {
    const int row = aRow + 2 * (aRow / fParam.RegionRows) + 1;
    const int col = aCol + 2 * (aCol / fParam.RegionCols) + 1;
    return static_cast<std::size_t>(row * fParam.Cols + col);
  }

  const TECC200SymbolParam& fParam;
  int fRows, fCols;
  std::vector<bool> fTaken;
  TECC200Placement& fResult;
};

/// Solid to the left and below each region, alternating above and to the right.
std::vector<std::uint8_t> Finders(const TECC200SymbolParam& aParam) {
  std::vector<std::uint8_t> modules;
  for (int y = 0; y < aParam.Rows; ++y) {
    for (int x = 0; x < aParam.Cols; ++x) {
      const int row = y % (aParam.RegionRows + 2), col = x % (aParam.RegionCols + 2);
      const bool solid = col == 0 || row == aParam.RegionRows + 1;
      const bool timing = (row == 0 && col % 2 == 0) || (col == aParam.RegionCols + 1 && row % 2 == 1);
      modules.push_back(solid || timing ? 1 : 0);
    }
  }
  return modules;
}

}  // namespace

const TECC200Placement& TECC200Placement::Of(TECC200Size aSize) {
  static TOncePerIndex<TECC200Placement, EnumCount<TECC200Size>> placements;
  return placements.Get(aSize, [=] {
    const TECC200SymbolParam& param = SymbolParam(aSize);
    TECC200Placement placement{Finders(param), {}};
    TPlacer(param, placement).Place();
    return placement;
  });
}

}  // namespace Zor::inline Datamatrix
