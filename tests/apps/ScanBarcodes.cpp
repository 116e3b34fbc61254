// Makes random barcodes with the program and has independent readers find their texts again, byte for byte.
//
//   scan_barcodes [TEXTS [DRAWN [TYPE]]]
//
// TEXTS of each symbology as PNG (300 if not told), and DRAWN of them (30) as SVG, painted by Chromium, and
// as PDF, painted by pdftoppm; of all types, or of those that begin with TYPE, or of that row. Prints a
// table, what was not read, and ends with 1 when there is anything.
#include <algorithm>
#include <iostream>

#include "apps/Program.hpp"
#include "codes/Readers.hpp"
#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

constexpr std::string_view Digits = "0123456789";
constexpr std::string_view Alphabet39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";

/// How a reader tells a text.
enum TReader {
  rdZbar,   ///< zbarimg, bytes
  rdZXing,  ///< ZXingReader, bytes
  rdDmtx    ///< dmtxread, bytes
};
constexpr const char* ReaderNames[] = {"zbarimg", "ZXingReader", "dmtxread"};

/// What a reader finds instead of the text, where that is on purpose.
enum TExpected {
  exText,
  exCheckDigit,   ///< a check digit at the end, which the reader has verified
  exUpcE,         ///< zbarimg tells the EAN-13 that a UPC code stands for: a 0 in front
  exNoBreak,      ///< Code 128 takes a space behind a character of the upper half, or among nothing else,
                  ///< for one of that half
  exPlainVowels,  ///< QR Code leaves the acute accents of vowels out
  exMarked,       ///< so it does here, and marks a text that is not Latin-1 with the signature bytes of UTF-8
  exCodabar,      ///< start and stop character around it
  exEscaped,      ///< the text; PDF417 reads a backslash as an escape, so it is told twice
};

struct TScan {
  const char* name;
  const char* type;
  std::string_view alphabet;  ///< empty: any character of Windows-1252 or, for QR Code, of Unicode
  std::size_t least, most, step;
  TReader reader;
  const char* format;  ///< of ZXingReader
  TExpected expected = exText;
  const char* options = "";
};

