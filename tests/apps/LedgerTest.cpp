// What a label run with a ledger keeps, refuses and tells, from one session to the next.
#include <csignal>
#include <filesystem>
#include <sstream>

#include "apps/Program.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

std::string Replaced(std::string aText, const std::string& aFrom, const std::string& aTo) {
  const std::size_t at = aText.find(aFrom);
  EXPECT_NE(at, std::string::npos) << aFrom;
  return aText.replace(std::min(at, aText.size()), aFrom.size(), aTo);
}

/// Twelve tags, two to a page, with the numbers A-00001 to A-00012 and the names Thing-1 to Thing-12.
class LedgerTest : public ProgramTest {
 protected:
  static constexpr int Records = 12;

  LedgerTest() {
    std::string tags = ReadFile(Example("labels/asset-tags.json"));
    tags = Replaced(Replaced(tags, "\"Rows\": 9", "\"Rows\": 1"), "\"Columns\": 3", "\"Columns\": 2");
    tags = Replaced(Replaced(tags, ": 1201", ": 1"), ": 1296", ": " + std::to_string(Records));
    Write("tags.json", tags);
    std::string lines = "name,room,bought,url\n";
    for (int i = 1; i <= Records; ++i)
      lines += "Thing-" + std::to_string(i) + ",R1,2026,https://example.org/" + std::to_string(i) + "\n";
    Write("tags.csv", lines);
  }
  std::string Write(const std::string& aName, const std::string& aBytes) const {
    WriteFileAtomically(File(aName), aBytes);
    return File(aName);
  }
  /// Prints into a file of the folder.
  TOutcome Print(const std::string& aOutput, const std::string& aOptions = "") const {
    return Kaldrix("print " + File("tags.json") + " --csv " + File("tags.csv") + " -o " + File(aOutput) +
                   " " + aOptions);
  }
  /// Writes parts of two pages, and a ledger.
  TOutcome Session(const std::string& aOptions = "") const {
    return Print("tags.pdf", "--manifest " + File("ledger") + " " + aOptions);
  }
  TOutcome Resume(const std::string& aOptions = "") const { return Session("--resume " + aOptions); }
  std::string Texts(const std::string& aFile) const { return Shell("pdftotext " + File(aFile) + " -").text; }
  bool Has(const std::string& aName) const { return FileExists(File(aName)); }
  /// Cuts the ledger, so that only that many parts are finished, and takes the files of the others away.
  void KeepParts(int aParts) const {
    std::istringstream lines(ReadFile(File("ledger")));
    std::string kept;
    for (std::string line; aParts > 0 && std::getline(lines, line);) {
      kept += line + "\n";
      if (line.starts_with("{\"part\"")) --aParts;
    }
    Write("ledger", kept);
  }
  void ExpectFailure(const TOutcome& aDone, const std::vector<std::string>& aParts) const {
    EXPECT_EQ(aDone.status, 1) << aDone.text;
    for (const std::string& part : aParts)
      EXPECT_NE(aDone.text.find(part), std::string::npos) << "no " << part << " in: " << aDone.text;
  }
  void ExpectTold(const TOutcome& aDone, const std::string& aPart) const {
    EXPECT_EQ(aDone.status, 0) << aDone.text;
    EXPECT_NE(aDone.text.find(aPart), std::string::npos) << aDone.text;
  }
};

TEST_F(LedgerTest, ItTellsEveryCell) {
  ASSERT_EQ(Session("--start-col 2 --part 2").status, 0);
  std::istringstream lines(ReadFile(File("ledger")));
  int label = 0, part = 0;
  for (std::string text; std::getline(lines, text);) {
    const auto json = TJsonBaseObject::Parse(text);
    const TJsonObject& line = *json->AsObject();
    if (line.Contains("run")) {
      EXPECT_EQ(line.FindObject("run")->GetInt("labels"), Records);
    } else if (line.Contains("part")) {
      EXPECT_EQ(line.GetInt("part"), ++part);
      EXPECT_EQ(line.GetInt("lastLabel"), label);
    } else {
      const int cell = label++ + 1;  // the first cell of the run is left free
      EXPECT_EQ(line.GetInt("label"), label);
      EXPECT_EQ(line.GetInt("record"), label);
      EXPECT_EQ(line.GetInt("page"), cell / 2 + 1);
      EXPECT_EQ(line.GetInt("row"), 1);
      EXPECT_EQ(line.GetInt("column"), cell % 2 + 1);
      EXPECT_EQ(line.GetString("file"), "tags-000" + std::to_string(part + 1) + ".pdf");
    }
  }
  EXPECT_EQ(label, Records);
  EXPECT_EQ(part, 4);
  ExpectFailure(Session("--start-col 2 --part 2"), {"ledger: there is a ledger already"});
}

