// The rows of the table that scan_barcodes prints: what is drawn of each symbology, and what a reader has to
// find of it. Nothing here asks the library what it thinks of a text.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "codes/Readers.hpp"

namespace Zor {

/// How a reader tells a text.
enum TReader {
  rdZbar,   ///< zbarimg, bytes
  rdZXing,  ///< ZXingReader, bytes
  rdDmtx    ///< dmtxread, bytes
};
inline constexpr const char* ReaderNames[] = {"zbarimg", "ZXingReader", "dmtxread"};

/// What a reader finds of a text.
enum TFound {
  fdText,       ///< the text
  fdZero,       ///< zbarimg tells the EAN-13 that a UPC-A code stands for: a 0 in front
  fdFullAscii,  ///< pairs of Code 39 that stand for ASCII characters
  fdCodabar,    ///< start and stop character around it
  fdMarked,     ///< the signature bytes of UTF-8 before a text that is not Latin-1
  fdGs1         ///< the fields behind their identifiers, character 29 where one needs a separator
};

/// What a check digit is, which --check adds.
enum TCheck { ckNone, ckMod10, ckUpcE, ck39 };

struct TScan {
  const char* name;
  const char* type;
  std::string_view alphabet;      ///< of sound texts, UTF-8
  std::size_t least, most, step;  ///< length of sound texts
  TReader reader;
  const char* format;  ///< of ZXingReader, which has the second look; empty: it does not know it
  const char* options = "";
  TFound found = fdText;
  TCheck check = ckNone;   ///< what --check adds
  std::size_t digits = 0;  ///< of a symbol of fixed length, whose last is a check digit

