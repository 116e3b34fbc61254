// Where the records of a print come from, as a person tells it: files as spreadsheets write them, names that
// are not there, and what `info` says of them.
#include <sqlite3.h>

#include <fstream>
#include <memory>

#include "apps/Program.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

class PrintSourceTest : public ProgramTest {
 protected:
  std::string Write(const std::string& aName, const std::string& aBytes) const {
    WriteFileAtomically(File(aName), aBytes);
    return File(aName);
  }
  /// A document that shows Name and City, and names the file "list.csv" with these columns.
  std::string OwnDocument(const std::string& aHeader) const {
    Write("list.csv", aHeader + "\n");
    TKDXLabel document;
    TKDXData& data = *document.fData;
    data.SetCsvData(File("list.csv"), true, scvSemicolon, scqDoubleQuotes);
    data.Select(dtyCsv);
    data.fCsvFileName = "list.csv";
    document.NewText(1000, 1000)->SetData(ftNone, "{Name", "");
    document.NewText(1000, 6000)->SetData(ftNone, "{City", "");
    return Write("own.json", document.SaveToBytes(lfJSON));
  }
  TOutcome Print(const std::string& aOptions, const std::string& aDocument = "own.json") const {
    return Kaldrix("print " + File(aDocument) + " -o " + File("out.pdf") + " " + aOptions);
  }
  /// The texts of the labels, in reading order.
  std::string Texts() const {
    std::string text = Shell("pdftotext -raw " + File("out.pdf") + " - | tr '\\n\\f' '| '").text;
    text.erase(text.find_last_not_of("| ") + 1);
    return text;
  }
  void ExpectTexts(const TOutcome& aDone, const std::string& aTexts, const std::string& aWhat) const {
    EXPECT_EQ(aDone.status, 0) << aWhat << ": " << aDone.text;
    EXPECT_EQ(Texts(), aTexts) << aWhat;
  }
  static void ExpectFailure(const TOutcome& aDone, const std::string& aPart) {
    EXPECT_EQ(aDone.status, 1) << aDone.text;
    EXPECT_NE(aDone.text.find(aPart), std::string::npos) << "no " << aPart << " in: " << aDone.text;
  }
};

// The document's own file ---------------------------------------------------------------------------------

TEST_F(PrintSourceTest, ColumnsAreFoundByTheirNames) {
  OwnDocument("Number;Name;City");
  Write("list.csv", "City;Number;Extra;Name\nOslo;1;x;Ann\nRome;2;y;Bob\n");
  ExpectTexts(Print(""), "Ann|Oslo|Bob|Rome", "another order");
  ExpectFailure(Print("--no-header --csv " + File("list.csv")),
                "there is no field 'Name'; there are 'Field1', 'Field2', 'Field3', 'Field4'");
  Write("list.csv", "Town;Number;Name\nOslo;1;Ann\n");
  ExpectFailure(Print(""), "there is no field 'City'; there are 'Town', 'Name', 'Number'");
  RemoveFile(File("list.csv"));
  Write("lists.csv", "");
  ExpectFailure(Print(""), "list.csv: there is no such file; there is 'lists.csv'; " + File("own.json"));
}

TEST_F(PrintSourceTest, ACaptionOfAnotherLanguageChangesNothing) {
  for (const std::string name : {"address-labels", "shipping-labels"}) {
    const TOutcome done = Kaldrix("print " + Example("labels/" + name + ".json") + " -o " + File("out.pdf"));
    EXPECT_EQ(done.status, 0) << done.text;
    EXPECT_FALSE(Texts().empty());
  }
}

// Names that are not there -------------------------------------------------------------------------------

