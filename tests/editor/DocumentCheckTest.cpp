// The strict reading of documents.
#include <gtest/gtest.h>

#include <algorithm>

#include "kaldrix/editor/DocumentCheck.hpp"
#include "kaldrix/platform/Files.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

std::vector<std::string> Check(std::string_view aBytes) {
  TBareLabel scratch;
  return CheckDocument(scratch, aBytes);
}

bool Tells(const std::vector<std::string>& aFindings, const std::string& aText) {
  return std::find(aFindings.begin(), aFindings.end(), aText) != aFindings.end();
}

TEST(DocumentCheckTest, AWrittenDocumentHasNoFindings) {
  const std::string text = ReadFile(KALDRIX_SOURCE_DIR "/examples/floor-plan.json");
  EXPECT_EQ(Check(text), std::vector<std::string>{});
  TBareLabel document;
  document.LoadFromBytes(text);
  EXPECT_EQ(Check(document.SaveToBytes(lfBin)), std::vector<std::string>{});
  EXPECT_EQ(Check(ReadFile(KALDRIX_SOURCE_DIR "/examples/pallet-label.json")), std::vector<std::string>{});
}

TEST(DocumentCheckTest, ListsWhatAReaderTakesLeniently) {
  TBareLabel document;
  auto* box = document.NewRectangle(0, 0, 10000, 4000);
  auto* line = document.NewLine(0, 0, 5, 5);
  const std::unique_ptr<TJsonObject> json = document.GetJson();
  TJsonObject& first = json->GetArray("Items").GetObject(0);
  first.SetFloat("Radio", 50);
  first.SetInt("Layer", 99);
  first.Remove("Filled");
  first.SetInt("Colour", 1);
  json->GetArray("Items").GetObject(1).SetInt("InID", box->fInID);
  json->GetArray("Items").GetObject(1).SetInt("LineType", 77);
  json->GetObject("Measures").SetFloat("LabelWidth", 1);
  ASSERT_NE(line, nullptr);
  const std::vector<std::string> findings = Check(json->ToJSON(true));
  EXPECT_TRUE(Tells(findings, "Items[0].Radio: 50 is read as 2"));
  EXPECT_TRUE(Tells(findings, "Items[0].Layer: 99 is read as 0"));
  EXPECT_TRUE(Tells(findings, "Items[0].Filled: missing"));
  EXPECT_TRUE(Tells(findings, "Items[0].Colour: unknown key"));
  EXPECT_TRUE(Tells(findings, "Items[1]: \"LineType\": 77 is not a known value"));
  EXPECT_TRUE(Tells(findings, "Measures.LabelWidth: 1 is read as 5"));
}

TEST(DocumentCheckTest, TellsWhatCannotBeReadAndIdentitiesThatRepeat) {
  EXPECT_EQ(Check("{").size(), 1U);
  EXPECT_EQ(Check("").size(), 1U);
  TBareLabel document;
  document.NewLine(0, 0, 5, 5);
  document.NewLine(0, 0, 5, 5);
  document.GetItem(2)->fInID = 1;
  document.GetItem(2)->fID = "LINE001";
  const std::vector<std::string> findings = Check(document.SaveToBytes(lfBin));
  EXPECT_TRUE(Tells(findings, "Items[1].InID: 1 is that of Items[0]"));
  EXPECT_TRUE(Tells(findings, "Items[1].ID: \"LINE001\" is that of Items[0]"));
}

TEST(DocumentCheckTest, TellsCodesThatNoReaderFinds) {
  TBareLabel document;
  document.NewBarcode(0, 0, "A*B", btCODE39);
  document.NewBarcode(0, 0, "\u00E9", btEAN128AUTO);
  document.NewBarcode(0, 0, "AB", btCODE39);
  document.NewQRCode(0, 0, "");
  auto& bound = *document.NewBarcode(0, 0, "", btEAN13);
  bound.SetData(ftCsv, "Number", "");
  document.CalcPending();
  const std::vector<std::string> findings = Check(document.GetJsonString(true));
  EXPECT_EQ(findings, (std::vector<std::string>{
                          "Items[0].Code: 'A*B' is no code of Code 39: '*' starts and stops it",
                          "Items[1].Code: '\u00E9' gives no bars of GS1-128",
                          "Items[3].Code: there is no text for the code",
                      }));
}

TEST(DocumentCheckTest, TellsLinksWithoutNodes) {
  TBareLabel document;
  const int line = document.NewLine(0, 0, 5, 5)->fInID, node = document.NewPoint(0, 0)->fInID;
  document.NewLink(node, line, 0, 0, ltDirLine);
  document.NewLink(77, node, 0, 0, ltArc);
  document.CalcPending();
  EXPECT_EQ(Check(document.GetJsonString(true)),
            (std::vector<std::string>{
                "Items[2].ToID: " + std::to_string(line) + " is the InID of no item that links end on",
                "Items[3].FromID: 77 is the InID of no item that links end on"}));
}

}  // namespace
}  // namespace Zor
