#include "kaldrix/json/TJsonObject.hpp"

#include <new>
#include <vector>

#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonDataValueHelper.hpp"

namespace Zor::inline Jsondataobjects {

/// Places of the names of a large object, in an open-addressed table at most half full. Of equal names it
/// holds the first place. The hash is seeded by the table's address, so that a text cannot be made to
/// collide.
class TJsonObject::TIndex {
 public:
  /// Members up to which an object is simply searched.
  static constexpr std::uint32_t CountWithout = 32;

  explicit TIndex(const TJsonObject& aOwner) : fOwner(aOwner) {
    Rebuild(std::bit_ceil(std::size_t{aOwner.fCount} * 4));
  }

  int Find(const TJsonProbe& aProbe) const {
    for (std::size_t slot = SlotOf(aProbe.Name());; slot = (slot + 1) & Mask()) {
      const std::uint32_t place = fPlaces[slot];
      if (place == Empty) return -1;
      if (aProbe.Matches(fOwner.Members()[place].Name)) return static_cast<int>(place);
    }
  }

  /// Enters the member that was added last.
  void AddLast() {
    if (std::size_t{fOwner.fCount} * 2 > fPlaces.size()) return Rebuild(fPlaces.size() * 2);
    Enter(fOwner.fCount - 1);
  }

 private:
  static constexpr std::uint32_t Empty = UINT32_MAX;
  __extension__ using TWide = unsigned __int128;

  std::size_t Mask() const { return fPlaces.size() - 1; }

  std::size_t SlotOf(std::string_view aName) const {
    std::uint64_t hash = fSeed ^ aName.size();
    while (aName.size() >= sizeof(std::uint64_t)) {
      hash = Mix(hash, aName.data(), sizeof(std::uint64_t));
      aName.remove_prefix(sizeof(std::uint64_t));
    }
    return static_cast<std::size_t>(Mix(hash, aName.data(), aName.size())) & Mask();
  }

  static std::uint64_t Mix(std::uint64_t aHash, const char* aBytes, std::size_t aSize) {
    std::uint64_t word = 0;
    if (aSize > 0) std::memcpy(&word, aBytes, aSize);
    const TWide product = TWide{aHash ^ word} * 0x9E3779B97F4A7C15U;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
  }

  void Enter(std::uint32_t aPlace) {
    const TJsonProbe probe(fOwner.Members()[aPlace].Name.View());
    std::size_t slot = SlotOf(probe.Name());
    while (fPlaces[slot] != Empty) {
      if (probe.Matches(fOwner.Members()[fPlaces[slot]].Name)) return;
      slot = (slot + 1) & Mask();
    }
    fPlaces[slot] = aPlace;
  }

  void Rebuild(std::size_t aSize) {
    fPlaces.assign(aSize, Empty);
    for (std::uint32_t place = 0; place < fOwner.fCount; ++place) Enter(place);
  }

  const TJsonObject& fOwner;
  const std::uint64_t fSeed = reinterpret_cast<std::uintptr_t>(this) * 0xC2B2AE3D27D4EB4FU;
  std::vector<std::uint32_t> fPlaces;
};

TJsonObject::TJsonObject() noexcept : TJsonBaseObject(true) {}

TJsonObject::~TJsonObject() {
  DestroyMembers();
  if (!fInPlace) ::operator delete(fItems);
}

void TJsonObject::DestroyMembers() noexcept {
  fIndex.reset();
  for (std::uint32_t i = 0; i < fCount; ++i) Members()[i].~TJsonMember();
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

int TJsonObject::IndexOf(std::string_view aKey) const {
  const TJsonProbe probe(aKey);
  if (fCount > TIndex::CountWithout) {
    if (!fIndex) fIndex = std::make_unique<TIndex>(*this);
    return fIndex->Find(probe);
  }
  const TJsonMember* members = Members();
  for (std::uint32_t i = 0; i < fCount; ++i) {
    if (probe.Matches(members[i].Name)) return static_cast<int>(i);
  }
  return -1;
}

const TJsonDataValue* TJsonObject::Find(std::string_view aKey) const {
  const int place = IndexOf(aKey);
  return place < 0 ? nullptr : &Members()[place].Value;
}

TJsonDataValue* TJsonObject::Find(std::string_view aKey) {
  return const_cast<TJsonDataValue*>(std::as_const(*this).Find(aKey));
}

TJsonDataType TJsonObject::GetType(std::string_view aKey) const { return Read(aKey).Type(); }

std::string_view TJsonObject::GetNameView(int aIndex) const {
  CheckIndex(aIndex);
  return Members()[aIndex].Name.View();
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
  if (fCount == fCapacity) Grow(sizeof(TJsonMember));
  auto* member = new (Members() + fCount) TJsonMember{std::move(key), {}};
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

void TJsonObject::Remove(std::string_view aKey) {
  const int place = IndexOf(aKey);
  if (place >= 0) Delete(place);
}

void TJsonObject::Delete(int aIndex) {
  CheckIndex(aIndex);
  fIndex.reset();
  TJsonMember* at = Members() + aIndex;
  at->~TJsonMember();
  --fCount;
  std::memmove(static_cast<void*>(at), at + 1, (fCount - static_cast<std::uint32_t>(aIndex)) * sizeof *at);
}

std::unique_ptr<TJsonObject> TJsonObject::ExtractObject(std::string_view aKey) {
  const int place = IndexOf(aKey);
  if (place < 0 || Members()[place].Value.AsObject() == nullptr) return nullptr;
  std::unique_ptr<TJsonObject> object = Members()[place].Value.ExtractObject();
  Delete(place);
  return object;
}

std::unique_ptr<TJsonArray> TJsonObject::ExtractArray(std::string_view aKey) {
  const int place = IndexOf(aKey);
  if (place < 0 || Members()[place].Value.AsArray() == nullptr) return nullptr;
  std::unique_ptr<TJsonArray> items = Members()[place].Value.ExtractArray();
  Delete(place);
  return items;
}

std::unique_ptr<TJsonObject> TJsonObject::Clone() const {
  std::unique_ptr<TJsonObject> copy(Allocate(fCount));
  for (std::uint32_t i = 0; i < fCount; ++i) {
    new (copy->Members() + i) TJsonMember{TJsonKey(Members()[i].Name), Members()[i].Value.Clone()};
    ++copy->fCount;
  }
  return copy;
}

void TJsonObject::Reserve(int aCount) {
  if (aCount > static_cast<int>(fCapacity)) MoveItems(static_cast<std::size_t>(aCount), sizeof(TJsonMember));
}

}  // namespace Zor::inline Jsondataobjects
