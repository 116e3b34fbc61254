// Colours in JSON.
#pragma once

#include <memory>

#include "kaldrix/json/TJsonObject.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Utils {

/// Sets the integers "R", "G", "B" and "A", 0 to 255.
void ColorRGBA(TJsonObject& aJson, TAlphaColor aColor);
/// Sets "Color" to "#RRGGBBAA".
void ColorHex(TJsonObject& aJson, TAlphaColor aColor);
/// From "R", "G", "B" and "A"; without "A" opaque. Each is narrowed to a byte.
TAlphaColor ParseJsColor(const TJsonObject& aJson);
/// From the text "Color", else from "R", "G" and "B"; opaque white without either.
TAlphaColor ParseJsonColor(const TJsonObject& aJson);

/// The form in which documents store colours: an object with the integers "R", "G", "B" and "A".
class TJSONUtils {
 public:
  TJSONUtils() = delete;

  static std::unique_ptr<TJsonObject> SetAlphaColor(TAlphaColor aColor);
  /// Each of the four is narrowed to a byte.
  /// @throws EJsonException when one of the four is missing.
  static TAlphaColor GetAlphaColor(const TJsonObject& aJson);
  /// The same for the older form, without alpha.
  static std::unique_ptr<TJsonObject> SetColor(TColor aColor);
  static TColor GetColor(const TJsonObject& aJson);
};

}  // namespace Zor::inline Utils
