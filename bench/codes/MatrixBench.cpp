// QR Code, Data Matrix and PDF417 against the library of zint: processor time from text to finished symbol,
// for texts of 10, 100 and 1000 characters. Prints a line a case, and last the ratios that have a target.
#include <benchmark/benchmark.h>
#include <zint.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/codes/ZOR.DataMatrix.hpp"
#include "kaldrix/codes/ZOR.PDF417.hpp"
#include "kaldrix/codes/ZOR.QRCode.hpp"

namespace {

using namespace Zor;

constexpr std::string_view Digits = "0123456789", Capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789",
                           Letters = "abcdefghijklmnopqrstuvwxyz ",
                           Mixed = "abcdefghijklmnopqrstuvwxyz ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789.,;-";
constexpr std::array Lengths{10, 100, 1000};
constexpr int Batches = 15;
constexpr double LeastBatch = 2e-3;  // seconds

/// Seconds of processor time, which other work on a shared machine disturbs least.
double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Seconds a run: the fastest of several batches, each long enough for the clock.
template <class TBody>
double SecondsOf(TBody aBody) {
  int runs = 1;
  double fastest = std::numeric_limits<double>::max();
  for (int batch = 0; batch < Batches;) {
    const double start = ProcessorTime();
    for (int i = 0; i < runs; ++i) aBody();
    const double seconds = ProcessorTime() - start;
    if (seconds < LeastBatch) {
      runs *= 2;
      continue;
    }
    fastest = std::min(fastest, seconds / runs);
    ++batch;
  }
  return fastest;
}

// Our encoders --------------------------------------------------

void EncodeQRCode(const std::string& aText) {
  TEncoder encoder;
  TQRCode code;
  encoder.Encode(aText, Automatic, {}, code);
  benchmark::DoNotOptimize(code.FMatrix.Bytes().data());
}

void EncodeDataMatrix(const std::string& aText) {
  std::vector<std::uint8_t> modules;
  int cols = 0, rows = 0;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(aText.data());
  CalcECC200({bytes, aText.size()}, ecc200_Autosize, ecc200_Square, modules, cols, rows);
  benchmark::DoNotOptimize(modules.data());
}

constexpr std::uint32_t StartModules = 0b11111111010101000, StopModules = 0b111111101000101001;

/// Writes modules along a row, eight to the byte.
class TRowWriter {
 public:
  explicit TRowWriter(std::uint8_t* aPlace) : fPlace(aPlace) {}
  void Write(std::uint32_t aModules, int aCount) {
    fPending = fPending << aCount | aModules;
    for (fCount += aCount; fCount >= 8;) *fPlace++ = static_cast<std::uint8_t>(fPending >> (fCount -= 8));
  }
  void Finish() { Write(0, 7); }

 private:
  std::uint8_t* fPlace;
  std::uint64_t fPending = 0;
  int fCount = 0;
};

/// To the modules of all rows in bits, which is what the other side makes.
void EncodePDF417(const std::string& aText) {
  TCodeWords words;
  TPDF417::Reset(words);
  TPDF417::Encode(words, aText);
  const int level = TPDF417::GetCorrecLevel(Auto), check = TPDF417::NumErrorCWords(level);
  std::int16_t cols = 0, rows = 0;
  TPDF417::AdjustSize(cols, rows, check, TPDF417::UsedCodeWords(), 0, 0);
  words[0] = static_cast<std::uint16_t>(cols * rows - check);
  TPDF417::CalculateECC(words, words[0], check);
  const auto width = static_cast<std::size_t>(17 * (cols + 4) + 8) / 8;
  std::vector<std::uint8_t> modules(width * static_cast<std::size_t>(rows));
  auto word = words.begin();
  for (int row = 0; row < rows; ++row) {
    TRowWriter writer(&modules[static_cast<std::size_t>(row) * width]);
    writer.Write(StartModules, 17);
    writer.Write(TPDF417::Modules(row, TPDF417::LeftIndicator(row, rows, cols, level)), 17);
    for (int col = 0; col < cols; ++col) writer.Write(TPDF417::Modules(row, *word++), 17);
    writer.Write(TPDF417::Modules(row, TPDF417::RightIndicator(row, rows, cols, level)), 17);
    writer.Write(StopModules, 18);
    writer.Finish();
  }
  benchmark::DoNotOptimize(modules.data());
}

// The comparison --------------------------------------------------

struct TPeer {
  const char* name;
  void (*encode)(const std::string&);
  int zint, option1, option3;
  double least;  // how many times faster we mean to be
};

constexpr TPeer Peers[] = {
    {"QR Code", EncodeQRCode, BARCODE_QRCODE, 1, 0, 3},
    {"Data Matrix", EncodeDataMatrix, BARCODE_DATAMATRIX, -1, DM_SQUARE, 3},
    {"PDF417", EncodePDF417, BARCODE_PDF417, -1, 0, 2},
};

/// Seconds, or 0 where zint refuses the text.
double Zint(const TPeer& aPeer, const std::string& aText) {
  const std::unique_ptr<zint_symbol, void (*)(zint_symbol*)> symbol(ZBarcode_Create(), ZBarcode_Delete);
  const auto* bytes = reinterpret_cast<const unsigned char*>(aText.data());
  const auto encode = [&] {
    ZBarcode_Clear(symbol.get());
    symbol->symbology = aPeer.zint;
    symbol->option_1 = aPeer.option1;
    symbol->option_2 = 0;
    symbol->option_3 = aPeer.option3;
    return ZBarcode_Encode(symbol.get(), bytes, static_cast<int>(aText.size()));
  };
  if (encode() >= ZINT_ERROR) return 0;
  return SecondsOf([&] { benchmark::DoNotOptimize(encode()); });
}

/// The ratio, 0 where there is none.
double Compare(const TPeer& aPeer, const char* aName, std::string_view aAlphabet, int aLength) {
  std::mt19937 random(3);
  std::string text;
  for (int i = 0; i < aLength; ++i) text += aAlphabet[random() % aAlphabet.size()];
  const double mine = SecondsOf([&] { aPeer.encode(text); }), peer = Zint(aPeer, text);
  std::printf("%-12s %5d %-8s %9.2f us", aPeer.name, aLength, aName, mine * 1e6);
  if (peer == 0) {
    std::printf(", refused by zint\n");
    return 0;
  }
  std::printf(", zint %9.2f us, zint / kaldrix = %.1f\n", peer * 1e6, peer / mine);
  return peer / mine;
}

}  // namespace

int main() {
  std::vector<std::string> targets;
  for (const TPeer& peer : Peers) {
    for (const int length : Lengths) {
      double lowest = std::numeric_limits<double>::max();
      for (const auto& [name, alphabet] :
           {std::pair{"digits", Digits}, {"capitals", Capitals}, {"letters", Letters}, {"mixed", Mixed}}) {
        const double ratio = Compare(peer, name, alphabet, length);
        if (ratio > 0) lowest = std::min(lowest, ratio);
      }
      std::array<char, 100> line;
      std::snprintf(line.data(), line.size(), "  zint / kaldrix, %-12s %5d %9.1f  (at least %g)%s", peer.name,
                    length, lowest, peer.least, lowest < peer.least ? "  MISSED" : "");
      targets.emplace_back(line.data());
    }
  }
  std::printf("targets, the lowest of four kinds of text\n");
  for (const std::string& target : targets) std::printf("%s\n", target.c_str());
  return 0;
}
