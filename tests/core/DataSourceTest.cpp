// What sources offer, and the pick lists made of it.
#include <gtest/gtest.h>

#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TBareLabel.hpp"
#include "support/TMemoryDataSet.hpp"
#include "support/TTestFile.hpp"

namespace Zor {
namespace {

using TTexts = std::vector<std::string>;

/// "Caption:type" of each field.
TTexts Fields(const TKDXDataItem& aItem) {
  TTexts fields;
  for (const auto& field : aItem.fFields) {
    fields.push_back(field->fCaption + ":" + std::to_string(field->fFieldType));
  }
  return fields;
}

class DataSource : public testing::Test {
 protected:
  TBareLabel doc;
  TKDXData& data = *doc.fData;
};

TEST_F(DataSource, AJsonTextOffersItsArrays) {
  data.SetJson(R"( {"about": "x", "rows": [{"s": "a", "i": 1, "l": 5000000000, "f": 1.5, "b": true, "n": null,
      "lines": [{"qty": 2, "deep": [1]}], "empty": []}], "numbers": [1, 2], "none": []} )");
  ASSERT_EQ(data.fDatasets.Count(), 3);
  const TKDXDatasetItem& rows = *data.GetDataset("ROWS");
  EXPECT_EQ(rows.fDataType, dtyJson);
  EXPECT_EQ(Fields(rows), (TTexts{"s:0", "i:2", "l:3", "f:4", "b:1", "n:0", "lines:0", "empty:0"}));
  ASSERT_EQ(rows.fDetails.Count(), 2);
  EXPECT_EQ(rows.fDetails.GetItem(0)->fCaption, "lines");
  EXPECT_EQ(Fields(*rows.fDetails.GetItem(0)), (TTexts{"qty:2", "deep:0"}));
  EXPECT_EQ(rows.fDetails.GetItem(1)->fFields.Count(), 0);
  EXPECT_EQ(data.GetDataset("numbers")->fFields.Count(), 0);
  EXPECT_EQ(data.GetDataset("none")->fFields.Count(), 0);

  data.SetJson(R"({"other": []})");
  EXPECT_EQ(data.fDatasets.Count(), 1);
  data.SetJson("");
  EXPECT_EQ(data.fDatasets.Count(), 0);
}

TEST_F(DataSource, ACsvFileOffersTheColumnsOfItsFirstLine) {
  const TTestFile file("Name, Price;\"a;b\"\n1;2;3\n");
  EXPECT_TRUE(data.SetCsvData(file.Name(), true, scvSemicolon, scqDoubleQuotes));
  ASSERT_EQ(data.fDatasets.Count(), 1);
  EXPECT_EQ(data.fDatasets.GetItem(0)->fCaption, "CsvFile");
  EXPECT_EQ(Fields(*data.fDatasets.GetItem(0)), (TTexts{"Name, Price:0", "a;b:0"}));
  data.SetCsvQuote(scqNone);
  EXPECT_EQ(Fields(*data.fDatasets.GetItem(0)), (TTexts{"Name, Price:0", "\"a:0", "b\":0"}));
  data.SetCsvHeader(false);
  EXPECT_EQ(Fields(*data.fDatasets.GetItem(0)), (TTexts{"Field1:0", "Field2:0", "Field3:0"}));
  data.SetCsvSep(scvComma);
  EXPECT_EQ(Fields(*data.fDatasets.GetItem(0)), (TTexts{"Field1:0", "Field2:0"}));

  EXPECT_FALSE(data.SetCsvField(-1, ftInt));
  EXPECT_TRUE(data.SetCsvField(1, ftInt));
  EXPECT_TRUE(data.SetCsvField(2, ftInt)) << "passed over";
  EXPECT_EQ(Fields(*data.fDatasets.GetItem(0)), (TTexts{"Field1:0", "Field2:2"}));

  const TTestFile empty("");
  EXPECT_TRUE(data.SetCsvData(empty.Name(), true, scvComma, scqNone));
  EXPECT_EQ(data.fDatasets.Count(), 0);
  EXPECT_FALSE(data.SetCsvField(0, ftInt));
}