TEST_F(PrintSourceTest, MissingNamesAreToldWithThoseThereAre) {
  OwnDocument("Name;City");
  const std::string json = " --json " + Write("a.json", R"({"meta": [], "rows": [{"Name": "a", "City": "b",
      "Qty": 2}]})");
  ExpectFailure(Print(json + " --source row"), "there is no array 'row'; there are 'rows', 'meta'");
  ExpectFailure(Print(json + " --source rows --repeat qyt"), "there is no field 'qyt'");
  ExpectTexts(Print(json + " --source ROWS --repeat qty"), "a|b|a|b", "case does not matter");
  ExpectFailure(Print("--csv " + File("lits.csv")), "lits.csv: there is no such file; there is 'list.csv'");
  ExpectFailure(Print("--json " + Write("b.json", R"({"r": [{"Name": "a"}]})")), "there is no field 'City'");
  ExpectTexts(Print("--json " + Write("b.json", R"({"r": [{"Name": "a"}, {"City": "b"}]})")), "a|b",
              "a key may be missing in a record");
  EXPECT_EQ(Print("--csv " + File("list.csv") + " --source rows").status, 2);
  EXPECT_EQ(Print(json + " --encoding utf-8").status, 2);
}

TEST_F(PrintSourceTest, ARepeatFieldOfTheDocumentMustBeThere) {
  OwnDocument("Name;City;Qty");
  TKDXLabel document;
  document.LoadFromFile(File("own.json"));
  document.fData->SetFieldRepeat("qty");
  Write("own.json", document.SaveToBytes(lfJSON));
  Write("list.csv", "Qty;Name;City\n2;a;b\n");
  ExpectTexts(Print(""), "a|b|a|b", "the field of the document");
  Write("list.csv", "Name;City\na;b\n");
  ExpectFailure(Print(""), "there is no field 'qty' to tell the labels of each record; there are");
  ExpectTexts(Print("--repeat ''"), "a|b", "every record gives as many");
}

TEST_F(PrintSourceTest, ARepeatFieldThatIsNoNumberIsAnError) {
  OwnDocument("Name;City");
  struct TCase {
    std::string source;
    const char* told;
  };
  const TCase cases[] = {
      {"--csv " + Write("a.csv", "Name;City;Qty\na;b;1\nc;d;two\ne;f;2\n"),
       "record 2: "
       "%/a.csv:3: 'Qty' tells the number of labels, and 'two' is no whole number"},
      {"--csv " + Write("b.csv", "Name;City;Qty\na;b;1\nc;d;\n"),
       "record 2: %/b.csv:3: 'Qty' tells no number"},
      {"--json " + Write("a.json", R"({"r": [{"Name": "a", "City": "b", "Qty": 1},
           {"Name": "c", "City": "d", "Qty": "x"}, {"Name": "e", "City": "f", "Qty": 2}]})"),
       "record 2: 'Qty' tells the number of labels, and 'x' is no whole number"},
      {"--json " + Write("b.json", R"({"r": [{"Name": "a", "City": "b", "Qty": 1}, {"Name": "c"}]})"),
       "record 2: 'Qty' tells no number"},
      {"--sqlite " + Example("labels/assets.sqlite") +
           " --query \"select 'a' as Name, 'b' as City, 1 as Qty "
           "union all select 'c', 'd', 1.5\"",
       "record 2: 'Qty' tells the number of labels, and '1.5'"},
  };
  for (const TCase& row : cases) {
    std::string told = row.told;
    if (const std::size_t place = told.find('%'); place != std::string::npos) told.replace(place, 1, fFolder);
    ExpectFailure(Print(row.source + " --repeat Qty"), told);
  }
  const TOutcome kept = Print(cases[2].source + " --repeat Qty --keep-going");
  EXPECT_EQ(kept.status, 1);
  EXPECT_NE(kept.text.find("left out: label 2, record 2: 'Qty'"), std::string::npos) << kept.text;
  EXPECT_EQ(Texts(), "a|b|e|f|e|f");
}

