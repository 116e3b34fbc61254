#include "kaldrix/json/TJsonBaseObject.hpp"

#include <algorithm>
#include <istream>
#include <iterator>
#include <ostream>

#include "kaldrix/json/JsonReader.hpp"
#include "kaldrix/json/JsonWriter.hpp"
#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonDataValueHelper.hpp"
#include "kaldrix/json/TJsonObject.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Jsondataobjects {

// The two kinds

void TJsonBaseObject::operator delete(TJsonBaseObject* aSelf, std::destroying_delete_t) noexcept {
  if (TJsonObject* object = aSelf->AsObject()) {
    object->~TJsonObject();
  } else {
    static_cast<TJsonArray*>(aSelf)->~TJsonArray();
  }
  ::operator delete(aSelf);
}

TJsonObject* TJsonBaseObject::AsObject() noexcept {
  return fIsObject ? static_cast<TJsonObject*>(this) : nullptr;
}

const TJsonObject* TJsonBaseObject::AsObject() const noexcept {
  return fIsObject ? static_cast<const TJsonObject*>(this) : nullptr;
}

TJsonArray* TJsonBaseObject::AsArray() noexcept {
  return fIsObject ? nullptr : static_cast<TJsonArray*>(this);
}

const TJsonArray* TJsonBaseObject::AsArray() const noexcept {
  return fIsObject ? nullptr : static_cast<const TJsonArray*>(this);
}

// Items

TJsonDataValue& TJsonBaseObject::GetItem(int aIndex) {
  CheckIndex(aIndex);
  return fIsObject ? AsObject()->MemberAt(aIndex).Value : AsArray()->Values()[aIndex];
}

const TJsonDataValue& TJsonBaseObject::GetItem(int aIndex) const {
  return const_cast<TJsonBaseObject*>(this)->GetItem(aIndex);
}

void TJsonBaseObject::Clear() noexcept {
  if (TJsonObject* object = AsObject()) {
    object->DestroyMembers();
  } else {
    AsArray()->DestroyValues(0);
  }
}

std::unique_ptr<TJsonBaseObject> TJsonBaseObject::Clone() const {
  if (fIsObject) return AsObject()->Clone();
  return AsArray()->Clone();
}

void TJsonBaseObject::MoveItems(std::size_t aCapacity, std::size_t aItemSize) {
  CheckCapacity(aCapacity);
  void* room = ::operator new(aCapacity* aItemSize);
  if (fCount > 0) std::memcpy(room, fItems, fCount * aItemSize);
  if (!fInPlace) ::operator delete(fItems);
  fInPlace = 0;
  fItems = room;
  fCapacity = static_cast<std::uint32_t>(aCapacity) & MaxCapacity;
}

void TJsonBaseObject::Grow(std::size_t aItemSize) {
  constexpr std::size_t FirstCapacity = 4;
  const std::size_t doubled = std::min<std::size_t>(fCapacity * std::size_t{2}, MaxCapacity);
  MoveItems(std::max({FirstCapacity, doubled, fCount + std::size_t{1}}), aItemSize);
}

void TJsonBaseObject::TakeItems(TJsonBaseObject& aOther, std::size_t aItemSize) {
  Clear();
  if (aOther.fInPlace) aOther.MoveItems(aOther.fCount, aItemSize);
  if (!fInPlace) ::operator delete(fItems);
  fItems = std::exchange(aOther.fItems, nullptr);
  fCount = std::exchange(aOther.fCount, 0);
  fCapacity = aOther.fCapacity;
  aOther.fCapacity = 0;
  fInPlace = 0;
}

// Texts

std::unique_ptr<TJsonBaseObject> TJsonBaseObject::Parse(std::string_view aText) {
  return TJsonReader(aText).ReadAny();
}

std::unique_ptr<TJsonBaseObject> TJsonBaseObject::Parse(const char* aBuffer, std::size_t aLength) {
  return Parse(std::string_view(aBuffer, aLength));
}

std::unique_ptr<TJsonBaseObject> TJsonBaseObject::ParseFromFile(const std::string& aFileName) {
  return Parse(ReadFile(aFileName));
}

void TJsonBaseObject::FromJSON(std::string_view aText) {
  Clear();
  TJsonReader reader(aText);
  if (fIsObject) {
    TakeItems(*reader.ReadObject(), sizeof(TJsonMember));
  } else {
    TakeItems(*reader.ReadArray(), sizeof(TJsonDataValue));
  }
}

void TJsonBaseObject::LoadFromFile(const std::string& aFileName) { FromJSON(ReadFile(aFileName)); }

void TJsonBaseObject::LoadFromStream(std::istream& aStream) {
  const std::string text{std::istreambuf_iterator<char>(aStream), {}};
  if (aStream.bad()) throw EStreamError("The JSON text cannot be read from the stream");
  FromJSON(text);
}

std::string TJsonBaseObject::ToJSON(bool aCompact) const {
  std::string text;
  AppendJSON(text, aCompact, 0);
  return text;
}

