// Single barcodes as a person makes them. What they say is tried by scan_barcodes.
#include "apps/Program.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

class BarcodeTest : public ProgramTest {
 protected:
  TOutcome Make(const std::string& aTypeAndText, const std::string& aOptions = {}) const {
    return Kaldrix("barcode " + aTypeAndText + " -o " + File("out.png") + " " + aOptions);
  }
  std::string Scanned(const std::string& aFile) const {
    return Shell("(zbarimg -q --raw " + File(aFile) + " 2>/dev/null)").text;
  }
};

TEST_F(BarcodeTest, TheFormsAndOptionsGiveSymbolsThatScan) {
  struct TCase {
    const char *arguments, *options, *text;
  };
  const TCase cases[] = {
      {"ean13 4012345100006", "", "4012345100006\n"},
      {"ean13 401234510000", "--check --height 20", "4012345100006\n"},
      {"code39 AB-12", "--no-text --module 0.5", "AB-12\n"},
      {"code39 AB-12", "--check", "AB-12H\n"},
      {"code128auto 'a;b 12345678'", "", "a;b 12345678\n"},
      {"qr 'Hello world'", "--module 1", "Hello world\n"},
      {"EAN-13 12345", "--check --pad", "0000000123457\n"},
      {"Code_128-auto -- -+-", "", "-+-\n"},
  };
  for (const TCase& row : cases) {
    for (const char* suffix : {"png", "pdf"}) {
      const std::string file = File(std::string("code.") + suffix);
      const TOutcome done =
          Kaldrix("barcode -o " + file + " " + row.options + " " + std::string(row.arguments));
      EXPECT_EQ(done.status, 0) << done.text;
      if (std::string(suffix) == "pdf")
        Shell("pdftoppm -r 300 -png -singlefile " + file + " " + File("code"));
      EXPECT_EQ(Scanned("code.png"), row.text) << row.arguments << " " << suffix;
    }
  }
}

/// Readers tell an FNC1 behind the first as the character 29.
TEST_F(BarcodeTest, WhatIsTypedIsWhatIsRead) {
  struct TCase {
    const char *arguments, *format, *bytes;
  };
  const TCase cases[] = {
      {"ean128auto '(10)ABC123(01)04006381333931'", "Code128",
       "10ABC123\x1D"
       "0104006381333931"},
      {"ean128c '(01)04006381333931(37)12(10)123456'", "Code128",
       "01040063813339313712\x1D"
       "10123456"},
      {"datamatrix --gs1 '(10)ABC(21)x'", "DataMatrix",
       "10ABC\x1D"
       "21x"},
      {"datamatrix '(10)ABC(21)x'", "DataMatrix", "(10)ABC(21)x"},
      {"upce0 0425261 --check", "UPC-E", "04252614"},
      {"qr 'caf\u00E9'", "QRCode", "caf\xE9"},
      {"pdf417 'C:\\065'", "PDF417", "C:\\065"},
      {"pdf417 'C:\\065' --escapes", "PDF417", "C:A"},
  };
  for (const TCase& row : cases) {
    const TOutcome done = Make(row.arguments);
    EXPECT_EQ(done.status, 0) << done.text;
    EXPECT_EQ(
        Shell(std::string("ZXingReader -ispure -bytes -format ") + row.format + " " + File("out.png")).text,
        row.bytes)
        << row.arguments;
  }
}

TEST_F(BarcodeTest, TextFromStandardInputLosesItsLineEnd) {
  const TOutcome done =
      Shell("echo 12345678 | " KALDRIX_PROGRAM " barcode qr - --format png -o " + File("out.png"));
  EXPECT_EQ(done.status, 0) << done.text;
  EXPECT_EQ(Scanned("out.png"), "12345678\n");
}

