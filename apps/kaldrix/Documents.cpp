#include "apps/kaldrix/Documents.hpp"

#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/CheckSum.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::Program {

namespace {

/// The picture of the background that a document in JSON names.
std::string ToldPicture(const std::string& aBytes) {
  constexpr std::string_view key = "\"FileNameImg\"";
  const std::size_t place = aBytes.find(key);
  if (place == std::string::npos || !aBytes.starts_with('{')) return {};
  // The name is empty in nearly all documents, and those are not parsed twice.
  const std::size_t value = aBytes.find_first_not_of(": \t\r\n", place + key.size());
  if (value == std::string::npos || aBytes.compare(value, 2, "\"\"") == 0) return {};
  const std::unique_ptr<TJsonBaseObject> root = TJsonBaseObject::Parse(aBytes);
  const TJsonObject* surface = root->AsObject()->FindObject("BackSurface");
  return surface == nullptr ? std::string() : surface->GetString("FileNameImg");
}

}  // namespace

std::uint32_t LoadDocument(TKDXLabel& aDocument, const std::string& aName) {
  if (aName != "-") aDocument.fImageFolder = ExtractFileDir(ExpandFileName(aName));
  const std::string bytes = ReadInput(aName);
  try {
    aDocument.LoadFromBytes(bytes);
  } catch (const Exception& error) {
    throw Exception(ToldName(aName) + ": " + error.what());
  }
  // A document forgets the name of a picture that is not there: it would get lost without a word.
  if (std::string& picture = aDocument.fBackSurf->fFileName; picture.empty()) picture = ToldPicture(bytes);
  return CheckSum(bytes);
}

void FindPictures(TKDXLabel& aDocument, const std::string& aName) {
  std::string& picture = aDocument.fBackSurf->fFileName;
  if (picture.empty() || FileExists(picture)) return;
  const std::string beside = CombinePath(ExtractFileDir(aName), picture);
  if (FileExists(beside)) picture = beside;
}

void AddPictures(TFileSet& aFiles, const TKDXLabel& aDocument) {
  aFiles.Add(aDocument.fBackSurf->fFileName, "the picture of the background");
  for (const TKDXLayer* layer : aDocument.fLayers) {
    const std::string file = ExtractFileName(layer->fFileImg);
    if (!file.empty())
      aFiles.Add(CombinePath(aDocument.GetAbsoluteImagePath(), file), "the picture of a layer");
  }
}

}  // namespace Zor::Program
