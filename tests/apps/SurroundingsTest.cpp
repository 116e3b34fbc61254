// The program on machines and in places that are not as they should be.
#include "apps/Program.hpp"
#include "kaldrix/platform/Files.hpp"

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

}  // namespace
}  // namespace Zor
