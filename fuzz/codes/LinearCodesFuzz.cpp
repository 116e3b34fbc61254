// Any bytes as the text of a linear barcode: the first chooses the symbology, the second the options. A code
// that is refused and one that is taken both give a pattern of elements, in a bounded number.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "kaldrix/utils/TBarcode.hpp"

namespace {

using namespace Zor;

/// More elements than any symbology makes of a character, with two checks, start and stop beside them.
constexpr std::size_t MostPerCharacter = 40, Fixed = 100;

void Require(bool aHolds) {
  if (!aHolds) std::abort();
}

void MakePattern(std::string_view aText, TZORBarType aType, unsigned aOptions) {
  const bool check = (aOptions & 1) != 0, parentheses = (aOptions & 2) != 0, number = (aOptions & 4) != 0;
  const bool valid = TBarcode::IsValidCode(aText, aType, check, parentheses);
  std::string digit;
  TZOR128AutoType mode = at128None;
  const std::string code = TBarcode::PrepareBarcode(aText, aType, check, parentheses, digit, mode);
  const std::string pattern = TBarcode::FillBarPattern(code, aType, mode, number);
  Require(pattern.size() <= code.size() * MostPerCharacter + Fixed);
  constexpr std::string_view elements = "NMDTWFAB123456789";
  Require(pattern.find_first_not_of(elements) == std::string::npos);
  const int width = TBarcode::BarCodeWidth(pattern, 300, 2.5F, valid);
  Require(width >= 0 && (valid || width == 60 * 300));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  if (aSize < 2) return 0;
  const std::string_view text(reinterpret_cast<const char*>(aData) + 2, aSize - 2);
  MakePattern(text, static_cast<TZORBarType>(aData[0] % EnumCount<TZORBarType>), aData[1]);
  return 0;
}
