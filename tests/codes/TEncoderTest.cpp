#include <cmath>
#include <limits>

#include "Readers.hpp"
#include "kaldrix/codes/TMaskUtil.hpp"
#include "kaldrix/codes/TMatrixUtil.hpp"
#include "kaldrix/codes/ZOR.QRCode.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace {

using namespace Zor;

constexpr std::string_view Digits = "0123456789";
constexpr std::string_view AlphanumericSet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%*+-./:";

TQRCode Encoded(std::string_view aText, TQRCodeEncoding aEncoding = Automatic) {
  TEncoder encoder;
  TQRCode code;
  encoder.Encode(aText, aEncoding, {}, code);
  EXPECT_FALSE(encoder.FEncoderError);
  return code;
}

TSymbolImage Image(const TQRCode& aCode) {
  return {aCode.FMatrix.Bytes(), aCode.FMatrixWidth, aCode.FMatrixWidth, 3, 12};
}

TEST(QRCodeTest, ChoosesTheDensestMode) {
  struct TCase {
    const char* text;
    TQRCodeEncoding asked;
    TMode mode;
    TQRCodeEncoding used;
    const char* kept;
  };
  const TCase cases[] = {
      {"0123", Automatic, qmNumeric, Automatic, "0123"},
      {"AB 12", Automatic, qmAlphanumeric, Automatic, "AB 12"},
      {"ab", Automatic, qmByte, ISO88591, "ab"},
      {"Stra\u00DFe \u00FF", Automatic, qmByte, ISO88591, "Stra\u00DFe \u00FF"},
      {"5 \u20AC", Automatic, qmByte, UTF8NoBOM, "5 \u20AC"},
      {"\u0100", Automatic, qmByte, UTF8NoBOM, "\u0100"},
      {"", Automatic, qmByte, UTF8NoBOM, ""},
      {"a1b2", Numeric, qmNumeric, Numeric, "12"},
      {"a0Z\u00C4-", Alphanumeric, qmAlphanumeric, Alphanumeric, "0Z-"},
      {"\u00E4\u20AC", ISO88591, qmByte, ISO88591, "\u00E4"},
      {"\u20AC", UTF8BOM, qmByte, UTF8BOM, "\u20AC"},
  };
  for (const TCase& c : cases) {
    TQRCodeEncoding encoding = c.asked;
    const TMode mode = TEncoder::ChooseMode(c.text, encoding);
    EXPECT_EQ(mode, c.mode) << c.text;
    EXPECT_EQ(encoding, c.used) << c.text;
    EXPECT_EQ(TEncoder::FilterContent(c.text, mode, encoding), c.kept);
  }
}

TEST(QRCodeTest, FormatAndVersionInformationAreThoseOfTheStandard) {
  EXPECT_EQ(TMatrixUtil::FormatInformation({1}, 0), 0b111011111000100);
  EXPECT_EQ(TMatrixUtil::FormatInformation({1}, 7), 0b110100101110110);
  EXPECT_EQ(TMatrixUtil::FormatInformation({0}, 5), 0b100000011001110);
  EXPECT_EQ(TMatrixUtil::VersionInformation(7), 0b000111110010010100);
  EXPECT_EQ(TMatrixUtil::VersionInformation(40), 0b101000110001101001);
}

TEST(QRCodeTest, CapacitiesAreThoseOfTheStandard) {
  struct TCase {
    int version, numeric, alphanumeric, bytes;
  };
  for (const TCase& c :
       {TCase{1, 41, 25, 17}, TCase{9, 552, 335, 230}, TCase{10, 652, 395, 271}, TCase{26, 3283, 1990, 1367},
        TCase{27, 3517, 2132, 1465}, TCase{39, 6743, 4087, 2809}}) {
    for (const auto& [most, letter] : {std::pair{c.numeric, '7'}, {c.alphanumeric, 'A'}, {c.bytes, 'a'}}) {
      const std::string text(static_cast<std::size_t>(most), letter);
      EXPECT_EQ(Encoded(text).FVersion, c.version);
      EXPECT_EQ(Encoded(text + letter).FVersion, c.version + 1);
    }
  }
}

