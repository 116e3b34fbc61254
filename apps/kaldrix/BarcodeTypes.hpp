// The kinds of barcodes that the program makes, by the words that a person types.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::Program {

struct TBarcodeKind {
  std::string_view word;
  TZORItemType item;
  TZORBarType type;  ///< of a linear one

  bool IsLinear() const { return item == itBarcode; }
};

const std::vector<TBarcodeKind>& BarcodeKinds();
/// Case, blanks, "-" and "_" do not count. Null for a word that is none.
const TBarcodeKind* FindBarcodeKind(std::string_view aWord);

}  // namespace Zor::Program
