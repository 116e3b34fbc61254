// The program as a person runs it: exit status, messages, files.
#include "apps/Program.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

constexpr const char* Examples[] = {"price-label", "badges",      "floor-plan",
                                    "pictogram",   "round-label", "shipping-label-inch"};

TEST_F(ProgramTest, EveryExampleIsSoundAndExports) {
  for (const std::string name : Examples) {
    const std::string input = Example(name + ".json");
    EXPECT_EQ(Kaldrix("check " + input).text, "") << name;
    for (const char* suffix : {"svg", "png", "pdf", "json", "bin"}) {
      const TOutcome done = Kaldrix("export " + input + " -o " + File(name + "." + suffix));
      EXPECT_EQ(done.status, 0) << done.text;
      EXPECT_EQ(done.text, "");
    }
    EXPECT_TRUE(ReadFile(File(name + ".json")) == ReadFile(input)) << name;
    EXPECT_EQ(Kaldrix("export " + File(name + ".bin") + " -o " + File("again.json")).status, 0);
    EXPECT_TRUE(ReadFile(File("again.json")) == ReadFile(input)) << name;
    EXPECT_EQ(ReadFile(File(name + ".png")).substr(1, 3), "PNG");
    EXPECT_EQ(Shell("xmllint --noout " + File(name + ".svg")).text, "") << name;
    EXPECT_EQ(Shell("pdfinfo " + File(name + ".pdf")).status, 0) << name;
  }
}

TEST_F(ProgramTest, TextsOfAPdfCanBeSearched) {
  ASSERT_EQ(Kaldrix("export " + Example("badges.json") + " --page 1 -o " + File("sheet.pdf")).status, 0);
  const std::string text = Shell("pdftotext " + File("sheet.pdf") + " -").text;
  std::size_t count = 0;
  for (std::size_t at = text.find("Amélie Nováková"); at != std::string::npos;
       at = text.find("Amélie Nováková", at + 1))
    ++count;
  EXPECT_EQ(count, 8U);
}

TEST_F(ProgramTest, TheSvgModesDiffer) {
  struct TCase {
    const char* options;
    const char* part;
  };
  const TCase cases[] = {
      {"", "width=\"70mm\""},
      {"--svg-mode plain", "width=\"70\""},
      {"--svg-mode factor --factor 2", "width=\"140mm\""},
      {"--svg-mode px --factor 10", "width=\"700\""},
      {"--svg-text exact", "alignment-baseline="},
      {"", "y=\"10.58\""},
      {"--ids", "<rect id=\"Rectangle001\""},
  };
  for (const TCase& row : cases) {
    const TOutcome done =
        Kaldrix("export " + Example("price-label.json") + " --format svg -o - " + row.options);
    EXPECT_EQ(done.status, 0) << done.text;
    EXPECT_NE(done.text.find(row.part), std::string::npos) << row.options << "\n" << done.text.substr(0, 400);
  }
}

TEST_F(ProgramTest, ExportsTellTheBarcodesThatNobodyReads) {
  std::string text = ReadFile(Example("pallet-label.json"));
  const std::string right = "(00)", wrong = "(99999)";
  ASSERT_NE(text.find(right), std::string::npos);
  text.replace(text.find(right), right.size(), wrong);
  WriteFileAtomically(File("bad.json"), text);
  const TOutcome picture = Kaldrix("export " + File("bad.json") + " -o " + File("bad.svg"));
  EXPECT_EQ(picture.status, 0);
  EXPECT_NE(picture.text.find("bad.json: Barcode"), std::string::npos) << picture.text;
  EXPECT_EQ(Kaldrix("export " + File("bad.json") + " -o " + File("bad.bin")).text, "");
}

TEST_F(ProgramTest, InfoTellsWhatADocumentHolds) {
  const TOutcome done = Kaldrix("info --json " + Example("floor-plan.json"));
  ASSERT_EQ(done.status, 0);
  const auto json = TJsonBaseObject::Parse(done.text);
  TJsonObject& info = *json->AsObject();
  EXPECT_EQ(info.GetInt("scale"), 50);
  EXPECT_EQ(info.GetString("units"), "m");
  EXPECT_EQ(info.GetObject("types").GetInt("Arc"), 5);
  EXPECT_EQ(info.GetArray("layers").GetObject(6).GetString("name"), "Box Layer");
  EXPECT_EQ(Kaldrix("info - < " + Example("floor-plan.json")).status, 0);
}

TEST_F(ProgramTest, ABadDocumentIsNamedAndNothingIsWritten) {
  struct TCase {
    std::string bytes;
    const char* part;
  };
  std::string deep(1000000, '[');
  const TCase cases[] = {
      {"", "no drawing"},
      {"{\"Version\":3200,\"Items\":[{\"Type\":99}]}", "Items[0]: unknown item type 99"},
      {"{\"Version\":3200,\"Items\":[{\"Type\":2,\"Layer\":null}]}",
       "Items[0]: Cannot cast Object into Integer"},
      {"{\"Version\":3200,\"EditorMode\":2,\"Measures\":{\"DrawScale\":0}}", "DrawScale"},
      {"{\"Version\":3200,", "Unexpected end of file"},
      {"{\"a\":" + deep, "Nesting is deeper than 512"},
      {ReadFile(Example("price-label.json")).substr(0, 5000), "("},
      {std::string("KALDRIX\x1A\x01\0\0\0\xFF\xFF\xFF\x7F\0\0\0\0\0\0\0\0", 24), "bytes of content"},
  };
  for (const TCase& row : cases) {
    WriteFileAtomically(File("bad.json"), row.bytes);
    const TOutcome done = Kaldrix("export " + File("bad.json") + " -o " + File("out.svg"));
    EXPECT_EQ(done.status, 1) << row.part;
    EXPECT_EQ(done.text.substr(0, 9), "kaldrix: ") << done.text;
    EXPECT_NE(done.text.find(File("bad.json")), std::string::npos) << done.text;
    EXPECT_NE(done.text.find(row.part), std::string::npos) << done.text;
    EXPECT_FALSE(FileExists(File("out.svg")));
    EXPECT_EQ(Kaldrix("check " + File("bad.json")).status, 1);
  }
  const TOutcome missing = Kaldrix("export " + File("none.json") + " -o " + File("out.svg"));
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.text.find("none.json"), std::string::npos);
  const TOutcome unwritable =
      Kaldrix("export " + Example("badges.json") + " -o " + File("no/such/folder.svg"));
  EXPECT_EQ(unwritable.status, 1);
  EXPECT_NE(unwritable.text.find("folder.svg"), std::string::npos);
}

TEST_F(ProgramTest, WrongUseIsTwo) {
  for (const std::string arguments :
       {"", "paint", "export", "export a.json", "export a.json -o b.txt",
        "export a.json -o b.svg --svg-mode huge", "export a.json -o b.png --dpi 0",
        "export a.json -o b.svg --factor -1", "info --no-such a.json"}) {
    EXPECT_EQ(Kaldrix(arguments).status, 2) << arguments;
  }
  EXPECT_EQ(Kaldrix("--help").status, 0);
  EXPECT_EQ(Kaldrix("export --help").status, 0);
}

TEST_F(ProgramTest, AMessageFileComesBackUnchanged) {
  ASSERT_EQ(Kaldrix("messages -o " + File("english.lng")).status, 0);
  const std::string text = ReadFile(File("english.lng"));
  EXPECT_EQ(text, Kaldrix("messages -o -").text);
  EXPECT_NE(text.find("errRepeatID=The ID must be unique"), std::string::npos);
}

}  // namespace
}  // namespace Zor
