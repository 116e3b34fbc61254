// The document as JSON: the order of the sections, and of reading them.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/ReserveAlike.hpp"
#include "kaldrix/core/TItemMark.hpp"
#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBaseLibSymbol.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"

namespace Zor::inline Base {

namespace {

template <class TList>
void PutList(TJsonObject& aJson, std::string_view aKey, const TList& aList) {
  TJsonArray& array = aJson.AddNewArray(aKey);
  for (const auto* member : aList) member->WriteJson(array);
}

void PutSymbols(TJsonObject& aJson, const TOwnedList<TKDXBaseLibSymbol>& aSymbols) {
  TJsonArray& array = aJson.AddNewArray("Symbols");
  for (const TKDXBaseLibSymbol* symbol : aSymbols) array.AddObject(symbol->WriteJson());
}

/// Calls `aRead` for each entry; what it raises is raised again with the place in front.
template <class TRead>
void ReadList(TJsonObject& aJson, std::string_view aKey, TRead aRead) {
  TJsonArray& array = aJson.GetArray(aKey);
  for (int i = 0; i < array.Count(); ++i) {
    try {
      aRead(array.GetObject(i));
    } catch (const Exception& error) {
      throw EJsonException(std::string(aKey) + "[" + std::to_string(i) + "]: " + error.what());
    }
  }
}

template <class TSection>
void ReadSection(TJsonObject& aJson, int aVersion, std::string_view aKey, TSection& aSection) {
  try {
    aSection.ReadJson(aVersion, aJson.GetObject(aKey));
  } catch (const Exception& error) {
    throw EJsonException(std::string(aKey) + ": " + error.what());
  }
}

}  // namespace

std::unique_ptr<TJsonObject> TKDXBaseLabel::GetJsonSections() const {
  auto json = std::make_unique<TJsonObject>();
  json->PutInt("Version", FormatVersion);
  json->PutInt("EditorMode", fEditorMode);
  json->PutInt("Units", fUnits);
  json->PutInt("Angle", fAngle);
  fMeasure->WriteJson(*json);
  fBackSurf->WriteJson(*json);
  fSettings->WriteJson(*json);
  fPrintInfo->WriteJson(*json);
  fData->WriteJson(*json);
  PutSymbols(*json, fSymbols);
  PutList(*json, "Layers", fLayers);
  if (IsDrawingMode()) PutList(*json, "DimStyles", fDimStyles);
  PutList(*json, "Counters", fCounters);
  return json;
}

std::unique_ptr<TJsonObject> TKDXBaseLabel::GetJson() const {
  std::unique_ptr<TJsonObject> json = GetJsonSections();
  TJsonArray& items = json->AddNewArray("Items");
  items.Reserve(fItems.Count());
  for (const TKDXBaseItem* item : fItems) items.AddObject(item->WriteJson());
  return json;
}

std::string TKDXBaseLabel::GetJsonString(bool aCompact) const {
  if (fItems.IsEmpty()) return GetJson()->ToJSON(aCompact);
  // Item by item, so that the tree of a large drawing never stands in memory as a whole.
  const std::string lineBreak = aCompact ? "" : JsonSerializationConfig().LineBreak;
  const std::string indent = aCompact ? "" : JsonSerializationConfig().IndentChar;
  std::string text = GetJsonSections()->ToJSON(aCompact);
  text.resize(text.size() - lineBreak.size() - 1);  // The closing brace comes after the items.
  text += "," + lineBreak + indent + (aCompact ? "\"Items\":[" : "\"Items\": [") + lineBreak;
  const std::size_t head = text.size();
  for (int i = 0; i < fItems.Count(); ++i) {
    if (i > 0) (text += ',') += lineBreak;
    ReserveAlike(text, head, i, fItems.Count());
    (text += indent) += indent;
    fItems[i]->WriteJson()->AppendJSON(text, aCompact, 2);
  }
  text += lineBreak + indent + "]" + lineBreak + "}";
  return text;
}

void TKDXBaseLabel::ClearForRead() {
  Clear({cleItems, cleLayers, cleBaseLayer, cleCounters, cleSymbols, cleUndoRedo, cleDimStyles}, true);
}

void TKDXBaseLabel::ReadJson(TJsonObject& aJson) {
  ClearForRead();
  const int version = aJson.GetInt("Version");
  fEditorMode = GetEnum<TZOREditorMode>(aJson, "EditorMode");
  if (IsDrawingMode()) Clear({cleBaseStyle}, false);
  fUnits = GetEnum<TZORUnits>(aJson, "Units");
  fAngle = version >= 3100 ? GetEnum<TZORAngle>(aJson, "Angle") : ag0;
  ReadSection(aJson, version, "Measures", *fMeasure);
  ReadSection(aJson, version, "BackSurface", *fBackSurf);
  ReadSection(aJson, version, "Settings", *fSettings);
  ReadSection(aJson, version, "Data", *fData);
  ReadList(aJson, "Symbols", [this](TJsonObject& entry) { ReadSymbol(entry); });
  ReadList(aJson, "Layers", [&](TJsonObject& entry) { (new TKDXLayer(this))->ReadJson(version, entry); });
  if (fLayers.IsEmpty()) new TKDXLayer(this);
  if (IsDrawingMode()) {
    ReadList(aJson, "DimStyles",
             [&](TJsonObject& entry) { (new TKDXDimStyle(this, false))->ReadJson(version, entry); });
    if (fDimStyles.IsEmpty()) new TKDXDimStyle(this, "");
  }
  ReadList(aJson, "Counters", [&](TJsonObject& entry) { (new TKDXCounter(this))->ReadJson(version, entry); });
  CheckActive();
}

TKDXBaseItem& TKDXBaseLabel::ReadJsonItem(int aVersion, TJsonObject& aJson) {
  return *MakeWhole(*this, [&] {
    TKDXBaseItem& item = MakeStoredItem(GetWhole(aJson, "Type"));
    item.ReadJson(aVersion, aJson);
    return &item;
  });
}

void TKDXBaseLabel::ReadSymbol(TJsonObject& /*aJson*/) {
  throw EInvalidOperation("this build has no symbols");
}

void TKDXBaseLabel::CheckActive() {
  if (fActiveLayer >= fLayers.Count()) fActiveLayer = 0;
  if (fActiveDimStyle >= fDimStyles.Count()) fActiveDimStyle = 0;
}

}  // namespace Zor::inline Base
