// Label runs as a person starts them: what bad sources are answered with, and what a ledger keeps.
#include <sqlite3.h>
#include <sys/resource.h>

#include <filesystem>
#include <memory>
#include <set>
#include <sstream>

#include "apps/Program.hpp"
#include "host/TKDXLabel.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

constexpr const char* Header = "Number;Name;Street;City;Country\n";
constexpr int LabelsOfPage = 24;

class PrintTest : public ProgramTest {
 protected:
  PrintTest() {
    std::string lines = Header;
    for (int i = 1; i <= 100; ++i)
      lines += std::to_string(9000 + i) + ";Name " + std::to_string(i) + ";S;C;L\n";
    Write("good.csv", lines);
  }
  std::string Write(const std::string& aName, const std::string& aBytes) const {
    WriteFileAtomically(File(aName), aBytes);
    return File(aName);
  }
  /// Prints an example to out.pdf.
  TOutcome Print(const std::string& aExample, const std::string& aOptions) const {
    return Kaldrix("print " + Example("labels/" + aExample + ".json") + " -o " + File("out.pdf") + " " +
                   aOptions);
  }
  TOutcome Addresses(const std::string& aOptions) const {
    return Print("address-labels", "--csv " + File("good.csv") + " " + aOptions);
  }
  std::string Texts(const std::string& aFile) const { return Shell("pdftotext " + File(aFile) + " -").text; }
  /// Nothing but the files of the source is left in the folder.
  void ExpectNoOutput(const std::string& aWhat) const {
    for (const auto& entry : std::filesystem::directory_iterator(fFolder)) {
      const std::string name = entry.path().filename().string();
      EXPECT_TRUE(name.find("out") == std::string::npos && name.find(".tmp") == std::string::npos)
          << aWhat << " leaves " << name;
    }
  }
  void ExpectFailure(const TOutcome& aDone, const std::vector<std::string>& aParts) const {
    EXPECT_EQ(aDone.status, 1) << aDone.text;
    EXPECT_EQ(aDone.text.substr(0, 9), "kaldrix: ") << aDone.text;
    for (const std::string& part : aParts) {
      EXPECT_NE(aDone.text.find(part), std::string::npos) << "no " << part << " in: " << aDone.text;
    }
    ExpectNoOutput(aParts.front());
  }
};

// Bad sources ---------------------------------------------------------------------------------

TEST_F(PrintTest, BadLinesAreNamed) {
  const std::string good = std::string(Header) + "1;A;S;C;L\n";
  struct TCase {
    std::string bytes;
    std::vector<std::string> parts;
  };
  const TCase cases[] = {
      {good + "2;B\n", {"bad.csv:3", "record 2", "2 columns where 5 belong"}},
      {good + "2;B;S;C;L;6\n", {"bad.csv:3", "record 2", "6 columns where 5 belong"}},
      {good + "2;\"B;S;C;L\n3;C;S;C;L\n", {"bad.csv:3", "record 2", "column 2", "a quote is not closed"}},
      {good + std::string("2;B\0;S;C;L\n", 11), {"bad.csv:3", "record 2", "NUL"}},
      {"Number;Name;Street;City;City;Country\n1;A;S;C;D;L\n", {"bad.csv:1", "column 5", "\"City\""}},
      {"Number;Name;Street;City;City\n1;A;S;C;D\n", {"bad.csv:1", "column 5", "\"City\""}},
      {"Number;Name;Road;City;Country\n1;A;S;C;L\n", {"Text002", "no field 'Street'"}},
      {good + "2;" + std::string(2'000'000, 'x') + ";S;C;L\n", {"record 2", "Text001", "2000000 bytes"}},
      {Header, {"bad.csv", "no records"}},
      {"", {"bad.csv", "no records"}},
  };
  for (const TCase& row : cases) {
    Write("bad.csv", row.bytes);
    ExpectFailure(Print("address-labels", "--csv " + File("bad.csv")), row.parts);
  }
  ExpectFailure(Print("address-labels", "--csv " + File("none.csv")), {"none.csv"});
}

