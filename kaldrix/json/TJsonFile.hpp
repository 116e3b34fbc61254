#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/json/TJsonObject.hpp"
#include "kaldrix/platform/TFileWindow.hpp"

namespace Zor::inline Jsondataobjects {

/// The arrays of the object that a JSON text is, of which only a window stands in memory, with an offset for
/// each element (8 bytes). The file must not change meanwhile: EStreamError.
class TJsonFile {
 public:
  /// Arrays beyond these are not kept.
  static constexpr std::size_t MostArrays = 10'000;

  struct TArray {
    std::string name;
    std::vector<std::size_t> starts;  ///< where each element begins
    std::size_t end = 0;              ///< where the last one ends, with what stands behind it
    TJsonDataValue first;             ///< the first element
  };

  /// Reads through the whole text, so that a fault anywhere in it raises EJsonParserException here. `aStep`
  /// is how much of the text is looked at at a time.
  explicit TJsonFile(TFileWindow aText, std::size_t aStep = TFileWindow::Step);

  /// None for a blank text.
  const std::vector<TArray>& Arrays() const { return fArrays; }
  /// The first array of that name; none when there is none.
  const TArray* Find(std::string_view aName) const;
  /// An element, 0-based. Raises EListError beyond the end.
  TJsonDataValue Element(const TArray& aArray, int aIndex) const;
  const TFileWindow& Text() const { return fText; }

 private:
  TFileWindow fText;
  std::vector<TArray> fArrays;
};

}  // namespace Zor::inline Jsondataobjects
