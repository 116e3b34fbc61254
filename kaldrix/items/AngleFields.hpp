// Angles in records and JSON objects, and the checks of what a file holds.
#pragma once

#include <cmath>
#include <string>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/TRecord.hpp"

namespace Zor::inline Base {

/// The greatest magnitude of an angle in a file, in whatever unit: beyond it no direction is left.
inline constexpr double MostAngle = 1e6;

inline bool IsAngle(double aValue) { return std::fabs(aValue) <= MostAngle; }  // Not for a NaN.

/// Raises EReadError for an angle that is not finite or too large.
template <class TFloat>
void RecordAngle(TRecord& r, TFloat& aField, const char* aName) {
  if constexpr (sizeof(TFloat) == sizeof(double)) {
    r.Double(aField);
  } else {
    r.Single(aField);
  }
  if (r.Writing() || IsAngle(aField)) return;
  throw EReadError(std::string(aName) + " is no angle at byte " +
                   std::to_string(r.Reader()->Position() - sizeof(TFloat)));
}

/// Raises EJsonException for an angle that is not finite or too large.
inline double GetAngleField(const TJsonObject& aJson, std::string_view aKey) {
  const double value = aJson.GetFloat(aKey);
  if (!IsAngle(value)) throw EJsonException("\"" + std::string(aKey) + "\": the number is no angle");
  return value;
}

}  // namespace Zor::inline Base
