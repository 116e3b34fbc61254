#include "kaldrix/core/JsonFields.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "kaldrix/core/HeldBase.hpp"

namespace Zor::inline Base {

namespace {

[[noreturn]] void Refuse(std::string_view aKey, const std::string& aWhy) {
  throw EJsonException("\"" + std::string(aKey) + "\": " + aWhy);
}

}  // namespace

void PutSingle(TJsonObject& aJson, std::string_view aKey, Single aValue) {
  std::array<char, 32> text{};
  const char* end = std::to_chars(text.data(), text.data() + text.size(), aValue).ptr;
  double value = 0;
  std::from_chars(text.data(), end, value);
  aJson.PutFloat(aKey, value);
}

TAlphaColor GetColor(TJsonObject& aJson, std::string_view aKey) {
  const TJsonObject* color = aJson.FindObject(aKey);
  if (color == nullptr) color = &aJson.GetObject(aKey);
  const auto byte = [color](std::string_view aName) {
    return static_cast<TAlphaColor>(color->GetInt(aName)) & 0xFF;
  };
  const TAlphaColor red = byte("R"), green = byte("G"), blue = byte("B");
  return byte("A") << 24 | red << 16 | green << 8 | blue;
}

Int64 GetWhole(const TJsonObject& aJson, std::string_view aKey) {
  const Int64 value = aJson.GetLong(aKey);
  return value < 0 && aJson.GetFloat(aKey) > 0 ? std::numeric_limits<Int64>::max() : value;
}

int CheckedOrdinal(Int64 aOrdinal, int aCount, std::string_view aKey) {
  if (aOrdinal < 0 || aOrdinal >= aCount) Refuse(aKey, std::to_string(aOrdinal) + " is not a known value");
  return static_cast<int>(aOrdinal);
}

Single GetSingle(const TJsonObject& aJson, std::string_view aKey) {
  const auto value = static_cast<Single>(aJson.GetFloat(aKey));
  if (!std::isfinite(value)) Refuse(aKey, "the number is too large");
  return value;
}

Int64 GetCoordinate(const TJsonObject& aJson, std::string_view aKey, TZORUnits aUnit) {
  const Single value = GetSingle(aJson, aKey);
  if (std::abs(value) > GetValue(MaxCoordinate, aUnit)) {
    Refuse(aKey, "the position is outside the coordinate range");
  }
  // The Single next to the largest coordinate may lie beyond it; so with lengths.
  return std::clamp(SetValue(value, aUnit), -MaxCoordinate, MaxCoordinate);
}

Int64 GetBasePoints(const TJsonObject& aJson, std::string_view aKey) {
  const Int64 value = aJson.GetLong(aKey);
  if (value < -MaxCoordinate || value > MaxCoordinate) {
    Refuse(aKey, "the position is outside the coordinate range");
  }
  return value;
}

int GetLength(const TJsonObject& aJson, std::string_view aKey, TZORUnits aUnit) {
  const Single value = GetSingle(aJson, aKey);
  if (std::abs(value) > GetValue(std::numeric_limits<int>::max(), aUnit)) {
    Refuse(aKey, "the length is too large");
  }
  return HeldBase(value, aUnit);
}

int GetIntIn(const TJsonObject& aJson, std::string_view aKey, int aLeast, int aMost) {
  const Int64 value = GetWhole(aJson, aKey);
  if (value < aLeast || value > aMost) {
    Refuse(aKey, std::to_string(value) + " is not between " + std::to_string(aLeast) + " and " +
                     std::to_string(aMost));
  }
  return static_cast<int>(value);
}

}  // namespace Zor::inline Base
