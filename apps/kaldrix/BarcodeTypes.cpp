#include "apps/kaldrix/BarcodeTypes.hpp"

#include <algorithm>

#include "kaldrix/platform/Utf8.hpp"
#include "kaldrix/types/BarTypeNames.hpp"

namespace Zor::Program {

const std::vector<TBarcodeKind>& BarcodeKinds() {
  static const std::vector<TBarcodeKind> kinds = [] {
    std::vector<TBarcodeKind> all;
    for (std::size_t i = 0; i < BarTypeNames.size(); ++i)
      all.push_back({BarTypeNames[i].word, itBarcode, static_cast<TZORBarType>(i)});
    all.push_back({"qr", itQRCode, btEAN13});
    all.push_back({"datamatrix", itDataMatrix, btEAN13});
    all.push_back({"pdf417", itPDF417, btEAN13});
    return all;
  }();
  return kinds;
}

const TBarcodeKind* FindBarcodeKind(std::string_view aWord) {
  std::string word = LowerCase(aWord);
  std::erase_if(word, [](char c) { return c == '-' || c == '_' || c == ' '; });
  const std::vector<TBarcodeKind>& kinds = BarcodeKinds();
  const auto kind =
      std::find_if(kinds.begin(), kinds.end(), [&](const TBarcodeKind& aKind) { return aKind.word == word; });
  return kind == kinds.end() ? nullptr : &*kind;
}

}  // namespace Zor::Program
