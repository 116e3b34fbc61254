// The program on machines and in places that are not as they should be.
#include <unistd.h>

#include "apps/Program.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor {
namespace {

TEST_F(ProgramTest, WithoutAnyFontOnlyTextsFail) {
  WriteFileAtomically(File("fonts.conf"), "<?xml version=\"1.0\"?><fontconfig><dir>" + File("none") +
                                              "</dir><cachedir>" + File("cache") +
                                              "</cachedir></fontconfig>");
  const std::string program = "FONTCONFIG_FILE=" + File("fonts.conf") + " " KALDRIX_PROGRAM " ";
  const std::string plan = Example("floor-plan.json"), ean = "barcode ean13 400638133393 --check ";
  for (const std::string& command : {"info " + plan, "check " + plan, "barcode qr text -o " + File("qr.pdf"),
                                     "messages -o " + File("a.lng"), ean + "--no-text -o " + File("bars.svg"),
                                     "diagram --json " + Example("diagrams/flowchart.mmd")}) {
    const TOutcome done = Shell(program + command);
    EXPECT_EQ(done.status, 0) << command << "\n" << done.text;
  }
  const std::string output = File("out");
  for (const char* suffix : {".svg", ".png", ".pdf", ".json"}) {
    for (const std::string& command :
         {"export " + plan, "diagram " + Example("diagrams/flowchart.mmd"), ean + "--module 0.3"}) {
      if (command.starts_with("barcode") && suffix == std::string(".json")) continue;
      const TOutcome done = Shell(program + command + " -o " + output + suffix);
      EXPECT_EQ(done.status, 1) << command;
      EXPECT_NE(done.text.find("There is no font on this machine"), std::string::npos) << done.text;
      EXPECT_FALSE(FileExists(output + suffix)) << command;
    }
  }
}

TEST_F(ProgramTest, ClosedStreamsTakeNothingThatStandsInFiles) {
  const std::string price = Example("price-label.json"), output = File("a.pdf");
  ASSERT_EQ(Kaldrix("export " + price + " -o " + output).status, 0);
  const std::string whole = ReadFile(output);
  for (const char* closed : {" >&-", " 2>&-", " <&-", " <&- >&- 2>&-"}) {
    RemoveFile(output);
    // Standard error is closed in a shell of its own: the test reads this one's.
    EXPECT_EQ(Shell("(" KALDRIX_PROGRAM " export " + price + " -o " + output + closed + ")").status, 0);
    EXPECT_TRUE(ReadFile(output) == whole) << closed;
    EXPECT_EQ(
        Shell("(" KALDRIX_PROGRAM " export " + File("none") + " -o " + File("b.pdf") + closed + ")").status,
        1);
    EXPECT_FALSE(FileExists(File("b.pdf"))) << closed;
  }
  EXPECT_EQ(Shell("(" KALDRIX_PROGRAM " info " + price + " >&-)").status, 1);
  EXPECT_EQ(Kaldrix("info - <&-").text, "kaldrix: Cannot read standard input: Bad file descriptor\n");
}

TEST_F(ProgramTest, OutputThatCannotBeWrittenIsAnError) {
  for (const std::string& command :
       {std::string("--help"), std::string("print --help"), std::string("--version"),
        "info " + Example("price-label.json"), "export --format svg -o - " + Example("price-label.json"),
        "export --format svg -o /dev/stdout " + Example("price-label.json")}) {
    const TOutcome done = Shell("(" KALDRIX_PROGRAM " " + command + " >/dev/full)");
    EXPECT_EQ(done.status, 1) << command;
    EXPECT_NE(done.text.find("No space left on device"), std::string::npos) << command << done.text;
  }
}

TEST_F(ProgramTest, ARedirectedFileIsWrittenWhereItStands) {
  const std::string log = File("log");
  Shell("(echo first; " KALDRIX_PROGRAM " messages -o /dev/stdout; echo last) > " + log);
  const std::string text = ReadFile(log);
  EXPECT_TRUE(text.starts_with("first\n") && text.ends_with("\nlast\n"));
  EXPECT_GT(text.size(), 1000U);
}

TEST_F(ProgramTest, WrongOptionsAreWrongUse) {
  const std::string export_ = "export " + Example("price-label.json") + " -o " + File("x.svg") + " ";
  const std::string diagram = "diagram " + Example("diagrams/flowchart.mmd") + " -o " + File("x.svg") + " ";
  const std::string qr = "barcode qr text -o " + File("x.svg") + " ";
  for (const std::string& command :
       {export_ + "--dpi nan", export_ + "--dpi inf", export_ + "--dpi 0", export_ + "--factor -nan",
        export_ + "--factor inf", export_ + "--page 0", export_ + "--svg-mode factr",
        export_ + "--svg-text x", export_ + "--max-input 0", export_ + "--max-input 99999999T",
        diagram + "--dpi nan", diagram + "--mode drawn", diagram + "--format-in dot", qr + "--module nan",
        qr + "--module 1e999", qr + "--dpi -inf"}) {
    const TOutcome done = Kaldrix(command);
    EXPECT_EQ(done.status, 2) << command << "\n" << done.text;
    EXPECT_FALSE(FileExists(File("x.svg"))) << command;
    EXPECT_EQ(done.text.find('\0'), std::string::npos) << command;
  }
  const std::string print = "print " + Example("labels/address-labels.json") + " -o " + File("x.pdf");
  for (const std::string& command :
       {print + " --csv ''", print + " --json ''", print + " --answers ''", print + " --manifest ''",
        print + " --json a --source ''", std::string("info ''"), std::string("messages -o ''")}) {
    const TOutcome done = Kaldrix(command);
    EXPECT_EQ(done.status, 2) << command << "\n" << done.text;
    EXPECT_NE(done.text.find("is empty"), std::string::npos) << done.text;
  }
  EXPECT_FALSE(FileExists(File("x.pdf")));
  for (const char* command : {"export", "print", "barcode", "diagram", "info", "check", "messages"}) {
    const std::string help = Kaldrix(std::string(command) + " --help").text;
    for (const char c : help) EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= ' ') << command;
  }
  EXPECT_EQ(Kaldrix(export_ + "--svg-mode PX").status, 0);
}