TEST_F(PrintSourceTest, ValuesAreShownAsTheyStandOrNotAtAll) {
  TKDXLabel document;
  TKDXData& data = *document.fData;
  data.fLinkData = true;
  data.fType = dtyDataset;
  document.NewText(1000, 1000)->SetData(ftNone, "~a", "0.00");
  Write("own.json", document.SaveToBytes(lfJSON));
  document.NewText(1000, 6000)->SetData(ftNone, "~b", "");
  Write("two.json", document.SaveToBytes(lfJSON));
  const auto query = [this](const std::string& columns, const std::string& values) {
    RemoveFile(File("t.db"));
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(File("t.db").c_str(), &database), SQLITE_OK);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> closer(database, &sqlite3_close);
    const std::string text = "create table t(" + columns + "); insert into t values(" + values + ")";
    EXPECT_EQ(sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << text;
    return "--sqlite " + File("t.db") + " --query 'select * from t'";
  };
  // 1. A number that the format would change, and what is none.
  ExpectTexts(Print(query("a int", "3")), "3.00", "a number");
  ExpectTexts(Print(query("a int, b", "null, 'b'"), "two.json"), "b", "no value");
  ExpectFailure(Print(query("a int", "2.7")), "label 1, record 1: Text001: '2.7' is no whole number");
  ExpectFailure(Print(query("a real", "'n/a'")), "'n/a' is no number, as the format '0.00' asks for");
  ExpectFailure(Print(query("a int", "340123459000000003")), "'340123459000000003' has more than the 15");
  ExpectFailure(Print("--csv " + Write("a.csv", "a\n340123459000000003\n")), "has more than the 15 digits");
  ExpectFailure(Print("--json " + Write("a.json", R"({"r": [{"a": 340123459000000003}]})")), "than the 15");
  // 2. What is no text.
  ExpectFailure(Print(query("a", "x'ff'")), "'a' is bytes, and no text");
  ExpectFailure(Print("--json " + Write("a.json", R"({"r": [{"a": {"x": 1}}]})")), "'a' is an object or an");
  // 3. Characters that got lost.
  const char* lost = "a character of the value could not be read";
  ExpectFailure(Print("--json " + Write("a.json", "{\"r\": [{\"a\": \"caf\xE9\"}]}")), lost);
  ExpectFailure(Print("--json " + Write("a.json", R"({"r": [{"a": "\ud83d"}]})")), lost);
  ExpectFailure(Print("--json " + Write("a.json", R"({"r": [{"a": "x\u0000y"}]})")), "a NUL character");
  ExpectFailure(Print(query("a", "cast(x'41ff' as text)")), lost);
  ExpectFailure(Print("--csv " + Write("a.csv", std::string("\xFF\xFE"
                                                            "a\0\n\0\x3D\xD8\n\0",
                                                            10))),
                lost);
  // 4. Names that stand twice.
  ExpectFailure(Print("--json " + Write("a.json", R"({"r": [{"a": 1, "a": 2}]})")), "'a' stands there twice");
  ExpectFailure(Print("--json " + Write("a.json", R"({"r": [{"a": 1}], "r": []})")), "than one array 'r'");
  ExpectFailure(Print("--sqlite " + File("t.db") + " --query 'select 1 as a, 2 as A'"),
                "t.db: column 2: the name \"A\" stands for column 1 already");
  ExpectFailure(Print("--sqlite " + File("t.db") + " --query 'select a from t where a=?'"), "has parameters");
}

TEST_F(PrintSourceTest, NumbersOfLabelsBeyondARunAreTold) {
  OwnDocument("Name;City;N");
  const auto rows = [this](const std::string& numbers) {
    return "--repeat N --labels 1 --csv " + Write("a.csv", "Name;City;N\na;b;" + numbers + "\n");
  };
  ExpectTexts(Print(rows("2147483646")), "a|b", "as many as there may be");
  ExpectFailure(Print(rows("4294967297")),
                "a.csv:2: 'N' tells the number of labels, and '4294967297' is too");
  ExpectFailure(Print(rows("2147483640\nc;d;8")), "the records give more labels than a run can have");
  ExpectFailure(Print("--repeat N --json " + Write("a.json", R"({"r": [{"Name": "a", "N": 4294967297}]})")),
                "'4294967297' is too many");
}

// What spreadsheets write --------------------------------------------------------------------------------