TEST(QRCodeTest, RefusesWhatDoesNotFitAndKeepsTheFormerSymbol) {
  TEncoder encoder;
  TQRCode code = Encoded("former");
  const TQRCode former = code;
  for (const auto& [most, letter] : {std::pair<std::size_t, char>{7089, '7'}, {4296, 'A'}, {2953, 'a'}}) {
    EXPECT_EQ(Encoded(std::string(most, letter)).FVersion, 40);
    try {
      encoder.Encode(std::string(most + 1, letter), Automatic, {}, code);
      ADD_FAILURE() << most;
    } catch (const Exception& error) {
      EXPECT_STREQ(error.what(), "QRCode Encode Error");
    }
    EXPECT_TRUE(encoder.FEncoderError);
    EXPECT_TRUE(std::ranges::equal(code.FMatrix.Bytes(), former.FMatrix.Bytes()));
  }
  EXPECT_THROW(encoder.Encode("a", 6, {}, code), Exception);
}

TEST(QRCodeTest, EveryVersionIsReadable) {
  TReaderRun run;
  TRandomText random(1);
  std::vector<std::string> texts;
  for (int version = 1; version <= TVersion::Count; ++version) {
    const auto bytes =
        static_cast<std::size_t>(TVersion::GetVersionForNumber(version).FECBlocks.NumDataCodewords());
    // Up to the last bits of the symbol, in a mode that changes with the version.
    const std::size_t bits = bytes * 8 - 4;
    const std::size_t numericWidth = version < 10 ? 10 : version < 27 ? 12 : 14;
    std::string text = version % 3 == 0   ? random.Of(Digits, (bits - numericWidth) / 10 * 3)
                       : version % 3 == 1 ? random.Of(AlphanumericSet, (bits - numericWidth + 1) / 11 * 2)
                                          : random.Of(Printable, (bits - (version < 10 ? 8 : 16)) / 8);
    const TQRCode code = Encoded(text);
    EXPECT_EQ(code.FVersion, version);
    EXPECT_EQ(code.FMatrixWidth, 17 + 4 * version);
    run.Add(Image(code));
    texts.push_back(std::move(text));
  }
  EXPECT_EQ(ReadWithZXing(run, "QRCode"), texts);
}

TEST(QRCodeTest, ASecondReaderAgrees) {
  TReaderRun run;
  TRandomText random(2);
  std::string texts;
  for (std::size_t i = 1; i < 40; ++i) {
    const std::string text = random.Of(Printable, i * 7);
    texts += text + "\n";
    run.Add(Image(Encoded(text)));
  }
  EXPECT_EQ(run.Read("zbarimg -q --raw -Sdisable -Sqrcode.enable"), texts);
}

TEST(QRCodeTest, BytesOfTheEncodings) {
  struct TCase {
    const char* text;
    TQRCodeEncoding encoding;
    std::string bytes;
  };
  const TCase cases[] = {
      {"", Automatic, "\xEF\xBB\xBF"},
      {"5 \u20AC", Automatic,
       "\xEF\xBB\xBF"
       "5 \u20AC"},
      {"5 \u20AC", UTF8BOM, "5 \u20AC"},
      {"Stra\u00DFe", Automatic,
       "Stra\xDF"
       "e"},
      {"\u20AC\u00E4", ISO88591, "\xE4"},
      {"a\xFFz", UTF8BOM, "a\uFFFDz"},
      {"a-0B:", Alphanumeric, "-0B:"},
  };
  TReaderRun run;
  for (const TCase& c : cases) run.Add(Image(Encoded(c.text, c.encoding)));
  const auto read = run.ReadEach("ZXingReader -ispure -bytes -format QRCode");
  for (std::size_t i = 0; i < std::size(cases); ++i) EXPECT_EQ(read[i], cases[i].bytes) << i;
  EXPECT_EQ(Encoded("none", Numeric).FVersion, 1);
}

// The penalty, module by module --------------------------------------------------

class TSlowPenalty {
 public:
  explicit TSlowPenalty(const TModuleBits& aBits) : fBits(aBits), fSide(aBits.FSide) {}

