#pragma once

#include <string>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Text {

/// The font of something that shows text, and the forms in which files hold it.
class TFontFields {
 public:
  bool fBold = false, fItalic = false, fUnderline = false, fStrikeout = false;
  std::string fFontName = "Arial";
  TAlphaColor fFontColor = ColorBlack;
  int fFontHeight;  ///< base points

 protected:
  explicit TFontFields(int aFontHeight) : fFontHeight(aFontHeight) {}
  ~TFontFields() = default;

  /// Styles, name and colour: all but the height, whose place differs.
  void RecordFont(TRecord& r);
  /// Adds "Font".
  void WriteJsonFont(TJsonObject& aJson) const;
  /// Reads "Font". Raises EJsonException naming the key.
  void ReadJsonFont(TJsonObject& aJson);
};

}  // namespace Zor::inline Text
