// Any bytes as the text of a QR Code, a Data Matrix or a PDF417: the first two choose encoder and options. An
// encoder makes a symbol of a size that its table has, or refuses with its own error.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/codes/ZOR.DataMatrix.hpp"
#include "kaldrix/codes/ZOR.PDF417.hpp"
#include "kaldrix/codes/ZOR.QRCode.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace {

using namespace Zor;

void Require(bool aHolds) {
  if (!aHolds) std::abort();
}

/// The body may only fail with one of the messages, or with a conversion error where that is allowed.
template <class TBody>
void Encode(TBody aBody, const std::set<std::string_view>& aMessages) {
  try {
    aBody();
  } catch (const EConvertError&) {
    Require(aMessages.contains("EConvertError"));
  } catch (const Exception& error) {
    Require(aMessages.contains(error.what()));
  }
}

void QRCode(const std::string& aText, int aOption) {
  Encode(
      [&] {
        TEncoder encoder;
        TQRCode code;
        encoder.Encode(aText, aOption % 8, {}, code);
        Require(code.FVersion >= 1 && code.FVersion <= 40 && code.FMatrixWidth == 17 + 4 * code.FVersion);
        Require(code.FMatrix.Get(0, 0) == 1 && code.FMatrix.Get(8, code.FMatrixWidth - 8) == 1);
      },
      {"QRCode Encode Error"});
}

void DataMatrix(const std::string& aText, int aOption) {
  const auto size = static_cast<TECC200Size>(aOption % EnumCount<TECC200Size>);
  const auto shape = aOption < 128 ? ecc200_Square : ecc200_Rectangle;
  Encode(
      [&] {
        std::vector<std::uint8_t> modules;
        int cols = 0, rows = 0;
        CalcECC200({reinterpret_cast<const std::uint8_t*>(aText.data()), aText.size()}, size, shape, modules,
                   cols, rows);
        Require(modules.size() == static_cast<std::size_t>(cols) * static_cast<std::size_t>(rows));
        for (const std::uint8_t module : modules) Require(module <= 1);
      },
      {"MakeCodeword Error", "Base256_Encode Error"});
}

void PDF417(const std::string& aText, int aOption) {
  Encode(
      [&] {
        TCodeWords words;
        TPDF417::Reset(words);
        if (!TPDF417::Encode(words, aText)) return;
        const auto wished =
            static_cast<TZORPdf417CorrectionLevel>(aOption % EnumCount<TZORPdf417CorrectionLevel>);
        const int level = TPDF417::GetCorrecLevel(wished), check = TPDF417::NumErrorCWords(level);
        std::int16_t cols = 0, rows = 0;
        TPDF417::AdjustSize(cols, rows, check, TPDF417::UsedCodeWords(), aOption % 7 * 5, aOption % 9 * 10);
        words[0] = static_cast<std::uint16_t>(cols * rows - check);
        TPDF417::CalculateECC(words, words[0], check);
        for (int i = 0; i < cols * rows; ++i) {
          std::size_t width = 0;
          for (const std::uint8_t element : TPDF417::Widths(i / cols, words[static_cast<std::size_t>(i)]))
            width += element;
          Require(width == 17);
        }
      },
      {"PDF417 Encode Error", "EConvertError"});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  if (aSize < 2) return 0;
  const std::string text(reinterpret_cast<const char*>(aData) + 2, aSize - 2);
  switch (aData[0] % 3) {
    case 0:
      QRCode(text, aData[1]);
      break;
    case 1:
      DataMatrix(text, aData[1]);
      break;
    default:
      PDF417(text, aData[1]);
  }
  return 0;
}
