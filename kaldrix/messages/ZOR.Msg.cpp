#include "kaldrix/messages/ZOR.Msg.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "kaldrix/messages/BuiltInTexts.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TIniFile.hpp"

namespace Zor::inline Msg {

namespace {

using TDictionary = std::unordered_map<std::string, std::string>;

struct TGroup {
  std::string_view Prefix;
  std::string_view Section;
  int BuiltInCount;
};

// In the order in which a language file is written.
constexpr std::array Groups{
    TGroup{"err", "Error", 15},   TGroup{"inf", "Info", 4},     TGroup{"pro", "Properties", 166},
    TGroup{"lis", "List", 57},    TGroup{"dia", "Dialogs", 76}, TGroup{"edi", "Editor", 34},
    TGroup{"act", "Actions", 66}, TGroup{"cmd", "Commands", 0},
};

// In the order in which one is read; of a key that stands twice the later text counts.
constexpr std::array<std::string_view, 8> ReadOrder{"Error",   "Info",   "Commands", "Properties",
                                                    "Dialogs", "Editor", "Actions",  "List"};

constexpr bool EachGroupIsWhole() {
  for (const TGroup& group : Groups) {
    const auto inGroup = [&](const TBuiltInText& text) { return text.Key.starts_with(group.Prefix); };
    if (std::count_if(std::begin(BuiltInTexts), std::end(BuiltInTexts), inGroup) != group.BuiltInCount)
      return false;
  }
  return true;
}
static_assert(EachGroupIsWhole());

void Overlay(TDictionary& aTexts, const TIniFile& aFile) {
  for (const std::string_view section : ReadOrder) {
    for (const auto& [key, text] : aFile.Lines(section)) aTexts.insert_or_assign(key, text);
  }
}

TDictionary BuiltIn() {
  TDictionary texts;
  texts.reserve(std::size(BuiltInTexts));
  for (const TBuiltInText& text : BuiltInTexts) texts.emplace(text.Key, text.Text);
  return texts;
}

/// The catalogue: texts that nobody changes any more, until others take their place.
class TCatalogue {
 public:
  using TTexts = std::shared_ptr<const TDictionary>;

  /// Stays while the caller holds it, whatever is loaded meanwhile.
  TTexts Texts() const {
    const std::lock_guard lock(fMutex);
    return fTexts;
  }
  void Put(TDictionary aTexts) {
    TTexts texts = std::make_shared<const TDictionary>(std::move(aTexts));
    const std::lock_guard lock(fMutex);
    fTexts.swap(texts);  // the former texts go behind the lock, with their last reader
  }

 private:
  mutable std::mutex fMutex;
  TTexts fTexts = std::make_shared<const TDictionary>(BuiltIn());
};

/// Made at the first use, so that objects of any unit find their texts, however early.
TCatalogue& Catalogue() {
  static TCatalogue catalogue;
  return catalogue;
}

void LoadFile(const TIniFile& aFile) {
  TDictionary texts = BuiltIn();
  Overlay(texts, aFile);
  Catalogue().Put(std::move(texts));
}

std::string Value(std::string_view aPrefix, std::string_view aResName) {
  const TCatalogue::TTexts texts = Catalogue().Texts();
  const auto found = texts->find(std::string(aPrefix).append(aResName));
  return found == texts->end() ? std::string(TKDXMsg::NotFound) : found->second;
}

}  // namespace

std::string TKDXMsg::GetErrorValue(std::string_view aResName) { return Value("err", aResName); }
std::string TKDXMsg::GetInfoValue(std::string_view aResName) { return Value("inf", aResName); }
std::string TKDXMsg::GetPropValue(std::string_view aResName) { return Value("pro", aResName); }
std::string TKDXMsg::GetListValue(std::string_view aResName) { return Value("lis", aResName); }
std::string TKDXMsg::GetDialogsValue(std::string_view aResName) { return Value("dia", aResName); }
std::string TKDXMsg::GetEditorValue(std::string_view aResName) { return Value("edi", aResName); }
std::string TKDXMsg::GetActionsValue(std::string_view aResName) { return Value("act", aResName); }
std::string TKDXMsg::GetCommandValue(std::string_view aResName) { return Value("cmd", aResName); }

void TKDXMsg::LoadResources(const std::string& aFileName) {
  try {
    LoadFile(FileExists(aFileName) ? TIniFile::LoadFromFile(aFileName) : TIniFile());
  } catch (const Exception&) {
    LoadText({});
    throw;
  }
}

void TKDXMsg::LoadText(std::string_view aText) { LoadFile(TIniFile::FromText(aText)); }

void TKDXMsg::SaveToIniFile(const std::string& aFileName) { WriteFileAtomically(aFileName, IniText()); }

std::string TKDXMsg::IniText() {
  const TCatalogue::TTexts texts = Catalogue().Texts();
  std::vector<std::string> lines;
  lines.reserve(texts->size());
  for (const auto& [key, text] : *texts) lines.push_back(key + "=" + text);
  std::sort(lines.begin(), lines.end());

  TIniFile file;
  file.Append("language", "name", "english");
  for (const TGroup& group : Groups) {
    TIniFile::TLines& section = file.Section(group.Section).Lines;
    auto line = std::lower_bound(lines.begin(), lines.end(), group.Prefix);
    for (; line != lines.end() && line->starts_with(group.Prefix); ++line) {
      const std::size_t equals = line->find('=');
      section.emplace_back(line->substr(0, equals), line->substr(equals + 1));
    }
  }
  return file.ToText();
}

}  // namespace Zor::inline Msg
