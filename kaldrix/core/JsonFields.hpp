// Values of a document in JSON: the forms in which lengths, colours and enumerations stand, and the checks of
// what a file holds. Errors are EJsonException and name the key.
#pragma once

#include <cmath>
#include <string_view>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor::inline Base {

/// A length or angle, rounded to three decimals.
inline void PutLength(TJsonObject& aJson, std::string_view aKey, double aValue) {
  aJson.PutFloat(aKey, RoundTo3(aValue));
}
/// A value that loses nothing: the shortest decimal that reads back as the same Single.
void PutSingle(TJsonObject& aJson, std::string_view aKey, Single aValue);
/// A size or factor, rounded to two decimals.
inline void PutHundredths(TJsonObject& aJson, std::string_view aKey, double aValue) {
  aJson.PutFloat(aKey, std::nearbyint(aValue * 100) / 100);
}
inline void PutColor(TJsonObject& aJson, std::string_view aKey, TAlphaColor aColor) {
  TJsonObject& color = aJson.AddNewObject(aKey);
  color.Reserve(4);
  color.PutInt("R", static_cast<int>(aColor >> 16 & 0xFF));
  color.PutInt("G", static_cast<int>(aColor >> 8 & 0xFF));
  color.PutInt("B", static_cast<int>(aColor & 0xFF));
  color.PutInt("A", static_cast<int>(aColor >> 24));
}

/// A colour object; 0 where it is missing.
TAlphaColor GetColor(TJsonObject& aJson, std::string_view aKey);

/// A whole number of any width; one above 64 bits is the largest, so that nothing wraps before it is checked.
Int64 GetWhole(const TJsonObject& aJson, std::string_view aKey);

/// Refuses an ordinal that the enumeration does not have.
int CheckedOrdinal(Int64 aOrdinal, int aCount, std::string_view aKey);
template <class TEnum>
TEnum GetEnum(const TJsonObject& aJson, std::string_view aKey) {
  static_assert(EnumCount<TEnum> > 0);
  return static_cast<TEnum>(CheckedOrdinal(GetWhole(aJson, aKey), EnumCount<TEnum>, aKey));
}

/// A number as Single; refuses one that is not finite in that width.
Single GetSingle(const TJsonObject& aJson, std::string_view aKey);
/// A length in `aUnit` as base points; refuses one outside the coordinate range.
Int64 GetCoordinate(const TJsonObject& aJson, std::string_view aKey, TZORUnits aUnit);
/// A coordinate or length that stands in base points; refuses one outside the coordinate range.
Int64 GetBasePoints(const TJsonObject& aJson, std::string_view aKey);
/// A length in `aUnit` as 32-bit base points; refuses one that does not fit.
int GetLength(const TJsonObject& aJson, std::string_view aKey, TZORUnits aUnit);
/// A whole number of 16 bits or less; refuses one outside the limits.
int GetIntIn(const TJsonObject& aJson, std::string_view aKey, int aLeast, int aMost);

}  // namespace Zor::inline Base
