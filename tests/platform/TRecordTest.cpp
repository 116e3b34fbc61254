#include <gtest/gtest.h>

#include <limits>

#include "kaldrix/platform/TRecord.hpp"

namespace Zor {
namespace {

struct TSample {
  std::uint8_t Small = 0;
  bool Flag = false;
  std::int16_t Short = 0;
  std::uint16_t Word = 0;
  std::int32_t Int = 0;
  std::uint32_t Cardinal = 0;
  std::int64_t Long = 0;
  double Real = 0;
  float Single = 0;
  std::string Text;
  std::string Bytes;
  TZOLineType LineType = iiSolid;
  TZORTermType Term = ttNone;
  TZORAngle Angle = ag0;
  TZOLayerOpts Options;
  int Late = -1;

  void Record(TRecord& r) {
    r.Byte(Small);
    r.Boolean(Flag);
    r.Int16(Short);
    r.UInt16(Word);
    r.Int32(Int);
    r.UInt32(Cardinal);
    r.Int64(Long);
    r.Double(Real);
    r.Single(Single);
    r.String(Text);
    r.Blob(Bytes);
    r.Enum32(LineType, "LineType");
    r.Enum16(Term, "TermType");
    r.Enum8(Angle, "Angle");
    r.Set32(Options);
    if (r.Since(3100)) r.Int32(Late);
  }
  bool operator==(const TSample&) const = default;
};

TSample Extremes() {
  TSample s;
  s.Small = 255;
  s.Flag = true;
  s.Short = std::numeric_limits<std::int16_t>::min();
  s.Word = 0xFEDC;
  s.Int = std::numeric_limits<std::int32_t>::min();
  s.Cardinal = 0xFFEEDDCC;
  s.Long = std::numeric_limits<std::int64_t>::min() + 1;
  s.Real = -1.0 / 3;
  s.Single = 0.1F;
  s.Text = std::string("a\xC3\xB1\0b", 5);
  s.Bytes = std::string("\xFF\0\x80", 3);
  s.LineType = ii411;
  s.Term = ttCross;
  s.Angle = ag270;
  s.Options = {lopVisible, lopExportBack};
  s.Late = 7;
  return s;
}

std::string Written(TSample aSample) {
  std::string bytes;
  TBinaryWriter writer(bytes);
  TRecord record(writer, 3200);
  aSample.Record(record);
  return bytes;
}

TSample Read(std::string_view aBytes, int aVersion) {
  TBinaryReader reader(aBytes);
  TRecord record(reader, aVersion);
  TSample sample;
  sample.Record(record);
  EXPECT_EQ(reader.Left(), aVersion >= 3100 ? 0U : 4U);
  return sample;
}

std::string MessageOf(auto aAction) {
  try {
    aAction();
  } catch (const EReadError& error) {
    return error.what();
  }
  return "nothing was raised";
}

TEST(TRecord, ReadsBackWhatItWrote) {
  EXPECT_EQ(Read(Written(Extremes()), 3200), Extremes());
  TSample old = Extremes();
  old.Late = -1;
  EXPECT_EQ(Read(Written(Extremes()), 3000), old);
}

TEST(TRecord, EveryTruncationIsAnError) {
  const std::string bytes = Written(Extremes());
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_THROW(Read(std::string_view(bytes).substr(0, size), 3200), EReadError) << size;
  }
}

TEST(TRecord, RefusesUnknownOrdinalsWithNameAndPlace) {
  const auto refusal = [](std::string aBytes, auto aRead) {
    return MessageOf([&] {
      TBinaryReader reader(aBytes);
      TRecord record(reader, 3200);
      (void)record.ByteOf(0);
      aRead(record);
    });
  };
  TZOLineType line = iiSolid;
  const auto enum32 = [&](TRecord& r) { r.Enum32(line, "LineType"); };
  EXPECT_EQ(refusal(std::string("x\x4D\0\0\0", 5), enum32), "Unknown value 77 of LineType at byte 1");
  EXPECT_EQ(refusal("x\xFF\xFF\xFF\xFF", enum32), "Unknown value -1 of LineType at byte 1");
  EXPECT_EQ(refusal("x\x0C", [&](TRecord& r) { r.Enum8(line, "LineType"); }),
            "Unknown value 12 of LineType at byte 1");
  EXPECT_EQ(line, iiSolid);
}

TEST(TRecord, CountIsHeldAgainstTheRest) {
  const auto count = [](std::string aBytes, std::size_t aLeastEach) {
    TBinaryReader reader(aBytes);
    TRecord record(reader, 3200);
    return record.Count(0, aLeastEach);
  };
  EXPECT_EQ(count(std::string("\x02\0\0\0abcdefgh", 12), 4), 2);
  EXPECT_EQ(count("\xFE\xFF\xFF\xFF", 4), 0);
  EXPECT_THROW(count(std::string("\x02\0\0\0abcdefg", 11), 4), EReadError);
  EXPECT_THROW(count("\xFF\xFF\xFF\x7F", 0), EReadError);
  EXPECT_THROW(count("\xFF\xFF\xFF\x7F...", std::numeric_limits<std::size_t>::max()), EReadError);
}

TEST(TBinaryWriter, BytesAreLittleEndianAndTextsCounted) {
  std::string bytes = "head";
  TBinaryWriter writer(bytes);
  writer.WriteUInt32(0x04030201);
  writer.WriteDouble(1.0);
  writer.WriteString("a\xC3\xB1");
  EXPECT_EQ(bytes, std::string("head\x01\x02\x03\x04\0\0\0\0\0\0\xF0\x3F\x03"
                               "a\xC3\xB1",
                               20));
  EXPECT_EQ(writer.Position(), 20U);
  bytes.clear();
  writer.WriteString(std::string(200, 'x'));
  EXPECT_EQ(bytes.substr(0, 3), "\xC8\x01x");
}

TEST(TBinaryReader, TextsOfAllLengthsOfTheCount) {
  for (const std::size_t size : {0U, 127U, 128U, 16383U, 16384U, 2097152U}) {
    std::string bytes;
    TBinaryWriter(bytes).WriteString(std::string(size, 'x'));
    TBinaryReader reader(bytes);
    EXPECT_EQ(reader.ReadString().size(), size);
    EXPECT_EQ(reader.Left(), 0U);
  }
}

TEST(TBinaryReader, BadTextsAreRefusedAndThePositionStays) {
  struct TCase {
    std::string Bytes, Message;
  };
  const TCase cases[] = {
      {"", "Unexpected end of data at byte 0"},
      {"\x80\x80", "Unexpected end of data at byte 0"},
      {"\x05"
       "abcd",
       "Unexpected end of data at byte 0"},
      {"\xFF\xFF\xFF\xFF\x07", "Unexpected end of data at byte 0"},
      {"\xFF\xFF\xFF\xFF\x0F", "Malformed text length at byte 0"},
      {"\x80\x80\x80\x80\x80\x01", "Malformed text length at byte 0"},
  };
  for (const TCase& c : cases) {
    TBinaryReader reader(c.Bytes);
    EXPECT_EQ(MessageOf([&] { reader.ReadString(); }), c.Message);
    EXPECT_EQ(reader.Position(), 0U);
  }
  TBinaryReader reader(
      "\x03"
      "a\xFF"
      "b");
  EXPECT_EQ(reader.ReadString(),
            "a\xEF\xBF\xBD"
            "b");
}

}  // namespace
}  // namespace Zor
