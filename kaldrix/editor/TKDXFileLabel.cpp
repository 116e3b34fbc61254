#include "kaldrix/editor/TKDXFileLabel.hpp"

#include "kaldrix/core/ItemSweep.hpp"
#include "kaldrix/core/ReserveAlike.hpp"
#include "kaldrix/core/TContentKeeper.hpp"
#include "kaldrix/core/TItemMark.hpp"
#include "kaldrix/core/TKDXBaseLibSymbol.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/json/JsonReader.hpp"
#include "kaldrix/platform/CheckSum.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TAtExit.hpp"

namespace Zor::inline Base {

namespace {

constexpr std::string_view Magic{"KALDRIX\x1A", 8};
constexpr int FrameVersion = 1;
constexpr std::size_t HeadSize = Magic.size() + 4 + 8 + 4;
/// Type and the common record of an item without a name or points.
constexpr std::size_t LeastItem = 29;

/// What a binary file frames. Raises EReadError when the frame does not fit.
std::string_view Payload(std::string_view aBytes) {
  TBinaryReader reader(aBytes);
  reader.ReadBytes(Magic.size());
  const int version = reader.ReadInt32();
  if (version != FrameVersion) throw EReadError("Frame version " + std::to_string(version) + " is not known");
  const Int64 length = reader.ReadInt64();
  const std::uint32_t sum = reader.ReadUInt32();
  if (length < 0 || static_cast<std::uint64_t>(length) != reader.Left()) {
    throw EReadError("The file holds " + std::to_string(reader.Left()) + " bytes of content where " +
                     std::to_string(length) + " belong");
  }
  const std::string_view payload = reader.ReadBytes(reader.Left());
  if (CheckSum(payload) != sum) throw EReadError("The checksum does not fit: the file is damaged");
  return payload;
}

std::string Place(std::string_view aWhat, int aIndex, const char* aWhy) {
  return std::string(aWhat) + "[" + std::to_string(aIndex) + "]: " + aWhy;
}

/// Makes the items while the text is read, where "Items" stands behind the sections.
class TItemsInPassing final : public IJsonElements {
 public:
  explicit TItemsInPassing(TKDXFileLabel& aDocument) : fDocument(aDocument) {}

  void Start(TJsonObject& aFront) override {
    fReads = aFront.Contains("Version") && !aFront.Contains("Items");
    if (!fReads) return;
    fVersion = aFront.GetInt("Version");
    fDocument.ReadSections(aFront);
  }
  void Element(TJsonDataValue& aValue) override {
    if (!fReads) return;
    if (aValue.AsObject() == nullptr) throw EJsonException("An item is no object");
    fDocument.ReadJsonItem(fVersion, *aValue.AsObject());
  }

  bool fReads = false;  ///< what stood in front told how items are read

 private:
  TKDXFileLabel& fDocument;
  int fVersion = 0;
};

}  // namespace

bool TKDXFileLabel::IsBinary(std::string_view aBytes) { return aBytes.starts_with(Magic); }

// Reading -------------------------------------------------------------------------

// What observers throw goes out at the end of a load, and is no fault of the file.

void TKDXFileLabel::LoadFromFile(const std::string& aFilename) {
  const TNoticeHold hold(*this);
  const std::string bytes = ReadFile(aFilename);
  try {
    LoadFromBytes(bytes);
  } catch (const Exception& error) {
    throw Exception(aFilename + ": " + error.what());
  }
}

void TKDXFileLabel::LoadFromBytes(std::string_view aBytes) {
  const TNoticeHold hold(*this);
  if (IsBinary(aBytes)) {
    const std::string_view payload = Payload(aBytes);
    TContentKeeper keeper(*this);
    BeginRead(false);
    ReadBinary(payload);
    EndRead(true);
    keeper.Commit();
  } else if (!LoadJsonInPassing(aBytes)) {
    LoadJsonTree(aBytes);
  }
}

bool TKDXFileLabel::LoadJsonInPassing(std::string_view aBytes) {
  try {
    TContentKeeper keeper(*this);
    BeginRead(false);
    TItemsInPassing items(*this);
    const std::unique_ptr<TJsonObject> behind = TJsonReader(aBytes).ReadObject("Items", items);
    if (!items.fReads || behind->Count() > 0) return false;
    EndRead(true);
    keeper.Commit();
    return true;
  } catch (const Exception&) {
    return false;
  }
}

void TKDXFileLabel::LoadJsonTree(std::string_view aBytes) {
  const std::unique_ptr<TJsonBaseObject> root = TJsonBaseObject::Parse(aBytes);
  auto* json = root != nullptr && root->IsObject() ? static_cast<TJsonObject*>(root.get()) : nullptr;
  if (json == nullptr || (!json->Contains("Version") && !json->Contains("Items"))) {
    throw EJsonException("This is no drawing: it is not a JSON object with \"Version\" or \"Items\"");
  }
  TContentKeeper keeper(*this);
  BeginRead(false);
  ReadJsonDocument(*json);
  EndRead(true);
  keeper.Commit();
}

void TKDXFileLabel::ReadBinary(std::string_view aPayload) {
  TBinaryReader reader(aPayload);
  ReadBaseData(reader);
  ReadData(reader);
  TRecord record(reader, fReadedVer);
  if (record.Count(0, 1) > 0) throw EReadError("Symbols: this build has no symbols");
  const int count = record.Count(0, LeastItem);
  fItems.Reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    try {
      ReadItem(fReadedVer, reader, rdNormal);
    } catch (const Exception& error) {
      throw EReadError(Place("Items", i, error.what()));
    }
  }
  // The print record has no place for it.
  fPrintInfo->SetLabs(reader.ReadInt32());
  if (reader.Left() > 0)
    throw EReadError(std::to_string(reader.Left()) + " bytes stand behind the number of labels");
}

