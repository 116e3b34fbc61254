#include <cstdlib>
#include <ctime>
#include <sstream>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Format.hpp"

namespace {

using namespace Zor;

TEST(JsonWriter, TwoLayouts) {
  TJsonObject root;
  root.SetString("Name", "a \"b\"\\/\t\x1B\x7F");
  TJsonArray& points = root.AddNewArray("Points");
  points.AddObject().SetFloat("X", 0.5);
  points.AddInt(-3);
  points.AddNull();
  root.GetObject("Empty");
  root.GetArray("None");
  root.SetBool("Ok", true);
  EXPECT_EQ(root.ToString(), R"({"Name":"a \"b\"\\/\t\u001b)"
                             "\x7F"
                             R"(","Points":[{"X":0.5},-3,null],"Empty":{},"None":[],"Ok":true})");
  EXPECT_EQ(
      root.ToJSON(false),
      "{\n\t\"Name\": \"a \\\"b\\\"\\\\/\\t\\u001b\x7F\",\n\t\"Points\": [\n\t\t{\n\t\t\t\"X\": 0.5\n\t\t},\n"
      "\t\t-3,\n\t\tnull\n\t],\n\t\"Empty\": {},\n\t\"None\": [],\n\t\"Ok\": true\n}");
}

TEST(JsonWriter, SubtreesAppendAtTheirLevel) {
  const auto tree = TJsonBaseObject::Parse("[{\"a\":[1,{\"b\":2}]},{}]");
  std::string streamed = "[";
  for (int i = 0; i < tree->Count(); ++i) {
    streamed += i > 0 ? ",\n\t" : "\n\t";
    tree->AsArray()->GetObject(i).AppendJSON(streamed, false, 1);
  }
  EXPECT_EQ(streamed + "\n]", tree->ToJSON(false));
}

TEST(JsonWriter, DatesAreWrittenInUtc) {
  setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  tzset();
  TJsonArray dates;
  dates.AddUtcDateTime(EncodeDateTime(2024, 5, 1, 12, 30, 0, 5));
  dates.AddDateTime(EncodeDateTime(2024, 5, 1, 1, 0, 0));
  dates.AddDateTime(EncodeDateTime(2024, 12, 31, 23, 59, 59, 999));
  EXPECT_EQ(dates.ToJSON(),
            R"(["2024-05-01T12:30:00.5Z","2024-04-30T23:00:00.0Z","2024-12-31T22:59:59.999Z"])");

  dates.FromJSON(dates.ToJSON());
  EXPECT_DOUBLE_EQ(dates.GetUtcDateTime(0), EncodeDateTime(2024, 5, 1, 12, 30, 0, 5));
  EXPECT_DOUBLE_EQ(dates.GetDateTime(1), EncodeDateTime(2024, 5, 1, 1, 0, 0));
  EXPECT_DOUBLE_EQ(dates.GetDateTime(2), EncodeDateTime(2024, 12, 31, 23, 59, 59, 999));
  EXPECT_DOUBLE_EQ(TJsonDataValue("2024-05-01 14:30+02:00").GetUtcDateTime(),
                   EncodeDateTime(2024, 5, 1, 12, 30));
  for (const char* text : {"", "2024-13-01", "2024-05-01T1", "2024-05-01T10:00x", "2024-02-30T10:00Z"}) {
    EXPECT_THROW(TJsonDataValue(text).GetDateTime(), EConvertError) << text;
  }
}

TEST(JsonWriter, DatesOfOldKeepTheirMoment) {
  const TJsonDataValue early("1850-06-01T01:30:00+02:00"), late("1850-05-31T18:30:00-05:00");
  EXPECT_EQ(early.GetUtcDateTime(), EncodeDateTime(1850, 5, 31, 23, 30));
  EXPECT_EQ(late.GetUtcDateTime(), EncodeDateTime(1850, 5, 31, 23, 30));
  EXPECT_EQ(TJsonDataValue("1899-12-30T01:00+02:00").GetUtcDateTime(), EncodeDateTime(1899, 12, 29, 23));

  // Zones: one east, one west, and the local time of Amsterdam with its 32 seconds.
  for (const char* zone : {"CET-1", "EST5", "LMT-0:19:32"}) {
    setenv("TZ", zone, 1);
    tzset();
    for (const bool utc : {true, false}) {
      JsonSerializationConfig().UseUtcTime = utc;
      for (const TDateTime date :
           {EncodeDateTime(1, 1, 2, 3), EncodeDateTime(1850, 6, 1, 6, 30),
            EncodeDateTime(1899, 12, 29, 23, 59, 59, 999), EncodeDateTime(1899, 12, 30),
            EncodeDateTime(1900, 2, 28, 23, 30), EncodeDateTime(9999, 12, 30)}) {
        TJsonArray dates;
        dates.AddDateTime(date);
        dates.AddUtcDateTime(date);
        dates.FromJSON(dates.ToJSON());
        EXPECT_EQ(dates.GetDateTime(0), date) << zone << ' ' << dates.ToJSON();
        EXPECT_EQ(dates.GetUtcDateTime(1), date) << zone << ' ' << dates.ToJSON();
      }
    }
  }
  JsonSerializationConfig().UseUtcTime = true;
  EXPECT_THROW(TJsonDataValue("0001-01-01T00:00+01:00").GetUtcDateTime(), EConvertError);
  EXPECT_THROW(TJsonDataValue("2024-05-01T00:00+24:00").GetUtcDateTime(), EConvertError);
}

TEST(JsonWriter, FilesAndStreamsGoRound) {
  const auto tree = TJsonBaseObject::Parse("{\"a\":[1,2.5,\"\xC3\xA4\"]}");
  const std::string file = testing::TempDir() + "kaldrix_json_writer_test.json";
  tree->SaveToFile(file, false);
  EXPECT_EQ(ReadFile(file), tree->ToJSON(false));
  EXPECT_EQ(TJsonBaseObject::ParseFromFile(file)->ToJSON(), tree->ToJSON());
  RemoveFile(file);
  std::stringstream stream;
  tree->SaveToStream(stream);
  TJsonObject read;
  read.LoadFromStream(stream);
  EXPECT_EQ(read.ToJSON(), tree->ToJSON());
}

}  // namespace
