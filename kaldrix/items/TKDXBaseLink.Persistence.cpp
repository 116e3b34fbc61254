// The record and the JSON object of a link.
#include "kaldrix/items/TKDXBaseLink.hpp"

#include <algorithm>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/items/AngleFields.hpp"

namespace Zor::inline Line {

namespace {

/// Routing may lead out of the range that is read again.
Int64 Written(Int64 aBase) { return std::clamp(aBase, -MaxCoordinate, MaxCoordinate); }

void RecordBase(TRecord& r, Int64& aField, const char* aName) {
  if (r.Writing()) return r.Writer()->WriteInt64(Written(aField));
  const std::size_t position = r.Reader()->Position();
  aField = r.Reader()->ReadInt64();
  if (aField == Written(aField)) return;
  throw EReadError(std::string(aName) + " is outside the coordinate range at byte " +
                   std::to_string(position));
}

}  // namespace

void TKDXBaseLink::Record(TRecord& r) {
  TStyledItem::Record(r);
  r.Enum16(fLinkType, "LinkType");
  r.Int32(fFromID);
  r.Int32(fToID);
  r.Int16(fFromIndex);
  r.Int16(fToIndex);
  r.Enum16(fFromType, "FromType");
  r.Enum16(fToType, "ToType");
  RecordLineType(r);
  r.UInt32(fFromColor);
  r.UInt32(fToColor);
  RecordBase(r, fRadio, "Radio");
  RecordBase(r, fCx, "Cx");
  RecordBase(r, fCy, "Cy");
  RecordAngle(r, fStart, "Start");
  RecordAngle(r, fEnd, "End");
  RecordAngle(r, fSweep, "Sweep");
  r.Boolean(fClockWise);
  RecordPoints(r, fLinkPoints, itLink);
}

void TKDXBaseLink::AfterRead(TZORReadType aReadType) {
  TStyledItem::AfterRead(aReadType);
  fFromIndex = std::max<std::int16_t>(fFromIndex, 0);
  fToIndex = std::max<std::int16_t>(fToIndex, 0);
  if (fLinkType == ltArc || fLinkType == ltRoundCorner) SizeLinkPoints();
  fRouted = fDrawn = false;
  fJustRead = true;
}

std::unique_ptr<TJsonObject> TKDXBaseLink::WriteJson() const {
  TakeEnds();
  auto json = TStyledItem::WriteJson();
  json->Reserve(32);
  json->PutInt("LinkType", fLinkType);
  WriteLineType(*json);
  json->PutInt("FromID", fFromID);
  json->PutInt("FromIndex", fFromIndex);
  json->PutInt("FromType", fFromType);
  PutColor(*json, "FromColor", fFromColor);
  json->PutInt("ToID", fToID);
  json->PutInt("ToIndex", fToIndex);
  json->PutInt("ToType", fToType);
  PutColor(*json, "ToColor", fToColor);
  json->PutLong("Radio", Written(fRadio));
  json->PutLong("Cx", Written(fCx));
  json->PutLong("Cy", Written(fCy));
  json->PutFloat("Start", fStart);
  json->PutFloat("End", fEnd);
  json->PutFloat("Sweep", fSweep);
  json->PutBool("ClockWise", fClockWise);
  TJsonArray& points = json->AddNewArray("LinkPoints");
  points.Reserve(GetNumLinkPoints());
  for (const TZORPto& point : fLinkPoints) {
    TJsonObject& pair = points.AddObject();
    pair.Reserve(2);
    pair.PutLong("BaseX", Written(point.bX));
    pair.PutLong("BaseY", Written(point.bY));
  }
  return json;
}

void TKDXBaseLink::ReadJson(int aVersion, TJsonObject& aJson) {
  TStyledItem::ReadJson(aVersion, aJson);
  fLinkType = GetEnum<TZOLinkType>(aJson, "LinkType");
  ReadLineType(aJson);
  fFromID = aJson.GetInt("FromID");
  fFromIndex = static_cast<std::int16_t>(GetIntIn(aJson, "FromIndex", INT16_MIN, INT16_MAX));
  fFromType = GetEnum<TZORTermType>(aJson, "FromType");
  fFromColor = Base::GetColor(aJson, "FromColor");
  fToID = aJson.GetInt("ToID");
  fToIndex = static_cast<std::int16_t>(GetIntIn(aJson, "ToIndex", INT16_MIN, INT16_MAX));
  fToType = GetEnum<TZORTermType>(aJson, "ToType");
  fToColor = Base::GetColor(aJson, "ToColor");
  fRadio = GetBasePoints(aJson, "Radio");
  fCx = GetBasePoints(aJson, "Cx");
  fCy = GetBasePoints(aJson, "Cy");
  fStart = GetAngleField(aJson, "Start");
  fEnd = GetAngleField(aJson, "End");
  fSweep = GetAngleField(aJson, "Sweep");
  fClockWise = aJson.GetBool("ClockWise");
  const TJsonArray& points = aJson.GetArray("LinkPoints");
  fLinkPoints.resize(static_cast<std::size_t>(points.Count()));
  for (int i = 0; i < points.Count(); ++i) {
    const TJsonObject& pair = points.GetObject(i);
    fLinkPoints[static_cast<std::size_t>(i)] = {GetBasePoints(pair, "BaseX"), GetBasePoints(pair, "BaseY")};
  }
  AfterRead(rdNormal);
  UpdateBounds();
}

}  // namespace Zor::inline Line