void TKDXFileLabel::ReadSections(TJsonObject& aJson) {
  ReadJson(aJson);
  try {
    fPrintInfo->ReadJson(aJson.GetObject("PrintInfo"));
  } catch (const Exception& error) {
    throw EJsonException(std::string("PrintInfo: ") + error.what());
  }
}

void TKDXFileLabel::ReadJsonDocument(TJsonObject& aJson) {
  ReadSections(aJson);
  const int version = aJson.GetInt("Version");
  TJsonArray& items = aJson.GetArray("Items");
  const int count = items.Count();
  fItems.Reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    try {
      ReadJsonItem(version, items.GetObject(i));
    } catch (const Exception& error) {
      throw EJsonException(Place("Items", i, error.what()));
    }
    // The entry goes while it is at hand: the tree makes room for the items as they come.
    items.SetValue(i, nullptr);
  }
}

// Writing -------------------------------------------------------------------------

void TKDXFileLabel::WritePayload(std::string& aBytes) {
  TBinaryWriter writer(aBytes);
  WriteBaseData(writer);
  WriteData(writer);
  writer.WriteInt32(fSymbols.Count());
  for (const TKDXBaseLibSymbol* symbol : fSymbols) symbol->WriteData(writer);
  writer.WriteInt32(fItems.Count());
  const std::size_t head = aBytes.size();
  int written = 0;
  SweepItems(fItems.begin(), fItems.end(), [&](const TKDXBaseItem* item) {
    ReserveAlike(aBytes, head, written++, fItems.Count());
    item->WriteData(writer);
  });
  writer.WriteInt32(fPrintInfo->fLabs);
}

std::string TKDXFileLabel::SaveToBytes(TZORExt aFormat) {
  if (aFormat == lfJSON) return GetJsonString(false) + "\n";
  // The frame's head tells length and checksum of what stands behind it, so it is written last.
  std::string bytes(HeadSize, '\0');
  WritePayload(bytes);
  const std::string_view payload = std::string_view(bytes).substr(HeadSize);
  std::string head(Magic);
  TBinaryWriter writer(head);
  writer.WriteInt32(FrameVersion);
  writer.WriteInt64(static_cast<Int64>(payload.size()));
  writer.WriteUInt32(CheckSum(payload));
  bytes.replace(0, HeadSize, head);
  return bytes;
}

void TKDXFileLabel::SaveToFile(const std::string& aFilename, TZORExt aFormat) {
  WriteFileAtomically(aFilename, SaveToBytes(aFormat));
  fModified = false;
}

// Items -----------------------------------------------------------------------------

void TKDXFileLabel::CreateElementFromStream(std::string_view aStream) {
  TBinaryReader reader(aStream);
  const int version = reader.ReadInt32();
  ReadItem(version, reader, rdNormal);
}

void TKDXFileLabel::PasteSelection() {
  if (fMemCopy.empty()) return;
  TBinaryReader reader(fMemCopy);
  const int count = TRecord(reader, FormatVersion).Count(0, LeastItem);
  if (count == 0) return;
  const TNoticeHold hold(*this);
  {
    // The end of reading clears fModified.
    bool modified = fModified;
    const TAtExit keep([&] { fModified = modified; });
    BeginRead(true);
    try {
      ReadClipboard(reader, count);
    } catch (...) {
      EndRead(false);
      throw;
    }
    modified = true;
    EndRead(false);
  }
  ContentChanged();
  FillSelPoints();
  ChangeValue(chSelect);
}

void TKDXFileLabel::ReadClipboard(TBinaryReader& aReader, int aCount) {
  const std::vector<TKDXBaseItem*> former = fSelection;
  const bool hadLinks = !fLinks.empty();
  try {
    ClearSelection(false);
    MakeWhole(*this, [&] {
      for (int i = 0; i < aCount; ++i) ReadItem(FormatVersion, aReader, rdPaste);
      if (aReader.Left() == 0) return;
      throw EReadError(std::to_string(aReader.Left()) + " bytes stand behind the items of the clipboard");
    });
  } catch (...) {
    for (TKDXBaseItem* item : former) AddToSelection(*item, false);
    if (hadLinks) FillLinkList();
    throw;
  }
}

}  // namespace Zor::inline Base
