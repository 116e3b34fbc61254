// The walk through a source and the values of its records.
#include <gtest/gtest.h>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TBareLabel.hpp"
#include "support/TMemoryDataSet.hpp"
#include "support/TTestFile.hpp"

namespace Zor {
namespace {

using TTexts = std::vector<std::string>;

/// The same three records, with the labels that each gives, as each of the sources.
class DataWalk : public testing::TestWithParam<TZORDataType> {
 protected:
  void SetUp() override { Offer({{"a", "2"}, {"b", "1"}, {"c", "3"}}); }

  void Offer(const std::vector<TTexts>& aRows) {
    data.ClearSources();
    std::string csv = "Name;Qty\n", json = R"({"rows": [)";
    for (const TTexts& row : aRows) {
      csv += row[0] + ";" + row[1] + "\n";
      json += std::string(&row == &aRows[0] ? "" : ",") + R"({"Name": ")" + row[0] + R"(", "Qty": )" +
              row[1] + "}";
    }
    switch (GetParam()) {
      case dtyCsv:
        file = std::make_unique<TTestFile>(csv);
        data.SetCsvData(file->Name(), true, scvSemicolon, scqDoubleQuotes);
        break;
      case dtyJson:
        data.SetJson(json + "]}");
        break;
      default:
        for (int i = data.fDatasets.Count(); i > 0; --i) data.fDatasets.Delete(i - 1);
        dataset = std::make_unique<TMemoryDataSet>(
            "rows", std::vector<TMemoryDataSet::TColumn>{{"Name", dkString}, {"Qty", dkInteger}}, aRows);
        data.fDatasets.Add().SetDataset(dataset.get());
    }
    ASSERT_TRUE(data.Select(GetParam()));
  }
  /// The names that so many labels show.
  std::string Names(int aLabels) {
    std::string names;
    for (int i = 0; i < aLabels; ++i, data.Next()) names += data.DataValue("Name", "");
    return names;
  }

