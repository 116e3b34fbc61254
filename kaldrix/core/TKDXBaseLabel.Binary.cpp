// The document's sections in binary form.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include "kaldrix/core/TItemMark.hpp"
#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"

namespace Zor::inline Base {

namespace {

/// The least bytes of a record, against which a count is checked.
constexpr std::size_t LeastLayer = 37, LeastDimStyle = 77, LeastCounter = 26;

template <class TList>
void WriteList(TBinaryWriter& bW, const TList& aList, int aCount) {
  bW.WriteInt32(aCount);
  for (int i = 0; i < aCount; ++i) aList[i]->WriteData(bW);
}

template <class TRead>
void ReadRecords(TBinaryReader& bR, int aVersion, const char* aName, std::size_t aLeast, TRead aRead) {
  const int count = TRecord(bR, aVersion).Count(0, aLeast);
  for (int i = 0; i < count; ++i) {
    try {
      aRead();
    } catch (const Exception& error) {
      throw EReadError(std::string(aName) + " " + std::to_string(i + 1) + ": " + error.what());
    }
  }
}

}  // namespace

void TKDXBaseLabel::RecordBase(TRecord& r) {
  r.Enum16(fEditorMode, "EditorMode");
  if (r.Reading() && IsDrawingMode()) Clear({cleBaseStyle}, false);
  r.Enum16(fUnits, "Units");
  if (r.Since(3100)) {
    r.Enum32(fAngle, "Angle");
  } else {
    fAngle = ag0;
  }
}

void TKDXBaseLabel::WriteBaseData(TBinaryWriter& bW) const {
  bW.WriteInt32(FormatVersion);
  TRecord record(bW, FormatVersion);
  const_cast<TKDXBaseLabel*>(this)->RecordBase(record);  // Writing leaves every field as it is.
  fMeasure->WriteData(bW);
  fBackSurf->WriteData(bW);
  fSettings->WriteData(bW);
  fPrintInfo->WriteData(bW);
  fData->WriteData(bW);
}

void TKDXBaseLabel::ReadBaseData(TBinaryReader& bR) {
  ClearForRead();
  fReadedVer = bR.ReadInt32();
  TRecord record(bR, fReadedVer);
  RecordBase(record);
  fMeasure->ReadData(fReadedVer, bR);
  if (!IsDrawingMode()) fMeasure->fDrawScale = 1;
  fBackSurf->ReadData(fReadedVer, bR);
  fSettings->ReadData(fReadedVer, bR);
  fPrintInfo->ReadData(fReadedVer, bR);
  fData->ReadData(fReadedVer, bR);
}

void TKDXBaseLabel::WriteData(TBinaryWriter& bW) {
  RouteLinks();
  WriteList(bW, fLayers, fLayers.Count());
  WriteList(bW, fDimStyles, IsDrawingMode() ? fDimStyles.Count() : 0);
  WriteList(bW, fCounters, fCounters.Count());
  CleanLibray();
}

void TKDXBaseLabel::ReadData(TBinaryReader& bR) {
  const int version = fReadedVer;
  ReadRecords(bR, version, "Layer", LeastLayer, [&] { (new TKDXLayer(this))->ReadData(version, bR); });
  if (fLayers.IsEmpty()) new TKDXLayer(this);
  ReadRecords(bR, version, "Dimension style", LeastDimStyle,
              [&] { (new TKDXDimStyle(this, false))->ReadData(version, bR); });
  if (fDimStyles.IsEmpty()) new TKDXDimStyle(this, "");
  ReadRecords(bR, version, "Counter", LeastCounter, [&] { (new TKDXCounter(this))->ReadData(version, bR); });
  CheckActive();
}

TKDXBaseItem& TKDXBaseLabel::ReadItem(int aVersion, TBinaryReader& bR, TZORReadType aReadType) {
  return *MakeWhole(*this, [&] {
    TKDXBaseItem& item = MakeStoredItem(bR.ReadInt32());
    item.ReadData(aVersion, bR, aReadType);
    return &item;
  });
}

void TKDXBaseLabel::CopySelection() {
  fMemCopy.clear();
  TBinaryWriter writer(fMemCopy);
  writer.WriteInt32(static_cast<int>(fSelection.size()));
  for (const TKDXBaseItem* item : fSelection) item->WriteData(writer);
}

}  // namespace Zor::inline Base