TEST_F(PrintTest, ALineOfAHundredMegabytesTakesBoundedTimeAndMemory) {
  {
    std::string bytes = std::string(Header) + "1;A;S;C;L\n";
    bytes.append(KALDRIX_SANITIZED ? 1'000'000 : 100'000'000, 'x');
    Write("long.csv", bytes + "\n");
  }
  ExpectFailure(Print("address-labels", "--csv " + File("long.csv")),
                {"long.csv:3", "record 2", "1 columns where 5 belong"});
  rusage use{};
  getrusage(RUSAGE_CHILDREN, &use);
  constexpr long mostSeconds = 60, mostKiB = 1'500'000;
  EXPECT_LT(use.ru_utime.tv_sec, mostSeconds);
  EXPECT_LT(use.ru_maxrss, mostKiB);
}

TEST_F(PrintTest, TextsInOtherCodesArePrinted) {
  const std::string latin = "Number;Name;Street;City;Country\n1;M\xFCller;S;C;L\n";
  std::string wide = "\xFF\xFE";
  for (const char c : latin) wide += std::string{c, '\0'};
  for (const std::string& bytes : {latin, wide}) {
    Write("other.csv", bytes);
    const TOutcome done = Print("address-labels", "--csv " + File("other.csv"));
    EXPECT_EQ(done.status, 0) << done.text;
    EXPECT_NE(Texts("out.pdf").find("Müller"), std::string::npos);
  }
}

TEST_F(PrintTest, BadJsonIsNamed) {
  struct TCase {
    const char* bytes;
    std::vector<std::string> parts;
  };
  const TCase cases[] = {
      {R"([{"Product": "a"}])", {"bad.json", "array in an object"}},
      {"{\"a\": [{\"Product\": 1,]}", {"bad.json", "(1, "}},
      {"{}", {"bad.json", "no records"}},
      {R"({"a": []})", {"no records"}},
      {R"({"a": [{"Product": "x", "Ean": "401234510000"}, {"Product": "y", "Ean": "4012345X0037"}]})",
       {"product-labels.json", "record 2", "Barcode004", "'4012345X0037' is no code of EAN-13"}},
  };
  for (const TCase& row : cases) {
    Write("bad.json", row.bytes);
    ExpectFailure(Print("product-labels", "--json " + File("bad.json")), row.parts);
  }
  Write("bad.json", R"({"a": [{"x": 1}]})");
  ExpectFailure(Print("product-labels", "--json " + File("bad.json") + " --source b"), {"bad.json", "'b'"});
}

TEST_F(PrintTest, CodesThatAReaderWouldNotFindAreNamed) {
  const auto print = [&](const std::string& aEan, const std::string& aOptions) {
    Write("p.json", R"({"products":[{"Product":"A","Size":"1","Ean":")" + aEan +
                        R"(","Price":1,"PerKilo":1,"Copies":1}]})");
    return Print("product-labels", "--json " + File("p.json") + " --repeat Copies " + aOptions);
  };
  ExpectFailure(print("4012345100007", ""), {"record 1", "Barcode004", "it would be 4012345100006"});
  ExpectFailure(print("12345", ""), {"record 1", "Barcode004", "zeros in front"});
  ExpectFailure(print("", "--pad"), {"record 1", "Barcode004", "no text"});
  EXPECT_EQ(print("4012345100006", "").status, 0);
  EXPECT_EQ(print("12345", "--pad").status, 0);
}

TEST_F(PrintTest, CodesOfTheDocumentItselfAreChecked) {
  std::string document = ReadFile(Example("pallet-label.json"));
  const std::string code = "PO-77120";
  document.replace(document.find(code), code.size(), "PO*77120");
  Write("pallet.json", document);
  ExpectFailure(Kaldrix("print " + File("pallet.json") + " -o " + File("out.pdf")),
                {"pallet.json", "'*' starts and stops it"});
}

