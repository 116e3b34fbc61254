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
  for (const char* command : {"export", "print", "barcode", "diagram", "info", "check", "messages"}) {
    const std::string help = Kaldrix(std::string(command) + " --help").text;
    for (const char c : help) EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= ' ') << command;
  }
  EXPECT_EQ(Kaldrix(export_ + "--svg-mode PX").status, 0);
}

TEST_F(ProgramTest, NamesAreShownSafelyAndWorkWhateverTheirBytes) {
  EXPECT_EQ(Kaldrix("info 'none\x1B[31m\nkaldrix: fine'").text,
            "kaldrix: File not found: none\\x1B[31m\\nkaldrix: fine\n");
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
