// Any text as a JSON source: what it offers is selected in turn, planned and walked, with its values, details
// and aggregates. The first byte chooses whether the first field tells the labels of each record.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "support/TBareLabel.hpp"

namespace {

using namespace Zor;

constexpr int LabelsTried = 20, SourcesTried = 20, FieldsTried = 20;

void Require(bool aHolds) {
  if (!aHolds) std::abort();
}

void TryDetails(TKDXData& aData, const TKDXDatasetItem& aSource) {
  for (int i = 0; i < std::min(aSource.fDetails.Count(), FieldsTried); ++i) {
    const TKDXDetailItem& detail = *aSource.fDetails.GetItem(i);
    const int rows = aData.FirstDetail(detail.fCaption);
    Require(rows >= 0);
    for (int k = 0; k < std::min(detail.fFields.Count(), FieldsTried); ++k) {
      const std::string& field = detail.fFields.GetItem(k)->fName;
      aData.DataDetailValue(detail.fCaption, field, "0.00");
      for (int footer = foNone; footer <= foStdDev; ++footer) {
        aData.GetDetailCalc(detail.fCaption, field, "0.0", static_cast<TZORFooter>(footer));
      }
      aData.NextDetail(detail.fCaption);
    }
  }
}

void TrySource(TBareLabel& aDocument, const TKDXDatasetItem& aSource, bool aRepeats) {
  TKDXData& data = *aDocument.fData;
  if (!data.Select(dtyJson, aSource.fCaption)) return;
  if (aRepeats && aSource.fFields.Count() > 0) data.fFieldRepeat = aSource.fFields.GetItem(0)->fName;
  aDocument.CheckPrintData();
  Require(data.fNumlabels >= 0);
  if (!data.fHasData) return;
  for (int label = 1; label <= LabelsTried; ++label, aDocument.NextData()) {
    Require(data.Record() >= 1 && data.Record() <= data.Records());
    for (int i = 0; i < std::min(aSource.fFields.Count(), FieldsTried); ++i) {
      const std::string& field = aSource.fFields.GetItem(i)->fName;
      aDocument.DataValue(field, label % 2 == 0 ? "0.00" : "", ftJson);
      aDocument.DataIntValue(field, ftJson);
    }
    TryDetails(data, aSource);
    data.RecordProblems();
  }
  // Gone to at once, a label shows the record that walking to it shows.
  const int record = data.Record();
  data.First();
  data.Skip(LabelsTried);
  Require(data.Record() == record || aDocument.fPrintInfo->fFillType == ftNone);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  if (aSize == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(aData) + 1, aSize - 1);
  TBareLabel document;
  TKDXData& data = *document.fData;
  try {
    data.SetJson(text);
    for (int i = 0; i < std::min(data.fDatasets.Count(), SourcesTried); ++i) {
      TrySource(document, *data.fDatasets.GetItem(i), aData[0] % 2 == 1);
    }
    document.GoToPage(1, true, false);
    document.GoToPage(3, true, true);
  } catch (const Exception&) {
  }
  return 0;
}