TEST_F(DataSource, ACsvFileNeedsToExistAndASeparator) {
  const TTestFile file("a;b\n");
  const auto failure = [&](auto aWork) -> std::string {
    try {
      aWork();
    } catch (const Exception& error) {
      return error.what();
    }
    return "";
  };
  data.SetCsvData(file.Name(), true, scvSemicolon, scqNone);
  EXPECT_EQ(failure([&] { data.SetCsvData(file.Name(), false, scvNone, scqQuotes); }),
            "Need to assign the csv separator");
  EXPECT_EQ(data.fCsvFileName, file.Name());
  EXPECT_EQ(data.fCsvSep, scvSemicolon);
  EXPECT_EQ(data.fCsvQuote, scqQuotes);
  EXPECT_FALSE(data.fCsvHeader);
  EXPECT_EQ(failure([&] { data.SetCsvData("missing.csv", true, scvComma, scqNone); }), "File does not exist");
  EXPECT_EQ(data.fCsvFileName, "");
  EXPECT_EQ(failure([&] { data.SetCsvFileName("missing.csv"); }), "File does not exist");
}

TEST_F(DataSource, AnotherLanguageLeavesTheCsvSourceFound) {
  const TTestFile file("Name;City\na;b\n");
  data.SetCsvData(file.Name(), true, scvSemicolon, scqDoubleQuotes);
  data.Select(dtyCsv);
  std::string texts = TKDXMsg::IniText();
  const std::string_view caption = "CsvFile=CsvFile";
  ASSERT_NE(texts.find(caption), std::string::npos);
  TKDXMsg::LoadText(texts.replace(texts.find(caption), caption.size(), "CsvFile=Datei"));
  TBareLabel read;
  std::string bytes;
  TBinaryWriter writer(bytes);
  data.WriteData(writer);
  TBinaryReader reader(bytes);
  read.fData->ReadData(FormatVersion, reader);
  TKDXMsg::LoadResources("");
  EXPECT_EQ(read.fData->fDatasets.GetItem(0)->fCaption, "Datei");
  EXPECT_EQ(read.fData->fDataSel, "CsvFile");
  read.CheckPrintData();
  EXPECT_EQ(read.fData->DataValue("City", ""), "b");
  TTexts fields;
  read.GetDataFields(fields, "", false);
  EXPECT_EQ(fields, (TTexts{"{Name", "{City"}));
}

TEST_F(DataSource, ARefreshedDescriptionFollowsTheFile) {
  const TTestFile file("Name;City\na;b\n"), turned("City;More;name\nb;x;a\n");
  data.SetCsvData(file.Name(), true, scvSemicolon, scqDoubleQuotes);
  data.Select(dtyCsv);
  data.Source()->fFields.GetItem(0)->fCaption = "Who";
  data.SetCsvField(1, ftInt);
  data.fCsvFileName = turned.Name();
  data.RefreshCsvFields();
  EXPECT_EQ(Fields(*data.Source()), (TTexts{"City:2", "More:0", "Who:0"}));
  data.Reset();
  EXPECT_EQ(data.DataValue("Who", ""), "a");

  // Without a header there are places only, and captions of whatever language.
  data.SetCsvHeader(false);
  data.Source()->fFields.GetItem(0)->fCaption = "Feld1";
  data.RefreshCsvFields();
  EXPECT_EQ(Fields(*data.Source()), (TTexts{"Feld1:0", "Field2:0", "Field3:0"}));
}

TEST_F(DataSource, AJsonFileOffersWhatItsTextOffers) {
  const std::string text =
      R"({"rows": [{"s": "a", "i": 1, "lines": [{"q": 2}]}, {"s": "b", "i": 2}], "one": 1,
      "none": []})";
  TBareLabel whole;
  whole.fData->SetJson(text);
  data.SetJson(R"({"former": []})");
  data.SetJsonFile(std::make_shared<TJsonFile>(TFileWindow(text)));
  ASSERT_EQ(data.fDatasets.Count(), whole.fData->fDatasets.Count());
  EXPECT_EQ(Fields(*data.GetDataset("rows")), Fields(*whole.fData->GetDataset("rows")));
  EXPECT_EQ(Fields(*data.GetDataset("rows")->fDetails.Find("lines")), TTexts{"q:2"});
  data.Select(dtyJson, "rows");
  data.SetFieldRepeat("i");
  data.Reset();
  EXPECT_EQ(data.fNumlabels, 3);
  EXPECT_EQ(data.FirstDetail("lines"), 1);
  EXPECT_EQ(data.DataDetailValue("lines", "q", ""), "2");
  data.Next();
  EXPECT_EQ(data.DataValue("s", ""), "b");
  data.First();
  EXPECT_EQ(data.DataValue("s", ""), "a");
  data.SetJson("");
  EXPECT_EQ(data.fDatasets.Count(), 0) << "a text takes the place of the file";
}

