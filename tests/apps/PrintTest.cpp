// Label runs as a person starts them: what bad sources are answered with.
#include <sqlite3.h>
#include <sys/resource.h>

#include <filesystem>
#include <memory>

#include "apps/Program.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

constexpr const char* Header = "Number;Name;Street;City;Country\n";

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
      {R"({"a": [{"Product": "x", "Ean": "401234510000", "Copies": 1, "Size": "",
                  "Price": 1, "PerKilo": 1},
                 {"Product": "y", "Ean": "4012345X0037", "Copies": 1}]})",
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
  ExpectFailure(answered("[1]"), {"answers.json: the answers are no JSON object"});
  ExpectFailure(answered("{\"Lot\": \"L77\""), {"answers.json: "});
  ExpectFailure(
      answered(R"({"Lott": "L77", "lot": "L", "LOT": "L", "Unused": 1, "Packed": {}})"),
      {"answers.json: Questions of this print:", "Lott: there is no such question or list; there are 'Lot'",
       "LOT: is answered twice", "Unused: no printed item asks for it", "Packed: the answer is no text",
       "Shift: has no answer"});
  ExpectFailure(answered(R"({"Lot": "a\ud83d", "Packed": "2026-11-23", "Shift": "late"})"),
                {"Lot: a character of the value could not be read"});
  EXPECT_EQ(answered(R"({"lot": "L77", "Packed": "2026-11-23", "Shift": "late"})").status, 0);
  EXPECT_NE(Texts("out.pdf").find("L77"), std::string::npos);
}

// Ranges ---------------------------------------------------------------------------------

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

TEST_F(PrintTest, ListsOfLabelsArePrintedInTheOrderOfTheRun) {
  const TOutcome done = Addresses("--labels 99-120,5-20,3,15-30 --manifest " + File("ledger"));
  EXPECT_EQ(done.status, 0);
  EXPECT_NE(done.text.find("the run ends with label 100"), std::string::npos) << done.text;
  std::string labels = "3\n";
  for (int label = 5; label <= 30; ++label) labels += std::to_string(label) + "\n";
  EXPECT_EQ(Shell("grep -o '\"label\":[0-9]*' " + File("ledger") + " | cut -d: -f2").text,
            labels + "99\n100\n");
  const std::string second = Shell("pdftotext -f 2 " + File("out-0001.pdf") + " -").text;
  for (const char* name : {"Name 28\n", "Name 29\n", "Name 30\n", "Name 99\n", "Name 100\n"})
    EXPECT_NE(second.find(name), std::string::npos) << name;
  for (const char* name : {"Name 27\n", "Name 31\n"}) EXPECT_EQ(second.find(name), std::string::npos) << name;
  Shell("rm " + File("out-0001.pdf"));
  ExpectFailure(Addresses("--labels 3,101-"), {"no label 101"});
}

TEST_F(PrintTest, ADryRunTellsAndWritesNothing) {
  const std::string print = "print " + Example("labels/asset-tags.json") + " --csv " +
                            Write("tags.csv", "name,room,bought,url\nA,1,d,http://a\nB,2,d,http://b\n");
  const TOutcome done = Kaldrix(print + " --dry-run --labels 90-,2");
  EXPECT_EQ(done.status, 0);
  for (const char* part : {"labels: 8 of 96: 2,90-96", "pages: 1",
                           "first label 2: page 1, row 1, column 1, record 2, Tag 'A-01202'",
                           "last label 96: page 1, row 3, column 2, record 2, Tag 'A-01296'",
                           "the records end at label 2: labels 90 to 96 show the last record again"})
    EXPECT_NE(done.text.find(part), std::string::npos) << part << " in " << done.text;
  const TOutcome named =
      Kaldrix(print + " --dry-run --part 1 -o " + File("out.pdf") + " --manifest " + File("out.ledger"));
  EXPECT_NE(named.text.find("files: 4: " + File("out-0001.pdf")), std::string::npos) << named.text;
  Write("tags.csv", "name,room,bought,url\nA,1,d,http://a\nB,2,d\n");
  ExpectFailure(Kaldrix(print + " --dry-run -o " + File("out.pdf")), {"label 2, record 2", "tags.csv:3"});
}

