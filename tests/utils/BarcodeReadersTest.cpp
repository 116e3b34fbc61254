// What independent readers find in linear barcodes: random texts of each symbology that they know.
#include "codes/Readers.hpp"
#include "kaldrix/utils/TBarcode.hpp"

namespace Zor {
namespace {

constexpr std::string_view Digits = "0123456789";
constexpr int Wide = 3;  // modules

TSymbolImage Image(std::string_view aPattern) {
  constexpr int scale = 2, height = 24, quiet = 40;
  TSymbolImage image(TBarcode::BarCodeWidth(aPattern, 1, Wide, true), 1, scale, height, quiet);
  int at = 0;
  for (const char c : aPattern) {
    TZORDrawWidth width = dw1;
    TZORDrawBar bar = dbW;
    TBarcode::FillBarData(c, width, bar);
    const int modules = static_cast<int>(ElementWidth(width, 1, Wide));
    if (bar != dbW && bar != dbEW) image.Fill(at, 0, modules, 1);
    at += modules;
  }
  return image;
}

struct TReading {
  const char* name;
  TZORBarType type;
  std::string_view alphabet;
  std::size_t least, most, step;
  bool check;
  const char* format;
};

void PrintTo(const TReading& aReading, std::ostream* aStream) { *aStream << aReading.name; }

constexpr TReading Readings[] = {
    {"Ean13", btEAN13, Digits, 12, 12, 1, true, "EAN-13"},
    {"Ean8", btEAN8, Digits, 7, 7, 1, true, "EAN-8"},
    {"UpcA", btUPCA, Digits, 11, 11, 1, true, "UPC-A"},
    {"UpcE", btUPCE0, Digits, 6, 6, 1, false, "UPC-E"},
    {"Code39", btCODE39, "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%", 1, 24, 1, false, "Code39"},
    {"Code39Check", btCODE39, "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-.", 4, 20, 1, true, "Code39"},
    {"Code93", btCODE93, "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%", 1, 40, 1, false, "Code93"},
    {"Code93Ex", btCODE93EX, Printable, 1, 24, 1, false, "Code93"},
    {"Codabar", btCODABAR, "0123456789-$:/.+", 4, 24, 1, false, "Codabar"},
    {"Code128A", btCODE128A, " !#$%&()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]^_", 1, 30, 1, false,
     "Code128"},
    {"Code128B", btCODE128B, Printable, 1, 30, 1, false, "Code128"},
    {"Code128C", btCODE128C, Digits, 2, 40, 2, false, "Code128"},
    {"Code128Check", btCODE128C, Digits, 3, 41, 2, true, "Code128"},
    {"AutoDigits", btCODE128AUTO, Digits, 4, 31, 1, false, "Code128"},
    {"AutoUpper", btCODE128AUTO, "AB01234567890123456789", 1, 30, 1, false, "Code128"},
    {"AutoMixed", btCODE128AUTO, "ab0123456789012345678901234567890123456789", 1, 40, 1, false, "Code128"},
    {"Gs1B", btEAN128B, Printable, 4, 30, 1, false, "Code128"},
    {"Gs1C", btEAN128C, Digits, 4, 40, 2, false, "Code128"},
    {"Gs1Auto", btEAN128AUTO, "ab0123456789012345678901234567890123456789", 4, 40, 1, false, "Code128"},
    {"Interleaved", btINTER_25, Digits, 6, 30, 2, false, "ITF"},
    {"InterleavedCheck", btINTER_25, Digits, 7, 31, 2, true, "ITF"},
};

class BarcodeReaders : public testing::TestWithParam<TReading> {};

TEST_P(BarcodeReaders, FindTheTextAgain) {
  const TReading& reading = GetParam();
  TRandomText random(static_cast<unsigned>(reading.type) + 1);
  TReaderRun run;
  std::vector<std::string> texts;
  constexpr std::size_t rounds = 24;
  for (std::size_t i = 0; i < rounds; ++i) {
    const std::size_t lengths = (reading.most - reading.least) / reading.step + 1;
    std::string code = random.Of(reading.alphabet, reading.least + i % lengths * reading.step);
    if (reading.type == btUPCE0) code = UpcE(code);
    ASSERT_TRUE(TBarcode::IsValidCode(code, reading.type, reading.check, false)) << code;
    std::string digit;
    TZOR128AutoType mode = at128None;
    texts.push_back(TBarcode::PrepareBarcode(code, reading.type, reading.check, false, digit, mode));
    run.Add(Image(TBarcode::FillBarPattern(texts.back(), reading.type, mode, i % 2 == 0)));
  }
  EXPECT_EQ(ReadWithZXing(run, reading.format), texts);
}

INSTANTIATE_TEST_SUITE_P(Linear, BarcodeReaders, testing::ValuesIn(Readings),
                         [](const auto& aInfo) { return std::string(aInfo.param.name); });

/// The second reader knows no GS1 marks and no FNC4, and takes what it finds for any symbology.
TEST(BarcodeSecondReader, FindsTheTextAgain) {
  TRandomText random(5);
  TReaderRun run;
  std::string texts;
  for (const TReading& reading : Readings) {
    const bool known = reading.type == btEAN13 || reading.type == btCODE39 || reading.type == btCODE93 ||
                       reading.type == btCODE128B || reading.type == btCODE128AUTO ||
                       reading.type == btINTER_25;
    for (int i = 0; known && i < 5; ++i) {
      const std::string code = random.Of(reading.alphabet, std::max<std::size_t>(reading.least, 8));
      std::string digit;
      TZOR128AutoType mode = at128None;
      const std::string text =
          TBarcode::PrepareBarcode(code, reading.type, reading.check, false, digit, mode);
      texts += text + "\n";
      run.Add(Image(TBarcode::FillBarPattern(text, reading.type, mode, false)));
    }
  }
  EXPECT_EQ(run.Read("zbarimg -q --raw --nodbus"), texts);
}

/// Characters of the upper half, shifted and latched. The reader guesses at their code page, so that its
/// bytes are compared.
TEST(BarcodeUpperCharacters, AreReadBack) {
  TReaderRun run;
  std::vector<std::string> expected;
  for (const std::string_view code :
       {"\xE9", "\xE9\xE8\xFC", "Gr\xFC\xDF", "a\xE9\xE8\xE0\xFC\xF6z12", "\xC4rg\xFF"}) {
    std::string digit, bytes = "Bytes:     ";
    TZOR128AutoType mode = at128None;
    const std::string text = TBarcode::PrepareBarcode(code, btCODE128AUTO, false, false, digit, mode);
    run.Add(Image(TBarcode::FillBarPattern(text, btCODE128AUTO, mode, false)));
    for (const char c : code) {
      bytes += ' ';
      for (const int nibble : {c >> 4 & 15, c & 15}) bytes += "0123456789ABCDEF"[nibble];
    }
    expected.push_back(bytes + "\n");
  }
  const std::vector<std::string> found = run.ReadEach("ZXingReader -ispure -format Code128");
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NE(found[i].find(expected[i]), std::string::npos) << found[i] << expected[i];
  }
}

}  // namespace
}  // namespace Zor
