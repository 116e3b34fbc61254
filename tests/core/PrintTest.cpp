// Planning a print, and what the labels of its pages show.
#include <gtest/gtest.h>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TBareLabel.hpp"
#include "support/TMemoryDataSet.hpp"
#include "support/TTestFile.hpp"

namespace Zor {
namespace {

/// Sheets of two rows and three columns, and a text for each binding.
class Print : public testing::Test {
 protected:
  Print() {
    doc.fMeasure->fNuHor = 2;
    doc.fMeasure->fNuVer = 3;
    data.fLinkData = true;
  }

  TKDXBaseText& Bind(const std::string& aName) {
    TKDXBaseText* text = doc.NewText(0, 0);
    text->SetData(ftNone, aName, "");
    return *text;
  }
  TKDXCounter& Counter(const char* aName, Int64 aTo) {
    auto* counter = new TKDXCounter(&doc);
    counter->fName = aName;
    counter->SetNumTo(aTo);
    return *counter;
  }
  /// Records "A", "B" and so on, with so many labels each.
  void Records(const std::vector<int>& aLabels) {
    std::string json;
    for (std::size_t i = 0; i < aLabels.size(); ++i) {
      json += std::string(i == 0 ? "" : ",") + R"({"Name": ")" + static_cast<char>('A' + i % 26) +
              R"(", "Qty": )" + std::to_string(aLabels[i]) + "}";
    }
    data.SetJson(R"({"rows": [)" + json + "]}");
    data.Select(dtyJson);
  }
  /// What the cells of a page show: a copy of each item in each cell, filled.
  std::string Page(int aPage) {
    for (int row = 1; row <= 2; ++row) {
      for (int column = 1; column <= 3 && doc.fPreview.Count() < 6 * doc.fItems.Count(); ++column) {
        for (const TKDXBaseItem* item : doc.fItems) doc.MakePreviewCopy(*item, row, column);
      }
    }
    for (TKDXBaseItem* copy : doc.fPreview) static_cast<TKDXBaseText*>(copy)->fText = "-";
    print.fLastPageFill = -1;
    doc.GoToPage(aPage, true, true);
    std::string text;
    for (const TKDXBaseItem* copy : doc.fPreview) text += static_cast<const TKDXBaseText*>(copy)->fText;
    return text;
  }

  TBareLabel doc;
  TKDXData& data = *doc.fData;
  TKDXBasePrintInfo& print = *doc.fPrintInfo;
};

TEST_F(Print, TheLongerOfDataAndCountersTellsTheLabels) {
  struct TCase {
    int records, counterTo;
    TZORFillType drive;
    int labels, pages;
  };
  const TCase cases[] = {{0, 0, ftNone, 2, 1},        {0, 7, ftNone, 7, 2},   {3, 0, ftJson, 3, 1},
                         {12, 0, ftJson, 12, 2},      {13, 0, ftJson, 13, 3}, {4, 20, ftJsonCount, 20, 4},
                         {30, 20, ftJsonCount, 30, 5}};
  for (const TCase& c : cases) {
    doc.New();
    doc.fCounters.Clear();
    print.fLabs = 2;
    Records(std::vector<int>(static_cast<std::size_t>(c.records), 1));
    Bind("{Name");
    if (c.counterTo > 0) {
      Counter("No", c.counterTo);
      Bind("@No");
    }
    doc.CheckPrintData();
    EXPECT_EQ(print.fFillType, c.drive) << c.records << " " << c.counterTo;
    EXPECT_EQ(print.fLabelsToPrint, c.labels) << c.records << " " << c.counterTo;
    EXPECT_EQ(print.fPagesToPrint, c.pages) << c.records << " " << c.counterTo;
  }
}

TEST_F(Print, OnlyPrintedItemsPutCountersListsAndQuestionsToUse) {
  TKDXCounter& counter = Counter("No", 5);
  data.AddListVal("Size");
  data.AddAskVal("Lot");
  TKDXBaseText& text = Bind("@NO");
  EXPECT_FALSE(data.IsValidData(ftCounter, "No"));
  text.SetOptions({lopVisible});
  Bind("=Size");
  Bind("?Lot").SetOptions({lopPrint});
  doc.CheckPrintData();
  EXPECT_FALSE(counter.fActive);
  EXPECT_TRUE(data.fHasList);
  EXPECT_TRUE(data.GetListVal(1)->fActive);
  EXPECT_FALSE(data.fHasQuest);
  text.SetOptions({lopVisible, lopPrint});
  doc.CheckPrintData();
  EXPECT_TRUE(counter.fActive);
  EXPECT_TRUE(data.IsValidData(ftCounter, "No"));
  EXPECT_EQ(doc.CounterValue("no"), "1");
}

