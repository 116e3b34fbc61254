#include "kaldrix/json/TJsonObject.hpp"

#include <new>

#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonDataValueHelper.hpp"
#include "kaldrix/json/TJsonIndex.hpp"

namespace Zor::inline Jsondataobjects {

TJsonObject::TJsonObject() noexcept : TJsonBaseObject(true) {}

TJsonObject::~TJsonObject() {
  DestroyMembers();
  if (!fInPlace) ::operator delete(fItems);
}

void TJsonObject::DestroyMembers() noexcept {
  const std::uint32_t slots = SlotCount();
  for (std::uint32_t i = 0; i < slots; ++i) {
    if (!Slots()[i].IsEmpty()) Slots()[i].~TJsonMember();
  }
  fIndex.reset();
  fCount = 0;
}

TJsonObject* TJsonObject::Allocate(std::size_t aCount) {
  CheckCapacity(aCount);
  void* raw = ::operator new(sizeof(TJsonObject) + aCount * sizeof(TJsonMember));
  auto* self = new (raw) TJsonObject;
  if (aCount > 0) self->TakePlace(self + 1, aCount);
  return self;
}

TJsonObject* TJsonObject::Adopt(const void* aMembers, std::size_t aCount) {
  TJsonObject* self = Allocate(aCount);
  if (aCount > 0) std::memcpy(self->fItems, aMembers, aCount * sizeof(TJsonMember));
  self->fCount = static_cast<std::uint32_t>(aCount);
  return self;
}

// Lookups

int TJsonObject::FindSlot(std::string_view aKey) const {
  const TJsonProbe probe(aKey);
  if (fIndex || fCount > TJsonIndex::CountWithout) return NeedIndex().Find(probe);
  const TJsonMember* members = Slots();
  for (std::uint32_t i = 0; i < fCount; ++i) {
    if (probe.Matches(members[i].Name)) return static_cast<int>(i);
  }
  return -1;
}

int TJsonObject::IndexOf(std::string_view aKey) const {
  const int slot = FindSlot(aKey);
  return fIndex && slot >= 0 ? fIndex->PlaceOf(slot) : slot;
}

const TJsonDataValue* TJsonObject::Find(std::string_view aKey) const {
  const int slot = FindSlot(aKey);
  return slot < 0 ? nullptr : &Slots()[slot].Value;
}

TJsonDataValue* TJsonObject::Find(std::string_view aKey) {
  return const_cast<TJsonDataValue*>(std::as_const(*this).Find(aKey));
}

TJsonDataType TJsonObject::GetType(std::string_view aKey) const { return Read(aKey).Type(); }

std::string_view TJsonObject::GetNameView(int aIndex) const {
  CheckIndex(aIndex);
  return MemberAt(aIndex).Name.View();
}

const TJsonDataValue& TJsonObject::Read(std::string_view aKey) const {
  static const TJsonDataValue none;
  const TJsonDataValue* value = Find(aKey);
  return value == nullptr ? none : *value;
}

std::string TJsonObject::GetString(std::string_view aKey) const { return Read(aKey).GetString(); }
std::string_view TJsonObject::GetStringView(std::string_view aKey) const {
  return Read(aKey).GetStringView();
}
int TJsonObject::GetInt(std::string_view aKey) const { return Read(aKey).GetInt(); }
Int64 TJsonObject::GetLong(std::string_view aKey) const { return Read(aKey).GetLong(); }
std::uint64_t TJsonObject::GetULong(std::string_view aKey) const { return Read(aKey).GetULong(); }
double TJsonObject::GetFloat(std::string_view aKey) const { return Read(aKey).GetFloat(); }
bool TJsonObject::GetBool(std::string_view aKey) const { return Read(aKey).GetBool(); }
double TJsonObject::GetDateTime(std::string_view aKey) const { return Read(aKey).GetDateTime(); }
double TJsonObject::GetUtcDateTime(std::string_view aKey) const { return Read(aKey).GetUtcDateTime(); }

TJsonObject& TJsonObject::GetObject(std::string_view aKey) {
  if (const TJsonDataValue* value = Find(aKey)) return value->GetObject();
  return AddNewObject(aKey);
}

TJsonArray& TJsonObject::GetArray(std::string_view aKey) {
  if (const TJsonDataValue* value = Find(aKey)) return value->GetArray();
  return AddNewArray(aKey);
}

TJsonObject* TJsonObject::FindObject(std::string_view aKey) const { return Read(aKey).AsObject(); }
TJsonArray* TJsonObject::FindArray(std::string_view aKey) const { return Read(aKey).AsArray(); }
TJsonDataValueHelper TJsonObject::GetValue(std::string_view aKey) { return {*this, aKey}; }
TJsonDataValueHelper TJsonObject::operator[](std::string_view aKey) { return {*this, aKey}; }

// Setting

TJsonDataValue& TJsonObject::Slot(std::string_view aKey) {
  TJsonDataValue* value = Find(aKey);
  return value == nullptr ? Append(aKey) : *value;
}

TJsonDataValue& TJsonObject::Append(std::string_view aKey) {
  TJsonKey key(aKey);
  MakeRoom();
  auto* member = new (Slots() + SlotCount()) TJsonMember{std::move(key), {}};
  ++fCount;
  if (fIndex) fIndex->AddLast();
  return member->Value;
}

TJsonObject& TJsonObject::SetObject(std::string_view aKey, std::unique_ptr<TJsonObject> aValue) {
  TJsonDataValue::RequireGiven(aValue != nullptr);
  return Slot(aKey).SetObject(std::move(aValue));
}

TJsonArray& TJsonObject::SetArray(std::string_view aKey, std::unique_ptr<TJsonArray> aValue) {
  TJsonDataValue::RequireGiven(aValue != nullptr);
  return Slot(aKey).SetArray(std::move(aValue));
}

TJsonObject& TJsonObject::PutObject(std::string_view aKey, std::unique_ptr<TJsonObject> aValue) {
  TJsonDataValue::RequireGiven(aValue != nullptr);
  return Append(aKey).SetObject(std::move(aValue));
}

TJsonArray& TJsonObject::PutArray(std::string_view aKey, std::unique_ptr<TJsonArray> aValue) {
  TJsonDataValue::RequireGiven(aValue != nullptr);
  return Append(aKey).SetArray(std::move(aValue));
}

TJsonObject& TJsonObject::AddNewObject(std::string_view aKey) {
  return PutObject(aKey, std::make_unique<TJsonObject>());
}

TJsonArray& TJsonObject::AddNewArray(std::string_view aKey) {
  return PutArray(aKey, std::make_unique<TJsonArray>());
}

void TJsonObject::MakeRoom() {
  if (SlotCount() < fCapacity) return;
  // Few gaps would soon be filled again.
  const bool hasMany = fCapacity - fCount > fCapacity / 4;
  Members();
  if (!hasMany) Grow(sizeof(TJsonMember));
}

// Removing

void TJsonObject::Remove(std::string_view aKey) {
  const int slot = FindSlot(aKey);
  if (slot >= 0) RemoveSlot(slot);
}

void TJsonObject::Delete(int aIndex) {
  CheckIndex(aIndex);
  RemoveSlot(fIndex ? fIndex->SlotAt(aIndex) : aIndex);
}

void TJsonObject::RemoveSlot(int aSlot) {
  TJsonMember* at = Slots() + aSlot;
  if (!fIndex && fCount <= TJsonIndex::CountWithout) {
    at->~TJsonMember();
    --fCount;
    std::memmove(static_cast<void*>(at), at + 1, (fCount - static_cast<std::uint32_t>(aSlot)) * sizeof *at);
    return;
  }
  NeedIndex().Drop(static_cast<std::uint32_t>(aSlot));
  at->~TJsonMember();
  std::memset(static_cast<void*>(at), 0, sizeof *at);
  --fCount;
  if (fCount <= TJsonIndex::CountWithout || SlotCount() > 2 * fCount) CloseUp();
}

std::unique_ptr<TJsonObject> TJsonObject::ExtractObject(std::string_view aKey) {
  const int slot = FindSlot(aKey);
  if (slot < 0 || Slots()[slot].Value.AsObject() == nullptr) return nullptr;
  std::unique_ptr<TJsonObject> object = Slots()[slot].Value.ExtractObject();
  RemoveSlot(slot);
  return object;
}

std::unique_ptr<TJsonArray> TJsonObject::ExtractArray(std::string_view aKey) {
  const int slot = FindSlot(aKey);
  if (slot < 0 || Slots()[slot].Value.AsArray() == nullptr) return nullptr;
  std::unique_ptr<TJsonArray> items = Slots()[slot].Value.ExtractArray();
  RemoveSlot(slot);
  return items;
}

// Slots

std::uint32_t TJsonObject::SlotCount() const noexcept { return fIndex ? fIndex->Slots() : fCount; }

TJsonIndex& TJsonObject::NeedIndex() const {
  if (!fIndex) fIndex = std::make_unique<TJsonIndex>(*this);
  return *fIndex;
}

TJsonMember* TJsonObject::Members() const noexcept {
  if (SlotCount() != fCount) const_cast<TJsonObject*>(this)->CloseUp();
  return Slots();
}

TJsonMember& TJsonObject::MemberAt(int aIndex) const noexcept {
  return Slots()[fIndex ? fIndex->SlotAt(aIndex) : aIndex];
}

void TJsonObject::CloseUp() noexcept {
  const std::uint32_t slots = SlotCount();
  fIndex.reset();
  if (slots == fCount) return;
  TJsonMember* to = Slots();
  for (const TJsonMember* from = Slots(); from != Slots() + slots; ++from) {
    if (from->IsEmpty()) continue;
    if (to != from) std::memcpy(static_cast<void*>(to), from, sizeof *to);
    ++to;
  }
}

std::unique_ptr<TJsonObject> TJsonObject::Clone() const {
  std::unique_ptr<TJsonObject> copy(Allocate(fCount));
  const TJsonMember* members = Members();
  for (std::uint32_t i = 0; i < fCount; ++i) {
    new (copy->Slots() + i) TJsonMember{TJsonKey(members[i].Name), members[i].Value.Clone()};
    ++copy->fCount;
  }
  return copy;
}

void TJsonObject::Reserve(int aCount) {
  Members();
  if (aCount > static_cast<int>(fCapacity)) MoveItems(static_cast<std::size_t>(aCount), sizeof(TJsonMember));
}

}  // namespace Zor::inline Jsondataobjects
