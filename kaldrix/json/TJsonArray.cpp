#include "kaldrix/json/TJsonArray.hpp"

#include <algorithm>
#include <new>

#include "kaldrix/json/TJsonDataValueHelper.hpp"

namespace Zor::inline Jsondataobjects {

TJsonArray::~TJsonArray() {
  DestroyValues(0);
  if (!fInPlace) ::operator delete(fItems);
}

void TJsonArray::DestroyValues(std::uint32_t aFrom) noexcept {
  for (std::uint32_t i = aFrom; i < fCount; ++i) Values()[i].~TJsonDataValue();
  fCount = std::min(fCount, aFrom);
}

TJsonArray* TJsonArray::Allocate(std::size_t aCount) {
  CheckCapacity(aCount);
  void* raw = ::operator new(sizeof(TJsonArray) + aCount * sizeof(TJsonDataValue));
  auto* self = new (raw) TJsonArray;
  if (aCount > 0) self->TakePlace(self + 1, aCount);
  return self;
}

TJsonArray* TJsonArray::Adopt(const void* aValues, std::size_t aStride, std::size_t aCount) {
  TJsonArray* self = Allocate(aCount);
  const auto* from = static_cast<const unsigned char*>(aValues);
  auto* to = static_cast<unsigned char*>(self->fItems);
  for (std::size_t i = 0; i < aCount; ++i, from += aStride, to += sizeof(TJsonDataValue)) {
    std::memcpy(to, from, sizeof(TJsonDataValue));
  }
  self->fCount = static_cast<std::uint32_t>(aCount);
  return self;
}

TJsonDataValue& TJsonArray::Append() {
  if (fCount == fCapacity) Grow(sizeof(TJsonDataValue));
  return *new (Values() + fCount++) TJsonDataValue;
}

TJsonDataValueHelper TJsonArray::GetValue(int aIndex) {
  CheckIndex(aIndex);
  return {*this, aIndex};
}

TJsonDataValueHelper TJsonArray::operator[](int aIndex) { return GetValue(aIndex); }

TJsonObject& TJsonArray::AddObject() { return Append().SetObject(std::make_unique<TJsonObject>()); }

TJsonArray& TJsonArray::AddArray() { return Append().SetArray(std::make_unique<TJsonArray>()); }

TJsonObject& TJsonArray::AddObject(std::unique_ptr<TJsonObject> aValue) {
  TJsonDataValue::RequireGiven(aValue != nullptr);
  return Append().SetObject(std::move(aValue));
}

TJsonArray& TJsonArray::AddArray(std::unique_ptr<TJsonArray> aValue) {
  TJsonDataValue::RequireGiven(aValue != nullptr);
  return Append().SetArray(std::move(aValue));
}

void TJsonArray::Delete(int aIndex) {
  CheckIndex(aIndex);
  TJsonDataValue* at = Values() + aIndex;
  at->~TJsonDataValue();
  --fCount;
  std::memmove(static_cast<void*>(at), at + 1, (fCount - static_cast<std::uint32_t>(aIndex)) * sizeof *at);
}

void TJsonArray::SetCount(int aCount) {
  if (aCount < 0 || aCount > MaxSetCount) RaiseJsonCount(aCount);
  const auto count = static_cast<std::uint32_t>(aCount);
  DestroyValues(count);
  Reserve(aCount);
  while (fCount < count) AddNull();
}

std::unique_ptr<TJsonObject> TJsonArray::ExtractObject(int aIndex) {
  std::unique_ptr<TJsonObject> object = At(aIndex).ExtractObject();
  Delete(aIndex);
  return object;
}

std::unique_ptr<TJsonArray> TJsonArray::Clone() const {
  std::unique_ptr<TJsonArray> copy(Allocate(fCount));
  for (std::uint32_t i = 0; i < fCount; ++i) copy->Add(Values()[i].Clone());
  return copy;
}

void TJsonArray::Reserve(int aCount) {
  if (aCount > static_cast<int>(fCapacity)) {
    MoveItems(static_cast<std::size_t>(aCount), sizeof(TJsonDataValue));
  }
}

}  // namespace Zor::inline Jsondataobjects