TEST_F(PrintSourceTest, CsvIsReadAsSpreadsheetsWriteIt) {
  OwnDocument("Name;City");
  std::string little = "\xFF\xFE", bare, big;
  for (const char c : std::string("Name;City\r\nAnn;K\xF6ln\r\n")) {
    little += {c, '\0'};
    bare += {c, '\0'};
    big += {'\0', c};
  }
  const std::string far(1 << 16, 'x');
  struct TCase {
    const char* what;
    std::string bytes;
    const char* texts;
    const char* options = "";
  };
  const TCase cases[] = {
      {"blank lines at the end", "Name;City\na;b\n\n \n\r\n", "a|b"},
      {"a quoted end of a line", "Name;City\r\n\"a\r\nc\";b\r\nd;e\r\n", "a c|b|d|e"},
      {"a quoted header", "\"Name\";\"Ci\nty\";City\na;x;b\n", "a|b"},
      {"a told delimiter", "sep=,\r\nName,City\r\n\"a;1\",b\r\n", "a;1|b"},
      {"a delimiter that is told otherwise", "sep=,\nName;City\na,1;b\n", "a,1|b", "--sep semicolon"},
      {"other delimiters in a quoted name", "Name,City,\"a;b;c\"\na,b,x\n", "a|b"},
      {"UTF-16 with a mark", little, "Ann|Köln"},
      {"UTF-16 without", bare, "Ann|Köln"},
      {"UTF-16, high bytes first", big, "Ann|Köln"},
      {"UTF-16, told", bare, "Ann|Köln", "--encoding utf-16le"},
      {"Windows-1252, late", "City;Name;Note\nb;a;" + far + "\nK\xF6ln;Ann;\n", "a|b|Ann|Köln"},
      {"told", "Name;City\nAnn;K\xC3\xB6ln\n", "Ann|KÃ¶ln", "--encoding windows-1252"},
  };
  for (const TCase& row : cases) {
    Write("list.csv", row.bytes);
    const std::string options = std::string(" ") + row.options;
    ExpectTexts(Print("--csv " + File("list.csv") + options), row.texts, row.what);
    const bool told =
        options.find("--sep") == std::string::npos && row.bytes.find("City,") == std::string::npos;
    if (told) ExpectTexts(Print(options), row.texts, row.what);
  }
}

TEST_F(PrintSourceTest, FaultsOfRecordsAreToldByTheirLines) {
  OwnDocument("Name;City");
  const std::string csv = "--csv " + File("list.csv");
  Write("list.csv", "sep=;\nName;City\n\"a\n\nc\";b\nd\n");
  ExpectFailure(Print(csv),
                "label 2, record 2: " + File("list.csv") + ":6: there are 1 columns where 2 belong");
  Write("list.csv", "Name;City\na;b\n\nc;d\n");
  ExpectFailure(Print(csv), "list.csv:3: there are 0 columns where 2 belong");
  Write("list.csv", "Name;City\na;\"b\nc;d\n\xC3\xA4;e\n");
  const TOutcome kept = Print(csv + " --keep-going");
  EXPECT_NE(kept.text.find("list.csv:2: column 2: a quote is not closed"), std::string::npos) << kept.text;
  EXPECT_EQ(Texts(), "c|d|ä|e") << "a quote that is missing costs its record only";
  Write("list.csv", "\xC3\xA4;Name;City\n\xC3\xB6;a;b\nx;\xE4;c\n");
  ExpectFailure(Print(csv), "list.csv:3: there are bytes that are not UTF-8");
  Write("list.csv", "sep=|\nName|City\n");
  ExpectFailure(Print(csv), "list.csv:1: '|' is told to separate");
}

