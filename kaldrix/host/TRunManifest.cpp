#include "kaldrix/host/TRunManifest.hpp"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <memory>
#include <string_view>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/ShownName.hpp"

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
  if (!aHead.only.empty()) run.PutString("only", aHead.only);
  run.PutString("output", aHead.output);
  if (!aHead.form.empty()) run.PutString("form", aHead.form);
  run.PutLong("data", aHead.data);
  if (aHead.document) run.PutLong("document", *aHead.document);
  return line.ToJSON(true) + "\n";
}

TRunHead ReadHead(const TJsonObject& aRun) {
  TRunHead head;
  for (const THeadField& field : HeadFields) head.*field.field = aRun.GetInt(field.key);
  head.only = aRun.GetString("only");
  head.output = aRun.GetString("output");
  head.form = aRun.GetString("form");
  head.data = static_cast<std::uint32_t>(aRun.GetLong("data"));
  if (aRun.Contains("document")) head.document = static_cast<std::uint32_t>(aRun.GetLong("document"));
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
  line.PutString("file", NameAsText(aFile));
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
    const int error = DirectoryExists(aFileName) ? EISDIR : errno;
    if (fStream && error != EISDIR) return;
    if (error == ENOENT) throw EFileNotFoundException("File not found: " + aFileName);
    RaiseErrno("Cannot read", aFileName, error);
  }

  /// None at the end, or where the rest is no whole line.
  std::unique_ptr<TJsonBaseObject> Next() {
    if (!std::getline(fStream, fText) || fStream.eof()) return nullptr;
    fBytes += fText.size() + 1;
    ++fLine;
    try {
      std::unique_ptr<TJsonBaseObject> line = TJsonBaseObject::Parse(fText);
      if (line != nullptr && line->IsObject()) return line;
    } catch (const Exception&) {
      Fail();
    }
    Fail();
  }
  std::uint64_t Bytes() const { return fBytes; }
  /// Fails unless what Next found no whole line in may be what a kill left of a head.
  void CheckCutHead() const {
    constexpr std::string_view begin = R"({"run":{)";
    if (!fText.starts_with(begin) && !begin.starts_with(fText)) Fail();
  }
  [[noreturn]] void Fail() const {
    throw ELedgerError(fFileName + ": line " + std::to_string(std::max(fLine, 1)) +
                       ": this is no ledger of a label run");
  }

 private:
  std::string fFileName;
  std::ifstream fStream;
  std::string fText;
  std::uint64_t fBytes = 0;
  int fLine = 0;
};

/// What closes a part.
struct TPartEnd {
  int part, pages, lastLabel;
};

std::string PartLine(const TPartEnd& aEnd) {
  TJsonObject line;
  line.PutInt("part", aEnd.part);
  line.PutInt("pages", aEnd.pages);
  line.PutInt("lastLabel", aEnd.lastLabel);
  return line.ToJSON(true) + "\n";
}

/// Takes the end of the next part; false where it cannot follow the one before.
bool TakePart(TRunState& aState, const TJsonObject& aLine) {
  const TPartEnd end{aLine.GetInt("part"), aLine.GetInt("pages"), aLine.GetInt("lastLabel")};
  const auto next = static_cast<int>(aState.parts.size()) + 1;
  if (end.part != next || end.pages <= aState.Pages() || end.lastLabel <= aState.lastLabel) return false;
  aState.parts.push_back(end.pages);
  aState.lastLabel = end.lastLabel;
  return true;
}

}  // namespace

std::string TRunHead::Difference(const TRunHead& aOther) const {
  for (const THeadField& f : HeadFields) {
    const int here = this->*f.field, there = aOther.*f.field;
    if (here != there) {
      return std::string(f.words) + ": " + std::to_string(here) + ", there " + std::to_string(there);
    }
  }
  if (only != aOther.only) return "the labels that are printed";
  if (output != aOther.output) return "the output: " + output + ", there " + aOther.output;
  if (!aOther.form.empty() && form != aOther.form) return "the form: " + form + ", there " + aOther.form;
  return SourceDifference(aOther);
}

std::string TRunHead::SourceDifference(const TRunHead& aOther) const {
  if (data != aOther.data) return "the data or the answers";
  if (aOther.document && document != aOther.document)
    return "the document, or an option by which it is read and drawn";
  return {};
}

TRunState TRunManifest::Read(const std::string& aFileName,
                             const std::function<void(const TRunLabel&)>& aVisit) {
  TLedgerReader reader(aFileName);
  TRunState state;
  const std::unique_ptr<TJsonBaseObject> head = reader.Next();
  if (head == nullptr) {
    reader.CheckCutHead();
    return state;
  }
  const TJsonObject* run = static_cast<const TJsonObject&>(*head).FindObject("run");
  if (run == nullptr) reader.Fail();
  state.head = ReadHead(*run);
  if (state.head.part < 1) reader.Fail();
  std::vector<TRunLabel> part;
  while (const std::unique_ptr<TJsonBaseObject> line = reader.Next()) {
    const auto& object = static_cast<const TJsonObject&>(*line);
    if (!object.Contains("part")) {
      part.push_back(ReadLabel(object));
      if (part.back().label < 1) reader.Fail();
      continue;
    }
    if (!TakePart(state, object)) reader.Fail();
    for (const TRunLabel& label : part) aVisit(label);
    part.clear();
    state.bytes = reader.Bytes();
  }
  return state;
}

TRunManifest::TRunManifest(const std::string& aFileName)
    : fName(aFileName), fFile(aFileName), fState(Read(aFileName, [](const TRunLabel&) {})) {}

TRunManifest::~TRunManifest() {
  if (!fState.parts.empty()) return;
  try {
    fFile.Remove();
  } catch (const Exception&) {
    // It is empty, and the next session begins it.
  }
}

void TRunManifest::GoOn(const TRunHead& aHead) {
  fFile.Cut(fState.bytes);
  if (!fState.parts.empty()) return;
  fState.head = aHead;
  fLines = HeadLine(aHead);
}

void TRunManifest::Add(const TRunLabel& aLabel, const std::string& aFile) {
  fLines += LabelLine(aLabel, aFile);
  fLastLabel = aLabel.label;
  fLastPage = aLabel.page;
}

void TRunManifest::FinishPart() {
  fLines += PartLine({static_cast<int>(fState.parts.size()) + 1, fLastPage, fLastLabel});
  fFile.Append(fLines);
  fLines.clear();
  fState.parts.push_back(fLastPage);
  fState.lastLabel = fLastLabel;
}

}  // namespace Zor::inline Host