  bool Has(std::string_view aOption) const {
    return std::string_view(options).find(aOption) != std::string_view::npos;
  }
};

inline constexpr std::string_view Digits = "0123456789";
inline constexpr std::string_view Alphabet39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";
inline constexpr std::string_view AlphabetA =
    " !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_\x01\x09\x1B\x1F";
/// No parenthesis, which would begin a GS1 element string.
inline constexpr std::string_view AlphabetGs1 = "abCD%&*0123456789012345678901234567890123456789";
inline constexpr std::string_view Alphanumeric = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%*+-./:";
/// No space: behind the upper half Code 128 takes it for another character, and the program refuses it.
inline constexpr std::string_view Latin1 = "éüØß¢ÿaZ7-", Unicode = "Ωя中€😀éaZ7 ";
inline constexpr std::string_view Gs1Fields = "(";  ///< GS1 fields instead of characters

// Not read by any of the three, and thus not here: Industrial and Matrix 2 of 5, Code 11, MSI, POSTNET.
inline constexpr TScan Scans[] = {
    {"EAN-13", "ean13", Digits, 13, 13, 1, rdZbar, "EAN-13", "", fdText, ckNone, 13},
    {"EAN-13, check digit", "ean13", Digits, 12, 12, 1, rdZXing, "EAN-13", "--check", fdText, ckMod10, 13},
    {"EAN-13, zeros", "ean13", Digits, 1, 12, 1, rdZbar, "EAN-13", "--check --pad", fdText, ckMod10, 13},
    {"EAN-8", "ean8", Digits, 8, 8, 1, rdZbar, "EAN-8", "", fdText, ckNone, 8},
    {"EAN-8, check digit", "ean8", Digits, 7, 7, 1, rdZbar, "EAN-8", "--check", fdText, ckMod10, 8},
    {"UPC-A", "upca", Digits, 12, 12, 1, rdZXing, "UPC-A", "", fdText, ckNone, 12},
    {"UPC-A, check digit", "upca", Digits, 11, 11, 1, rdZbar, "", "--check", fdZero, ckMod10, 12},
    {"UPC-E", "upce0", Digits, 8, 8, 1, rdZXing, "UPC-E", "", fdText, ckUpcE, 8},
    {"UPC-E, check digit", "upce0", Digits, 7, 7, 1, rdZXing, "UPC-E", "--check", fdText, ckUpcE, 8},
    {"Code 39", "code39", Alphabet39, 1, 30, 1, rdZbar, "Code39"},
    {"Code 39, check digit", "code39", Alphabet39, 1, 30, 1, rdZXing, "Code39", "--check", fdText, ck39},
    {"Code 39 full ASCII", "code39ex", Printable, 1, 20, 1, rdZbar, "Code39", "", fdFullAscii},
    {"Code 93", "code93", Alphabet39, 1, 40, 1, rdZbar, "Code93"},
    {"Code 93 full ASCII", "code93ex", Printable, 1, 30, 1, rdZbar, "Code93"},
    {"Codabar", "codabar", "0123456789-$:/.+", 1, 30, 1, rdZbar, "", "", fdCodabar},
    {"Code 128 set A", "code128a", AlphabetA, 1, 40, 1, rdZbar, "Code128"},
    {"Code 128 set B", "code128b", Printable, 1, 40, 1, rdZbar, "Code128"},
    {"Code 128 set C", "code128c", Digits, 2, 60, 2, rdZbar, "Code128"},
    {"Code 128 set C, check digit", "code128c", Digits, 3, 59, 2, rdZbar, "Code128", "--check", fdText,
     ckMod10},
    {"Code 128 set C, zeros", "code128c", Digits, 1, 60, 1, rdZbar, "Code128", "--pad"},
    {"Code 128", "code128auto", "abCD()0123456789012345678901234567890123456789", 1, 60, 1, rdZbar,
     "Code128"},
    {"Code 128, Latin-1", "code128auto", Latin1, 1, 30, 1, rdZXing, "Code128"},
    {"GS1-128 set A", "ean128a", "ABC%&*0123456789", 4, 40, 1, rdZXing, "Code128"},
    {"GS1-128 set B", "ean128b", AlphabetGs1, 4, 40, 1, rdZbar, "Code128"},
    {"GS1-128 set C", "ean128c", Digits, 4, 48, 2, rdZbar, "Code128"},
    {"GS1-128", "ean128auto", AlphabetGs1, 4, 48, 1, rdZXing, "Code128"},
    {"GS1-128, identifiers", "ean128auto", Gs1Fields, 1, 4, 1, rdZXing, "Code128", "", fdGs1},
    {"GS1-128 set B, identifiers", "ean128b", Gs1Fields, 1, 3, 1, rdZXing, "Code128", "", fdGs1},
    {"Interleaved 2 of 5", "inter25", Digits, 2, 40, 2, rdZbar, ""},
    {"Interleaved 2 of 5, check digit", "inter25", Digits, 3, 41, 2, rdZbar, "", "--check", fdText, ckMod10},
    {"Interleaved 2 of 5, zeros", "inter25", Digits, 1, 41, 1, rdZbar, "", "--check --pad", fdText, ckMod10},
    {"QR Code, digits", "qr", Digits, 1, 600, 1, rdZbar, "QRCode", "", fdMarked},
    {"QR Code, alphanumeric", "qr", Alphanumeric, 1, 500, 1, rdZXing, "QRCode", "", fdMarked},
    {"QR Code, ASCII", "qr", Printable, 1, 400, 1, rdZbar, "QRCode", "", fdMarked},
    {"QR Code, Latin-1", "qr", Latin1, 1, 200, 1, rdZXing, "QRCode", "", fdMarked},
    {"QR Code, Unicode", "qr", Unicode, 1, 100, 1, rdZXing, "QRCode", "", fdMarked},
    {"QR Code, versions 27 to 40", "qr", Printable, 1470, 2953, 1, rdZXing, "QRCode", "", fdMarked},
    {"Data Matrix, digits", "datamatrix", Digits, 1, 600, 1, rdDmtx, "DataMatrix"},
    {"Data Matrix, ASCII", "datamatrix", Printable, 1, 300, 1, rdZXing, "DataMatrix"},
    {"Data Matrix, Latin-1", "datamatrix", Latin1, 1, 150, 1, rdDmtx, "DataMatrix"},
    {"Data Matrix, large", "datamatrix", Printable, 300, 1500, 1, rdDmtx, "DataMatrix"},
    {"Data Matrix, identifiers", "datamatrix", Gs1Fields, 1, 8, 1, rdZXing, "DataMatrix", "--gs1", fdGs1},
    {"PDF417, digits", "pdf417", Digits, 1, 600, 1, rdZXing, "PDF417"},
    {"PDF417, ASCII", "pdf417", Printable, 1, 300, 1, rdZXing, "PDF417"},
    {"PDF417, large", "pdf417", Printable, 300, 800, 1, rdZXing, "PDF417"},
};

/// Texts for a row: sound ones, which have to be taken, and any others.
class TScanTexts {
 public:
  /// One of `aCount` sound texts; they have all lengths, or are spread over them.
  std::string Sound(const TScan& aScan, int aIndex, int aCount);
  /// Anything: a sound text with a change, or characters of all kinds; also none at all.
  std::string Any(const TScan& aScan);

 private:
  std::size_t Below(std::size_t aCount) { return fRandom() % aCount; }
  std::string SoundOf(const TScan& aScan, std::size_t aLength);
  std::string AnyCharacter();
  std::string Fields(std::size_t aCount);

  std::mt19937 fRandom{20261123};
  TRandomText fTexts{20261123};
};

/// Is `aFound` what a reader has to find of a text (UTF-8) in such a symbol?
bool Agrees(const TScan& aScan, const std::string& aText, const std::string& aFound);

}  // namespace Zor
