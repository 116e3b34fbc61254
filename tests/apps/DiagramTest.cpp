// `kaldrix diagram` as a person runs it.
#include "apps/Program.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

using DiagramProgram = ProgramTest;

TEST_F(DiagramProgram, WritesEveryFormAndExitsWith0) {
  const std::string input = Example("diagrams/flowchart.mmd");
  const std::pair<const char*, const char*> forms[] = {
      {"svg", "<svg"}, {"png", "\x89PNG"}, {"pdf", "%PDF"}, {"json", "{"}, {"bin", "KALDRIX"}};
  for (const auto& [suffix, begin] : forms) {
    const std::string output = File(std::string("drawing.") + suffix);
    const TOutcome outcome = Kaldrix("diagram '" + input + "' -o '" + output + "'");
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_EQ(outcome.text, "");
    EXPECT_TRUE(ReadFile(output).starts_with(begin)) << suffix;
  }
  EXPECT_EQ(Kaldrix("check '" + File("drawing.json") + "'").status, 0);
  Kaldrix("export '" + File("drawing.bin") + "' -o '" + File("again.svg") + "'");
  EXPECT_EQ(ReadFile(File("again.svg")), ReadFile(File("drawing.svg")));
}

TEST_F(DiagramProgram, DrawsForEveryModeOnOnePage) {
  for (const char* mode : {"labelling", "flowchart", "drawing", "interactive"}) {
    const std::string output = "'" + File("drawing.json") + "'";
    EXPECT_EQ(Kaldrix("diagram '" + Example("diagrams/er.mmd") + "' -o " + output + " --mode " + mode).status,
              0);
    const std::string info = Kaldrix("info " + output).text;
    EXPECT_NE(info.find(std::string(": ") + mode + ","), std::string::npos) << info;
    EXPECT_NE(info.find("1 rows x 1 columns"), std::string::npos) << info;
    EXPECT_EQ(Kaldrix("check " + output).status, 0);
  }
}

TEST_F(DiagramProgram, TellsDiagnosticsWithFileAndLine) {
  const std::string file = File("style.mmd"), output = File("style.svg");
  // The lines of both kinds of files count alike.
  for (const char* end : {"\n", "\r\n"}) {
    const std::string text = std::string("flowchart TD") + end + "a --> b" + end + "style a fill:#f9f" + end;
    WriteFileAtomically(file, text);
    const std::string line =
        file + ":3: MERMAID_UNSUPPORTED_STATEMENT: The statement is recognized but is not rendered.\n";
    TOutcome outcome = Kaldrix("diagram '" + file + "' -o '" + output + "'");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.text, line);
    EXPECT_TRUE(FileExists(output));
    RemoveFile(output);
    outcome = Kaldrix("diagram --strict '" + file + "' -o '" + output + "'");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.text, line);
    EXPECT_FALSE(FileExists(output));
  }
}

TEST_F(DiagramProgram, TellsThatItDrawsNeitherUpwardsNorFromTheRight) {
  const std::string file = File("turned.mmd"), draw = "diagram " + file + " -o " + File("turned.svg");
  const auto told = [&](const std::string& text) {
    WriteFileAtomically(file, text);
    return Kaldrix(draw).text;
  };
  const std::string code = ": MERMAID_DIRECTION_TURNED: Drawn from ";
  EXPECT_EQ(told("%% x\nflowchart BT\na --> b\n"),
            file + ":2" + code + "the top down, not in the direction BT.\n");
  EXPECT_EQ(told("graph rl\na --> b\n"), file + ":1" + code + "left to right, not in the direction rl.\n");
  EXPECT_EQ(told("stateDiagram-v2\ndirection RL\na --> b\n"),
            file + ":2" + code + "the top down, not in the direction RL.\n");
  EXPECT_EQ(Kaldrix(draw + " --strict").status, 1);
  EXPECT_EQ(told("flowchart LR\na --> b\n"), "");
  EXPECT_EQ(told("flowchart TB\nsubgraph s\ndirection BT\nend\na --> b\n").find("TURNED"), std::string::npos)
      << "what is no statement is told as that";
}

TEST_F(DiagramProgram, TellsTheModelAsJson) {
  const std::string file = File("model.txt");
  WriteFileAtomically(file, "@startuml\nA -> B : hello\n@enduml\n");
  const TOutcome outcome = Kaldrix("diagram '" + file + "' --json");
  EXPECT_EQ(outcome.status, 0);
  for (const char* part :
       {"\"kind\": \"sequence\"", "\"participants\"", "\"events\"", "\"diagnostics\"", "\"hello\""}) {
    EXPECT_NE(outcome.text.find(part), std::string::npos) << part << " in " << outcome.text;
  }
  EXPECT_EQ(Kaldrix("diagram '" + file + "' --json -o '" + File("model.json") + "'").text, "");
  EXPECT_EQ(ReadFile(File("model.json")), outcome.text);
}

TEST_F(DiagramProgram, RefusesWhatIsNoDiagramAndWritesNothing) {
  const std::string output = File("none.svg");
  const std::string bad[] = {"", "flowchart TD\n", std::string(1 << 20, '['), "mindmap\n",
                             "@startuml\n@enduml\n"};
  for (const std::string& text : bad) {
    WriteFileAtomically(File("bad.mmd"), text);
    const TOutcome outcome = Kaldrix("diagram '" + File("bad.mmd") + "' -o '" + output + "'");
    EXPECT_EQ(outcome.status, 1) << text.substr(0, 30);
    EXPECT_NE(outcome.text.find("bad.mmd: DIAGRAM_EMPTY_RESULT: "), std::string::npos)
        << outcome.text.substr(0, 300);
    EXPECT_FALSE(FileExists(output));
  }
  WriteFileAtomically(File("binary.mmd"), std::string("a\0b", 3));
  const TOutcome binary = Kaldrix("diagram '" + File("binary.mmd") + "' -o '" + output + "'");
  EXPECT_EQ(binary.status, 1);
  EXPECT_NE(binary.text.find("binary.mmd: the file is no text"), std::string::npos) << binary.text;
  const TOutcome missing = Kaldrix("diagram '" + File("missing.mmd") + "' -o '" + output + "'");
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.text.find("missing.mmd"), std::string::npos);
  EXPECT_EQ(Kaldrix("diagram '" + File("bad.mmd") + "'").status, 2);
  EXPECT_EQ(Kaldrix("diagram '" + File("bad.mmd") + "' -o x.svg --format-in dot").status, 2);
}

TEST_F(DiagramProgram, ReadsStandardInputInTheLanguageThatIsTold) {
  const TOutcome outcome =
      Shell("printf 'A -> B : hi' | " KALDRIX_PROGRAM " diagram - --format-in plantuml -o - --format svg");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.text.find(">hi</text>"), std::string::npos);
}

}  // namespace
}  // namespace Zor