TEST_F(PrintTest, BadDatabasesAreNamed) {
  const std::string assets = Example("labels/assets.sqlite");
  const std::string query = " --query 'select name, room, bought, url from assets'";
  ExpectFailure(Print("asset-tags", "--sqlite " + File("none.db") + query), {"none.db"});
  ExpectFailure(Print("asset-tags", "--sqlite " + File("good.csv") + query), {"good.csv", "not a database"});
  ExpectFailure(Print("asset-tags", "--sqlite " + assets + " --query 'select nam from assets'"),
                {"assets.sqlite", "no such column: nam"});
  ExpectFailure(
      Print("asset-tags", "--sqlite " + assets + " --query 'select name, room, bought from assets'"),
      {"asset-tags.json", "QRCode007", "no field 'url'"});
  ExpectFailure(Print("asset-tags", "--sqlite " + assets + query + "' where 0'"), {"no records"});
  ExpectFailure(Print("asset-tags", "--sqlite " + assets + " --query 'delete from assets'"),
                {"assets.sqlite"});
  const std::string large =
      " --query \"select name, room, bought, printf('%.5000c', 'x') as url from assets\"";
  ExpectFailure(Print("asset-tags", "--sqlite " + assets + large),
                {"asset-tags.json", "record 1", "QRCode007"});

  std::filesystem::copy(assets, File("locked.db"));
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(File("locked.db").c_str(), &database), SQLITE_OK);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> closer(database, &sqlite3_close);
  ASSERT_EQ(sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  ExpectFailure(Print("asset-tags", "--sqlite " + File("locked.db") + query), {"locked.db", "locked"});
}

TEST_F(PrintTest, KeepGoingPrintsTheRestAndTellsWhatIsMissing) {
  Write("some.csv", std::string(Header) + "1;Anna;S;C;L\n2;Bert\n3;Clara;S;C;L\n4;Dora;S;C\n5;Emil;S;C;L\n");
  const TOutcome done = Print("address-labels", "--keep-going --csv " + File("some.csv"));
  EXPECT_EQ(done.status, 1);
  for (const char* part :
       {"left out: label 2, record 2", "some.csv:3", "left out: label 4, record 4", "some.csv:5"})
    EXPECT_NE(done.text.find(part), std::string::npos) << done.text;
  const std::string texts = Texts("out.pdf");
  for (const char* name : {"Anna", "Clara", "Emil"}) EXPECT_NE(texts.find(name), std::string::npos) << name;
  for (const char* name : {"Bert", "Dora"}) EXPECT_EQ(texts.find(name), std::string::npos) << name;
}

TEST_F(PrintTest, AFullDiskLeavesNoHalfFile) {
  const TOutcome full = Kaldrix("print " + Example("labels/address-labels.json") + " --csv " +
                                File("good.csv") + " --format pdf -o /dev/full");
  EXPECT_EQ(full.status, 1);
  EXPECT_NE(full.text.find("/dev/full"), std::string::npos) << full.text;
  const std::string limited = "(trap '' XFSZ; ulimit -f 1; " KALDRIX_PROGRAM " print " +
                              Example("labels/address-labels.json") + " --csv " + File("good.csv") + " -o ";
  ExpectFailure(Shell(limited + File("out.pdf") + ")"), {"out.pdf", "Cannot write"});
  ExpectFailure(Shell(limited + File("out.pdf") + " --manifest " + File("ledger") + ")"), {"Cannot write"});
  ExpectFailure(Shell(limited + "- >/dev/full)"), {"standard output"});
  EXPECT_EQ(Addresses("--manifest " + File("ledger") + " --resume").status, 0) << "with room it goes on";
}

// Questions ---------------------------------------------------------------------------------

