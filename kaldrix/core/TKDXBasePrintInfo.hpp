#pragma once

#include <cstdint>
#include <string>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/core/TLabelRanges.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// What a file holds of a print, and what follows from it.
struct TPrintContent {
  int fLabs = 1;        ///< number of labels
  int fRepetition = 1;  ///< labels that each data record gives
  int fCopies = 1;
  std::uint8_t fOrient = 0;
  // Found and moved by the walk.
  int fPagesToPrint = 0;   ///< 0 until a print has been planned
  int fLabelsToPrint = 0;  ///< the last label, 1-based
  TLabelRanges fOnly;      ///< the labels of a print that was narrowed; empty for all
  int fLastPageFill = 0;   ///< the page that was filled last, 1-based; 0 or less for none
  int fCurrentPage = 0;    ///< 1-based
  int fCurrentLabel = 0;   ///< 1-based
  bool fFindDetail = false;
  TZORFillType fFillType = ftNone;
};

/// What a print run covers and how far it has come. Sizes are base points.
class TKDXBasePrintInfo final : public TPersistent, public TPrintContent {
 public:
  explicit TKDXBasePrintInfo(TKDXBaseLabel* aOwner) : fOwner(aOwner) {}

  void Assign(const TPersistent& aSource) override;

  /// Labels of a whole sheet.
  int LabelsPerPage() const;
  /// Labels of the first sheet, which begins at fFirstRow and fFirstCol.
  int FirstPageLabels() const;
  /// How many labels are printed.
  Int64 LabelsOfRun() const { return fOnly.IsEmpty() ? fLabelsToPrint : fOnly.Count(); }
  /// The number of the label that is printed at a place, both 1-based.
  Int64 LabelAt(Int64 aPlace) const { return fOnly.IsEmpty() ? aPlace : fOnly.At(aPlace); }
  /// The label that is printed after another, 1-based; behind the last one a number above fLabelsToPrint.
  Int64 LabelBehind(int aLabel) const;
  /// Do records, do counters drive the walk?
  bool DataRuns() const { return fFillType != ftNone && fFillType != ftCounter; }
  bool CountersRun() const;
  /// The current page, 1-based, while data drives the walk; else 0.
  int GetPage() const { return fFillType == ftNone ? 0 : fCurrentPage; }

  // First and last label, 1-based; the other one moves so that first stays at or before last.
  void SetFirstLab(int aValue);
  void SetLastLab(int aValue);
  void SetLabs(int aValue);
  void SetRepetition(int aValue);
  /// 1-based, held inside the sheet.
  void SetFirstRow(int aValue);
  void SetFirstCol(int aValue);
  /// Brings the first cell back into the sheet, when that has become another one.
  void HoldFirstCell();
  /// Tells the document on a change.
  void SetPrinterIndex(int aValue);

  // Sizes of a printed page in document units, held between 0 and the label's size.
  Single GetMaLeft() const;
  Single GetMaTop() const;
  Single GetMaRight() const;
  Single GetMaBottom() const;
  Single GetWidth() const;
  Single GetHeight() const;
  void SetMaLeft(Single aValue);
  void SetMaTop(Single aValue);
  void SetMaRight(Single aValue);
  void SetMaBottom(Single aValue);
  void SetWidth(Single aValue);
  void SetHeight(Single aValue);

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Adds "PrintInfo".
  void WriteJson(TJsonObject& aJson) const;
  /// Reads the object of that key.
  void ReadJson(TJsonObject& aJson);

  TKDXBaseLabel* fOwner;
  int fMaLeft = 15000, fMaTop = 10000, fMaRight = 10000, fMaBottom = 15000;
  TAlphaColor fColor = 0xFFFF0000;
  int fWidth = 21000, fHeight = 29700;
  int fFirstRow = 1, fFirstCol = 1;  ///< 1-based
  int fFirstLab = 1, fLastLab = 0;   ///< 1-based; 0 for no last one
  bool fPadCodes = false;            ///< short barcodes may get zeros in front (see ReadingOf); not stored

  // The printer.
  static constexpr int NoPrinter = -99;
  std::string fPrinterName;
  int fPrinterIndex = NoPrinter;  ///< as the host counts its printers

 protected:
  const char* ClassName() const override { return "TKDXBasePrintInfo"; }

 private:
  void Record(TRecord& r);
  int HeldOnLabel(Single aValue, int aMost) const;
};

}  // namespace Zor::inline Base
