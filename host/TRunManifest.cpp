#include "host/TRunManifest.hpp"

#include <fstream>
#include <memory>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Host {

namespace {

// The lines ---------------------------------------------------------------------------

/// The fields of the head that are whole numbers, with the words that tell of them.
struct THeadField {
  const char* key;
  const char* words;
  int TRunHead::*field;
};
constexpr THeadField HeadFields[] = {
    {"labels", "labels in the run", &TRunHead::labels},
    {"first", "the first label", &TRunHead::first},
    {"last", "the last label", &TRunHead::last},
    {"startRow", "the first row", &TRunHead::startRow},
    {"startColumn", "the first column", &TRunHead::startColumn},
    {"part", "pages to a part", &TRunHead::part},
};

std::string HeadLine(const TRunHead& aHead) {
  TJsonObject line;
  TJsonObject& run = line.AddNewObject("run");
  for (const THeadField& field : HeadFields) run.PutInt(field.key, aHead.*field.field);
  run.PutString("output", aHead.output);
  run.PutLong("data", aHead.data);
  return line.ToJSON(true) + "\n";
}

TRunHead ReadHead(const TJsonObject& aRun) {
  TRunHead head;
  for (const THeadField& field : HeadFields) head.*field.field = aRun.GetInt(field.key);
  head.output = aRun.GetString("output");
  head.data = static_cast<std::uint32_t>(aRun.GetLong("data"));
  return head;
}

std::string LabelLine(const TRunLabel& aLabel, const std::string& aFile) {
  TJsonObject line;
  line.PutInt("page", aLabel.page);
  line.PutInt("row", aLabel.row);
  line.PutInt("column", aLabel.column);
  line.PutInt("label", aLabel.label);
  if (aLabel.record > 0) line.PutInt("record", aLabel.record);
  if (!aLabel.counters.empty()) {
    TJsonObject& counters = line.AddNewObject("counters");
    for (const auto& [name, value] : aLabel.counters) counters.PutString(name, value);
  }
  line.PutString("file", aFile);
  if (!aLabel.leftOut.empty()) line.PutString("leftOut", aLabel.leftOut);
  return line.ToJSON(true) + "\n";
}

TRunLabel ReadLabel(const TJsonObject& aLine) {
  TRunLabel label;
  label.page = aLine.GetInt("page");
  label.row = aLine.GetInt("row");
  label.column = aLine.GetInt("column");
  label.label = aLine.GetInt("label");
  label.record = aLine.GetInt("record");
  label.leftOut = aLine.GetString("leftOut");
  if (const TJsonObject* counters = aLine.FindObject("counters")) {
    for (int i = 0; i < counters->Count(); ++i) {
      label.counters.emplace_back(counters->GetName(i), counters->GetItem(i).GetString());
    }
  }
  return label;
}

/// Reads a ledger line by line.
class TLedgerReader {
 public:
  explicit TLedgerReader(const std::string& aFileName)
      : fFileName(aFileName), fStream(aFileName, std::ios::binary) {
    if (!fStream) throw EFileNotFoundException("File not found: " + aFileName);
  }

  /// None at the end, or where the rest is no whole line.
  std::unique_ptr<TJsonBaseObject> Next() {
    std::string text;
    if (!std::getline(fStream, text) || fStream.eof()) return nullptr;
    fBytes += text.size() + 1;
    ++fLine;
    try {
      std::unique_ptr<TJsonBaseObject> line = TJsonBaseObject::Parse(text);
      if (line != nullptr && line->IsObject()) return line;
    } catch (const Exception&) {
      Fail();
    }
    Fail();
  }
  std::uint64_t Bytes() const { return fBytes; }
  [[noreturn]] void Fail() const {
    throw Exception(fFileName + ": line " + std::to_string(fLine) + ": this is no ledger of a label run");
  }

 private:
  std::string fFileName;
  std::ifstream fStream;
  std::uint64_t fBytes = 0;
  int fLine = 0;
};

std::string CheckedNew(const std::string& aFileName) {
  if (FileExists(aFileName)) {
    throw Exception(aFileName + ": there is a ledger already: resume that run, or remove the file");
  }
  return aFileName;
}

}  // namespace

std::string TRunHead::Difference(const TRunHead& aOther) const {
  for (const THeadField& f : HeadFields) {
    const int here = this->*f.field, there = aOther.*f.field;
    if (here != there) {
      return std::string(f.words) + ": " + std::to_string(here) + ", there " + std::to_string(there);
    }
  }
  if (output != aOther.output) return "the output: " + output + ", there " + aOther.output;
  if (data != aOther.data) return "the data or the answers";
  return {};
}

TRunState TRunManifest::Read(const std::string& aFileName,
                             const std::function<void(const TRunLabel&, const std::string& aFile)>& aVisit) {
  TLedgerReader reader(aFileName);
  TRunState state;
  const std::unique_ptr<TJsonBaseObject> head = reader.Next();
  if (head == nullptr) return state;
  const TJsonObject* run = static_cast<const TJsonObject&>(*head).FindObject("run");
  if (run == nullptr) reader.Fail();
  state.head = ReadHead(*run);
  state.bytes = reader.Bytes();
  std::vector<std::pair<TRunLabel, std::string>> part;
  while (const std::unique_ptr<TJsonBaseObject> line = reader.Next()) {
    const auto& object = static_cast<const TJsonObject&>(*line);
    if (!object.Contains("part")) {
      part.emplace_back(ReadLabel(object), object.GetString("file"));
      if (part.back().first.label < 1) reader.Fail();
      continue;
    }
    for (const auto& [label, file] : part) aVisit(label, file);
    part.clear();
    state.parts = object.GetInt("part");
    state.pages = object.GetInt("pages");
    state.lastLabel = object.GetInt("lastLabel");
    state.bytes = reader.Bytes();
  }
  return state;
}

TRunManifest::TRunManifest(const std::string& aFileName, const TRunHead& aHead)
    : fFile(CheckedNew(aFileName), 0) {
  fState.head = aHead;
  fFile.Append(HeadLine(aHead));
}

TRunManifest::TRunManifest(const std::string& aFileName, const TRunState& aState)
    : fFile(aFileName, aState.bytes), fState(aState), fLastPage(aState.pages) {}

void TRunManifest::Add(const TRunLabel& aLabel, const std::string& aFile) {
  fLines += LabelLine(aLabel, aFile);
  fState.lastLabel = aLabel.label;
  fLastPage = aLabel.page;
}

void TRunManifest::FinishPart() {
  ++fState.parts;
  fState.pages = fLastPage;
  TJsonObject line;
  line.PutInt("part", fState.parts);
  line.PutInt("pages", fState.pages);
  line.PutInt("lastLabel", fState.lastLabel);
  fLines += line.ToJSON(true) + "\n";
  fFile.Append(fLines);
  fLines.clear();
}

}  // namespace Zor::inline Host
