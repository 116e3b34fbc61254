#include "kaldrix/editor/DocumentCheck.hpp"

#include <cmath>
#include <set>
#include <unordered_map>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/TKDXBaseLink.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

using TFindings = std::vector<std::string>;

/// Written numbers have three decimals: what differs by less is the same.
constexpr double RoundingGap = 0.000501;
/// A long list of like findings helps nobody: the rest is counted.
constexpr std::size_t MostFindings = 1000;

bool IsNumber(const TJsonDataValue& aValue) {
  const TJsonDataType type = aValue.Type();
  return type == jdtInt || type == jdtLong || type == jdtULong || type == jdtFloat;
}

std::string Shown(const TJsonDataValue& aValue) {
  switch (aValue.Type()) {
    case jdtArray:
      return "an array";
    case jdtObject:
      return aValue.IsNull() ? "null" : "an object";
    case jdtString:
      return "\"" + aValue.GetString() + "\"";
    default:
      return aValue.GetString();
  }
}

/// Compares what a file holds with what is written for it after it has been read.
class TComparison {
 public:
  explicit TComparison(TFindings& aFindings) : fFindings(aFindings) {}

  void Compare(const std::string& aPlace, const TJsonDataValue& aGiven, const TJsonDataValue& aRead) {
    if (aGiven.AsObject() != nullptr && aRead.AsObject() != nullptr) {
      CompareObjects(aPlace, *aGiven.AsObject(), *aRead.AsObject());
    } else if (aGiven.AsArray() != nullptr && aRead.AsArray() != nullptr) {
      CompareArrays(aPlace, *aGiven.AsArray(), *aRead.AsArray());
    } else if (!Same(aGiven, aRead)) {
      Tell(aPlace, Shown(aGiven) + " is read as " + Shown(aRead));
    }
  }

  void CompareObjects(const std::string& aPlace, const TJsonObject& aGiven, const TJsonObject& aRead) {
    const std::string front = aPlace.empty() ? "" : aPlace + ".";
    for (int i = 0; i < aRead.Count(); ++i) {
      const std::string name = aRead.GetName(i);
      const TJsonDataValue* given = aGiven.Find(name);
      if (given == nullptr) {
        Tell(front + name, "missing");
      } else {
        Compare(front + name, *given, aRead.GetItem(i));
      }
    }
    std::set<std::string> seen;
    for (int i = 0; i < aGiven.Count(); ++i) {
      const std::string name = aGiven.GetName(i);
      if (!seen.insert(name).second) Tell(front + name, "occurs twice");
      if (!aRead.Contains(name)) Tell(front + name, "unknown key");
    }
  }

 private:
  void CompareArrays(const std::string& aPlace, const TJsonArray& aGiven, const TJsonArray& aRead) {
    if (aGiven.Count() != aRead.Count()) {
      Tell(aPlace, std::to_string(aGiven.Count()) + " entries, of which " + std::to_string(aRead.Count()) +
                       " are read");
    }
    const int count = std::min(aGiven.Count(), aRead.Count());
    for (int i = 0; i < count; ++i) {
      Compare(aPlace + "[" + std::to_string(i) + "]", aGiven.GetItem(i), aRead.GetItem(i));
    }
  }

  static bool Same(const TJsonDataValue& aGiven, const TJsonDataValue& aRead) {
    if (IsNumber(aGiven) && IsNumber(aRead)) {
      return aGiven.GetString() == aRead.GetString() ||
             std::abs(aGiven.GetFloat() - aRead.GetFloat()) < RoundingGap;
    }
    return aGiven.Type() == aRead.Type() && Shown(aGiven) == Shown(aRead);
  }

  void Tell(const std::string& aPlace, const std::string& aWhat) {
    fFindings.push_back(aPlace + ": " + aWhat);
  }

  TFindings& fFindings;
};

std::string Entry(int aIndex) { return "Items[" + std::to_string(aIndex) + "]"; }

void CheckIdentities(const TKDXBaseLabel& aDocument, TFindings& aFindings) {
  std::unordered_map<int, int> identities;
  std::unordered_map<std::string, int> names;
  int index = 0;
  for (const TKDXBaseItem* item : aDocument.fItems) {
    const auto [identity, isNew] = identities.emplace(item->fInID, index);
    if (!isNew) {
      aFindings.push_back(Entry(index) + ".InID: " + std::to_string(item->fInID) + " is that of " +
                          Entry(identity->second));
    }
    const auto [name, isNewName] = names.emplace(LowerCase(Trim(item->fID)), index);
    if (!isNewName) {
      aFindings.push_back(Entry(index) + ".ID: \"" + item->fID + "\" is that of " + Entry(name->second));
    }
    ++index;
  }
}

/// A link without both its nodes is kept, but not drawn.
void CheckLinks(TKDXFileLabel& aDocument, TFindings& aFindings) {
  int index = -1;
  for (const TKDXBaseItem* item : aDocument.fItems) {
    ++index;
    const auto* link = dynamic_cast<const TKDXBaseLink*>(item);
    if (link == nullptr) continue;
    for (const auto& [key, id] : {std::pair(".FromID", link->fFromID), std::pair(".ToID", link->fToID)}) {
      if (dynamic_cast<const IZORLink*>(aDocument.SearchItem(id, false)) != nullptr) continue;
      aFindings.push_back(Entry(index) + key + ": " + std::to_string(id) +
                          " is the InID of no item that links end on");
    }
  }
}

