// The common part of an item's record and JSON object.
#include "kaldrix/core/TKDXBaseItem.hpp"

#include <algorithm>
#include <array>
#include <string>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXLayer.hpp"

namespace Zor::inline Base {

namespace {

/// The options that pass through JSON.
struct TOptionKey {
  TZOLayerOp option;
  std::string_view key;
};
constexpr std::array<TOptionKey, 4> OptionKeys{
    {{lopVisible, "Visible"}, {lopPrint, "Print"}, {lopSelectable, "Selectable"}, {lopExport, "Export"}}};

/// The largest identity that a file may bring: above it, new items still find numbers of their own.
constexpr int MaxIdentity = 2'000'000'000;

constexpr std::size_t BytesOfPoint = 16;

[[noreturn]] void RefusePoints(TZORItemType aType, int aCount, const std::string& aAllowed) {
  throw EReadError(std::string(NameItem(aType)) + ": " + std::to_string(aCount) + " points do not fit " +
                   aAllowed);
}

/// The count is 16 bits wide; -1 announces a 32-bit count for the items that have more.
constexpr std::int16_t WideCount = -1;

void WritePointCount(TBinaryWriter& bW, std::size_t aCount) {
  if (aCount <= INT16_MAX) return bW.WriteInt16(static_cast<std::int16_t>(aCount));
  bW.WriteInt16(WideCount);
  bW.WriteInt32(static_cast<std::int32_t>(aCount));
}

int ReadPointCount(TBinaryReader& bR) {
  const int count = bR.ReadInt16();
  return count == WideCount ? bR.ReadInt32() : count;
}

/// A coordinate as files and the clipboard hold it: a move may have led out of the range that is read again.
Int64 Written(Int64 aBase) { return std::clamp(aBase, -MaxCoordinate, MaxCoordinate); }

void CheckCoordinate(Int64 aValue, std::size_t aPosition) {
  if (aValue >= -MaxCoordinate && aValue <= MaxCoordinate) return;
  throw EReadError("Position outside the coordinate range at byte " + std::to_string(aPosition));
}

void WritePoints(TBinaryWriter& bW, const TZORPtoA& aPoints) {
  WritePointCount(bW, aPoints.size());
  for (const TZORPto& point : aPoints) {
    bW.WriteInt64(Written(point.bX));
    bW.WriteInt64(Written(point.bY));
  }
}

/// As many as the list has room for.
void ReadPoints(TBinaryReader& bR, TZORPtoA& aPoints) {
  for (TZORPto& point : aPoints) {
    const std::size_t position = bR.Position();
    point.bX = bR.ReadInt64();
    point.bY = bR.ReadInt64();
    CheckCoordinate(point.bX, position);
    CheckCoordinate(point.bY, position);
  }
}

void ReadFreePoints(TBinaryReader& bR, TZORPtoA& aPoints, TZORItemType aType) {
  const int count = ReadPointCount(bR);
  const bool fits = count >= 0 && static_cast<std::size_t>(count) <= bR.Left() / BytesOfPoint;
  if (!fits) RefusePoints(aType, count, "the rest of the data");
  aPoints.resize(static_cast<std::size_t>(count));
  ReadPoints(bR, aPoints);
}

}  // namespace

// Binary --------------------------------------------------

void TKDXBaseItem::WriteData(TBinaryWriter& bW) const {
  bW.WriteInt32(fItemType);
  TRecord record(bW, FormatVersion);
  const_cast<TKDXBaseItem*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXBaseItem::ReadData(int aVersion, TBinaryReader& bR, TZORReadType aReadType) {
  const int inID = bR.ReadInt32();
  TakeIdentity(inID, bR.ReadString(), aReadType);
  TRecord record(bR, aVersion);
  Record(record);
  if (aReadType == rdPaste) {
    BaseMove(fOwner->BaseMoveInc(), fOwner->BaseMoveInc(), 0, 0, moAll, true);
    fOwner->AddToSelection(*this, false);
  }
  AfterRead(aReadType);
  UpdateBounds();
}

void TKDXBaseItem::Record(TRecord& r) {
  if (r.Writing()) {
    r.Writer()->WriteInt32(fInID);
    r.Writer()->WriteString(fID);
  }
  RecordLayer(r);
  r.UInt32(fColor);
  r.Int32(fPenWidth);
  r.Enum32(fAngle, "Angle");
  r.Set32(fOptions);
  RecordOwnPoints(r);
}

void TKDXBaseItem::RecordLayer(TRecord& r) {
  if (r.Writing()) return r.Writer()->WriteInt16(static_cast<std::int16_t>(fOwner->LayerIdx(fLayer)));
  fLayer = fOwner->LayerAt(r.Reader()->ReadInt16());
}

void TKDXBaseItem::RecordOwnPoints(TRecord& r) {
  if (r.Writing()) return WritePoints(*r.Writer(), fPoints);
  if (HasFreePoints(fItemType)) return ReadFreePoints(*r.Reader(), fPoints, fItemType);
  const int count = ReadPointCount(*r.Reader());
  if (count != NumPoints()) RefusePoints(fItemType, count, std::to_string(NumPointsItem(fItemType)));
  ReadPoints(*r.Reader(), fPoints);
}

void TKDXBaseItem::RecordPoints(TRecord& r, TZORPtoA& aPoints, TZORItemType aType) {
  r.Writing() ? WritePoints(*r.Writer(), aPoints) : ReadFreePoints(*r.Reader(), aPoints, aType);
}

void TKDXBaseItem::TakeIdentity(int aInID, std::string aID, TZORReadType aReadType) {
  if (aReadType == rdPaste) {
    aInID = fOwner->NextID();
    aID = StartName(fItemType, aInID);
  } else if (fOwner->fUndoing || fOwner->fRedoing) {
    KeepIdentityFree(aInID, aID);
  } else if (fOwner->IsReading() && aInID > MaxIdentity) {
    throw Exception("\"InID\": " + std::to_string(aInID) + " is above " + std::to_string(MaxIdentity));
  }
  fOwner->ChangeIdentity(*this, aInID, std::move(aID));
}

void TKDXBaseItem::KeepIdentityFree(int& aInID, std::string& aID) const {
  const TKDXBaseItem* holder = fOwner->SearchItem(aInID, false);
  if (holder == nullptr || holder == this) return;
  // A name that tells the identity follows it; one that a user gave stays.
  if (aID == StartName(fItemType, aInID)) aID = StartName(fItemType, fInID);
  aInID = fInID;
}

// JSON --------------------------------------------------

std::unique_ptr<TJsonObject> TKDXBaseItem::WriteJson() const {
  auto json = std::make_unique<TJsonObject>();
  json->Reserve(14);
  json->PutInt("Type", fItemType);
  json->PutString("TypeName", NameItem(fItemType));
  json->PutInt("InID", fInID);
  json->PutString("ID", fID);
  json->PutInt("Layer", fOwner->LayerIdx(fLayer));
  if (fItemType != itSymbol) {
    json->PutInt("Angle", fAngle);
    PutColor(*json, "Color", fColor);
    PutLength(*json, "PenWidth", GetPenWidth());
  }
  TJsonObject& options = json->AddNewObject("Options");
  options.Reserve(4);
  for (const TOptionKey& row : OptionKeys) options.PutBool(row.key, fOptions.Has(row.option));
  TJsonArray& points = json->AddNewArray("Points");
  points.Reserve(NumPoints());
  for (const TZORPto& point : fPoints) {
    TJsonObject& pair = points.AddObject();
    pair.Reserve(2);
    PutLength(pair, "X", GetValue(Written(point.bX), fOwner->fUnits));
    PutLength(pair, "Y", GetValue(Written(point.bY), fOwner->fUnits));
  }
  return json;
}

void TKDXBaseItem::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  const int inID = aJson.GetInt("InID");
  TakeIdentity(inID, aJson.GetString("ID"), rdNormal);
  fLayer = fOwner->LayerAt(aJson.GetInt("Layer"));
  if (fItemType != itSymbol) {
    fAngle = GetEnum<TZORAngle>(aJson, "Angle");
    fColor = Base::GetColor(aJson, "Color");
    fPenWidth = GetLength(aJson, "PenWidth", unMM);
  }
  fOptions.Clear();
  const TJsonObject& options = aJson.GetObject("Options");
  for (const TOptionKey& row : OptionKeys) fOptions.Put(row.option, options.GetBool(row.key));
  ReadJsonPoints(aJson.GetArray("Points"));
}

void TKDXBaseItem::ReadJsonPoints(TJsonArray& aPoints) {
  if (HasFreePoints(fItemType)) fPoints.resize(static_cast<std::size_t>(aPoints.Count()));
  const int count = std::min(aPoints.Count(), NumPoints());
  for (int i = 0; i < count; ++i) {
    const TJsonObject& pair = aPoints.GetObject(i);
    fPoints[static_cast<std::size_t>(i)].SetBase(GetCoordinate(pair, "X", fOwner->fUnits),
                                                 GetCoordinate(pair, "Y", fOwner->fUnits));
  }
}

}  // namespace Zor::inline Base