void TJsonBaseObject::AppendJSON(std::string& aText, bool aCompact, int aLevel) const {
  TJsonWriter writer(aText, aCompact);
  writer.Write(*this, aLevel);
}

void TJsonBaseObject::SaveToFile(const std::string& aFileName, bool aCompact) const {
  WriteFileAtomically(aFileName, ToJSON(aCompact));
}

void TJsonBaseObject::SaveToStream(std::ostream& aStream, bool aCompact) const {
  const std::string text = ToJSON(aCompact);
  aStream.write(text.data(), static_cast<std::streamsize>(text.size()));
  if (!aStream) throw EStreamError("The JSON text cannot be written to the stream");
}

// Paths

namespace {

/// One step of a path: a name, or the index between brackets as it is written.
struct TStep {
  std::string_view Name;
  bool IsIndex = false;
};

/// Walks the steps of a path and raises on a bad form.
class TPathSteps {
 public:
  explicit TPathSteps(std::string_view aPath) : fPath(aPath) {
    if (aPath.empty()) RaiseJsonPathForm(aPath);
  }

  bool AtEnd() const { return fAt == fPath.size(); }
  /// The path up to and with the last step.
  std::string_view Done() const { return fPath.substr(0, fAt); }
  bool NextIsIndex() const { return !AtEnd() && fPath[fAt] == '['; }

  TStep Next() {
    if (fPath[fAt] == '[') return NextIndex();
    if (fAt > 0 && fPath[fAt++] != '.') RaiseJsonPathForm(fPath);
    const std::size_t end = std::min(fPath.find_first_of(".[]", fAt), fPath.size());
    const TStep step{fPath.substr(fAt, end - fAt)};
    if (step.Name.empty()) RaiseJsonPathForm(fPath);
    fAt = end;
    return step;
  }

 private:
  TStep NextIndex() {
    const std::size_t end = fPath.find(']', fAt);
    if (end == std::string_view::npos) RaiseJsonPathForm(fPath);
    const TStep step{fPath.substr(fAt + 1, end - fAt - 1), true};
    const bool digits = step.Name.find_first_not_of("0123456789") == std::string_view::npos;
    if (step.Name.empty() || !digits) RaiseJsonPathForm(fPath);
    fAt = end + 1;
    return step;
  }

  std::string_view fPath;
  std::size_t fAt = 0;
};

int ElementIndex(const TJsonArray& aItems, const TStep& aStep, const TPathSteps& aSteps) {
  long long index = 0;
  for (const char digit : aStep.Name) index = std::min(index * 10 + (digit - '0'), (1LL << 40));
  if (index >= aItems.Count()) RaiseJsonPathIndex(aStep.Name, aSteps.Done());
  return static_cast<int>(index);
}

/// The handle on what one step leads to.
TJsonDataValueHelper Enter(TJsonBaseObject& aFrom, const TStep& aStep, const TPathSteps& aSteps) {
  TJsonArray* items = aFrom.AsArray();
  if (aStep.IsIndex != (items != nullptr)) {
    RaiseJsonCast(TJsonDataValue::KindName(items != nullptr ? jdtArray : jdtObject),
                  TJsonDataValue::KindName(aStep.IsIndex ? jdtArray : jdtObject));
  }
  if (items != nullptr) return {*items, ElementIndex(*items, aStep, aSteps)};
  return {*aFrom.AsObject(), aStep.Name};
}

/// Raises where a path is of bad form or longer than a parsed tree can be deep.
void CheckPath(std::string_view aPath) {
  int depth = 0;
  for (TPathSteps steps(aPath); !steps.AtEnd(); ++depth) {
    if (depth == TJsonBaseObject::MaxNesting) RaiseJsonPathForm(aPath);
    steps.Next();
  }
}

/// Follows a path; without `aCreate` a missing name on the way ends at a handle that points nowhere.
TJsonDataValueHelper FollowPath(TJsonBaseObject& aRoot, std::string_view aPath, bool aCreate) {
  CheckPath(aPath);
  TPathSteps steps(aPath);
  TJsonBaseObject* from = &aRoot;
  bool missing = false;
  for (;;) {
    const TStep step = steps.Next();
    TJsonDataValueHelper value = missing ? TJsonDataValueHelper() : Enter(*from, step, steps);
    if (steps.AtEnd()) return value;
    if (value.IsNull()) RaiseJsonPathNull(steps.Done());
    missing = !aCreate && value.Type() == jdtNone;
    if (missing) continue;
    if (steps.NextIsIndex()) {
      from = &value.AsArray();
    } else {
      from = &value.AsObject();
    }
  }
}

}  // namespace

TJsonDataValueHelper TJsonBaseObject::GetPath(std::string_view aPath) {
  return FollowPath(*this, aPath, false);
}

void TJsonBaseObject::SetPath(std::string_view aPath, TJsonDataValue aValue) {
  FollowPath(*this, aPath, true) = std::move(aValue);
}

}  // namespace Zor::inline Jsondataobjects
