// Sheets of labels that data fill, as they are exported.
#include <gtest/gtest.h>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/host/Export.hpp"
#include "kaldrix/host/TRunWriter.hpp"
#include "kaldrix/host/TSqliteDataSet.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "support/TTestFile.hpp"
#include "tests/host/Rendered.hpp"

namespace Zor {
namespace {

/// What stands in the text elements of an SVG, in order.
std::string Texts(const std::string& aSvg) {
  std::string texts;
  for (std::size_t at = aSvg.find("<text"); at != std::string::npos; at = aSvg.find("<text", at + 1)) {
    const std::size_t from = aSvg.find('>', at) + 1;
    texts += aSvg.substr(from, aSvg.find('<', from) - from) + " ";
  }
  return texts;
}

class LabelRun : public testing::Test {
 protected:
  LabelRun() {
    doc.fMeasure->fNuHor = 1;
    doc.fMeasure->fNuVer = 3;
    doc.fOptions = {};
  }
  void Bind(const char* aName) { doc.NewText(1000, 1000)->SetData(ftNone, aName, ""); }
  std::string Sheet(int aPage) {
    TExportOptions options;
    options.page = aPage;
    return Texts(ExportSvg(doc, options));
  }

  TKDXLabel doc;
};

TEST_F(LabelRun, SheetsShowTheirRecordsAndCounters) {
  const TTestFile file("Name\nA\nB\nC\nD\n");
  doc.fData->SetCsvData(file.Name(), true, scvSemicolon, scqDoubleQuotes);
  ASSERT_TRUE(doc.fData->Select(dtyCsv));
  (new TKDXCounter(&doc))->fName = "No";
  doc.GetCounter(1)->SetNumTo(5);
  Bind("{Name");
  Bind("@No");
  doc.NewText(1000, 1000)->SetText("fixed");
  EXPECT_EQ(Sheet(1), "Name No fixed Name No fixed Name No fixed ") << "not planned yet: the design";
  doc.CheckPrintData();
  EXPECT_EQ(doc.fPrintInfo->fPagesToPrint, 2);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Sheet(1), "A 1 fixed B 2 fixed C 3 fixed ");
    EXPECT_EQ(Sheet(2), "D 4 fixed D 5 fixed ");
  }
  EXPECT_THROW(Sheet(3), EArgumentOutOfRangeException);
  EXPECT_EQ(Texts(ExportSvg(doc, {})), "D 5 fixed ") << "one label shows where the walk stands";
  doc.SetLabelRange(4, 4);
  EXPECT_EQ(Sheet(1), "D 4 fixed ");
}

/// What one label shows of open data is the same in every form, and leaves the document as it was.
TEST_F(LabelRun, OneLabelShowsTheCurrentRecordInEveryForm) {
  doc.fData->SetJson(R"({"rows": [{"n": "MMMM"}, {"n": "i"}]})");
  doc.fData->Select(dtyJson);
  Bind("{n");
  auto* code = doc.NewQRCode(1000, 12000, "design");
  code->SetData(ftNone, "{n", "");
  doc.CalcPending();
  const std::string json = doc.SaveToBytes(lfJSON);
  EXPECT_EQ(Texts(doc.SVG(svCurrentUnit, 1, false)), "n ") << "no data is open";
  TExportOptions options;
  options.fit = true;
  const auto size = [&] { return Testing::FromPng(ExportPng(doc, options), 300).picture.width; };
  doc.CheckPrintData();
  const int identity = doc.fMaxID;
  EXPECT_EQ(Texts(doc.SVG(svCurrentUnit, 1, false)), "MMMM ");
  EXPECT_EQ(Texts(ExportSvg(doc, {})), "MMMM ");
  const int wide = size();
  const std::string first = ExportPdf(doc, {});
  doc.NextData();
  EXPECT_EQ(Texts(doc.SVG(svCurrentUnit, 1, false)), "i ");
  EXPECT_LT(size(), wide);
  EXPECT_NE(ExportPdf(doc, {}), first);
  EXPECT_EQ(doc.SaveToBytes(lfJSON), json);
  EXPECT_EQ(doc.fMaxID, identity);
  EXPECT_TRUE(doc.fPreview.IsEmpty());
}

/// Where there is a sink, no file is written, whatever the form; "-" alone is no name of a file.
TEST_F(LabelRun, ASinkTakesEveryForm) {
  doc.fData->SetJson(R"({"rows": [{"n": "A"}, {"n": "B"}, {"n": "C"}, {"n": "D"}]})");
  doc.fData->Select(dtyJson);
  Bind("{n");
  TLabelRun run(doc);
  TRunJob job;
  job.output = "-";
  EXPECT_THROW(TRunWriter(doc, run, job), EArgumentException);

  std::vector<std::string> given;
  job.sink = [&](std::string_view bytes) { given.emplace_back(bytes); };
  const auto write = [&](TRunFormat aFormat) {
    given.clear();
    job.format = aFormat;
    TRunWriter(doc, run, job).Write();
    return given;
  };
  const std::vector<std::string> svg = write(rfSvg), png = write(rfPng);
  ASSERT_EQ(svg.size(), 2U) << "a call for each page";
  EXPECT_EQ(Texts(svg[0]) + Texts(svg[1]), "A B C D ");
  ASSERT_EQ(png.size(), 2U);
  EXPECT_GT(Testing::FromPng(png[1], 300).picture.width, 0);
  EXPECT_TRUE(write(rfPdf).front().starts_with("%PDF-"));
  EXPECT_FALSE(FileExists("-") || FileExists("--0001"));

  job.manifest = "ledger";
  EXPECT_THROW(TRunWriter(doc, run, job), EArgumentException);
}

TEST_F(LabelRun, LabelsBesideThePaperCount) {
  doc.fMeasure->fNuVer = 5;
  doc.fMeasure->fNuHor = 2;
  doc.fData->SetJson(R"({"rows": [{"n": 1}, {"n": 2}, {"n": 3}, {"n": 4}, {"n": 5}, {"n": 6}]})");
  doc.fData->Select(dtyJson);
  Bind("{n");
  doc.CheckPrintData();
  EXPECT_EQ(Sheet(1), "1 2 3 4 6 ") << "the fifth column has no room on the paper";
}

TEST_F(LabelRun, AQueryFillsLabels) {
  const TTestFile file("");
  TSqliteDataSet set(file.Name(), "SELECT 'x' AS Name, 2 AS Qty UNION ALL SELECT 'y', 1");
  doc.fData->fDatasets.Add().SetDataset(&set);
  ASSERT_TRUE(doc.fData->Select(dtyDataset));
  doc.fData->SetFieldRepeat("qty");
  Bind("~Name");
  doc.CheckPrintData();
  EXPECT_EQ(Sheet(1), "x x y ");
}

}  // namespace
}  // namespace Zor
