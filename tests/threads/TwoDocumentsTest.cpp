// Documents that live on threads of their own share nothing but what is made for it.
#include <gtest/gtest.h>

#include <thread>

#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/host/Export.hpp"
#include "kaldrix/host/diagrams/DiagramLoader.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TTestFile.hpp"

namespace Zor {
namespace {

constexpr int Rounds = 6;

/// What one thread does with a document of its own. Gives all that came out.
std::string Work(const std::string& aFile) {
  TKDXLabel label;
  label.fMeasure->SetLabelSizeMM(80, 60);
  label.NewRectangle(1000, 1000, 78000, 58000)->SetRadio(3);
  label.NewText(5000, 8000)->SetText("Straße — קיום");
  label.NewQRCode(5000, 20000, "https://example.org");
  label.NewDataMatrix(25000, 20000, "4711");
  label.NewPDF417(40000, 20000, "a text with some words");
  label.NewBarcode(5000, 45000, "4006381333931", btEAN13);
  std::string all;
  for (const TZORExt format : {lfJSON, lfBin}) {
    label.BeginUpdate(true);
    label.NewLine(0, 0, 9000, 9000)->SetColor(0xFF1E88E5);
    label.EndUpdate();
    label.Undo();
    label.Redo();
    label.SaveToFile(aFile, format);
    label.LoadFromFile(aFile);
    all += ExportSvg(label, {}) + ExportPdf(label, {}) + ExportPng(label, {});
  }
  EXPECT_THROW(label.LoadFromFile(aFile + ".missing"), EFileNotFoundException);

  label.fData->SetJson(R"({"rows": [{"n": "A"}, {"n": "B"}]})");
  label.fData->Select(dtyJson);
  label.NewText(5000, 15000)->SetData(ftNone, "{n", "");
  label.CheckPrintData();
  TExportOptions sheet;
  sheet.page = 1;
  all += ExportPdf(label, sheet);

  LoadDiagram(label, "flowchart TD\n  A[Start] -->|yes| B{Choice}\n  B --> C((End))\n", dgMermaid);
  LoadDiagram(label, "@startuml\nAlice -> Bob : hello\n@enduml\n", dgPlantUML);
  return all + label.SaveToBytes(lfJSON) + ExportSvg(label, {});
}

/// Run under ThreadSanitizer this finds what the two share; everywhere it finds what one does to the other.
TEST(Threads, TwoDocumentsWorkSideBySide) {
  const TTestFile alone("");
  const std::string expected = Work(alone.Name());
  ASSERT_GT(expected.size(), 10000U);
  const auto work = [&expected] {
    const TTestFile file("");
    for (int round = 0; round < Rounds; ++round) EXPECT_TRUE(Work(file.Name()) == expected) << round;
  };
  std::thread other(work);
  work();
  other.join();
}

/// The catalogue belongs to the process: a document that loads a language changes the texts of all, and each
/// text that is looked up meanwhile is one of a whole catalogue.
TEST(Threads, LanguagesAreLoadedBesideLookups) {
  const TTestFile german("[Info]\ninfNewLayer=Neue Ebene\n"), dialect("[Info]\ninfNewLayer=Nebenlage\n");
  const auto load = [&](const std::string& aFirst, const std::string& aSecond) {
    TKDXLabel label;
    for (int round = 0; round < 100; ++round) {
      label.SetLngFileName(round % 2 == 0 ? aFirst : aSecond);
      const std::string name = label.AddLayer().fName;
      EXPECT_TRUE(name == "Neue Ebene" || name == "Nebenlage") << name;
      EXPECT_EQ(TKDXMsg::GetErrorValue("RepeatID"), "The ID must be unique");
      EXPECT_NE(TKDXMsg::IniText().find("infNewLayer=Ne"), std::string::npos);
    }
  };
  TKDXMsg::LoadResources(german.Name());
  std::thread other(load, german.Name(), dialect.Name());
  load(dialect.Name(), german.Name());
  other.join();
  TKDXMsg::LoadResources("");
}

}  // namespace
}  // namespace Zor