  int Sum() const {
    int sum = 0, dark = 0;
    for (const bool turned : {false, true}) {
      for (int y = 0; y < fSide; ++y) {
        sum += RunsOfLine(y, turned);
        for (int x = 0; x < fSide; ++x) sum += IsFinder(x, y, turned) ? 40 : 0;
      }
    }
    for (int y = 0; y < fSide; ++y) {
      for (int x = 0; x < fSide; ++x) {
        dark += At(x, y, false) ? 1 : 0;
        if (x > 0 && y > 0 && Block(x, y)) sum += 3;
      }
    }
    return sum + static_cast<int>(std::lround(std::abs(100.0 * dark / (fSide * fSide) - 50) / 50));
  }

 private:
  bool At(int aX, int aY, bool aTurned) const { return aTurned ? fBits.Get(aY, aX) : fBits.Get(aX, aY); }
  int RunsOfLine(int aY, bool aTurned) const {
    int sum = 0, run = 0;
    for (int x = 0; x < fSide; ++x) {
      run = x > 0 && At(x, aY, aTurned) == At(x - 1, aY, aTurned) ? run + 1 : 1;
      sum += run == 5 ? 3 : run > 5 ? 1 : 0;
    }
    return sum;
  }
  bool Block(int aX, int aY) const {
    const bool dark = At(aX, aY, false);
    return At(aX - 1, aY, false) == dark && At(aX, aY - 1, false) == dark &&
           At(aX - 1, aY - 1, false) == dark;
  }
  bool Light(int aFrom, int aY, bool aTurned) const {
    if (aFrom < 0 || aFrom + 4 > fSide) return false;
    for (int x = aFrom; x < aFrom + 4; ++x) {
      if (At(x, aY, aTurned)) return false;
    }
    return true;
  }
  bool IsFinder(int aX, int aY, bool aTurned) const {
    if (aX + 7 > fSide) return false;
    for (int i = 0; i < 7; ++i) {
      if (At(aX + i, aY, aTurned) != (i != 1 && i != 5)) return false;
    }
    return Light(aX + 7, aY, aTurned) || Light(aX - 4, aY, aTurned);
  }

  const TModuleBits& fBits;
  int fSide;
};

TEST(QRCodeTest, PenaltyCountsEveryRule) {
  std::mt19937 random(3);
  for (const int side : {21, 61, 65, 125, 129, 177}) {
    for (const unsigned darkOfEight : {0U, 1U, 3U, 4U, 7U, 8U}) {
      TModuleBits bits(side);
      for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) bits.Set(x, y, random() % 8 < darkOfEight);
      }
      // Finders at the edges and across the seams of words.
      for (const int at : {0, 4, 57, 60, 121, side - 11, side - 7}) {
        for (int i = -4; i < 11 && at + 11 <= side + 4; ++i) {
          const int x = at + i;
          if (x < 0 || x >= side) continue;
          bits.Set(x, 9, i >= 0 && i < 7 && i != 1 && i != 5);
          bits.Set(15, x, i >= 0 && i < 7 && i != 1 && i != 5);
        }
      }
      EXPECT_EQ(TMaskUtil::CalculateMaskPenalty(bits), TSlowPenalty(bits).Sum())
          << side << ' ' << darkOfEight;
    }
  }
}

TEST(QRCodeTest, TakesTheFirstMaskOfTheLowestPenalty) {
  for (const char* text : {"KALDRIX", "0123456789", "a longer text, with some words in it"}) {
    const TQRCode code = Encoded(text);
    TModuleBits chosen(code.FMatrixWidth);
    for (int y = 0; y < code.FMatrixWidth; ++y) {
      for (int x = 0; x < code.FMatrixWidth; ++x) chosen.Set(x, y, code.FMatrix.Get(x, y) != 0);
    }
    const TMatrixUtil::TFrame& frame = TMatrixUtil::Frame(code.FVersion);
    int lowest = std::numeric_limits<int>::max(), first = -1;
    for (int mask = 0; mask < TMaskUtil::Masks; ++mask) {
      TModuleBits other = chosen;
      TMaskUtil::Mask(other, frame.FDataArea, code.FMaskPattern);
      TMaskUtil::Mask(other, frame.FDataArea, mask);
      TMatrixUtil::PlaceFormat(other, {}, mask);
      const int penalty = TSlowPenalty(other).Sum();
      if (penalty >= lowest) continue;
      lowest = penalty;
      first = mask;
    }
    EXPECT_EQ(code.FMaskPattern, first) << text;
  }
}

}  // namespace