// Not read by any of the three, and thus not here: Industrial and Matrix 2 of 5, Code 11, MSI, POSTNET.
constexpr TScan Scans[] = {
    {"EAN-13", "ean13", Digits, 12, 12, 1, rdZbar, "", exCheckDigit, "--check"},
    {"EAN-13", "ean13", Digits, 12, 12, 1, rdZXing, "EAN-13", exCheckDigit, "--check"},
    {"EAN-8", "ean8", Digits, 7, 7, 1, rdZbar, "", exCheckDigit, "--check"},
    {"UPC-A", "upca", Digits, 11, 11, 1, rdZbar, "", exUpcE, "--check"},
    {"UPC-A", "upca", Digits, 11, 11, 1, rdZXing, "UPC-A", exCheckDigit, "--check"},
    {"Code 39", "code39", Alphabet39, 1, 30, 1, rdZbar, ""},
    {"Code 39, check digit", "code39", Alphabet39, 1, 30, 1, rdZXing, "Code39", exCheckDigit, "--check"},
    {"Code 93", "code93", Alphabet39, 1, 40, 1, rdZbar, ""},
    {"Code 93 full ASCII", "code93ex", Printable, 1, 30, 1, rdZbar, ""},
    {"Code 93 full ASCII", "code93ex", Printable, 1, 30, 1, rdZXing, "Code93"},
    {"Codabar", "codabar", "0123456789-$:/.+", 4, 30, 1, rdZbar, "", exCodabar},
    {"Code 128 set A", "code128a", " !#$%&()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]^_", 1, 40, 1,
     rdZbar, ""},
    {"Code 128 set B", "code128b", Printable, 1, 40, 1, rdZbar, ""},
    {"Code 128 set C", "code128c", Digits, 2, 60, 2, rdZbar, ""},
    {"Code 128", "code128auto", "abCD()0123456789012345678901234567890123456789", 1, 60, 1, rdZbar, ""},
    {"Code 128, Windows-1252", "code128auto", "", 2, 30, 1, rdZXing, "Code128", exNoBreak},
    {"GS1-128 set B", "ean128b", Printable, 4, 40, 1, rdZbar, ""},
    {"GS1-128 set C", "ean128c", Digits, 4, 48, 2, rdZbar, ""},
    {"GS1-128", "ean128auto", "abCD0123456789012345678901234567890123456789", 4, 48, 1, rdZXing, "Code128"},
    {"Interleaved 2 of 5", "inter25", Digits, 6, 40, 2, rdZbar, ""},
    {"Interleaved 2 of 5, check digit", "inter25", Digits, 7, 41, 2, rdZbar, "", exCheckDigit, "--check"},
    {"QR Code, digits", "qr", Digits, 1, 600, 1, rdZbar, ""},
    {"QR Code, alphanumeric", "qr", "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%*+-./:", 1, 500, 1, rdZXing,
     "QRCode"},
    {"QR Code, ASCII", "qr", Printable, 1, 400, 1, rdZbar, ""},
    {"QR Code, Latin-1", "qr", "", 1, 200, 1, rdZXing, "QRCode", exPlainVowels},
    {"QR Code, Unicode", "qr", "", 1, 100, 1, rdZXing, "QRCode", exMarked},
    {"QR Code, versions 27 to 40", "qr", Printable, 1470, 2953, 1, rdZXing, "QRCode"},
    {"Data Matrix, digits", "datamatrix", Digits, 1, 600, 1, rdDmtx, ""},
    {"Data Matrix, ASCII", "datamatrix", Printable, 1, 300, 1, rdZXing, "DataMatrix"},
    {"Data Matrix, Windows-1252", "datamatrix", "", 1, 150, 1, rdDmtx, ""},
    {"Data Matrix, large", "datamatrix", Printable, 300, 1500, 1, rdDmtx, ""},
    {"PDF417, digits", "pdf417", Digits, 1, 600, 1, rdZXing, "PDF417"},
    // Nothing but printable ASCII: the program refuses what the symbol would drop.
    {"PDF417, ASCII", "pdf417", Printable, 1, 300, 1, rdZXing, "PDF417", exEscaped},
    {"PDF417, large", "pdf417", Printable, 300, 800, 1, rdZXing, "PDF417", exEscaped},
};

/// Characters beyond ASCII, of Latin-1 where a byte has to hold each.
constexpr const char* Beyond[] = {"é", "ü", "Ø", "ß", "¢", "ÿ", "a", "Z", "7", " "};
constexpr const char* FarBeyond[] = {"Ω", "я", "中", "€", "😀", "é", "a", "Z", "7", " "};

class TScanner {
 public:
  TScanner(int aTexts, int aDrawn) : fTexts(aTexts), fDrawn(aDrawn) {}

  /// The table's row; true when every text was read.
  bool Scan(const TScan& aScan) {
    const int drawn = std::min(fDrawn, fTexts);
    const int png = Read(aScan, fTexts, "png"), svg = Read(aScan, drawn, "svg"),
              pdf = Read(aScan, drawn, "pdf");
    std::cout << "| " << aScan.name << " | " << fTexts << " | " << png << " | " << svg << " of " << drawn
              << " | " << pdf << " of " << drawn << " | " << ReaderNames[aScan.reader] << " |" << std::endl;
    return png == fTexts && svg == drawn && pdf == drawn;
  }

 private:
  std::string RandomText(const TScan& aScan, int aIndex) {
    const std::size_t lengths = (aScan.most - aScan.least) / aScan.step + 1;
    // All lengths when there are enough texts, else spread over them.
    const auto texts = static_cast<std::size_t>(fTexts);
    const std::size_t at = static_cast<std::size_t>(aIndex) * std::max<std::size_t>(lengths / texts, 1);
    const std::size_t length = aScan.least + at % lengths * aScan.step;
    if (!aScan.alphabet.empty()) return fRandom.Of(aScan.alphabet, length);
    std::string text;
    for (const char c : fRandom.Of(Digits, length))
      text += aScan.expected == exMarked ? FarBeyond[c - '0'] : Beyond[c - '0'];
    return text;
  }

