// Any text read through array by array, with as much in memory at a time as the first byte tells: the arrays,
// their elements and the message of a fault are those of the text parsed as a whole.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "kaldrix/json/TJsonFile.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace {

using namespace Zor;

void Require(bool aHolds) {
  if (!aHolds) std::abort();
}

template <class TMade>
std::string Fault(TMade aMade) {
  try {
    aMade();
    return {};
  } catch (const Exception& error) {
    return error.what();
  }
}

bool BeginsArray(std::string_view aText) {
  if (aText.starts_with(Utf8::ByteOrderMark)) aText.remove_prefix(Utf8::ByteOrderMark.size());
  while (!aText.empty() && static_cast<unsigned char>(aText.front()) <= ' ') aText.remove_prefix(1);
  return aText.starts_with('[');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  if (aSize == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(aData) + 1, aSize - 1);
  if (BeginsArray(text)) return 0;  // a file of arrays is an object
  std::unique_ptr<TJsonBaseObject> root;
  std::unique_ptr<TJsonFile> file;
  const std::string fault = Fault([&] { root = TJsonBaseObject::Parse(text); });
  const std::string told =
      Fault([&] { file = std::make_unique<TJsonFile>(TFileWindow(text), aData[0] + std::size_t{1}); });
  Require(fault == told);
  if (root == nullptr || file == nullptr) return 0;
  std::size_t next = 0;
  for (int i = 0; i < root->Count(); ++i) {
    const TJsonArray* rows = root->GetItem(i).AsArray();
    if (rows == nullptr) continue;
    Require(next < file->Arrays().size());
    const TJsonFile::TArray& array = file->Arrays()[next++];
    TJsonArray elements;
    for (int k = 0; k < static_cast<int>(array.starts.size()); ++k) elements.Add(file->Element(array, k));
    Require(array.name == root->AsObject()->GetName(i) && elements.ToJSON() == rows->ToJSON());
  }
  Require(next == file->Arrays().size());
  return 0;
}
