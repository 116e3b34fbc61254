#include <gtest/gtest.h>

#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(Data, MarksNamesByTheirKind) {
  const char* const expected[] = {"Name",  "~Name", "@Name", "{Name", "^Name", "?Name",
                                  "=Name", "@Name", "@Name", "@Name", ""};
  for (int fill = ftNone; fill <= ftImg64; ++fill) {
    EXPECT_EQ(IncSymData("Name", static_cast<TZORFillType>(fill)), expected[fill]) << fill;
  }
}

TEST(Data, TakesJsonObjectsOnly) {
  TBareLabel doc;
  TKDXData& data = *doc.fData;
  data.SetJson(" {\"rows\":[]}\n");
  EXPECT_EQ(data.fJson, "{\"rows\":[]}");
  EXPECT_THROW(data.SetJson("[1]"), Exception);
  EXPECT_EQ(data.fJson, "");
  EXPECT_THROW(data.SetJson("{\"rows\":"), EJsonException);
  data.SetJson("");
  EXPECT_EQ(data.fJson, "");
}

TEST(Data, NamesOfListsAndQuestionsAreUnique) {
  TBareLabel doc;
  TKDXData& data = *doc.fData;
  EXPECT_TRUE(data.AddListVal("Size"));
  EXPECT_TRUE(data.AddListVal("size")) << "names are compared exactly";
  EXPECT_FALSE(data.AddListVal("Size"));
  EXPECT_TRUE(data.AddAskVal("Size")) << "questions have names of their own";
  EXPECT_THROW(data.GetListVal(2)->SetName("Size"), Exception);
  EXPECT_THROW(data.GetListVal(2)->SetName(""), Exception);
  EXPECT_EQ(data.GetListVal(2)->fName, "size");
  EXPECT_EQ(data.GetListVal("SIZE"), data.GetListVal(1));
  EXPECT_EQ(data.GetListVal(3), nullptr);
  EXPECT_EQ(data.GetAskField(0), nullptr);
}

void Fill(TKDXData& aData) {
  aData.fType = dtyCsv;
  aData.fLinkData = true;
  aData.fSaveJson = true;
  aData.fJson = "{\"a\":\"\u00e4\"}";
  aData.fCsvSep = scvTabulator;
  aData.fCsvHeader = false;
  TKDXDatasetItem& csv = aData.fDatasets.Add();
  csv.fDataType = dtyCsv;
  csv.AddField("Price", ftFloat);
  csv.AddField("Photo", ftBlobImg);
  aData.AddListVal("Sizes");
  aData.GetListVal(1)->AssignValues({"S", "", "XL"});
  aData.AddAskVal("Lot");
  aData.GetAskField(1)->fAskType = atDateTime;
  aData.GetAskField(1)->fQuestion = "Which lot?";
}

std::string JsonOf(const TKDXData& aData) {
  TJsonObject json;
  aData.WriteJson(json);
  return json.ToJSON();
}

std::string RecordOf(const TKDXData& aData) {
  std::string bytes;
  TBinaryWriter writer(bytes);
  aData.WriteData(writer);
  return bytes;
}

TEST(Data, ReadsBackWhatItWrites) {
  for (const TZOREditorMode mode : {emLabelling, emDrawing}) {
    TBareLabel doc, other;
    doc.fEditorMode = other.fEditorMode = mode;
    Fill(*doc.fData);
    other.fData->AddListVal("of the document before");
    TJsonObject json;
    doc.fData->WriteJson(json);
    other.fData->ReadJson(FormatVersion, json.GetObject("Data"));
    EXPECT_EQ(JsonOf(*other.fData), JsonOf(*doc.fData));
    const int lists = mode == emLabelling ? 1 : 0;
    EXPECT_EQ(other.fData->GetNumListVal(), lists);
    if (lists > 0) {
      EXPECT_EQ(other.fData->GetListVal(1)->fValues, doc.fData->GetListVal(1)->fValues);
    }

    const std::string bytes = RecordOf(*doc.fData);
    TBinaryReader reader(bytes);
    other.fData->ReadData(FormatVersion, reader);
    EXPECT_EQ(RecordOf(*other.fData), bytes);
    EXPECT_EQ(JsonOf(*other.fData), JsonOf(*doc.fData));
    for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
      TBinaryReader part(std::string_view(bytes).substr(0, cut));
      EXPECT_THROW(other.fData->ReadData(FormatVersion, part), EReadError) << cut;
    }
  }
}

TEST(Data, TheFirstTextOfABinaryFieldIsItsName) {
  TBareLabel doc;
  TKDXDatasetItem& csv = doc.fData->fDatasets.Add();
  csv.fDataType = dtyCsv;
  csv.AddField("caption").fName = "name";
  const std::string bytes = RecordOf(*doc.fData);
  TBinaryReader reader(bytes);
  doc.fData->ReadData(FormatVersion, reader);
  ASSERT_EQ(doc.fData->fDatasets.Count(), 1);
  EXPECT_EQ(doc.fData->fDatasets.GetItem(0)->fFields.GetItem(0)->fName, "caption");
}

}  // namespace
}  // namespace Zor