/// Codes that stand in the document; what data brings is judged when it is printed.
void CheckCodes(const TKDXBaseLabel& aDocument, TFindings& aFindings) {
  int index = -1;
  for (const TKDXBaseItem* item : aDocument.fItems) {
    ++index;
    if (item->aIsData || dynamic_cast<const IZORBar1D2D*>(item) == nullptr) continue;
    const std::string problem = item->ValueProblem();
    if (!problem.empty()) aFindings.push_back(Entry(index) + ".Code: " + problem);
  }
}

void CheckSizes(const TKDXBaseLabel& aDocument, TFindings& aFindings) {
  const TKDXMeasure& measure = *aDocument.fMeasure;
  const auto check = [&](const char* aName, int aSize) {
    if (aSize < TKDXMeasure::LeastSize)
      aFindings.push_back(std::string("Measures.") + aName + ": below 5 mm");
  };
  check("LabelWidth", measure.fWidth);
  check("LabelHeight", measure.fHeight);
  check("PaperWidth", measure.fPaperWidth);
  check("PaperHeight", measure.fPaperHeight);
  if (measure.fNuHor < 1) aFindings.emplace_back("Measures.Rows: below 1");
  if (measure.fNuVer < 1) aFindings.emplace_back("Measures.Columns: below 1");
}

/// The second point of these follows from a size that the host measures, so what a file holds there does not
/// count.
bool IsMeasured(TZORItemType aType) { return aType == itText || aType == itBarcode; }

void PassMeasured(const TJsonObject& aGiven, TJsonObject& aRead) {
  const TJsonArray* given = aGiven.FindArray("Points");
  TJsonArray* read = aRead.FindArray("Points");
  if (given != nullptr && given->Count() > 1 && read->Count() > 1)
    read->SetValue(1, given->GetItem(1).Clone());
}

void CheckItems(TKDXFileLabel& aScratch, TJsonObject& aJson, const TJsonObject& aGiven,
                TFindings& aFindings) {
  const int version = aJson.GetInt("Version");
  TJsonArray& items = aJson.GetArray("Items");
  const TJsonArray* given = aGiven.FindArray("Items");
  TComparison comparison(aFindings);
  for (int i = 0; i < items.Count() && aFindings.size() < MostFindings; ++i) {
    try {
      const TKDXBaseItem& item = aScratch.ReadJsonItem(version, items.GetObject(i));
      const std::unique_ptr<TJsonObject> read = item.WriteJson();
      if (IsMeasured(item.fItemType)) PassMeasured(given->GetObject(i), *read);
      comparison.CompareObjects(Entry(i), given->GetObject(i), *read);
    } catch (const Exception& error) {
      aFindings.push_back(Entry(i) + ": " + error.what());
    }
  }
}

void CheckJson(TKDXFileLabel& aScratch, std::string_view aBytes, TFindings& aFindings) {
  const std::unique_ptr<TJsonBaseObject> root = TJsonBaseObject::Parse(aBytes);
  if (root == nullptr || !root->IsObject())
    throw EJsonException("This is no drawing: it is not a JSON object");
  TJsonObject& json = *root->AsObject();
  // Reading adds empty sections where some are missing: what was given is kept apart.
  const std::unique_ptr<TJsonObject> given = json.Clone();
  aScratch.ReadSections(json);
  const std::unique_ptr<TJsonObject> read = aScratch.GetJson();
  read->Remove("Items");
  const std::unique_ptr<TJsonObject> sections = given->Clone();
  if (sections->Contains("Items")) {
    sections->Remove("Items");
  } else {
    aFindings.emplace_back("Items: missing");
  }
  TComparison(aFindings).CompareObjects("", *sections, *read);
  if (given->FindArray("Items") != nullptr) CheckItems(aScratch, json, *given, aFindings);
}

}  // namespace

std::vector<std::string> CheckDocument(TKDXFileLabel& aScratch, std::string_view aBytes) {
  TFindings findings;
  try {
    if (TKDXFileLabel::IsBinary(aBytes)) {
      aScratch.LoadFromBytes(aBytes);
    } else {
      aScratch.BeginRead(false);
      CheckJson(aScratch, aBytes, findings);
      aScratch.EndRead(false);
    }
    CheckIdentities(aScratch, findings);
    CheckLinks(aScratch, findings);
    CheckCodes(aScratch, findings);
    CheckSizes(aScratch, findings);
  } catch (const Exception& error) {
    findings.emplace_back(error.what());
  }
  if (findings.size() > MostFindings) {
    const std::size_t rest = findings.size() - MostFindings;
    findings.resize(MostFindings);
    findings.push_back("and " + std::to_string(rest) + " more");
  }
  return findings;
}

}  // namespace Zor::inline Base