TEST_F(PrintTest, ACounterAtItsEndIsNotRepeatedSilently) {
  std::string lines = "name,room,bought,url\n";
  for (int i = 0; i < 98; ++i) lines += "A,1,d,http://a\n";
  const std::string tags = "--csv " + Write("tags.csv", lines) + " ";
  ExpectFailure(
      Print("asset-tags", tags),
      {"counter 'Tag' ends at label 96: labels 97 to 98 would show 'A-01296' again", "--counter-repeat"});
  EXPECT_EQ(Print("asset-tags", tags + "--labels 1-96").status, 0);
  const TOutcome allowed = Print("asset-tags", tags + "--counter-repeat");
  EXPECT_EQ(allowed.status, 0);
  EXPECT_NE(allowed.text.find("labels 97 to 98"), std::string::npos) << allowed.text;

  std::string steps = ReadFile(Example("labels/asset-tags.json"));
  steps.replace(steps.find("\"Step\": 1"), 9, "\"Step\": 5");
  Write("tags.csv", "name,room,bought,url\nA,1,d,http://a\n");
  const TOutcome uneven =
      Kaldrix("print --dry-run --csv " + File("tags.csv") + " " + Write("steps.json", steps));
  EXPECT_EQ(uneven.status, 0);
  EXPECT_NE(uneven.text.find("the run ends at label 19: no label comes to 'A-01296'"), std::string::npos)
      << uneven.text;
}

TEST_F(PrintTest, DataThatDoNotCountAreTold) {
  TKDXLabel document;
  document.fData->fLinkData = true;
  auto* counter = new TKDXCounter(&document);
  counter->fName = "Tag";
  counter->SetNumFrom(9);
  counter->fNumTo = 3;
  document.NewText(1000, 1000)->SetData(ftNone, "@Tag", "");
  Write("a.json", document.SaveToBytes(lfJSON));
  const std::string print = "print " + File("a.json") + " -o " + File("out.pdf");
  EXPECT_NE(Kaldrix(print).text.find("counter 'Tag' begins at 9, behind its end 3"), std::string::npos);
  document.fData->fLinkData = false;
  Write("a.json", document.SaveToBytes(lfJSON));
  const TOutcome off = Kaldrix(print);
  EXPECT_EQ(off.status, 0);
  EXPECT_NE(off.text.find("items that show the texts of the design: 1\n"), std::string::npos) << off.text;
}

TEST_F(PrintTest, TheFirstSheetMayBeUsedAlready) {
  ASSERT_EQ(Addresses("--start-row 8 --start-col 2").status, 0);
  const std::string first = Shell("pdftotext -l 1 " + File("out.pdf") + " -").text;
  EXPECT_NE(first.find("Name 2\n"), std::string::npos);
  EXPECT_EQ(first.find("Name 3\n"), std::string::npos);
  Shell("rm " + File("out.pdf"));
  ExpectFailure(Addresses("--start-row 9"), {"no row 9"});
  ExpectFailure(Addresses("--labels 101-"), {"100 labels", "no label 101"});
}

TEST_F(PrintTest, WrongUseIsTwo) {
  const std::string ledger = " --manifest " + File("ledger");
  for (const std::string& options : std::initializer_list<std::string>{"--json a.json",
                                                                       "--sqlite a.db",
                                                                       "--query 'select 1'",
                                                                       "--labels 5-3",
                                                                       "--labels 0-3",
                                                                       "--labels x",
                                                                       "--start-row 0",
                                                                       "--resume",
                                                                       "--reprint 1-2",
                                                                       "--part 3",
                                                                       "--labels 1,,3",
                                                                       "--labels 1,",
                                                                       "--dry-run --resume" + ledger,
                                                                       "--part 0" + ledger,
                                                                       "--resume --reprint 1" + ledger,
                                                                       "--labels 1 --reprint 1" + ledger,
                                                                       "--sep .",
                                                                       "--quote x",
                                                                       "--format bmp",
                                                                       "--dpi 0",
                                                                       "-o -" + ledger,
                                                                       "--no-such"}) {
    EXPECT_EQ(Kaldrix("print a.json -o out.pdf --csv b.csv " + options).status, 2) << options;
  }
  EXPECT_EQ(Kaldrix("print a.json --csv b.csv").status, 2);
  EXPECT_EQ(Kaldrix("print - -o out.pdf --answers -").status, 2);
  EXPECT_EQ(Kaldrix("print a.json -o out.txt").status, 2);
}

}  // namespace
}  // namespace Zor