TEST_F(BarcodeTest, WhatASymbolCannotHoldIsNamed) {
  const std::string large(8000, 'x');
  struct TCase {
    std::string arguments;
    std::string part;
  };
  const TCase cases[] = {
      {"ean13 12345", "ean13: '12345' is no code of EAN-13"},
      {"ean13 4012345100007", "4012345100007"},
      {"ean13 12345 --check", "zeros in front"},
      {"upce0 04252610", "it would be 04252614"},
      {"code39 abc", "'abc' is no code of Code 39"},
      {"code39 'A*B'", "'*' starts and stops it"},
      {"code128b \"$(printf 'a\\177')\"", "'\\x7F' and becomes ' '"},
      {"code128auto '\u00E9 e'", "'\\xA0'"},
      {"ean128auto '\u00E9'", "no bars"},
      {"ean128auto '(01)04006381333930'", "it would be '04006381333931'"},
      {"ean128auto '(05)1'", "no application identifier (05)"},
      {"datamatrix --gs1 10ABC", "does not begin with an application identifier"},
      {"datamatrix '5 \u20AC'", "beyond ISO 8859-1"},
      {"inter25 1234X6", "'1234X6'"},
      {"code128c 12A4", "'12A4'"},
      {"code11 12+4", "'12+4'"},
      {"code128auto Ω", "Ω"},
      {"datamatrix Ω", "characters that the symbol cannot hold"},
      {"pdf417 'a é'", "characters that the symbol cannot hold"},
      {"qr ''", "qr: "},
      {"qr " + large, "qr: "},
      {"datamatrix " + large, "datamatrix: "},
      {"pdf417 " + large, "pdf417: "},
      {"qr \"$(printf '\\377')\"", "qr: "},
  };
  for (const TCase& row : cases) {
    const TOutcome done = Make(row.arguments);
    EXPECT_EQ(done.status, 1) << row.arguments.substr(0, 40);
    EXPECT_EQ(done.text.substr(0, 9), "kaldrix: ") << done.text.substr(0, 200);
    EXPECT_NE(done.text.find(row.part), std::string::npos) << done.text.substr(0, 200);
    EXPECT_FALSE(FileExists(File("out.png"))) << row.arguments.substr(0, 40);
  }
}

TEST_F(BarcodeTest, TheQuietZoneGrowsWithTheModules) {
  const std::pair<const char*, const char*> cases[] = {
      {"code128c 12 --no-text", "width=\"66mm\""},  // 46 modules and 10 on either side
      {"qr a", "width=\"29mm\" height=\"29mm\""},
      {"datamatrix a", "width=\"14mm\" height=\"14mm\""},
  };
  for (const auto& [arguments, size] : cases) {
    EXPECT_EQ(Kaldrix(std::string("barcode ") + arguments + " --module 1 -o " + File("a.svg")).status, 0);
    EXPECT_NE(ReadFile(File("a.svg")).find(size), std::string::npos)
        << ReadFile(File("a.svg")).substr(0, 200);
  }
}

TEST_F(BarcodeTest, WrongUseIsTwo) {
  EXPECT_NE(Make("ean14 1").text.find("the nearest of 26 are 'ean13'"), std::string::npos);
  EXPECT_NE(Make("codabar -+-").text.find("stands last, behind --"), std::string::npos);
  for (const char* nothing : {"qr a --height 10", "qr a --check", "pdf417 a --no-text", "code93 A --check",
                              "code39 A --pad", "qr a --gs1", "datamatrix a --escapes"}) {
    EXPECT_EQ(Make(nothing).status, 2) << nothing;
    EXPECT_NE(Make(nothing).text.find("does nothing for"), std::string::npos) << nothing;
  }
  for (const char* small :
       {"ean13 401234510000 --check --module 0.05", "ean13 401234510000 --check --height 1",
        "qr a --module 0.05", "pdf417 a --height 0.1"}) {
    EXPECT_EQ(Make(small).status, 2) << small;
    EXPECT_NE(Make(small).text.find("below the least of the type, "), std::string::npos) << small;
  }
  for (const char* arguments :
       {"", "qr", "codabar -+- -o a.png", "qr a", "ean14 1 -o a.png", "qr a -o a.txt", "qr a -o a.json",
        "qr a -o a.png --module 0", "qr a -o a.png --height x", "qr a -o a.png --dpi 0"}) {
    EXPECT_EQ(Kaldrix(std::string("barcode ") + arguments).status, 2) << arguments;
  }
}

}  // namespace
}  // namespace Zor
