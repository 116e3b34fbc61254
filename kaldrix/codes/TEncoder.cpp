#include "kaldrix/codes/TEncoder.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "kaldrix/codes/TBitArray.hpp"
#include "kaldrix/codes/TMaskUtil.hpp"
#include "kaldrix/codes/TMatrixUtil.hpp"
#include "kaldrix/codes/TOncePerIndex.hpp"
#include "kaldrix/codes/TReedSolomonEncoder.hpp"
#include "kaldrix/codes/TVersion.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Qrcode {

namespace {

using TBytes = std::vector<std::uint8_t>;

// Characters --------------------------------------------------

/// ISO/IEC 18004, table 5: a character's value is its place.
constexpr std::string_view AlphanumericSet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%*+-./:";
constexpr std::uint8_t NotAlphanumeric = 0xFF;

constexpr auto AlphanumericValues = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(NotAlphanumeric);
  for (std::size_t i = 0; i < AlphanumericSet.size(); ++i) {
    values[static_cast<unsigned char>(AlphanumericSet[i])] = static_cast<std::uint8_t>(i);
  }
  return values;
}();

bool IsDigit(char aByte) { return aByte >= '0' && aByte <= '9'; }
std::uint32_t AlphanumericValue(char aByte) { return AlphanumericValues[static_cast<unsigned char>(aByte)]; }
bool IsAlphanumeric(char aByte) { return AlphanumericValue(aByte) != NotAlphanumeric; }
/// In UTF-8, of which a byte above 0xC3 begins or replaces a character from 256 on.
bool IsLatin1(std::string_view aText) {
  return std::ranges::all_of(aText, [](char c) { return static_cast<unsigned char>(c) <= 0xC3; });
}

std::string Latin1Part(std::string_view aText) {
  std::string kept;
  for (std::size_t i = 0; i < aText.size();) {
    const std::size_t from = i;
    if (Utf8::Next(aText, i) < 256) kept += aText.substr(from, i - from);
  }
  return kept;
}

std::string Latin1Bytes(std::string_view aText) {
  std::string bytes;
  bytes.reserve(aText.size());
  for (std::size_t i = 0; i < aText.size();) bytes += static_cast<char>(Utf8::Next(aText, i));
  return bytes;
}

// Data bits --------------------------------------------------

/// What one mode does, by ISO/IEC 18004, tables 2 and 3: indicator, and widths of the character count in
/// versions 1 to 9, 10 to 26, 27 to 40.
struct TModeRow {
  std::uint32_t indicator;
  std::array<int, 3> countBits;
};
constexpr TModeRow NumericRow{1, {10, 12, 14}}, AlphanumericRow{2, {9, 11, 13}}, ByteRow{4, {8, 16, 16}};
constexpr int IndicatorBits = 4;

const TModeRow& ModeRow(TMode aMode) {
  return aMode == qmNumeric ? NumericRow : aMode == qmAlphanumeric ? AlphanumericRow : ByteRow;
}

int CountBits(TMode aMode, int aVersion) {
  return ModeRow(aMode).countBits[aVersion < 10 ? 0 : aVersion < 27 ? 1 : 2];
}

std::int64_t DataBits(TMode aMode, std::size_t aCount) {
  const auto count = static_cast<std::int64_t>(aCount);
  if (aMode == qmNumeric) return count / 3 * 10 + std::array{0, 4, 7}[aCount % 3];
  if (aMode == qmAlphanumeric) return count / 2 * 11 + count % 2 * 6;
  return count * 8;
}

void AppendNumeric(std::string_view aDigits, TBitArray& aBits) {
  for (std::size_t i = 0; i < aDigits.size(); i += 3) {
    std::uint32_t value = 0;
    const std::string_view group = aDigits.substr(i, 3);
    for (const char digit : group) value = value * 10 + static_cast<std::uint32_t>(digit - '0');
    aBits.AppendBits(value, static_cast<int>(group.size()) * 3 + 1);
  }
}

void AppendAlphanumeric(std::string_view aText, TBitArray& aBits) {
  std::size_t i = 0;
  for (; i + 1 < aText.size(); i += 2) {
    aBits.AppendBits(AlphanumericValue(aText[i]) * 45 + AlphanumericValue(aText[i + 1]), 11);
  }
  if (i < aText.size()) aBits.AppendBits(AlphanumericValue(aText[i]), 6);
}

void AppendData(TMode aMode, std::string_view aData, TBitArray& aBits) {
  if (aMode == qmNumeric) return AppendNumeric(aData, aBits);
  if (aMode == qmAlphanumeric) return AppendAlphanumeric(aData, aBits);
  for (const char byte : aData) aBits.AppendBits(static_cast<unsigned char>(byte), 8);
}

/// The characters that go into the symbol: in byte mode the bytes themselves.
std::string Data(std::string_view aContent, TMode aMode, TQRCodeEncoding aEncoding) {
  std::string kept = TEncoder::FilterContent(aContent, aMode, aEncoding);
  if (aMode != qmByte || aEncoding == UTF8BOM) return kept;
  if (aEncoding == ISO88591) return Latin1Bytes(kept);
  // Intended: the encoding without the mark in its name is the one that writes the mark.
  return std::string(Utf8::ByteOrderMark) + kept;
}

[[noreturn]] void Refuse() { throw Exception("QRCode Encode Error"); }

/// The version is chosen twice, since the width of the character count depends on it.
const TVersion& VersionFor(TMode aMode, std::size_t aCount) {
  const std::int64_t bits = IndicatorBits + DataBits(aMode, aCount);
  const auto choose = [&](int aVersion) {
    const TVersion* version = TVersion::ChooseVersion((bits + CountBits(aMode, aVersion) + 7) / 8);
    if (version == nullptr) Refuse();
    return version;
  };
  return *choose(choose(1)->FVersionNumber);
}

