// The writer.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "kaldrix/json/TJsonBaseObject.hpp"

namespace Zor::inline Jsondataobjects {

/// Appends the text of trees to a string, which holds room for more until the writer ends.
class TJsonWriter {
 public:
  TJsonWriter(std::string& aText, bool aCompact);
  TJsonWriter(const TJsonWriter&) = delete;
  TJsonWriter& operator=(const TJsonWriter&) = delete;
  ~TJsonWriter();

  void Write(const TJsonBaseObject& aTree, int aLevel);

 private:
  /// The place to write at, with room for so many bytes.
  char* Room(std::size_t aBytes) {
    if (static_cast<std::size_t>(fEnd - fAt) < aBytes) Grow(aBytes);
    return fAt;
  }
  void Grow(std::size_t aBytes);
  void Put(char aChar) {
    *Room(1) = aChar;
    ++fAt;
  }
  void Raw(std::string_view aText);
  void NewLine(int aLevel);
  void Object(const TJsonObject& aObject, int aLevel);
  void Array(const TJsonArray& aItems, int aLevel);
  void Value(const TJsonDataValue& aValue, int aLevel);
  void Quoted(std::string_view aText);
  void Escaped(std::string_view aText);
  template <class T>
  void Integer(T aValue);

  std::string& fText;
  const bool fCompact;
  const std::size_t fStart;  ///< The size of the text before this writer.
  char* fAt;
  char* fEnd;
  std::string fNewLine;  ///< The line break and the deepest indent so far.
};

}  // namespace Zor::inline Jsondataobjects