  /// The text as the program is told it.
  static std::string Told(const TScan& aScan, const std::string& aText) {
    if (aScan.expected != exEscaped) return aText;
    std::string told;
    for (const char c : aText) told.append(c == '\\' ? 2 : 1, c);
    return told;
  }
  static std::string Expected(const TScan& aScan, const std::string& aText) {
    if (aScan.expected == exUpcE) return "0" + aText;
    if (!aScan.alphabet.empty()) return aText;
    std::string text;
    for (std::size_t i = 0; i < aText.size(); ++i) {
      const bool plain = aScan.expected >= exPlainVowels && aText.compare(i, 2, "é") == 0;
      text += plain ? 'e' : aText[i];
      if (plain) ++i;
    }
    const bool held = ToUtf8(ToAnsi(text)) == text && text.find("€") == std::string::npos;
    if (aScan.expected == exMarked && !held) return "\xEF\xBB\xBF" + text;
    std::string bytes(ToAnsi(text).Bytes());
    const auto upper = [](char c) { return c == ' ' || (c & 0x80) != 0; };
    const bool allUpper = std::all_of(bytes.begin(), bytes.end(), upper);
    for (std::size_t i = 0; aScan.expected == exNoBreak && i < bytes.size(); ++i) {
      if (bytes[i] == ' ' && (allUpper || (i > 0 && (bytes[i - 1] & 0x80) != 0))) bytes[i] = '\xA0';
    }
    return bytes;
  }
  static bool Agrees(const TScan& aScan, const std::string& aText, const std::string& aFound) {
    const std::string expected = Expected(aScan, aText);
    switch (aScan.expected) {
      case exCheckDigit:
      case exUpcE:
        return aFound.size() == expected.size() + 1 && aFound.starts_with(expected);
      case exCodabar:
        return aFound.size() == expected.size() + 2 && aFound.substr(1, expected.size()) == expected;
      default:
        return aFound == expected;
    }
  }

