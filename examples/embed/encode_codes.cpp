// The encoders without a document: modules of the codes of two dimensions, bars of a linear one.
#include <iostream>
#include <string>
#include <vector>

#include "kaldrix/Kaldrix.hpp"

namespace {

void DrawDataMatrix(const std::string& aBytes) {
  std::vector<std::uint8_t> modules;  // row by row from the top, 1 is dark; no quiet zone
  int columns = 0, rows = 0;
  Zor::CalcECC200({reinterpret_cast<const std::uint8_t*>(aBytes.data()), aBytes.size()}, Zor::ecc200_Autosize,
                  Zor::ecc200_Square, modules, columns, rows);
  for (std::size_t i = 0; i < modules.size(); ++i) {
    std::cout << (modules[i] != 0 ? "##" : "  ");
    if ((i + 1) % static_cast<std::size_t>(columns) == 0) std::cout << '\n';
  }
}

int QRCodeWidth(const std::string& aText) {
  Zor::TQRCode code;
  Zor::TEncoder().Encode(aText, Zor::Automatic, {}, code);
  return code.FMatrixWidth;  // modules on a side; code.FMatrix.Get(x, y) is 1 for a dark one
}

int Pdf417Words(const std::string& aText) {
  Zor::TCodeWords words;
  Zor::TPDF417::Reset(words);
  Zor::TPDF417::Encode(words, aText);  // bytes 32 to 126; a backslash begins an escape
  return Zor::TPDF417::UsedCodeWords();
}

/// The widths of bars and spaces in turn, in modules; a blank stands for a space.
std::string Ean13Bars(const std::string& aDigits) {
  std::string check, bars;
  Zor::TZOR128AutoType sets{};
  const std::string code = Zor::TBarcode::PrepareBarcode(aDigits, Zor::btEAN13, true, false, check, sets);
  for (const char element : Zor::TBarcode::FillBarPattern(code, Zor::btEAN13, sets, false)) {
    Zor::TZORDrawWidth width{};
    Zor::TZORDrawBar kind{};
    Zor::TBarcode::FillBarData(element, width, kind);
    bars.append(static_cast<std::size_t>(Zor::ElementWidth(width, 1, 2)),
                kind == Zor::dbW || kind == Zor::dbEW ? ' ' : '|');
  }
  return bars;
}

}  // namespace

int main() {
  DrawDataMatrix("Kaldrix");
  std::cout << "QR Code: " << QRCodeWidth("Grüße") << " modules on a side\n"
            << "PDF417: " << Pdf417Words("Kaldrix") << " codewords before the check words\n"
            << "EAN-13: [" << Ean13Bars("400638133393") << "]\n";

  // Whether a reader would find what was given, and why not.
  std::cout << Zor::ReadingOf("4006381333930", Zor::btEAN13, {}).problem << '\n';
  try {
    QRCodeWidth(std::string(3000, 'x'));
  } catch (const Zor::Exception& error) {
    std::cout << error.what() << '\n';
  }
}