TEST_F(PrintTest, AllQuestionsWithoutAnswersAreListed) {
  TKDXLabel document;
  document.fData->fLinkData = true;
  document.fData->AddAskVal("Lot");
  document.fData->AddAskVal("Packed");
  document.fData->GetAskField("Packed")->fAskType = atDateTime;
  document.fData->AddAskVal("Unused");
  document.fData->AddListVal("Shift");
  document.NewText(1000, 1000)->SetData(ftNone, "?Lot", "");
  document.NewText(1000, 2000)->SetData(ftNone, "?Packed", "");
  document.NewText(1000, 3000)->SetData(ftNone, "=Shift", "");
  Write("asks.json", document.SaveToBytes(lfJSON));

  const std::string print = "print " + File("asks.json") + " -o " + File("out.pdf");
  const TOutcome none = Kaldrix(print);
  ExpectFailure(none, {"asks.json", "Lot: has no answer", "Packed: has no answer", "Shift: has no answer"});
  EXPECT_EQ(none.text.find("Unused"), std::string::npos);
  const auto answered = [&](const char* answers) {
    return Kaldrix(print + " --answers " + Write("answers.json", answers));
  };
  ExpectFailure(answered(R"({"Lot": "L77", "Packed": "soon", "Shift": "late"})"),
                {"Packed: 'soon' is no date"});
  ExpectFailure(answered("[1]"), {"answers.json", "no JSON object"});
  EXPECT_EQ(answered(R"({"lot": "L77", "Packed": "2026-11-23", "Shift": "late"})").status, 0);
  EXPECT_NE(Texts("out.pdf").find("L77"), std::string::npos);
}

// Ranges and ledgers ---------------------------------------------------------------------------------

TEST_F(PrintTest, PartsPutTogetherAreTheWhole) {
  ASSERT_EQ(Addresses("").status, 0);
  const std::string whole = Texts("out.pdf");
  std::string parts;
  for (const char* range : {"1-24", "25-72", "73-"}) {
    ASSERT_EQ(Addresses(std::string("--labels ") + range).status, 0);
    parts += Texts("out.pdf");
  }
  EXPECT_EQ(parts, whole);
  const std::string pages =
      "print " + Example("labels/address-labels.json") + " --csv " + File("good.csv") + " -o ";
  ASSERT_EQ(Kaldrix(pages + File("whole.svg")).status, 0);
  ASSERT_EQ(Kaldrix(pages + File("part.svg") + " --labels 49-72").status, 0);
  EXPECT_EQ(ReadFile(File("part-0001.svg")), ReadFile(File("whole-0003.svg")));
  EXPECT_TRUE(FileExists(File("whole-0005.svg")) && !FileExists(File("part-0002.svg")));
  ASSERT_EQ(Addresses("--labels 50").status, 0);
  EXPECT_EQ(Texts("out.pdf").find("Name 50"), 0U);
}

TEST_F(PrintTest, TheFirstSheetMayBeUsedAlready) {
  ASSERT_EQ(Addresses("--start-row 8 --start-col 2").status, 0);
  const std::string first = Shell("pdftotext -l 1 " + File("out.pdf") + " -").text;
  EXPECT_NE(first.find("Name 2\n"), std::string::npos);
  EXPECT_EQ(first.find("Name 3\n"), std::string::npos);
  Shell("rm " + File("out.pdf"));
  ExpectFailure(Addresses("--start-row 9"), {"no row 9"});
  ExpectFailure(Addresses("--labels 101-"), {"100 labels, none of them from 101"});
}