  int Read(const TScan& aScan, int aCount, const std::string& aForm) {
    if (aCount == 0) return 0;
    TReaderRun run;
    std::vector<std::string> texts, made;
    for (int i = 0; i < aCount; ++i) {
      texts.push_back(RandomText(aScan, i));
      made.push_back(Made(run, aScan, texts.back(), aForm));
    }
    const std::vector<std::string> images = aForm == "svg" ? Painted(run, made) : made;
    int right = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      std::string found;
      bool read = false;
      // Readers fail on some sizes of bars that lie off the pixels: they get a second look at those of a PDF.
      for (const int dpi : {300, 600}) {
        if (read || (dpi > 300 && aForm != "pdf")) break;
        found = Find(aScan, aForm == "pdf" ? PaintedPdf(run, made[i], dpi) : images[i]);
        read = Agrees(aScan, texts[i], found);
      }
      if (read) {
        ++right;
      } else {
        std::cerr << aScan.name << " as " << aForm << ": '" << texts[i] << "' is read as '" << found << "'\n";
      }
    }
    return right;
  }

  /// The symbol as SVG, or as an image; an empty name when the program or the painter failed.
  static std::string Made(TReaderRun& aRun, const TScan& aScan, const std::string& aText,
                          const std::string& aForm) {
    const std::string source = aRun.NewName(".txt"), made = aRun.NewName("." + aForm);
    WriteFileAtomically(source, Told(aScan, aText) + "\n");
    const TOutcome done = Shell(std::string(KALDRIX_PROGRAM " barcode ") + aScan.type + " - --no-text " +
                                aScan.options + " -o " + made + " <" + source);
    if (done.status != 0) return Failed(done.text);
    return made;
  }
  static std::string PaintedPdf(TReaderRun& aRun, const std::string& aPdf, int aDpi) {
    if (aPdf.empty()) return {};
    const std::string stem = aRun.NewName("");
    const TOutcome done =
        Shell("pdftoppm -r " + std::to_string(aDpi) + " -png -singlefile " + aPdf + " " + stem);
    return done.status == 0 ? stem + ".png" : Failed(done.text);
  }

  static double Millimetres(const std::string& aSvg, const std::string& aKey) {
    const std::size_t at = aSvg.find(aKey + "=\"");
    return at == std::string::npos ? 0 : std::strtod(aSvg.c_str() + at + aKey.size() + 2, nullptr);
  }
  /// Images of drawings: a browser puts each on a page of a PDF.
  static std::vector<std::string> Painted(TReaderRun& aRun, const std::vector<std::string>& aDrawings) {
    double width = 0, height = 0;
    std::string pages;
    for (const std::string& drawing : aDrawings) {
      if (drawing.empty()) continue;
      const std::string head = ReadFile(drawing).substr(0, 2000);
      width = std::max(width, Millimetres(head, "width"));
      height = std::max(height, Millimetres(head, "height"));
      pages += "<div><img src='" + drawing + "'></div>";
    }
    const std::string page = aRun.NewName(".html"), stem = aRun.NewName(""), pdf = stem + ".pdf";
    constexpr int around = 10;
    WriteFileAtomically(page, "<!DOCTYPE html><style>@page{size:" + std::to_string(width + around) + "mm " +
                                  std::to_string(height + around) +
                                  "mm;margin:4mm}body{margin:0}img{display:block}" +
                                  "div{break-after:page}div:last-child{break-after:avoid}</style>" + pages);
    Shell(
        "chromium --headless --no-sandbox --disable-gpu --no-pdf-header-footer "
        "--allow-file-access-from-files "
        "--print-to-pdf=" +
        pdf + " file://" + page);
    const TOutcome done = Shell("pdftoppm -r 300 -png " + pdf + " " + stem);
    if (done.status != 0) Failed(done.text);
    std::vector<std::string> images;
    std::istringstream names(Shell("ls " + stem + "-*.png").text);
    for (std::string name; std::getline(names, name);) images.push_back(name);
    images.resize(aDrawings.size());
    return images;
  }
  static std::string Failed(const std::string& aText) {
    std::cerr << aText;
    return {};
  }

  static std::string Find(const TScan& aScan, const std::string& aImage) {
    if (aImage.empty()) return "(no image)";
    switch (aScan.reader) {
      case rdZbar:
        return Shell("(zbarimg -q --raw --oneshot -Sbinary " + aImage + " 2>/dev/null)").text;
      case rdDmtx:
        return Shell("(dmtxread -N1 " + aImage + " 2>/dev/null)").text;
      case rdZXing:
        return Shell(std::string("ZXingReader -ispure -bytes -format ") + aScan.format + " " + aImage).text;
    }
    return {};
  }
  int fTexts, fDrawn;
  TRandomText fRandom{20261123};
};

}  // namespace
}  // namespace Zor

int main(int argc, char** argv) {
  const int texts = argc > 1 ? std::atoi(argv[1]) : 300, drawn = argc > 2 ? std::atoi(argv[2]) : 30;
  std::cout << "| symbology | texts | read as PNG | as SVG | as PDF | by |\n| --- | ---: | ---: | ---: | "
               "---: | --- |\n";
  Zor::TScanner scanner(texts, drawn);
  bool sound = true;
  const std::string_view type = argc > 3 ? argv[3] : "";
  for (const Zor::TScan& scan : Zor::Scans) {
    const bool meant = std::string_view(scan.type).starts_with(type) || scan.name == type;
    if (meant) sound = scanner.Scan(scan) && sound;
  }
  return sound ? 0 : 1;
}