TEST_F(Print, CountersAndRecordsRunTogether) {
  Records({1, 1, 1, 1, 1, 1, 1, 1});
  Counter("No", 10);
  Bind("{Name");
  Bind("@No");
  doc.CheckPrintData();
  EXPECT_EQ(Page(1), "A1B2C3D4E5F6");
  EXPECT_EQ(Page(2), "G7H8H9H10----");
  EXPECT_EQ(Page(1), "A1B2C3D4E5F6");
}

TEST_F(Print, PagesShowTheSameInAnyOrder) {
  for (const bool byField : {false, true}) {
    Records({2, 0, 3, 1, 7, 1, 4});
    data.fFieldRepeat = byField ? "Qty" : "";
    print.fRepetition = 3;
    print.fFirstRow = print.fFirstCol = 2;
    doc.Clear({cleItems, cleCounters}, false);
    Counter("No", 40).SetRepeat(2);
    Bind("{Name");
    Bind("@No");
    doc.CheckPrintData();
    EXPECT_EQ(Page(1), "--------A1A1");
    std::vector<std::string> inTurn{""};
    for (int page = 1; page <= 4; ++page) inTurn.push_back(Page(page));
    for (const int page : {3, 1, 4, 2, 2, 3}) {
      EXPECT_EQ(Page(page), inTurn[static_cast<std::size_t>(page)]) << page;
    }
    doc.CheckPrintData();
    EXPECT_EQ(Page(3), inTurn[3]) << "gone to at once";
  }
}

TEST_F(Print, GoingThroughThePagesCostsEachRecordOnce) {
  constexpr int records = 600;
  std::vector<std::vector<std::string>> rows(records, {"1"});
  TMemoryDataSet set("set", {{"Qty", dkInteger}}, rows);
  data.fDatasets.Add().SetDataset(&set);
  data.Select(dtyDataset);
  for (const bool byField : {false, true}) {
    data.fFieldRepeat = byField ? "Qty" : "";
    Bind("~Qty");
    doc.CheckPrintData();
    set.fShown = 0;
    for (int page = 1; page <= print.fPagesToPrint; ++page) doc.GoToPage(page, true, true);
    EXPECT_EQ(set.fShown, records - 1);
  }
}

TEST_F(Print, TellsWhichRecordStandsInWhichCell) {
  const TTestFile file("Name;Qty\nA;2\nB;1\n");
  data.SetCsvData(file.Name(), true, scvSemicolon, scqNone);
  data.Select(dtyCsv);
  data.SetFieldRepeat("Qty");
  print.fFirstCol = 3;
  Counter("Unused", 9);
  Counter("No", 4).fBefore = "#";
  Bind("@No");
  doc.CheckPrintData();
  doc.GoToPage(1, true, true);
  const auto& labels = doc.GetPageLabels();
  struct TCase {
    int row, column, record, line, repeat;
    const char* counter;
  };
  const TCase cases[] = {
      {1, 3, 1, 2, 1, "#1"}, {2, 1, 1, 2, 2, "#2"}, {2, 2, 2, 3, 1, "#3"}, {2, 3, 2, 3, 1, "#4"}};
  ASSERT_EQ(labels.size(), std::size(cases));
  for (std::size_t i = 0; i < labels.size(); ++i) {
    EXPECT_EQ(labels[i].label, static_cast<int>(i) + 1);
    EXPECT_EQ(labels[i].row, cases[i].row);
    EXPECT_EQ(labels[i].column, cases[i].column);
    EXPECT_EQ(labels[i].record, cases[i].record);
    EXPECT_EQ(labels[i].position, cases[i].line);
    EXPECT_EQ(labels[i].repeat, cases[i].repeat);
    EXPECT_EQ(labels[i].counters, std::vector<std::string>{cases[i].counter});
  }
}

TEST_F(Print, APartOfThePrintBeginsAtTheFirstCell) {
  Records(std::vector<int>(20, 1));
  Bind("{Name");
  doc.CheckPrintData();
  EXPECT_FALSE(doc.SetLabelRange(0, 5));
  EXPECT_FALSE(doc.SetLabelRange(21, 30));
  EXPECT_TRUE(doc.SetLabelRange(5, 13));
  EXPECT_EQ(print.fPagesToPrint, 2);
  EXPECT_EQ(Page(1), "EFGHIJ");
  EXPECT_EQ(Page(2), "KLM---");
  EXPECT_EQ(doc.GetPageLabels().front().label, 11);
  doc.CheckPrintData();
  EXPECT_EQ(Page(1), "ABCDEF");
}