  TBareLabel doc;
  TKDXData& data = *doc.fData;
  std::unique_ptr<TTestFile> file;
  std::unique_ptr<TMemoryDataSet> dataset;
};

INSTANTIATE_TEST_SUITE_P(Sources, DataWalk, testing::Values(dtyDataset, dtyJson, dtyCsv));

TEST_P(DataWalk, EachRecordGivesTheRepetition) {
  doc.fPrintInfo->fRepetition = 2;
  data.Reset();
  EXPECT_EQ(data.fNumlabels, 6);
  EXPECT_EQ(data.fPos, GetParam() == dtyCsv ? 2 : 1);
  EXPECT_EQ(data.fRecordRepeat, 2);
  EXPECT_TRUE(data.fHasData);
  EXPECT_EQ(Names(8), "aabbcccc") << "the last record stays";
  data.First();
  EXPECT_EQ(Names(3), "aab");
  data.SetPos(3);
  EXPECT_EQ(data.Record(), 3);
  EXPECT_EQ(data.fPosRepeat, 1);
  data.SetPos(4);
  EXPECT_EQ(Names(1), "c") << "there is no fourth record";
}

TEST_P(DataWalk, AFieldTellsTheLabelsOfEachRecord) {
  data.SetFieldRepeat("Qty");
  data.Reset();
  EXPECT_EQ(data.fNumlabels, 6);
  EXPECT_TRUE(data.Repeats());
  EXPECT_EQ(Names(9), "aabcccccc");
  for (int skipped = 0; skipped < 9; ++skipped) {
    data.First();
    data.Skip(skipped);
    EXPECT_EQ(Names(9 - skipped), std::string("aabcccccc").substr(static_cast<std::size_t>(skipped)));
  }
  if (dataset != nullptr) {
    const int shown = dataset->fShown;
    data.Reset();
    EXPECT_EQ(dataset->fShown, shown) << "counting is not shown";
    EXPECT_EQ(dataset->fDisabled, 0);
  }
}

TEST_P(DataWalk, ARecordOfNoLabelsIsPassedOver) {
  data.SetFieldRepeat("Qty");
  Offer({{"x", "0"}, {"a", "1"}, {"y", "0"}, {"b", "2"}, {"z", "-1"}, {"w", "0"}});
  data.Reset();
  EXPECT_EQ(data.fNumlabels, 3);
  EXPECT_EQ(Names(5), "abbbb");
  data.First();
  EXPECT_EQ(Names(2), "ab");
}

TEST_P(DataWalk, AMissingRepeatFieldGivesTheRepetition) {
  doc.fPrintInfo->fRepetition = 3;
  data.SetFieldRepeat("Nothing");
  data.Reset();
  EXPECT_EQ(data.fNumlabels, 9);
  EXPECT_FALSE(data.Repeats());
  EXPECT_EQ(data.fFieldRepeat, GetParam() == dtyCsv ? "Nothing" : "");
  EXPECT_EQ(Names(4), "aaab");
}

TEST_P(DataWalk, AStrictWalkTellsARepeatFieldThatIsNoNumber) {
  data.SetFieldRepeat("Qty");
  Offer({{"a", "2"}, {"b", GetParam() == dtyJson ? "true" : "x"}, {"c", "1"}});
  data.Reset();
  EXPECT_EQ(data.fNumlabels, GetParam() == dtyCsv ? 4 : 3) << "what each source makes of it";
  EXPECT_EQ(data.RepeatProblem(), "");
  data.fStrict = true;
  data.Reset();
  EXPECT_EQ(data.fNumlabels, 4);
  EXPECT_EQ(data.RepeatProblem().substr(0, 9), "record 2:") << data.RepeatProblem();
  EXPECT_EQ(data.Record(), 1);
  EXPECT_TRUE(data.RecordProblems().empty());
  data.Skip(2);
  EXPECT_EQ(data.RecordProblems().size(), 1U);
  EXPECT_EQ(Names(2), "bc");
}

TEST_P(DataWalk, WithoutRecordsThereIsNoData) {
  Offer({});
  data.Reset();
  EXPECT_EQ(data.fNumlabels, 0);
  EXPECT_FALSE(data.fHasData);
  EXPECT_FALSE(data.IsValidData(ftField, "Name"));
  EXPECT_EQ(data.Record(), 0);
  data.Next();
  EXPECT_NO_THROW(data.DataValue("Name", ""));
}

TEST_P(DataWalk, WithoutALinkAFieldShowsItsName) {
  data.Reset();
  data.fLinkData = false;
  EXPECT_EQ(data.DataValue("Name", "0"), "Name");
  data.Reset();
  EXPECT_EQ(data.fNumlabels, doc.fPrintInfo->fLabs);
  data.fLinkData = true;
  EXPECT_EQ(data.DataValue("Name", ""), "Name") << "nothing is open";
}

// Values -----------------------------------------------------------------------------------

class DataValues : public testing::Test {
 protected:
  TBareLabel doc;
  TKDXData& data = *doc.fData;
};

TEST_F(DataValues, OfAColumn) {
  const TTestFile file("Name;Price;Odd\n\" 7 \";1.5;x\ny\n");
  data.SetCsvData(file.Name(), true, scvSemicolon, scqDoubleQuotes);
  data.Select(dtyCsv);
  data.Reset();
  struct TCase {
    const char *field, *format, *value;
  };
  const TCase cases[] = {{"NAME", "", " 7 "},  {"Name", "000", "007"}, {"Price", "0.00", "1.50"},
                         {"Odd", "0.00", "x"}, {"Nope", "", "Nope"},   {"Nope", "0", ""}};
  for (const TCase& c : cases) EXPECT_EQ(data.DataValue(c.field, c.format), c.value) << c.field;
  EXPECT_TRUE(data.RecordProblems().empty());
  data.Next();
  EXPECT_EQ(data.DataValue("Price", ""), "") << "a ragged line";
  EXPECT_EQ(data.RecordProblems(), TTexts{file.Name() + ":3: there are 1 columns where 3 belong"});
}

TEST_F(DataValues, OfACsvFileWithCellsThatAreNoNumbers) {
  const TTestFile file("Name;Qty\na;\nb;x\nc;1.5\nd;\"2\"\n");
  data.SetCsvData(file.Name(), true, scvSemicolon, scqDoubleQuotes);
  data.Select(dtyCsv);
  data.SetFieldRepeat("qty");
  data.Reset();
  EXPECT_EQ(data.fNumlabels, 5);
}

TEST_F(DataValues, OfAJsonRecord) {
  data.SetJson(R"({"rows": [{"s": "12", "i": 7, "l": 5000000000, "f": 1.5, "b": true, "n": null, "o": {},
      "a": [1]}, 5]})");
  data.Select(dtyJson);
  data.Reset();
  TJsonObject dates;
  struct TCase {
    const char *field, *format, *value;
  };
  const TCase cases[] = {
      {"s", "", "12"},     {"s", "000", "12"},    {"i", "", "7"},      {"i", "000", "007"},
      {"f", "", "1.5"},    {"f", "0.00", "1.50"}, {"b", "", "1"},      {"l", "0,", "5,000,000,000"},
      {"n", "", ""},       {"n", "0", ""},        {"o", "", ""},       {"a", "0", ""},
      {"missing", "", ""}, {"S", "", ""},         {"missing", "0", ""}};
  for (const TCase& c : cases) EXPECT_EQ(data.DataValue(c.field, c.format), c.value) << c.field << c.format;
  EXPECT_EQ(doc.DataValue("i", "00", ftJson), "07");
  EXPECT_EQ(doc.DataValue("i", "00", ftCsv), "");
  EXPECT_EQ(doc.DataIntValue("f", ftField), 1);
  EXPECT_EQ(doc.DataNumValue("f", ftField), 1.5F);
  EXPECT_EQ(doc.DataIntValue("missing", ftField), 0);
  data.Next();
  EXPECT_EQ(data.DataValue("s", ""), "");
  EXPECT_EQ(data.RecordProblems(), TTexts{"record 2 is no object"});
}

