#include "kaldrix/core/Commands.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/core/ItemSweep.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"

namespace Zor::inline Base {

namespace {

/// The aspect that a row of a table works on; an item that lacks it reads as zero and takes nothing.
template <class TAspect>
const TAspect* As(const TKDXBaseItem& aItem) {
  return dynamic_cast<const TAspect*>(&aItem);
}
template <class TAspect>
TAspect* As(TKDXBaseItem& aItem) {
  return dynamic_cast<TAspect*>(&aItem);
}

/// A row over a getter and a setter of an aspect.
template <class TValue, auto TheGetter, auto TheSetter>
struct TAspectRow;

template <class TValue, class TAspect, class TRead, TRead (TAspect::*TheGetter)() const, class TWrite,
          void (TAspect::*TheSetter)(TWrite)>
struct TAspectRow<TValue, TheGetter, TheSetter> {
  static TValue Read(const TKDXBaseItem& aItem) {
    const TAspect* aspect = As<TAspect>(aItem);
    return aspect == nullptr ? TValue{} : static_cast<TValue>((aspect->*TheGetter)());
  }
  static void Write(TKDXBaseItem& aItem, const TValue& aValue) {
    if (TAspect* aspect = As<TAspect>(aItem)) (aspect->*TheSetter)(static_cast<std::decay_t<TWrite>>(aValue));
  }
};

template <class TValue, auto TheGetter, auto TheSetter>
constexpr TAccess<TValue> Row(int aIndex) {
  using TRow = TAspectRow<TValue, TheGetter, TheSetter>;
  return {aIndex, &TRow::Read, &TRow::Write};
}

constexpr std::array ColorTable{
    Row<TAlphaColor, &IZORStroke::GetColor, &IZORStroke::SetColor>(0),
    Row<TAlphaColor, &IZORBack::GetBackColor, &IZORBack::SetBackColor>(1),
    Row<TAlphaColor, &IZORBack::GetBackColor, &IZORBack::SetBackColor>(2),
    Row<TAlphaColor, &IZORFont::GetFontColor, &IZORFont::SetFontColor>(3),
    Row<TAlphaColor, &IZORSTerm::GetFromColor, &IZORSTerm::SetFromColor>(6),
    Row<TAlphaColor, &IZORSTerm::GetToColor, &IZORSTerm::SetToColor>(7),
    Row<TAlphaColor, &IZORSLink::GetFromColor, &IZORSLink::SetFromColor>(8),
    Row<TAlphaColor, &IZORSLink::GetToColor, &IZORSLink::SetToColor>(9),
};

/// The pen is given back around its setter, which works in millimetres; so the mirror is made here.
void WritePen(TKDXBaseItem& aItem, const int& aValue) {
  TKDXBaseValueCmd::AddCommand(aItem, 0);
  aItem.fPenWidth = aValue;
  aItem.Document().ItemChanged(aItem);
}

constexpr std::array BaseValueTable{
    TAccess<int>{0, [](const TKDXBaseItem& aItem) { return aItem.fPenWidth; }, &WritePen},
    Row<int, &IZORRadio::GetBaseRadio, &IZORRadio::SetBaseRadio>(2),
    Row<int, &IZORSTerm::BaseSizeFrom, &IZORSTerm::SetBaseSizeFrom>(3),
    Row<int, &IZORSTerm::BaseSizeTo, &IZORSTerm::SetBaseSizeTo>(4),
};

constexpr std::array BoolTable{
    Row<bool, &IZORBack::GetFilled, &IZORBack::SetFilled>(0),
    Row<bool, &IZORBack::GetFilled, &IZORBack::SetFilled>(1),
    Row<bool, &IZORFont::GetBold, &IZORFont::SetBold>(2),
    Row<bool, &IZORFont::GetItalic, &IZORFont::SetItalic>(3),
    Row<bool, &IZORFont::GetUnderline, &IZORFont::SetUnderline>(4),
};

constexpr std::array EnumValueTable{
    Row<std::uint8_t, &IZORStyle::GetLineType, &IZORStyle::SetLineType>(0),
    Row<std::uint8_t, &IZORSTerm::GetFromType, &IZORSTerm::SetFromType>(1),
    Row<std::uint8_t, &IZORSTerm::GetToType, &IZORSTerm::SetToType>(2),
    Row<std::uint8_t, &IZORSLink::GetFromType, &IZORSLink::SetFromType>(3),
    Row<std::uint8_t, &IZORSLink::GetToType, &IZORSLink::SetToType>(4),
    Row<std::uint8_t, &TKDXBaseItem::GetAngle, &TKDXBaseItem::SetAngle>(20),
};

constexpr std::array TxtTable{
    Row<std::string, &IZORFont::GetFontName, &IZORFont::SetFontName>(1),
    Row<std::string, &IZORText::GetText, &IZORText::SetText>(2),
    Row<std::string, &IZORSText::GetText, &IZORSText::SetText>(3),
    Row<std::string, &IZORSText::GetText, &IZORSText::SetText>(4),
};

constexpr std::array FloatTable{
    Row<Single, &IZORBar1D2D::GetBarWidth, &IZORBar1D2D::SetBarWidth>(0),
    Row<Single, &IZORBar1D2D::GetBarHeight, &IZORBar1D2D::SetBarHeight>(1),
    Row<Single, &IZORBar1D2D::GetFactor, &IZORBar1D2D::SetFactor>(2),
    Row<Single, &IZORCenter::GetCenterX, &IZORCenter::SetCenterX>(3),
    Row<Single, &IZORCenter::GetCenterY, &IZORCenter::SetCenterY>(4),
};

}  // namespace

void TColorTraits::Announce(TKDXBaseItem& aItem) { aItem.Document().AddState(lsUpdate); }
std::span<const TAccess<TAlphaColor>> TColorTraits::Table() { return ColorTable; }
std::span<const TAccess<int>> TBaseValueTraits::Table() { return BaseValueTable; }
std::span<const TAccess<bool>> TBoolTraits::Table() { return BoolTable; }
std::span<const TAccess<std::uint8_t>> TEnumValueTraits::Table() { return EnumValueTable; }
std::span<const TAccess<std::string>> TTxtTraits::Table() { return TxtTable; }
std::span<const TAccess<Single>> TFloatTraits::Table() { return FloatTable; }

// TKDXCmd --------------------------------------------------

TKDXCmd::TKDXCmd(int aKind, TKDXBaseItem& aReceiver, int aIndex)
    : fDocument(&aReceiver.Document()),
      fKind(aKind),
      fIndex(aIndex),
      fUndRedID(aReceiver.Document().UnReID()),
      fID(aReceiver.fInID),
      fItem(&aReceiver),
      fGoneItems(aReceiver.Document().GoneItems()),
      fDrawing(aReceiver.Document().Drawing()) {}

void TKDXCmd::FetchState() const { Fetch(fItem, sizeof(TKDXBaseItem)); }

bool TKDXCmd::IsAbout(const TKDXBaseItem& aItem) const {
  return fID == aItem.fInID && fDrawing == fDocument->Drawing();
}

void TKDXCmd::TakeReceiver(const TKDXBaseItem& aItem) {
  fID = aItem.fInID;
  fDrawing = fDocument->Drawing();
}

TKDXBaseItem* TKDXCmd::Receiver() const {
  if (fDrawing != fDocument->Drawing()) return nullptr;
  if (fGoneItems == fDocument->GoneItems() && fItem->fInID == fID) return fItem;
  return fDocument->SearchItem(fID, false);
}

bool TKDXCmd::CheckLastProp(int aKind, const TKDXBaseItem& aReceiver, int aIndex) {
  const TKDXCmd* top = aReceiver.Document().ActiveStack().Top();
  return top != nullptr && top->IsAbout(aReceiver) && top->fKind == aKind && top->fIndex == aIndex;
}

bool TKDXCmd::IsRecording(const TKDXBaseItem& aItem) {
  return aItem.Document().IsRecording() && !aItem.fFromPreview;
}

void TKDXCmd::Push(std::unique_ptr<TKDXCmd> aCommand) {
  TKDXBaseLabel& document = *aCommand->fDocument;
  document.ActiveStack().Push(std::move(aCommand));
  document.FireUndoRedoEvent();
}

/// The document is undoing, or redoing, as long as a command runs: where new commands go follows from it.
class TKDXCmd::TRunning {
 public:
  TRunning(TKDXBaseLabel& aDocument, bool aRedo) : fDocument(aDocument) {
    fDocument.fUndoing = !aRedo;
    fDocument.fRedoing = aRedo;
  }
  TRunning(const TRunning&) = delete;
  TRunning& operator=(const TRunning&) = delete;
  ~TRunning() { fDocument.fUndoing = fDocument.fRedoing = false; }

