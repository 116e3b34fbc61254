#include "kaldrix/json/TJsonFile.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/json/JsonReader.hpp"

namespace Zor::inline Jsondataobjects {

namespace {

class TTaker final : public IJsonArrays {
 public:
  explicit TTaker(std::vector<TJsonFile::TArray>& aArrays) : fArrays(aArrays) {}

  void Array(std::string_view aName) override {
    fTaken = fArrays.size() < TJsonFile::MostArrays ? &fArrays.emplace_back() : nullptr;
    if (fTaken != nullptr) fTaken->name = aName;
  }
  void Element(TJsonDataValue& aValue, std::size_t aPlace) override {
    if (fTaken == nullptr) return;
    if (fTaken->starts.empty()) fTaken->first = std::move(aValue);
    if (fTaken->starts.size() == static_cast<std::size_t>(std::numeric_limits<int>::max())) {
      RaiseJsonCount(static_cast<long long>(fTaken->starts.size()) + 1);
    }
    fTaken->starts.push_back(aPlace);
  }
  void ArrayEnd(std::size_t aPlace) override {
    if (fTaken == nullptr) return;
    fTaken->end = aPlace;
    fTaken->starts.shrink_to_fit();
  }

 private:
  std::vector<TJsonFile::TArray>& fArrays;
  TJsonFile::TArray* fTaken = nullptr;
};

}  // namespace

TJsonFile::TJsonFile(TFileWindow aText, std::size_t aStep) : fText(std::move(aText)) {
  TTaker taker(fArrays);
  TJsonReader(fText, aStep).ReadArrays(taker);
}

const TJsonFile::TArray* TJsonFile::Find(std::string_view aName) const {
  const auto found =
      std::find_if(fArrays.begin(), fArrays.end(), [&](const TArray& array) { return array.name == aName; });
  return found == fArrays.end() ? nullptr : &*found;
}

TJsonDataValue TJsonFile::Element(const TArray& aArray, int aIndex) const {
  const auto index = static_cast<std::size_t>(aIndex);
  if (index >= aArray.starts.size()) RaiseJsonIndex(aIndex);
  const std::size_t end = index + 1 < aArray.starts.size() ? aArray.starts[index + 1] : aArray.end;
  return TJsonReader(fText.View(aArray.starts[index], end)).ReadValue();
}

}  // namespace Zor::inline Jsondataobjects
