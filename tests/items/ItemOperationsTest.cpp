// Every public operation of an item can be called through each class: a helper of a class hides an operation
// of the same name that it inherits, and no warning sees that where the operation is not virtual.
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

/// The type that an operation of TKDXBaseItem has as one of another class.
template <class TItem, class TOperation>
struct TOperationOf;
template <class TItem, class TResult, class... TArgs>
struct TOperationOf<TItem, TResult (TKDXBaseItem::*)(TArgs...)> {
  using TType = TResult (TItem::*)(TArgs...);
};
template <class TItem, class TResult, class... TArgs>
struct TOperationOf<TItem, TResult (TKDXBaseItem::*)(TArgs...) const> {
  using TType = TResult (TItem::*)(TArgs...) const;
};

template <class TItem, class TOperation>
using TOn = typename TOperationOf<TItem, TOperation>::TType;

/// Does not compile for a class that hides an operation or takes it out of reach.
template <class TItem>
constexpr bool HasAll() {
#define HAS(operation) \
  requires { static_cast<TOn<TItem, decltype(&TKDXBaseItem::operation)>>(&TItem::operation); }
  using TCutMove = TOn<TItem, void (TKDXBaseItem::*)(Int64&, Int64&) const>;
  using TCutResize = TOn<TItem, void (TKDXBaseItem::*)(Int64&, Int64&, TZORMoveOpt) const>;
  return HAS(Document) && HAS(GetID) && HAS(GetAngle) && HAS(GetLayer) && HAS(GetOptions) && HAS(Shows) &&
         HAS(SetID) && HAS(SetAngle) && HAS(SetLayer) && HAS(SetOptions) && HAS(GetPenWidth) &&
         HAS(GetColor) && HAS(SetColor) && HAS(SetPenWidth) && HAS(GetPoint) && HAS(GetPointX) &&
         HAS(GetPointY) && HAS(GetPointMMX) && HAS(GetPointMMY) && HAS(SetPointX) && HAS(SetPointY) &&
         HAS(SetPoint) && HAS(SetBase) && HAS(SetBaseX) && HAS(SetBaseY) && HAS(AssignPoints) &&
         HAS(DeletePoint) && HAS(BasePointMove) && HAS(MoveToGrid) && HAS(MoveToPoint) &&
         HAS(CheckBaseBoundsMoveResize) && HAS(GetNumRefPoints) && HAS(GetRefPoint) && HAS(AlignTypes) &&
         HAS(AlignPoints) && HAS(FromBase) && HAS(GetMM) && HAS(XFromBaseAngle) && HAS(YFromBaseAngle) &&
         HAS(DrawElement) && HAS(DrawPreview) && HAS(PrintElement) && HAS(PreviewPos) && HAS(StateModified) &&
         HAS(StateUpdate) && HAS(StateCalc) && HAS(NotifyUpdate) && HAS(Write) && HAS(GetSVGID) &&
         HAS(GetRefX) && HAS(GetRefY) && HAS(Pick) && HAS(SearchRect) && HAS(CheckPoint) && HAS(WriteJson) &&
         HAS(GetIsData) && HAS(CheckFit) && HAS(ReadJson) && HAS(WriteSVG) && HAS(WritePaperSVG) &&
         HAS(UpdateBounds) && HAS(UpdatePoints) && HAS(CheckPosition) && HAS(RotateLeft) &&
         HAS(RotateRight) && HAS(FillData) && HAS(ValueProblem) && HAS(WriteData) && HAS(ReadData) &&
         HAS(BoundsMove) && HAS(BaseMove) && HAS(DrawItem) && HAS(PrintItem) && HAS(CalcValues) &&
         HAS(NumPoints) && HAS(InsertPoint) && HAS(CenterPoint) && HAS(Move) && HAS(ResolveReferences) &&
         HAS(EndIDs) && HAS(IsAttachedToSelection) && HAS(FollowEnds) && HAS(ShowsMeasure) &&
         HAS(MarkSymbolInUse) && HAS(ReplaceDimStyle) && requires {
    static_cast<TCutMove>(&TItem::CheckBaseBoundsMove);
  }
  &&requires { static_cast<TCutResize>(&TItem::CheckBaseBoundsMove); };
#undef HAS
}

template <class... TItems>
constexpr bool EachHasAll() {
  return (HasAll<TItems>() && ...) && (HasAll<TBareItem<TItems>>() && ...);
}
static_assert(
    EachHasAll<TKDXBasePoint, TKDXBaseLine, TKDXBasePolyLine, TKDXBaseArc, TKDXBaseRectangle, TKDXBasePolygon,
               TKDXBaseBezier, TKDXBaseCircle, TKDXBaseSector, TKDXBaseEllipse, TKDXBaseText, TKDXBaseBarcode,
               TKDXBaseQRCode, TKDXBaseDataMatrix, TKDXBasePDF417, TKDXBaseFlow, TKDXBaseLink>());

}  // namespace
}  // namespace Zor