TEST_F(PrintTest, ALedgerTellsEveryCell) {
  ASSERT_EQ(Addresses("--start-col 2 --part 2 --manifest " + File("ledger")).status, 0);
  std::istringstream lines(ReadFile(File("ledger")));
  int label = 0, part = 0;
  for (std::string text; std::getline(lines, text);) {
    const auto json = TJsonBaseObject::Parse(text);
    const TJsonObject& line = *json->AsObject();
    if (line.Contains("run")) {
      EXPECT_EQ(line.FindObject("run")->GetInt("labels"), 100);
    } else if (line.Contains("part")) {
      EXPECT_EQ(line.GetInt("part"), ++part);
      EXPECT_EQ(line.GetInt("lastLabel"), label);
    } else {
      const int cell = label++ + 1;  // the first cell of the run is left free
      EXPECT_EQ(line.GetInt("label"), label);
      EXPECT_EQ(line.GetInt("record"), label);
      EXPECT_EQ(line.GetInt("page"), cell / LabelsOfPage + 1);
      EXPECT_EQ(line.GetInt("row"), cell % LabelsOfPage / 3 + 1);
      EXPECT_EQ(line.GetInt("column"), cell % 3 + 1);
      EXPECT_EQ(line.GetString("file"), "out-000" + std::to_string(part + 1) + ".pdf");
    }
  }
  EXPECT_EQ(label, 100);
  EXPECT_EQ(part, 3);
  EXPECT_EQ(Addresses("--start-col 2 --part 2 --manifest " + File("ledger")).status, 1)
      << "it is there already";
}

TEST_F(PrintTest, LabelsAreReprintedFromUnchangedDataOnly) {
  const std::string ledger = " --manifest " + File("ledger");
  const std::string print =
      "print " + Example("labels/asset-tags.json") + " --csv " +
      Write("tags.csv", "name,room,bought,url\nA,1,d,http://a\nB,2,d,http://b\nC,3,d,http://c\n");
  ASSERT_EQ(Kaldrix(print + " -o " + File("run.pdf") + ledger).status, 0);
  ASSERT_EQ(Kaldrix(print + " -o " + File("again.pdf") + ledger + " --reprint 50-52").status, 0);
  const std::string texts = Texts("again.pdf");
  for (const char* tag : {"A-01250", "A-01251", "A-01252"})
    EXPECT_NE(texts.find(tag), std::string::npos) << tag;
  EXPECT_EQ(texts.find("A-01253"), std::string::npos);
  ExpectFailure(Kaldrix(print + " -o " + File("out.pdf") + ledger + " --reprint 500-"), {"500"});
  Write("tags.csv", "name,room,bought,url\nA,1,d,http://a\nB,2,d,http://b\nX,3,d,http://c\n");
  ExpectFailure(Kaldrix(print + " -o " + File("out.pdf") + ledger + " --reprint 50-52"),
                {"ledger", "the data or the answers have changed"});
  ExpectFailure(Kaldrix(print + " -o " + File("run.pdf") + ledger + " --resume"), {"ledger", "another run"});
}

TEST_F(PrintTest, AKilledRunGoesOn) {
  const TOutcome done = Shell(KALDRIX_SOURCE_DIR "/scripts/kill-and-resume 3 " KALDRIX_PROGRAM);
  EXPECT_EQ(done.status, 0) << done.text;
}

TEST_F(PrintTest, WrongUseIsTwo) {
  const std::string ledger = " --manifest " + File("ledger");
  for (const std::string& options : std::initializer_list<std::string>{
           "--json a.json", "--sqlite a.db", "--query 'select 1'", "--labels 5-3", "--labels 0-3",
           "--labels x", "--start-row 0", "--resume", "--reprint 1-2", "--part 3", "--part 0" + ledger,
           "--resume --reprint 1" + ledger, "--labels 1 --reprint 1" + ledger, "--sep .", "--quote x",
           "--format bmp", "--dpi 0", "-o -" + ledger, "--no-such"}) {
    EXPECT_EQ(Kaldrix("print a.json -o out.pdf --csv b.csv " + options).status, 2) << options;
  }
  EXPECT_EQ(Kaldrix("print a.json --csv b.csv").status, 2);
  EXPECT_EQ(Kaldrix("print a.json -o out.txt").status, 2);
}

}  // namespace
}  // namespace Zor
