#include <gtest/gtest.h>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(PrintInfo, CountsTheLabelsOfTheFirstSheet) {
  struct TCase {
    int rows, columns, firstRow, firstCol, labels;
  };
  constexpr TCase cases[] = {{7, 3, 1, 1, 21},
                             {7, 3, 2, 3, 16},
                             {7, 3, 7, 3, 1},
                             {7, 3, 1, 2, 20},
                             {1, 1, 1, 1, 1},
                             {1 << 20, 1 << 20, 1, 1, INT32_MAX},
                             {1 << 20, 1 << 20, 2, 1, INT32_MAX}};
  TBareLabel doc;
  for (const TCase& row : cases) {
    doc.fMeasure->fNuHor = row.rows;
    doc.fMeasure->fNuVer = row.columns;
    doc.fPrintInfo->SetFirstRow(row.firstRow);
    doc.fPrintInfo->SetFirstCol(row.firstCol);
    EXPECT_EQ(doc.fPrintInfo->FirstPageLabels(), row.labels) << row.rows << " x " << row.columns;
  }
}

TEST(PrintInfo, SettersHoldValuesInsideTheirLimits) {
  TBareLabel doc;
  TKDXBasePrintInfo& info = *doc.fPrintInfo;
  info.SetFirstRow(99);
  info.SetFirstCol(0);
  EXPECT_EQ(info.fFirstRow, 7);
  EXPECT_EQ(info.fFirstCol, 1);
  info.SetLastLab(4);
  info.SetFirstLab(9);
  EXPECT_EQ(info.fLastLab, 9);
  info.SetLastLab(-1);
  EXPECT_EQ(info.fFirstLab, 1);
  info.SetMaTop(99);
  info.SetMaLeft(-1);
  EXPECT_EQ(info.fMaTop, doc.fMeasure->fHeight);
  EXPECT_EQ(info.fMaLeft, 0);
}

TEST(PrintInfo, AFileCannotBringARepetitionThatTheWalkDividesByZeroWith) {
  TBareLabel doc;
  TJsonObject json;
  doc.fPrintInfo->ReadJson(json);
  EXPECT_EQ(doc.fPrintInfo->fRepetition, 1);
  const std::string bytes(9, '\0');
  TBinaryReader reader(bytes);
  doc.fPrintInfo->ReadData(FormatVersion, reader);
  EXPECT_EQ(doc.fPrintInfo->fRepetition, 1);
}

}  // namespace
}  // namespace Zor
