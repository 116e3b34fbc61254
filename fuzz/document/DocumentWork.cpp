#include "fuzz/document/DocumentWork.hpp"

#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <set>

#include "kaldrix/editor/DocumentCheck.hpp"
#include "kaldrix/platform/TBinaryWriter.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {

namespace {

constexpr TZORExportSVG SvgModes[] = {svCurrentUnit, svCurUnitNoMed, svFactor, svFactorPx};
/// The label's corner, a place inside, and the ends of what a file may hold.
constexpr TZORPto64 Places[] = {
    {0, 0}, {10000, 10000}, {-MaxCoordinate, MaxCoordinate}, {MaxCoordinate, MaxCoordinate}};
constexpr int PickGap = 500;
constexpr Int64 Way = 1000;

void Require(bool aHolds, std::string_view aPromise) {
  if (aHolds) return;
  std::cerr << "Broken: " << aPromise << '\n';
  std::abort();
}

void RequireSame(const std::string& aText, const std::string& aOther, std::string_view aPromise) {
  if (aText != aOther) std::cerr << aText << '\n' << aOther << '\n';
  Require(aText == aOther, aPromise);
}

std::string TextOf(TBareLabel& aDocument) {
  aDocument.CalcPending();
  return aDocument.GetJsonString(true);
}

std::string TextOfReading(std::string_view aBytes) {
  TBareLabel document;
  document.LoadFromBytes(aBytes);
  return TextOf(document);
}

bool Load(TBareLabel& aDocument, std::string_view aBytes) {
  static const std::string empty = TBareLabel().GetJsonString(true);
  try {
    aDocument.LoadFromBytes(aBytes);
    return true;
  } catch (const Exception&) {
    RequireSame(aDocument.GetJsonString(true), empty, "a refused file leaves the document as it was");
    return false;
  }
}

void Export(TBareLabel& aDocument) {
  for (const TZORExportSVG mode : SvgModes) {
    Require(aDocument.SVG(mode, 2.5F, true).ends_with("</svg>\n"), "a drawing exports whole");
  }
}

/// With `aLawful`, all values are such as the setters give. A binary file may hold others, which JSON does
/// not bring back: then the document that JSON gives has to stay as it is.
void RoundTrip(TBareLabel& aDocument, bool aLawful) {
  const std::string text = TextOf(aDocument);
  const std::string again = TextOfReading(text);
  RequireSame(again, aLawful ? text : TextOfReading(again), "the JSON form keeps the document");
  RequireSame(TextOfReading(aDocument.SaveToBytes(lfBin)), TextOf(aDocument),
              "the binary form keeps the document");
}

/// The padding of a node is written in the unit of the document and read as millimetres: other units change
/// it with every round.
void DropPadding(TBareLabel& aDocument) {
  if (aDocument.fUnits == unMM) return;
  for (TKDXBaseItem* item : aDocument.fItems) {
    if (auto* node = dynamic_cast<TKDXBaseFlow*>(item)) node->fPaddingX = node->fPaddingY = 0;
  }
}

/// Positions are written with three decimals of the document's unit, the routes of links in base points:
/// beyond millimetres, the first reading of a form moves the nodes and with them the routes.
bool HasRoutesBesideNodes(const TBareLabel& aDocument) {
  return aDocument.fUnits != unMM &&
         std::any_of(aDocument.fItems.begin(), aDocument.fItems.end(),
                     [](const TKDXBaseItem* item) { return item->fItemType == itLink; });
}

void Look(const TBareLabel& aDocument) {
  Int64 minX = -1, maxX = -1, minY = -1, maxY = -1;
  aDocument.CheckFit(minX, maxX, minY, maxY);
  for (const TKDXBaseItem* item : aDocument.fItems) {
    for (const TZORPto64& place : Places) {
      item->Pick(place.X, place.Y, PickGap, true);
      item->Pick(place.X, place.Y, PickGap, false);
      item->SearchRect({0, 0, place.X, place.Y}, true);
      item->SearchRect({-place.X, -place.Y, place.X, place.Y}, false);
    }
    item->CenterPoint();
  }
}

bool HasDistinctIdentities(const TBareLabel& aDocument) {
  std::set<int> identities;
  for (const TKDXBaseItem* item : aDocument.fItems) identities.insert(item->fInID);
  return static_cast<int>(identities.size()) == aDocument.GetItemsCount();
}

void Edit(TBareLabel& aDocument) {
  const std::string before = TextOf(aDocument);
  for (TKDXBaseItem* item : aDocument.fItems) {
    item->BaseMove(Way, Way, 0, 0, moAll, true);
    item->SetColor(~item->fColor);
  }
  const std::string after = TextOf(aDocument);
  // Commands find their item by its identity: of several with one identity they change the first.
  const bool isExact = HasDistinctIdentities(aDocument);
  while (!aDocument.IsUndoEmpty()) aDocument.Undo();
  if (isExact) RequireSame(TextOf(aDocument), before, "edits can be taken back");
  while (!aDocument.IsRedoEmpty()) aDocument.Redo();
  if (isExact) RequireSame(TextOf(aDocument), after, "edits can be done again");
  aDocument.RotateLeft();
  Export(aDocument);
}

void Paste(TBareLabel& aDocument) {
  const int count = aDocument.GetItemsCount();
  for (TKDXBaseItem* item : aDocument.fItems) aDocument.AddToSelection(*item, false);
  const auto selected = static_cast<int>(aDocument.fSelection.size());
  aDocument.CopySelection();
  aDocument.PasteSelection();
  Require(aDocument.GetItemsCount() == count + selected, "a paste adds what was copied");
  aDocument.BeginUpdate(true);
  aDocument.DeleteSelection();
  aDocument.EndUpdate();
  Require(aDocument.GetItemsCount() == count, "what was pasted can be deleted");
  aDocument.Undo();
  Require(aDocument.GetItemsCount() == count + selected, "what was deleted comes back");
}

}  // namespace

std::string Framed(std::string_view aPayload) {
  constexpr int frameVersion = 1;
  std::string bytes;
  TBinaryWriter writer(bytes);
  writer.WriteBytes({"KALDRIX\x1A", 8});
  writer.WriteInt32(frameVersion);
  writer.WriteInt64(static_cast<Int64>(aPayload.size()));
  const auto* payload = reinterpret_cast<const Bytef*>(aPayload.data());
  writer.WriteUInt32(static_cast<std::uint32_t>(crc32_z(0, payload, aPayload.size())));
  writer.WriteBytes(aPayload);
  return bytes;
}

void WorkOnDocument(std::string_view aBytes) {
  TBareLabel document, scratch;
  const bool wasRead = Load(document, aBytes);
  const bool isClean = CheckDocument(scratch, aBytes).empty();
  Require(wasRead || !isClean, "the check tells why a file is refused");
  if (!wasRead) return;
  Export(document);
  DropPadding(document);
  RoundTrip(document, !TBareLabel::IsBinary(aBytes) && !HasRoutesBesideNodes(document));
  Look(document);
  Edit(document);
  Paste(document);
}

}  // namespace Zor