TEST_F(LedgerTest, LabelsAreReprintedAsTheyWere) {
  const std::string ledger = " --manifest " + File("ledger");
  ASSERT_EQ(Session().status, 0);
  ASSERT_EQ(Print("again.pdf", "--reprint 11-,3" + ledger).status, 0);
  const std::string texts = Texts("again.pdf");
  for (const char* tag : {"A-00003", "A-00011", "A-00012"})
    EXPECT_NE(texts.find(tag), std::string::npos) << tag;
  EXPECT_EQ(texts.find("A-00004"), std::string::npos);
  ExpectFailure(Print("out.pdf", "--reprint 500-" + ledger), {"there is no label 500"});
  EXPECT_FALSE(Has("out.pdf"));
}

TEST_F(LedgerTest, AKilledRunGoesOn) {
  const TOutcome done = Shell(KALDRIX_SOURCE_DIR "/scripts/kill-and-resume 3 " KALDRIX_PROGRAM);
  EXPECT_EQ(done.status, 0) << done.text;
}
TEST_F(LedgerTest, ARunGoesOnOnlyFromTheSameDocumentDataAndAnswers) {
  ASSERT_EQ(Session("--part 2").status, 0);
  KeepParts(2);
  const std::string tags = ReadFile(File("tags.json")), lines = ReadFile(File("tags.csv"));
  Write("tags.json", Replaced(tags, "\"A-\"", "\"B-\""));
  ExpectFailure(Resume(), {"ledger: this ledger tells of another run: the document"});
  ExpectFailure(Print("again.pdf", "--reprint 1 --manifest " + File("ledger")), {"ledger: ", "the document"});
  Write("tags.json", tags);
  Write("tags.csv", Replaced(lines, "Thing-3", "Ding-3"));
  ExpectFailure(Resume(), {"another run: the data or the answers"});
  Write("tags.csv", lines);
  ExpectFailure(Resume("--counter-repeat --repeat bought"), {"another run"});
  ExpectFailure(Resume("--part 3"), {"pages to a part: 3, there 2"});
  ExpectFailure(Resume("--labels 1-4,6-12"), {"the labels that are printed"});
  ExpectFailure(Resume("--format png"), {"the form"});
  EXPECT_EQ(Resume().status, 0) << "the ledger knows how many pages make a part";
  EXPECT_TRUE(Has("tags-0003.pdf") && !Has("tags-0004.pdf"));
  EXPECT_NE(Texts("tags-0003.pdf").find("A-00012"), std::string::npos);
  ExpectTold(Resume(), "ledger: this run is finished; parts: 3");
}

TEST_F(LedgerTest, ALedgerOfAnOlderVersionIsTakenAndTold) {
  ASSERT_EQ(Session("--part 2").status, 0);
  const std::string ledger = ReadFile(File("ledger"));
  const std::size_t sum = ledger.find(",\"document\""), form = ledger.find(",\"form\"");
  Write("ledger", ledger.substr(0, form) + ledger.substr(form + 13, sum - form - 13) +
                      ledger.substr(ledger.find("}}")));
  KeepParts(1);
  ExpectTold(Resume(), "an older version wrote this ledger");
  EXPECT_TRUE(Has("tags-0003.pdf"));
}

TEST_F(LedgerTest, MissingFilesOfFinishedPartsAreWrittenAgain) {
  ASSERT_EQ(Session("--part 2").status, 0);
  const std::string second = ReadFile(File("tags-0002.pdf"));
  KeepParts(2);
  RemoveFile(File("tags-0003.pdf"));
  WriteFileAtomically(File("tags-0002.pdf"), "");
  ExpectTold(Resume(), "tags-0002.pdf: this file of a finished part was missing");
  EXPECT_EQ(ReadFile(File("tags-0002.pdf")), second);
  EXPECT_NE(Texts("tags-0003.pdf").find("A-00012"), std::string::npos);

  const std::string pages = "--part 4 --manifest " + File("pages");
  ASSERT_EQ(Print("page.svg", pages).status, 0);
  const std::string third = ReadFile(File("page-0003.svg"));
  RemoveFile(File("page-0003.svg"));
  const TOutcome again = Print("page.svg", "--resume " + pages);
  ExpectTold(again, "page-0003.svg: this file");
  EXPECT_EQ(again.text.find("page-0002"), std::string::npos) << again.text;
  EXPECT_EQ(ReadFile(File("page-0003.svg")), third);
}