TEST_F(Print, ChosenLabelsStandInTheOrderOfThePrint) {
  Records(std::vector<int>(20, 1));
  Bind("{Name");
  doc.CheckPrintData();
  EXPECT_FALSE(doc.SetLabels({}));
  EXPECT_TRUE(doc.SetLabels(*TLabelRanges::Parse("19-,3,7-9,1,8-12")));
  EXPECT_EQ(print.fOnly.Text(), "1,3,7-12,19-20");
  EXPECT_EQ(print.fPagesToPrint, 2);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Page(2), "KLST--");
    EXPECT_EQ(Page(1), "ACGHIJ");
    EXPECT_EQ(Page(2), "KLST--");
  }
  EXPECT_EQ(doc.GetPageLabels().back().label, 20);
  EXPECT_EQ(doc.LabelsFromPage(2), 4);
}

TEST(LabelRanges, AreToldInAnyOrder) {
  const std::pair<const char*, const char*> cases[] = {{"5", "5"},
                                                       {"5-7", "5-7"},
                                                       {"5-", "5-"},
                                                       {"7,5-6", "5-7"},
                                                       {"1-3,5", "1-3,5"},
                                                       {"9-,2,9", "2,9-"},
                                                       {"1,3,2", "1-3"},
                                                       {"2-5,1-9,20", "1-9,20"},
                                                       {"8-9,1-2,4-5,3-7", "1-9"},
                                                       {"2147483647", "2147483647"}};
  for (const auto& [text, told] : cases) EXPECT_EQ(TLabelRanges::Parse(text).value().Text(), told) << text;
  for (const char* text : {"", ",", "1,", "0", "5-3", "-3", "1--3", " 1", "x", "2147483648", "1;2"})
    EXPECT_FALSE(TLabelRanges::Parse(text)) << text;
  const TLabelRanges ranges = *TLabelRanges::Parse("2,4-6,9-");
  EXPECT_EQ(ranges.UpTo(5).Text(), "2,4-5");
  EXPECT_EQ(ranges.UpTo(10).Count(), 6);
  const int places[] = {2, 4, 5, 6, 9, 10};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(ranges.At(i + 1), places[i]);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(ranges.Behind(places[i]), places[i + 1]);
  EXPECT_EQ(ranges.Behind(7), 9);
  EXPECT_EQ(ranges.UpTo(6).Behind(6), 0);
  EXPECT_TRUE(ranges.Has(4) && ranges.Has(2000) && !ranges.Has(3) && !ranges.Has(1));
}

TEST_F(Print, AHostMayMoveTheDataInBetween) {
  Records(std::vector<int>(20, 1));
  Bind("{Name");
  doc.CheckPrintData();
  EXPECT_EQ(Page(1), "ABCDEF");
  data.SetPos(19);
  EXPECT_EQ(Page(2), "GHIJKL");
}

TEST_F(Print, PreviewCopiesLeaveNoTrace) {
  Records({1});
  TKDXBaseText& text = Bind("{Name");
  text.SetPaddingX(2);
  doc.fUndo.Clear();
  doc.fModified = false;
  const int next = doc.fMaxID;
  TKDXBaseItem& copy = doc.MakePreviewCopy(text, 2, 3);
  EXPECT_EQ(copy.fInID, text.fInID);
  EXPECT_EQ(copy.fID, text.fID);
  EXPECT_EQ(copy.aRow, 2);
  EXPECT_EQ(copy.aCol, 3);
  EXPECT_EQ(static_cast<TKDXBaseText&>(copy).GetPaddingX(), 2);
  EXPECT_EQ(doc.fMaxID, next);
  EXPECT_TRUE(doc.IsUndoEmpty());
  EXPECT_FALSE(doc.fModified);
  EXPECT_EQ(doc.fItems.Count(), 1);
  EXPECT_EQ(doc.SearchItem(text.fInID, false), &text);
  copy.StateCalc();
  doc.ClearPreview();
  EXPECT_EQ(doc.fPreview.Count(), 0);
  doc.CalcPending();
}

TEST_F(Print, ASheetHasALimit) {
  doc.fMeasure->fNuHor = doc.fMeasure->fNuVer = 1'000'000;
  Counter("No", 2'000'000'000);
  Bind("@No");
  doc.CheckPrintData();
  EXPECT_THROW(doc.GoToPage(1, true, true), EInvalidOperation);
  doc.fMeasure->fNuVer = 0;
  doc.CheckPrintData();
  doc.GoToPage(2'000'000'000, true, true);
  EXPECT_TRUE(doc.GetPageLabels().empty());
}

TEST_F(Print, AMissingFileIsReportedBeforePrinting) {
  {
    const TTestFile file("a;b\n1;2\n");
    data.SetCsvData(file.Name(), true, scvSemicolon, scqNone);
  }
  data.Select(dtyCsv);
  EXPECT_THROW(doc.CheckPrintData(), Exception);
  EXPECT_FALSE(data.fValidCsv);
  EXPECT_FALSE(data.fHasData);
}

}  // namespace
}  // namespace Zor
