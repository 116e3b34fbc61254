#include "kaldrix/codes/CalcECC200.hpp"

#include <algorithm>

#include "kaldrix/codes/TECC200LookAhead.hpp"
#include "kaldrix/codes/TECC200Placement.hpp"
#include "kaldrix/codes/TOncePerIndex.hpp"
#include "kaldrix/codes/TReedSolomonEncoder.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Datamatrix {

namespace {

using TWords = std::vector<std::uint8_t>;

// Codewords of ISO/IEC 16022, table 2.
constexpr std::uint8_t PadWord = 129, DigitsWord = 130, LatchBase256 = 231, Fnc1Word = 232, UpperShift = 235;
constexpr std::uint8_t SeparatorByte = 29;  // of a GS1 element string

constexpr std::size_t MostWords = 1558;
constexpr std::size_t BytesTooMany = 1556;  // of one run in Base 256
/// A codeword carries two bytes at most, so that so many never fit and those behind them need no look.
constexpr std::size_t MostBytesSeen = 4096;

constexpr bool IsDigit(std::uint8_t c) { return c >= '0' && c <= '9'; }

/// ISO/IEC 16022, annex B; positions count from 1.
std::uint8_t Randomised255(std::size_t aWord, std::size_t aPosition) {
  return static_cast<std::uint8_t>(aWord + 149 * aPosition % 255 + 1);
}
std::uint8_t Randomised253(std::size_t aPosition) {
  const std::size_t sum = PadWord + 149 * aPosition % 253 + 1;
  return static_cast<std::uint8_t>(sum <= 254 ? sum : sum - 254);
}

/// Writes the data in ASCII, and in Base 256 where the look-ahead asks for it.
class TCodewordWriter {
 public:
  TCodewordWriter(std::span<const std::uint8_t> aData, bool aGs1)
      : fData(aData), fLookAhead(aData), fGs1(aGs1) {
    fWords.reserve(MostWords);
    if (fGs1) Put(Fnc1Word);
  }

  TWords Write() {
    while (fPosition < fData.size() && fWords.size() <= MostWords) {
      if (IsDigitPair()) {
        DigitPair();
      } else if (fLookAhead.IsBase256(fPosition, emASCII)) {
        Base256Run();
      } else {
        Character(fData[fPosition++]);
      }
    }
    return std::move(fWords);
  }

 private:
  void Put(std::size_t aWord) { fWords.push_back(static_cast<std::uint8_t>(aWord)); }
  void PutRandomised(std::size_t aWord) { Put(Randomised255(aWord, fWords.size() + 1)); }

  bool IsDigitPair() const {
    return fPosition + 1 < fData.size() && IsDigit(fData[fPosition]) && IsDigit(fData[fPosition + 1]);
  }
  void DigitPair() {
    Put(DigitsWord + (fData[fPosition] - '0') * 10U + (fData[fPosition + 1] - '0'));
    fPosition += 2;
  }
  void Character(std::uint8_t aByte) {
    if (fGs1 && aByte == SeparatorByte) return Put(Fnc1Word);
    if (aByte > 127) Put(UpperShift);
    Put((aByte & 127U) + 1);
  }

  void Base256Run() {
    const std::size_t from = fPosition;
    while (fPosition < fData.size() && fLookAhead.IsBase256(fPosition, emBase256)) {
      if (++fPosition - from >= BytesTooMany) throw Exception("Base256_Encode Error");
    }
    const auto run = fData.subspan(from, fPosition - from);
    Put(LatchBase256);
    if (run.size() > 249) PutRandomised(run.size() / 250 + 249);
    PutRandomised(run.size() > 249 ? run.size() % 250 : run.size());
    for (const std::uint8_t byte : run) PutRandomised(byte);
  }

  std::span<const std::uint8_t> fData;
  TECC200LookAhead fLookAhead;
  bool fGs1;
  std::size_t fPosition = 0;
  TWords fWords;
};

const TECC200SymbolParam& ChooseSymbol(std::size_t aWords, TECC200Size aSize, TECC200Shape aShape) {
  const auto words = static_cast<std::int32_t>(std::min(aWords, MostWords + 1));
  const TECC200Size size = aSize == ecc200_Autosize ? SmallestSize(words, aShape) : aSize;
  if (size == ecc200_Autosize || SymbolParam(size).DataLength < words) throw Exception("MakeCodeword Error");
  return SymbolParam(size);
}

void Pad(TWords& aWords, std::size_t aLength) {
  if (aWords.size() < aLength) aWords.push_back(PadWord);
  while (aWords.size() < aLength) aWords.push_back(Randomised253(aWords.size() + 1));
}

const TReedSolomonEncoder& CheckEncoder(int aDegree) {
  static TOncePerIndex<TReedSolomonEncoder, TReedSolomonEncoder::MaxDegree> encoders;
  return encoders.Get(static_cast<std::size_t>(aDegree),
                      [=] { return TReedSolomonEncoder(DataMatrixField, 1, aDegree); });
}

/// The first check word belongs to the first block, also in the largest symbol, where the data ends two
/// blocks before the last: so the standard has it, and so the common readers differ.
void AddCheckWords(TWords& aWords, const TECC200SymbolParam& aParam) {
  const auto dataLength = static_cast<std::size_t>(aParam.DataLength);
  const auto stride = static_cast<std::size_t>(aParam.BlockCount);
  aWords.resize(dataLength + static_cast<std::size_t>(aParam.ErrorLength));
  const auto data = std::span(aWords).first(dataLength), check = std::span(aWords).subspan(dataLength);
  const TReedSolomonEncoder& encoder = CheckEncoder(aParam.BlockErrorLength);
  for (std::size_t block = 0; block < stride; ++block) {
    encoder.Encode(data.subspan(block), stride, check.subspan(block), stride);
  }
}

std::vector<std::uint8_t> Modules(const TWords& aWords, TECC200Size aSize) {
  const TECC200Placement& placement = TECC200Placement::Of(aSize);
  std::vector<std::uint8_t> modules = placement.Frame;
  const std::uint16_t* place = placement.Places.data();
  for (const std::uint8_t word : aWords) {
    for (int bit = 7; bit >= 0; --bit) modules[*place++] = word >> bit & 1;
  }
  return modules;
}

void Calc(std::span<const std::uint8_t> aData, bool aGs1, TECC200Size aSize, TECC200Shape aShape,
          std::vector<std::uint8_t>& aMatrix, int& aCols, int& aRows) {
  TWords words = TCodewordWriter(aData.first(std::min(aData.size(), MostBytesSeen)), aGs1).Write();
  const TECC200SymbolParam& param = ChooseSymbol(words.size(), aSize, aShape);
  Pad(words, static_cast<std::size_t>(param.DataLength));
  AddCheckWords(words, param);
  aMatrix = Modules(words, param.Size);
  aCols = param.Cols;
  aRows = param.Rows;
}

}  // namespace

void CalcECC200(std::span<const std::uint8_t> aData, TECC200Size aSize, TECC200Shape aShape,
                std::vector<std::uint8_t>& aMatrix, int& aCols, int& aRows) {
  Calc(aData, false, aSize, aShape, aMatrix, aCols, aRows);
}

void CalcGs1ECC200(std::span<const std::uint8_t> aData, TECC200Size aSize, TECC200Shape aShape,
                   std::vector<std::uint8_t>& aMatrix, int& aCols, int& aRows) {
  Calc(aData, true, aSize, aShape, aMatrix, aCols, aRows);
}

}  // namespace Zor::inline Datamatrix
