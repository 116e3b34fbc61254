#include "kaldrix/types/Papers.hpp"

#include <algorithm>

namespace Zor::inline Types {
namespace {

char LowerASCII(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerASCII(x) == LowerASCII(y); });
}

}  // namespace

int GetPaperSize(std::string_view aName, Single& aW, Single& aH) {
  for (const TZORPaperType& paper : ZORPapers) {
    if (!SameName(paper.name, aName)) continue;
    aW = paper.wmm;
    aH = paper.hmm;
    return paper.value;
  }
  return -1;
}

int UserPaperIndex() {
  for (std::size_t row = 0; row < ZORPapers.size(); ++row) {
    if (ZORPapers[row].value == UserPaper) return static_cast<int>(row);
  }
  return -1;
}

}  // namespace Zor::inline Types