TEST_F(ProgramTest, NamesAreShownSafelyAndWorkWhateverTheirBytes) {
  EXPECT_EQ(Kaldrix("info '" + File("none\x1B[31m\nkaldrix: fine") + "'").text,
            "kaldrix: " + File("none\\x1B[31m\\nkaldrix: fine") + ": there is no such file\n");
  const std::string odd = File("Stra\xDFz");
  CopyFileAtomically(Example("price-label.json"), odd + ".json");
  EXPECT_EQ(Kaldrix("export " + odd + ".json -o " + odd + ".svg").status, 0);
  EXPECT_TRUE(FileExists(odd + ".svg"));
  EXPECT_NE(Kaldrix("info " + odd).text.find("Stra\\xDFz"), std::string::npos);
  ASSERT_EQ(Kaldrix("print " + odd + ".json -o " + odd + ".pdf --manifest " + odd + ".ledger").status, 0);
  const std::string ledger = ReadFile(odd + ".ledger");
  EXPECT_TRUE(Utf8::IsValid(ledger)) << ledger;
  EXPECT_NE(ledger.find("Stra\\\\xDFz-0001.pdf"), std::string::npos) << ledger;
  const TOutcome again =
      Kaldrix("print " + odd + ".json -o " + odd + ".pdf --resume --manifest " + odd + ".ledger");
  EXPECT_EQ(again.status, 0) << again.text;
  const TOutcome over =  // The ledger knows its parts again.
      Kaldrix("print " + odd + ".json -o " + odd + "-0001.pdf --reprint 1 --manifest " + odd + ".ledger");
  EXPECT_EQ(over.status, 1) << over.text;
}

TEST_F(ProgramTest, FilesThatAreMissingAreToldWithTheirNeighbours) {
  CopyFileAtomically(Example("price-label.json"), File("price.json"));
  for (const std::string command :
       {"info ", "check ", "export -o x.svg ", "print -o x.pdf ", "diagram --json ",
        "print -o x.pdf " KALDRIX_SOURCE_DIR "/examples/price-label.json --answers "}) {
    const TOutcome done = Kaldrix(command + File("prize.json"));
    EXPECT_EQ(done.status, 1) << command;
    EXPECT_EQ(done.text,
              "kaldrix: " + File("prize.json") + ": there is no such file; there is 'price.json'\n");
  }
}

TEST_F(ProgramTest, WhatIsReadIsNotWrittenOver) {
  CopyFileAtomically(Example("price-label.json"), File("a.json"));
  CopyFileAtomically(Example("diagrams/flowchart.mmd"), File("a.mmd"));
  Shell("ln " + File("a.json") + " " + File("hard.pdf") + "; ln -s a.mmd " + File("soft.svg"));
  const std::string document = ReadFile(File("a.json")), text = ReadFile(File("a.mmd"));
  for (const std::string& command : {"export " + File("a.json") + " --format svg -o " + File("a.json"),
                                     "export " + File("a.json") + " -o " + File("hard.pdf"),
                                     "diagram " + File("a.mmd") + " -o " + File("soft.svg"),
                                     "diagram " + File("a.mmd") + " --json -o " + File("a.mmd")}) {
    const TOutcome done = Kaldrix(command);
    EXPECT_EQ(done.status, 1) << command;
    EXPECT_NE(done.text.find("which the output would replace"), std::string::npos) << done.text;
  }
  EXPECT_EQ(ReadFile(File("a.json")), document);
  EXPECT_EQ(ReadFile(File("a.mmd")), text);
  EXPECT_EQ(Kaldrix("export " + File("a.json") + " -o " + File("a.json")).status, 0) << "a document, anew";
}