TEST_F(DataValues, OfADataSet) {
  TMemoryDataSet set("set",
                     {{"i", dkSmallint},
                      {"l", dkLargeint},
                      {"f", dkCurrency},
                      {"d", dkDateTime},
                      {"s", dkMemo},
                      {"p", dkGraphic},
                      {"e", dkDate}},
                     {{"7", "8", "1.5", "45413.5", "text", "PNG", ""}});
  data.fDatasets.Add().SetDataset(&set);
  data.Select(dtyDataset);
  data.Reset();
  struct TCase {
    const char *field, *format, *value;
  };
  const TCase cases[] = {{"i", "000", "007"},  {"I", "", "7"},
                         {"l", "000", "8"},    {"f", "0.00", "1.50"},
                         {"d", "", "45413.5"}, {"d", "dd-mm-yyyy HH:nn", "01-05-2024 12:00"},
                         {"s", "000", "text"}, {"e", "dd-mm-yyyy", ""}};
  for (const TCase& c : cases) EXPECT_EQ(data.DataValue(c.field, c.format), c.value) << c.field << c.format;
  EXPECT_THROW(data.DataValue("nope", ""), Exception);
  std::string stream = "before";
  EXPECT_TRUE(doc.DataGraphic("p", stream));
  EXPECT_EQ(stream, "PNG");
  EXPECT_FALSE(doc.DataGraphic("s", stream));
}

TEST_F(DataValues, OfListsAndQuestions) {
  data.AddListVal("Size");
  data.GetListVal(1)->fAnsText = "XL";
  EXPECT_EQ(doc.DataValue("size", "", ftList), "XL");
  EXPECT_EQ(doc.DataValue("Colour", "", ftList), "Colour");
  data.AddAskVal("Q");
  TZOAskField& ask = *data.GetAskField(1);
  ask.fAnsText = "12.5";
  ask.fAnsInt = 7;
  ask.fAnsNumber = 2.75;
  ask.fAnsDT = EncodeDateTime(2024, 5, 1, 12);
  struct TCase {
    TZORAskType type;
    const char *format, *text;
    int whole;
    Single number;
  };
  const TCase cases[] = {{atText, "000", "12.5", 12, 12.5F},
                         {atInteger, "", "7", 7, 7},
                         {atInteger, "000", "007", 7, 7},
                         {atNumber, "", "2.75", 2, 2.75F},
                         {atNumber, "0.0", "2.8", 2, 2.75F},
                         {atDateTime, "dd/mm/yy", "01/05/24", 45413, 45413.5F},
                         {atDateTime, "", "2024-05-01", 45413, 45413.5F}};
  for (const TCase& c : cases) {
    ask.fAskType = c.type;
    EXPECT_EQ(doc.DataValue("q", c.format, ftAsk), c.text);
    EXPECT_EQ(doc.DataIntValue("Q", ftAsk), c.whole);
    EXPECT_EQ(doc.DataNumValue("Q", ftAsk), c.number);
  }
  EXPECT_EQ(doc.DataValue("Other", "", ftAsk), "Other");
  EXPECT_EQ(doc.DataIntValue("Other", ftAsk), 0);
  EXPECT_TRUE(data.IsValidData(ftAsk, "Q"));
  EXPECT_FALSE(data.IsValidData(ftAsk, "q")) << "names of bindings are compared exactly";
  EXPECT_EQ(doc.DataValue("Q", "", ftNone), "");
}