/// Mode, count, data, terminator and padding.
TBitArray MessageBits(TMode aMode, std::string_view aData, const TVersion& aVersion) {
  const auto capacity = static_cast<std::size_t>(aVersion.FECBlocks.NumDataCodewords());
  TBitArray bits;
  bits.Reserve(capacity);
  bits.AppendBits(ModeRow(aMode).indicator, IndicatorBits);
  bits.AppendBits(static_cast<std::uint32_t>(aData.size()), CountBits(aMode, aVersion.FVersionNumber));
  AppendData(aMode, aData, bits);
  bits.AppendBits(0, static_cast<int>(std::min<std::size_t>(4, capacity * 8 - bits.GetSize())));
  bits.AppendBits(0, static_cast<int>((8 - bits.GetSize() % 8) % 8));
  constexpr std::uint32_t first = 236, second = 17;
  for (bool odd = true; bits.Bytes().size() < capacity; odd = !odd) bits.AppendBits(odd ? first : second, 8);
  return bits;
}

// Codewords --------------------------------------------------

const TReedSolomonEncoder& CheckEncoder(int aDegree) {
  static TOncePerIndex<TReedSolomonEncoder, TReedSolomonEncoder::MaxDegree> encoders;
  return encoders.Get(static_cast<std::size_t>(aDegree),
                      [=] { return TReedSolomonEncoder(QRCodeField, 0, aDegree); });
}

/// Divides the message into blocks and writes data and check codewords in turn from each block
/// (ISO/IEC 18004, 7.6).
TBytes Interleaved(std::span<const std::uint8_t> aMessage, const TVersion& aVersion) {
  const TECBlocks& blocks = aVersion.FECBlocks;
  const TReedSolomonEncoder& encoder = CheckEncoder(blocks.FECCodewordsPerBlock);
  const auto count = static_cast<std::size_t>(blocks.NumBlocks());
  const auto shortCount = static_cast<std::size_t>(blocks.FECBlocks[0].FCount);
  const auto shortSize = static_cast<std::size_t>(blocks.FECBlocks[0].FDataCodewords);
  TBytes words(static_cast<std::size_t>(aVersion.TotalCodewords()));
  const auto check = std::span(words).subspan(aMessage.size());
  for (std::size_t block = 0, from = 0; block < count; ++block) {
    const bool isLong = block >= shortCount;
    const auto data = aMessage.subspan(from, shortSize + (isLong ? 1 : 0));
    for (std::size_t i = 0; i < shortSize; ++i) words[i * count + block] = data[i];
    if (isLong) words[shortSize * count + block - shortCount] = data.back();
    encoder.Encode(data, 1, check.subspan(block), count);
    from += data.size();
  }
  return words;
}

}  // namespace

TMode TEncoder::ChooseMode(std::string_view aContent, TQRCodeEncoding& aEncoding) {
  if (aEncoding == Numeric) return qmNumeric;
  if (aEncoding == Alphanumeric) return qmAlphanumeric;
  if (aEncoding != Automatic) return qmByte;
  if (!aContent.empty()) {
    if (std::ranges::all_of(aContent, IsDigit)) return qmNumeric;
    if (std::ranges::all_of(aContent, IsAlphanumeric)) return qmAlphanumeric;
  }
  aEncoding = !aContent.empty() && IsLatin1(aContent) ? ISO88591 : UTF8NoBOM;
  return qmByte;
}

std::string TEncoder::FilterContent(std::string_view aContent, TMode aMode, TQRCodeEncoding aEncoding) {
  std::string kept;
  if (aMode == qmNumeric) {
    std::ranges::copy_if(aContent, std::back_inserter(kept), IsDigit);
  } else if (aMode == qmAlphanumeric) {
    std::ranges::copy_if(aContent, std::back_inserter(kept), IsAlphanumeric);
  } else if (aEncoding == ISO88591) {
    kept = Latin1Part(aContent);
  } else {
    kept = aContent;
  }
  return kept;
}

void TEncoder::Encode(std::string_view aContent, int aEncodeOptions, const TErrorCorrectionLevel& aECLevel,
                      TQRCode& aQRCode) {
  FEncoderError = true;
  if (aEncodeOptions < 0 || aEncodeOptions >= EnumCount<TQRCodeEncoding>) Refuse();
  const std::string repaired = Utf8::Repaired(aContent);
  auto encoding = static_cast<TQRCodeEncoding>(aEncodeOptions);
  const TMode mode = ChooseMode(repaired, encoding);
  const std::string data = Data(repaired, mode, encoding);
  const TVersion& version = VersionFor(mode, data.size());
  const TBytes codewords = Interleaved(MessageBits(mode, data, version).Bytes(), version);

  const TMatrixUtil::TFrame& frame = TMatrixUtil::Frame(version.FVersionNumber);
  TModuleBits symbol = TMatrixUtil::PlaceData(frame, codewords);
  const int mask = TMaskUtil::ChooseMaskPattern(symbol, frame.FDataArea, aECLevel);
  aQRCode = {mode,
             aECLevel,
             version.FVersionNumber,
             version.DimensionForVersion(),
             mask,
             version.TotalCodewords(),
             version.FECBlocks.NumDataCodewords(),
             version.FECBlocks.TotalECCodewords(),
             version.FECBlocks.NumBlocks(),
             TMatrixUtil::ToBytes(symbol),
             false};
  FEncoderError = false;
}

}  // namespace Zor::inline Qrcode
