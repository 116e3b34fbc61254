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
  };
  for (const TCase& row : cases) {
    for (const char* suffix : {"png", "pdf"}) {
      const std::string file = File(std::string("code.") + suffix);
      const TOutcome done =
          Kaldrix("barcode " + std::string(row.arguments) + " -o " + file + " " + row.options);
      EXPECT_EQ(done.status, 0) << done.text;
      if (std::string(suffix) == "pdf")
        Shell("pdftoppm -r 300 -png -singlefile " + file + " " + File("code"));
      EXPECT_EQ(Scanned("code.png"), row.text) << row.arguments << " " << suffix;
    }
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
      {"code39 abc", "'abc' is no code of Code 39"},
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

TEST_F(BarcodeTest, WrongUseIsTwo) {
  for (const char* arguments :
       {"", "qr", "qr a", "ean14 1 -o a.png", "qr a -o a.txt", "qr a -o a.json", "qr a -o a.png --module 0",
        "qr a -o a.png --height x", "qr a -o a.png --dpi 0"}) {
    EXPECT_EQ(Kaldrix(std::string("barcode ") + arguments).status, 2) << arguments;
  }
}

}  // namespace
}  // namespace Zor