TEST_F(ProgramTest, ThePictureOfTheBackgroundIsFoundKeptAndNotLostInSilence) {
  ASSERT_EQ(Kaldrix("barcode qr x -o " + File("back.png")).status, 0);
  std::string text = ReadFile(Example("price-label.json"));
  const auto put = [&text](const std::string& aOld, const std::string& aNew) {
    ASSERT_NE(text.find(aOld), std::string::npos);
    text.replace(text.find(aOld), aOld.size(), aNew);
  };
  put(R"("Print": false)", R"("Print": true)");
  put(R"("FileNameImg": "")", R"("FileNameImg": "back.png")");
  put(R"("Style": 0)", R"("Style": 1)");
  WriteFileAtomically(File("a.json"), text);
  const std::string print = "print " + File("a.json") + " -o ";
  EXPECT_EQ(Kaldrix(print + File("a.pdf")).status, 0);
  EXPECT_NE(Shell("pdfimages -list " + File("a.pdf")).text.find("image"), std::string::npos);
  const TOutcome over = Kaldrix(print + File("back.png") + " --format pdf");
  EXPECT_NE(over.text.find("this is the picture of the background"), std::string::npos) << over.text;
  RemoveFile(File("back.png"));
  const TOutcome lost = Kaldrix(print + File("b.pdf"));
  EXPECT_EQ(lost.status, 1);
  EXPECT_NE(lost.text.find("back.png"), std::string::npos) << lost.text;
  ASSERT_EQ(Kaldrix("export " + File("a.json") + " -o " + File("b.json")).status, 0);
  EXPECT_NE(ReadFile(File("b.json")).find("back.png"), std::string::npos) << "the name stays";
}

TEST_F(ProgramTest, InputHasALimit) {
  const TOutcome device = Kaldrix("info /dev/zero"), pipe = Kaldrix("info - < /dev/zero");
  EXPECT_EQ(device.text, "kaldrix: Cannot read /dev/zero: this is a device, and no file\n");
  EXPECT_EQ(pipe.text, "kaldrix: Cannot read standard input: this is a device, and no file\n");
  ASSERT_EQ(::truncate((WriteFileAtomically(File("big"), ""), File("big").c_str()), off_t{3} << 30), 0);
  const TOutcome big = Kaldrix("diagram " + File("big") + " --json");
  EXPECT_EQ(big.status, 1);
  EXPECT_NE(big.text.find("larger than 2147483648 bytes"), std::string::npos) << big.text;
  EXPECT_EQ(Kaldrix("--max-input 1K info " + Example("floor-plan.json")).status, 1);
  EXPECT_EQ(Kaldrix("info --max-input 1M " + Example("floor-plan.json")).status, 0);
}

TEST_F(ProgramTest, AStrictModelOfNothingTellsWhy) {
  for (const std::string& form : {"--json -o " + File("a.json"), "-o " + File("a.json")}) {
    const TOutcome done = Kaldrix("diagram /dev/null --strict " + form);
    EXPECT_EQ(done.status, 1) << form;
    EXPECT_NE(done.text.find("/dev/null: DIAGRAM_EMPTY_RESULT"), std::string::npos) << done.text;
    EXPECT_FALSE(FileExists(File("a.json"))) << form;
  }
}

TEST_F(ProgramTest, EveryCodeOfADiagramGivesTheSameDrawing) {
  const std::string text = "pie title Übung\n\"A\" : 3\n\"B\" : 4\n";
  WriteFileAtomically(File("plain.txt"), text);
  WriteFileAtomically(File("marked.txt"), "\xEF\xBB\xBF" + text);
  Shell("iconv -t UTF-16 " + File("plain.txt") + " > " + File("wide.txt"));
  Shell("iconv -t CP1252 " + File("plain.txt") + " > " + File("ansi.txt"));
  const std::string expected = Kaldrix("diagram --json " + File("plain.txt")).text;
  EXPECT_NE(expected.find("Übung"), std::string::npos) << expected;
  for (const char* name : {"marked.txt", "wide.txt", "ansi.txt"})
    EXPECT_EQ(Kaldrix("diagram --json " + File(name)).text, expected) << name;
}

}  // namespace
}  // namespace Zor