 private:
  TKDXBaseLabel& fDocument;
};

void TKDXCmd::Undo() {
  const TRunning running(*fDocument, false);
  RestoreState();
}

void TKDXCmd::Redo() {
  const TRunning running(*fDocument, true);
  RestoreState();
}

// TKDXCreateCmd --------------------------------------------------

void TKDXCreateCmd::AddCommand(TKDXBaseItem& aItem) {
  if (IsRecording(aItem)) Push(std::unique_ptr<TKDXCmd>(new TKDXCreateCmd(aItem)));
}

void TKDXCreateCmd::DeleteReceiver() {
  if (TKDXBaseItem* item = Receiver()) fDocument->DeleteItem(item, true);
}

void TKDXCreateCmd::Undo() {
  const TRunning running(*fDocument, false);
  DeleteReceiver();
}

void TKDXCreateCmd::Redo() {
  // The delete command that this makes keeps the group.
  const TRunning running(*fDocument, true);
  DeleteReceiver();
}

// TKDXDeleteCmd --------------------------------------------------

TKDXDeleteCmd::TKDXDeleteCmd(TKDXBaseItem& aItem) : TKDXCmd(Kind, aItem, 0) {
  // Written aside, so that the command takes no more memory than the record has.
  thread_local std::string record;
  record.clear();
  TBinaryWriter writer(record);
  writer.WriteInt32(FormatVersion);
  aItem.WriteData(writer);
  fStream = record;
}

void TKDXDeleteCmd::AddCommand(TKDXBaseItem& aItem) {
  if (IsRecording(aItem)) Push(std::unique_ptr<TKDXCmd>(new TKDXDeleteCmd(aItem)));
}

void TKDXDeleteCmd::BringBack() {
  fDocument->CreateElementFromStream(fStream);
  if (!fDocument->fItems.IsEmpty()) fDocument->HandOver(*this, *fDocument->fItems.Last());
}

void TKDXDeleteCmd::Undo() {
  const TRunning running(*fDocument, false);
  BringBack();
}

void TKDXDeleteCmd::Redo() {
  const TRunning running(*fDocument, true);
  BringBack();
}

// TKDXPosCmd --------------------------------------------------

TKDXPosCmd::TKDXPosCmd(TKDXBaseItem& aItem, int aIndex, TZORPosType aPosType)
    : TKDXCmd(Kind, aItem, aIndex),
      fValue(aPosType == ptX ? aItem.GetPointX(aIndex) : aItem.GetPointY(aIndex)),
      fPosType(aPosType) {}

void TKDXPosCmd::AddCommand(TKDXBaseItem& aItem, int aIndex, TZORPosType aPosType) {
  if (!IsRecording(aItem)) return;
  if (CheckLastProp(Kind, aItem, aIndex)) {
    const auto* last = static_cast<const TKDXPosCmd*>(aItem.Document().ActiveStack().Top());
    if (last->fPosType == aPosType) return;
  }
  Push(std::unique_ptr<TKDXCmd>(new TKDXPosCmd(aItem, aIndex, aPosType)));
}

void TKDXPosCmd::RestoreState() {
  TKDXBaseItem* item = Receiver();
  if (item == nullptr) return;
  fPosType == ptX ? item->SetPointX(fIndex, fValue) : item->SetPointY(fIndex, fValue);
}

// TKDXBasePosCmd --------------------------------------------------

TKDXBasePosCmd::TKDXBasePosCmd(TKDXBaseItem& aItem, int aKind, int aIndex)
    : TKDXCmd(aKind, aItem, aIndex), fPoint(aItem.GetPoint(aIndex)) {
  if (aKind != LinkKind) return;
  const TZORBase point = As<IZORSLink>(aItem)->RoutePoint(aIndex);
  fPoint.SetBase(point.X, point.Y);
}

void TKDXBasePosCmd::AddCommand(TKDXBaseItem& aItem, int aKind, int aIndex) {
  if (!IsRecording(aItem) || CheckLastProp(aKind, aItem, aIndex)) return;
  if (aKind == LinkKind && As<IZORSLink>(aItem) == nullptr) return;
  Push(std::unique_ptr<TKDXCmd>(new TKDXBasePosCmd(aItem, aKind, aIndex)));
}

void TKDXBasePosCmd::RestoreState() {
  TKDXBaseItem* item = Receiver();
  if (item == nullptr) return;
  AddCommand(*item, fKind, fIndex);
  if (fKind != LinkKind) return item->SetPoint(fIndex, fPoint);
  if (auto* link = As<IZORSLink>(*item)) link->SetBasePoint(fIndex, fPoint.bX, fPoint.bY, false);
}

// TKDXElePosCmd --------------------------------------------------

TKDXElePosCmd::TKDXElePosCmd(TKDXBaseItem& aItem, int aIndex)
    : TKDXElePosCmd(aItem, aIndex, TZORPtoA(aItem.fPoints)) {}

TKDXElePosCmd::TKDXElePosCmd(TKDXBaseItem& aItem, int aIndex, TZORPtoA aPoints)
    : TKDXCmd(Kind, aItem, aIndex), fPoints(std::move(aPoints)) {}

void TKDXElePosCmd::AddCommand(TKDXBaseItem& aItem, int aIndex) {
  if (!IsRecording(aItem) || CheckLastProp(Kind, aItem, aIndex)) return;
  Push(std::unique_ptr<TKDXCmd>(new TKDXElePosCmd(aItem, aIndex)));
}

void TKDXElePosCmd::FetchState() const {
  TKDXCmd::FetchState();
  Fetch(fPoints.data(), sizeof(TZORPto) * std::min<std::size_t>(fPoints.size(), 4));
}

void TKDXElePosCmd::RestoreState() {
  TKDXBaseItem* item = Receiver();
  if (item == nullptr) return;
  // The points change hands: the mirror takes those of the item.
  std::swap(item->fPoints, fPoints);
  fDocument->ItemChanged(*item);
  if (!IsRecording(*item) || CheckLastProp(Kind, *item, fIndex)) return;
  Push(std::unique_ptr<TKDXCmd>(new TKDXElePosCmd(*item, fIndex, std::move(fPoints))));
}

}  // namespace Zor::inline Base