TEST_F(DataSource, ADataSetOffersItsFields) {
  TMemoryDataSet people("People",
                        {{"Name", dkWideString},
                         {"Age", dkByte},
                         {"Id", dkLargeint},
                         {"Pay", dkCurrency},
                         {"Photo", dkGraphic}},
                        {});
  TKDXDatasetItem& item = data.fDatasets.Add();
  item.SetDataset(&people);
  EXPECT_EQ(item.fCaption, "People");
  EXPECT_EQ(item.fDataType, dtyDataset);
  const TTexts fields{"Name:0", "Age:2", "Id:3", "Pay:4", "Photo:0"};
  EXPECT_EQ(Fields(item), fields);
  TMemoryDataSet other("Other", {{"X", dkString}}, {});
  item.SetDataset(&other);
  EXPECT_EQ(item.fCaption, "People");
  EXPECT_EQ(Fields(item), fields) << "a description that is there stays";

  TBareLabel second;
  second.fData->Assign(data);
  EXPECT_EQ(second.fData->GetDataset("people")->GetDataset(), &other);
}

TEST_F(DataSource, ASelectionTakesTheKindOfTheSource) {
  data.SetJson(R"({"rows": [{"a": 1}], "more": []})");
  data.SetDataSel("MORE");
  EXPECT_EQ(data.fType, dtyJson);
  EXPECT_EQ(data.CurrentDataset(), nullptr);
  data.SetDataSel("nothing");
  EXPECT_EQ(data.fType, dtyNone);
  data.MigrateDataSel("Later");
  EXPECT_EQ(data.fType, dtyDataset);
  EXPECT_EQ(data.CurrentDataset(), nullptr);
  TMemoryDataSet later("Later", {{"X", dkString}}, {});
  data.fDatasets.Add().SetDataset(&later);
  EXPECT_EQ(data.CurrentDataset(), &later);

  EXPECT_FALSE(data.Select(dtyCsv));
  EXPECT_FALSE(data.fLinkData);
  EXPECT_TRUE(data.Select(dtyJson));
  EXPECT_EQ(data.fDataSel, "rows");
  EXPECT_TRUE(data.fLinkData);
  EXPECT_TRUE(data.Select(dtyJson, "More"));
  EXPECT_FALSE(data.Select(dtyJson, "Later"));
}

TEST_F(DataSource, ClearingADocumentLeavesNoSource) {
  const TTestFile file("a;b\n");
  data.SetCsvData(file.Name(), true, scvSemicolon, scqNone);
  data.SetJson(R"({"rows": [{"a": 1}]})");
  data.Select(dtyJson);
  doc.CheckPrintData();
  EXPECT_TRUE(data.fHasData);
  doc.Clear({cleAll}, false);
  EXPECT_FALSE(data.fLinkData);
  EXPECT_EQ(data.fJson, "");
  EXPECT_EQ(data.fCsvFileName, "");
  EXPECT_EQ(data.fDatasets.Count(), 0);
  EXPECT_FALSE(data.fHasData);
}

TEST_F(DataSource, AStoredJsonTextIsDescribedAgain) {
  data.SetJson(R"({"rows": [{"a": 1}]})");
  data.fSaveJson = true;
  TBareLabel other;
  other.LoadFromBytes(doc.GetJsonString(true));
  ASSERT_EQ(other.fData->fDatasets.Count(), 1);
  EXPECT_EQ(Fields(*other.fData->fDatasets.GetItem(0)), TTexts{"a:2"});
  std::string broken = doc.GetJsonString(true);
  broken.replace(broken.find("\"DataJson\":\"{"), 13, "\"DataJson\":\"[");
  EXPECT_THROW(other.LoadFromBytes(broken), Exception);
  EXPECT_EQ(other.fData->fDatasets.Count(), 1) << "the open document stays";
}

