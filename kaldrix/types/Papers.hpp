#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Types {

/// A row of the paper table: size in millimetres and the printing system's code.
struct TZORPaperType {
  Single wmm;
  Single hmm;
  std::string_view name;
  std::int16_t value;
};

/// The code of the paper whose size the user sets.
inline constexpr std::int16_t UserPaper = 256;

/// The order is the one in which papers are offered; the names are stored in documents.
inline constexpr std::array<TZORPaperType, 27> ZORPapers{{
    /* 0*/ {210, 297, "A4", 9},
    /* 1*/ {139.7F, 215.9F, "STATEMENT", 6},
    /* 2*/ {184.15F, 266.7F, "EXECUTIVE", 7},
    /* 3*/ {215.9F, 279.4F, "LETTER", 1},
    /* 4*/ {215.9F, 355.6F, "LEGAL", 5},
    /* 5*/ {148, 210, "A5", 11},
    /* 6*/ {297, 420, "A3", 8},
    /* 7*/ {279.4F, 431.8F, "TABLOID", 3},
    /* 8*/ {431.8F, 279.4F, "LEDGER", 4},
    /* 9*/ {250, 354, "B4", 12},
    /*10*/ {182, 257, "B5", 13},
    /*11*/ {215, 275, "Quarto", 15},
    /*12*/ {110, 220, "Sobre DL", 27},
    /*13*/ {162, 229, "Sobre C5", 28},
    /*14*/ {324, 458, "Sobre C3", 29},
    /*15*/ {229, 324, "Sobre C4", 30},
    /*16*/ {114, 162, "Sobre C6", 31},
    /*17*/ {114, 229, "Sobre C65", 32},
    /*18*/ {250, 353, "Sobre B4", 33},
    /*19*/ {176, 250, "Sobre B5", 34},
    /*20*/ {176, 125, "Sobre B6", 35},
    /*21*/ {110, 230, "Italy", 36},
    /*22*/ {250, 353, "B4 (ISO)", 42},
    /*23*/ {100, 148, "Japanese Postcard", 43},
    /*24*/ {200, 148, "Japanese Doble", 82},
    /*25*/ {220, 220, "Sobre Invite", 47},
    /*26*/ {200, 200, "User", UserPaper},
}};

/// Size in millimetres and code of the first paper of that name, ignoring case; -1 for an unknown name, which
/// leaves both sizes as they are.
int GetPaperSize(std::string_view aName, Single& aW, Single& aH);

/// The row of the paper whose size the user sets; -1 if there is none.
int UserPaperIndex();

}  // namespace Zor::inline Types