TEST_F(LedgerTest, WhatTheRunIsMadeFromAndMadeIsNotOverwritten) {
  const std::string manifest = "--manifest " + File("ledger") + " ";
  ASSERT_EQ(Session("--part 2").status, 0);
  std::filesystem::create_symlink("tags-0002.pdf", File("link.pdf"));
  std::filesystem::create_hard_link(File("tags.csv"), File("hard.pdf"));
  std::filesystem::create_symlink("tags.json", File("soft.pdf"));
  const std::string lines = ReadFile(File("tags.csv"));
  ExpectFailure(Print("tags-0001.pdf", manifest + "--reprint 1"),
                {"tags-0001.pdf: this is a part of the run"});
  ExpectFailure(Print("link.pdf", manifest + "--reprint 1"), {"link.pdf: this is a part of the run"});
  ExpectFailure(Print("hard.pdf"), {"hard.pdf: this is the file of the records"});
  ExpectFailure(Print("soft.pdf"), {"soft.pdf: this is the document"});
  ExpectFailure(Print("./tags.json", "--format pdf"), {"this is the document"});
  ExpectFailure(Print("new.svg", "--manifest " + File("new-0003.svg")), {"new-0003.svg: this is the ledger"});
  ExpectFailure(Print("new.pdf", "--resume --manifest " + File("tags.csv")),
                {"tags.csv: this is the file of"});
  Write("notes", "what to print tomorrow");
  for (const char* resume : {"", " --resume"})
    ExpectFailure(Print("new.pdf", "--manifest " + File("notes") + resume),
                  {"notes: line 1: this is no ledger"});
  EXPECT_EQ(ReadFile(File("notes")), "what to print tomorrow");
  EXPECT_EQ(ReadFile(File("tags.csv")), lines);
  EXPECT_EQ(Print("again.pdf", manifest + "--reprint 3,1").status, 0);
  EXPECT_FALSE(Has("new-0001.svg") || Has("new-0001.pdf") || Has("new-0003.svg"));
}

TEST_F(LedgerTest, AFailureLeavesNothingThatBlocksTheCorrectedCommand) {
  const std::string lines = ReadFile(File("tags.csv"));
  const std::string bad = Replaced(lines, "Thing-2,", "Thing-2,,"),
                    late = Replaced(lines, "Thing-8,", "Thing-8,,");
  Write("tags.csv", bad);
  ExpectFailure(Session(), {"record 2"});
  EXPECT_FALSE(Has("ledger") || Has("tags-0001.pdf"));
  Write("ledger", "{\"run\":{\"labels\":7");  // what a kill may leave
  Write("tags.csv", lines);
  EXPECT_EQ(Session("--part 2").status, 0);

  Write("tags.csv", late);
  ExpectFailure(Print("pages.svg"), {"record 8"});
  EXPECT_FALSE(Has("pages-0001.svg")) << "without a ledger nothing of a run stays";
  ExpectFailure(Print("pages.svg", "--part 3 --manifest " + File("pages")), {"record 8", "--resume goes on"});
  EXPECT_TRUE(Has("pages-0003.svg") && !Has("pages-0004.svg"));
}

TEST_F(LedgerTest, ALedgerThatCannotBeReadIsNotMissing) {
  std::filesystem::create_symlink("loop", File("loop"));
  std::filesystem::create_directory(File("folder"));
  for (const char* options : {" --resume", " --reprint 1", ""}) {
    ExpectFailure(Print("out.pdf", "--manifest " + File("loop") + options), {"loop: Too many levels"});
    ExpectFailure(Print("out.pdf", "--manifest " + File("folder") + options), {"folder: Is a directory"});
  }
  ExpectFailure(Print("out.pdf", "--reprint 1 --manifest " + File("none")), {"File not found: ", "none"});
}

TEST_F(LedgerTest, OneSessionAtATime) {
  ASSERT_EQ(Session("--part 2").status, 0);
  KeepParts(1);
  const std::string command = KALDRIX_PROGRAM " print " + File("tags.json") + " --csv " + File("tags.csv") +
                              " -o " + File("tags.pdf") + " --resume --manifest " + File("ledger");
  ExpectFailure(Shell("flock " + File("ledger") + " " + command), {"ledger: another session is writing"});
  EXPECT_EQ(Shell("flock " + File("ledger") + " true; " + command).status, 0);
}

TEST_F(LedgerTest, SignalsLeaveNoTemporaryFile) {
  std::string lines = "name,room,bought,url\n";
  for (int i = 0; i < 100'000; ++i) lines += "Thing,R1,2026,https://example.org\n";
  Write("tags.csv", lines);
  const std::string script =
      Write("end-it", "set -m\n" KALDRIX_PROGRAM " print " + File("tags.json") + " --counter-repeat --csv " +
                          File("tags.csv") + " -o " + File("out.pdf") + " & id=$!\n" + "until [ \"$(find " +
                          fFolder +
                          " -name '*.tmp')\" ]; do kill -0 $id || exit 1; sleep 0.01; done\n"
                          "kill -$1 $id\nwait $id\necho status $?\n");
  const std::pair<const char*, int> signals[] = {{"TERM", SIGTERM}, {"INT", SIGINT}, {"HUP", SIGHUP}};
  for (const auto& [word, number] : signals) {
    const TOutcome done = Shell("bash " + script + " " + word);
    EXPECT_NE(done.text.find("status " + std::to_string(128 + number)), std::string::npos) << done.text;
    EXPECT_EQ(Shell("find " + fFolder + " -name 'out*'").text, "") << word;
  }
}

}  // namespace
}  // namespace Zor