// Pick lists -------------------------------------------------------------------------------

TEST_F(DataSource, PickListsOfferWhatFits) {
  data.SetJson(R"({"rows": [{"s": "a", "i": 1, "f": 1.5, "pic": "", "blob": "", "lines": [{"q": 2}]}]})");
  data.SetDataSel("rows");
  data.GetDataset("rows")->fFields.Find("pic")->fFieldType = ftBase64;
  data.GetDataset("rows")->fFields.Find("blob")->fFieldType = ftBlobImg;
  (new TKDXCounter(&doc))->fName = "No";
  data.AddListVal("Size");
  for (const auto& [name, type] : {std::pair{"Lot", atText}, {"Count", atInteger}, {"Weight", atNumber}}) {
    data.AddAskVal(name);
    data.GetAskField(data.GetNumQuestions())->fAskType = type;
  }
  TTexts list;
  const auto expect = [&list](const TTexts& aLines) { EXPECT_EQ(list, aLines); };
  doc.GetDataFields(list, "x", true);
  expect({"-Unassign", "{s", "{i", "{f", "{pic", "{blob", "{lines", "@No", "=Size", "?Lot", "?Count",
          "?Weight"});
  doc.GetImgFields(list, "", true);
  expect({"6pic", "[blob"});
  doc.GetIntFields(list, "x", true, true);
  expect({"-Unassign", "{i", "@No", "?Count"});
  doc.GetNumFields(list, "", false, false);
  expect({"i", "f", "Count", "Weight"});
  doc.GetTxtFields(list, "", true);
  expect({"{s", "{lines", "?Lot", "?Count", "?Weight"});
  doc.GetDetails(list, true);
  expect({"{lines"});
  doc.GetDataDetails(list, "", true);
  expect({"¬rows", ":lines"});
  doc.GetDetailFields(list, "x", "LINES");
  expect({"-Unassign", "q"});
  doc.GetMasterDetailFields(list, ":lines", true, false);
  expect({"q"});
  doc.GetMasterDetailFields(list, "¬rows", true, false);
  expect({"{s", "{i", "{f", "6pic", "[blob", "{lines"});
  doc.GetMasterDetailFields(list, "¬rows", false, true);
  expect({"s", "i", "f", "lines"});
  doc.GetMasterDetailFields(list, "", true, false);
  expect({});
}

TEST_F(DataSource, WhatGoesUnbindsItsItems) {
  auto* counter = new TKDXCounter(&doc);
  counter->fName = "No";
  data.AddListVal("Size");
  data.AddAskVal("Lot");
  const auto bind = [&](const char* aName) {
    auto* text = doc.NewText(0, 0);
    text->SetData(ftNone, aName, "");
    return text;
  };
  auto *byCounter = bind("@no"), *byList = bind("=Size"), *byAsk = bind("?Lot"), *otherCase = bind("?lot");
  EXPECT_TRUE(doc.CounterName("NO", nullptr));
  EXPECT_FALSE(doc.CounterName("No", counter));
  EXPECT_EQ(doc.GetCounter(1), counter);
  EXPECT_FALSE(doc.RemoveCounter(nullptr));
  EXPECT_TRUE(doc.RemoveCounter(counter));
  EXPECT_EQ(doc.GetCounterCount(), 0);
  EXPECT_FALSE(data.DeleteList(2));
  EXPECT_TRUE(data.DeleteList(1));
  EXPECT_TRUE(data.DeleteAsk(1));
  EXPECT_EQ(byCounter->fFillType, ftNone);
  EXPECT_EQ(byList->fFillType, ftNone);
  EXPECT_EQ(byAsk->fFillType, ftNone);
  EXPECT_EQ(otherCase->fFillType, ftAsk);
  EXPECT_FALSE(data.fLinkData);
}

}  // namespace
}  // namespace Zor