TEST_F(PrintSourceTest, RecordsComeFromStandardInputAndPipes) {
  OwnDocument("Name;City");
  const std::string csv = Write("in.csv", "Name;City\na;b\n");
  const std::string json = Write("in.json", R"({"r": [{"Name": "a", "City": "b"}]})");
  ExpectTexts(Print("--csv - <" + csv), "a|b", "redirected");
  for (const auto& [file, option] : {std::pair(csv, "--csv "), {json, "--json "}}) {
    for (const char* name : {"-", "/dev/stdin"}) {
      const TOutcome done = Shell("cat " + file + " | " KALDRIX_PROGRAM " print " + File("own.json") +
                                  " -o " + File("out.pdf") + " " + option + name);
      ExpectTexts(done, "a|b", option + std::string(name));
    }
  }
  Write("in.csv", "Name;City\na\n");
  ExpectFailure(Print("--csv - <" + csv), "standard input:2: there are 1 columns where 2 belong");
}

// JSON ---------------------------------------------------------------------------------

TEST_F(PrintSourceTest, ALargeJsonArrayTakesNoMemory) {
  OwnDocument("Name;City");
  constexpr int megabytes = KALDRIX_SANITIZED ? 2 : 120;
  {
    std::ofstream large(File("large.json"));
    const std::string filler(1000, 'x');
    large << "{\"r\": [{\"Name\": \"a\", \"City\": \"b\"}";
    for (int i = 0; i < megabytes * 1000; ++i)
      large << ",\n{\"Name\": \"n\", \"City\": \"" << filler << "\"}";
    large << "]}\n";
  }
  // The tree of the text would take several times its bytes.
  const std::string limit = KALDRIX_SANITIZED ? "" : "ulimit -v 200000; ";
  const TOutcome done = Shell("(" + limit + KALDRIX_PROGRAM " print " + File("own.json") + " -o " +
                              File("out.pdf") + " --labels 1 --json " + File("large.json") + ")");
  ExpectTexts(done, "a|b", "large");
  std::ofstream(File("large.json"), std::ios::app) << ",";
  ExpectFailure(
      Print("--labels 1 --json " + File("large.json")),
      "large.json: Expected end of file but found \",\" (" + std::to_string(megabytes * 1000 + 2) + ", 1)");
}

// What info says ---------------------------------------------------------------------------------

TEST_F(PrintSourceTest, InfoTellsWhatAPrintNeeds) {
  OwnDocument("Name;City;Qty");
  TKDXLabel document;
  document.LoadFromFile(File("own.json"));
  TKDXData& data = *document.fData;
  data.SetFieldRepeat("Qty");
  auto* counter = new TKDXCounter(&document);
  counter->fName = "Tag";
  counter->fBefore = "A-";
  counter->SetNumFrom(7);
  data.AddAskVal("Lot");
  data.GetAskField("Lot")->fQuestion = "Which lot?";
  document.fMeasure->fLabelName = "a\x1B[31m\nb";
  data.AddListVal("Shift");
  data.GetListVal("Shift")->AddValue("early");
  data.GetListVal("Shift")->AddValue("late");
  Write("own.json", document.SaveToBytes(lfJSON));

  const std::string text = Kaldrix("info " + File("own.json")).text;
  EXPECT_EQ(text.find("a\\x1B[31m\\nb: labelling"), 0U) << "nothing steers a terminal";
  for (const char* line :
       {"records: CSV \"CsvFile\", file list.csv, labels of each told by Qty", "fields: Name, City, Qty",
        "items show: Name, City", "counter \"Tag\": 7 to 100, step 1, now 7 (A-7)",
        "question \"Lot\", a text: Which lot?", "list \"Shift\": early, late"})
    EXPECT_NE(text.find(line), std::string::npos) << line << " in " << text;
  const auto json = TJsonBaseObject::Parse(Kaldrix("info --json " + File("own.json")).text);
  EXPECT_EQ(json->GetPath("questions[0].name").AsString(), "Lot");
  EXPECT_EQ(json->GetPath("lists[0].values[1]").AsString(), "late");
  EXPECT_EQ(json->GetPath("source.fields[2]").AsString(), "Qty");
  EXPECT_EQ(json->GetPath("counters[0].current").AsLong(), 7);
}

}  // namespace
}  // namespace Zor