// Details ----------------------------------------------------------------------------------

TEST_F(DataValues, OfTheDetailsOfAJsonRecord) {
  data.SetJson(R"({"rows": [{"lines": [{"q": 4, "t": "a"}, {"q": 1.5}, {"q": "no"}, {"q": 2}]}, {}]})");
  data.Select(dtyJson);
  data.Reset();
  EXPECT_EQ(data.FirstDetail("LINES"), 4);
  EXPECT_EQ(data.DataDetailValue("lines", "q", "0.0"), "4.0");
  EXPECT_EQ(data.DataDetailValue("lines", "t", ""), "a");
  for (int i = 0; i < 9; ++i) data.NextDetail("lines");
  EXPECT_EQ(data.DataDetailValue("lines", "q", ""), "2") << "the last row stays";
  EXPECT_EQ(data.FirstDetail("other"), 0);

  const std::pair<TZORFooter, const char*> footers[] = {
      {foNone, "0"},     {foCount, "4"},     {foMin, "0"},          {foMax, "4"},       {foSum, "7.5"},
      {foMean, "1.875"}, {foMedian, "1.75"}, {foVariance, "2.729"}, {foStdDev, "1.652"}};
  for (const auto& [footer, value] : footers) {
    EXPECT_EQ(data.GetDetailCalc("lines", "q", "0.###", footer), value) << int{footer};
  }
  EXPECT_EQ(data.GetDetailCalc("lines", "q", "", foSum), "7.5");
  EXPECT_EQ(data.GetDetailCalc("other", "q", "", foSum), "");
  data.Next();
  EXPECT_EQ(data.FirstDetail("lines"), 0);
  EXPECT_EQ(data.DataDetailValue("lines", "q", ""), "");
  EXPECT_EQ(data.GetDetailCalc("lines", "q", "", foStdDev), "0");
  data.GetDetail("lines")->fDataType = dtyNone;
  EXPECT_EQ(data.GetDetailCalc("lines", "q", "", foSum), "q");
}

TEST_F(DataValues, OfTheDetailsOfADataSet) {
  TMemoryDataSet orders("orders", {{"id", dkInteger}}, {{"1"}});
  TMemoryDataSet lines("lines", {{"q", dkFloat}, {"n", dkLargeint}, {"t", dkString}},
                       {{"4", "3", "x"}, {"2", "1", "9"}});
  TKDXDatasetItem& item = data.fDatasets.Add();
  item.SetDataset(&orders);
  item.fDetails.Add().SetDataset(&lines);
  data.Select(dtyDataset);
  data.Reset();
  EXPECT_EQ(data.FirstDetail("lines"), 2);
  EXPECT_EQ(data.DataDetailValue("lines", "q", "0.0"), "4.0");
  data.NextDetail("lines");
  EXPECT_EQ(data.DataDetailValue("lines", "t", ""), "9");
  EXPECT_EQ(data.GetDetailCalc("lines", "q", "", foMean), "3");
  EXPECT_EQ(data.GetDetailCalc("lines", "n", "", foSum), "4");
  EXPECT_EQ(data.GetDetailCalc("lines", "t", "", foSum), "0") << "texts count as 0";
  EXPECT_THROW(data.GetDetailCalc("lines", "nope", "", foSum), Exception);
}

}  // namespace
}  // namespace Zor
