// The linear symbologies against the library of zint: processor time from text to pattern, for texts of 10 to
// 1000 characters. Prints a line a case with the ratio; zint refuses texts that are longer than it likes.
#include <benchmark/benchmark.h>
#include <zint.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <random>

#include "kaldrix/utils/TBarcode.hpp"

namespace {

using namespace Zor;

constexpr std::string_view Digits = "0123456789", Capitals = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%",
                           Letters = "abcdefghijklmnopqrstuvwxyz0123456789", Codabar = "0123456789-$:/.+";

struct TPeer {
  const char* name;
  TZORBarType type;
  int zint;
  std::string_view alphabet;
  std::size_t length;  ///< of a code with a fixed number of characters, without check digit; else 0
};

constexpr TPeer Peers[] = {
    {"EAN-13", btEAN13, BARCODE_EANX, Digits, 12},
    {"EAN-8", btEAN8, BARCODE_EANX, Digits, 7},
    {"UPC-A", btUPCA, BARCODE_UPCA, Digits, 11},
    {"UPC-E", btUPCE0, BARCODE_UPCE, Digits, 7},
    {"Code 39", btCODE39, BARCODE_CODE39, Capitals, 0},
    {"Code 39 ASCII", btCODE39EX, BARCODE_EXCODE39, Letters, 0},
    {"Code 93", btCODE93, BARCODE_CODE93, Capitals, 0},
    {"Code 93 ASCII", btCODE93EX, BARCODE_CODE93, Letters, 0},
    {"Codabar", btCODABAR, BARCODE_CODABAR, Codabar, 0},
    {"Code 128 B", btCODE128B, BARCODE_CODE128B, Letters, 0},
    {"Code 128 auto", btCODE128AUTO, BARCODE_CODE128, Letters, 0},
    {"Code 128 digits", btCODE128AUTO, BARCODE_CODE128, Digits, 0},
    {"Interleaved 2/5", btINTER_25, BARCODE_C25INTER, Digits, 0},
    {"Industrial 2/5", btINDUS_25, BARCODE_C25IND, Digits, 0},
    {"Matrix 2/5", btMATRIX_25, BARCODE_C25STANDARD, Digits, 0},
    {"Code 11", btCODE11, BARCODE_CODE11, Digits, 0},
    {"MSI", btMSI, BARCODE_MSI_PLESSEY, Digits, 0},
    {"POSTNET", btPOSTNET, BARCODE_POSTNET, Digits, 0},
};

double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Seconds a run: the fastest of several batches, each long enough for the clock.
template <class TBody>
double SecondsOf(TBody aBody) {
  constexpr double leastBatch = 2e-3;
  int runs = 1;
  double fastest = 1;
  for (int batch = 0; batch < 9;) {
    const double start = ProcessorTime();
    for (int i = 0; i < runs; ++i) aBody();
    const double seconds = ProcessorTime() - start;
    if (seconds < leastBatch) {
      runs *= 2;
      continue;
    }
    fastest = std::min(fastest, seconds / runs);
    ++batch;
  }
  return fastest;
}

double Kaldrix(const TPeer& aPeer, const std::string& aCode) {
  const bool check = aPeer.length != 0;
  return SecondsOf([&] {
    std::string digit;
    TZOR128AutoType mode = at128None;
    if (!TBarcode::IsValidCode(aCode, aPeer.type, check, false)) std::abort();
    const std::string text = TBarcode::PrepareBarcode(aCode, aPeer.type, check, false, digit, mode);
    const std::string pattern = TBarcode::FillBarPattern(text, aPeer.type, mode, true);
    benchmark::DoNotOptimize(TBarcode::BarCodeWidth(pattern, 300, 3, true));
  });
}

/// 0 where zint refuses the text.
double Zint(const TPeer& aPeer, const std::string& aCode) {
  const std::unique_ptr<zint_symbol, void (*)(zint_symbol*)> symbol(ZBarcode_Create(), ZBarcode_Delete);
  const std::string code = aPeer.type == btCODABAR ? "A" + aCode + "B" : aCode;
  const auto* bytes = reinterpret_cast<const unsigned char*>(code.c_str());
  const auto encode = [&] {
    ZBarcode_Clear(symbol.get());
    symbol->symbology = aPeer.zint;
    return ZBarcode_Encode(symbol.get(), bytes, static_cast<int>(code.size()));
  };
  if (encode() >= ZINT_ERROR) return 0;
  return SecondsOf([&] { benchmark::DoNotOptimize(encode()); });
}

void Compare(const TPeer& aPeer, std::size_t aLength) {
  std::mt19937 random(3);
  std::string code;
  for (std::size_t i = 0; i < aLength; ++i) code += aPeer.alphabet[random() % aPeer.alphabet.size()];
  if (aPeer.type == btUPCE0) code[0] = '0';
  const double mine = Kaldrix(aPeer, code), peer = Zint(aPeer, code);
  std::printf("%-16s %5zu characters: %8.0f ns", aPeer.name, aLength, mine * 1e9);
  peer == 0 ? std::printf(", refused by zint\n")
            : std::printf(", zint %8.0f ns, zint / kaldrix = %.1f\n", peer * 1e9, peer / mine);
}

}  // namespace

int main() {
  for (const TPeer& peer : Peers) {
    if (peer.length != 0) {
      Compare(peer, peer.length);
      continue;
    }
    for (const std::size_t length : {10, 50, 100, 1000}) Compare(peer, length);
  }
  return 0;
}
