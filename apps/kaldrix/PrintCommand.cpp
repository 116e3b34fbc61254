#include "apps/kaldrix/PrintCommand.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <optional>

#include "apps/kaldrix/Documents.hpp"
#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/OutputFormat.hpp"
#include "apps/kaldrix/PrintReport.hpp"
#include "apps/kaldrix/ProgressLine.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/host/LiteralCodes.hpp"
#include "kaldrix/host/RunAnswers.hpp"
#include "kaldrix/host/RunRepeats.hpp"
#include "kaldrix/host/TLabelRun.hpp"
#include "kaldrix/platform/CheckSum.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/ShownName.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::Program {

namespace {

struct TFormatWord {
  std::string_view word;  ///< the suffix too
  TRunFormat format;
};
constexpr std::array<TFormatWord, 3> Formats{{{"pdf", rfPdf}, {"svg", rfSvg}, {"png", rfPng}}};

std::optional<TRunFormat> FormatOf(const std::string& aFormat, const std::string& aOutput) {
  const std::string suffix = ExtractFileExt(aOutput);
  const std::string word = !aFormat.empty() ? aFormat : suffix.empty() ? "" : suffix.substr(1);
  for (const TFormatWord& row : Formats) {
    if (SameText(row.word, word)) return row.format;
  }
  return std::nullopt;
}

std::string LabelsProblem(const std::string& aText) {
  return TLabelRanges::Parse(aText) ? "" : "'" + aText + "' tells no labels: A, A-B, A-, or some with commas";
}

/// Does a step; what fails in it is told of that file.
template <class TStep>
auto Named(const std::string& aFile, TStep aStep) {
  try {
    return aStep();
  } catch (const EStreamError&) {
    throw;  // names its file
  } catch (const Exception& error) {
    throw Exception(ToldName(aFile) + ": " + error.what());
  }
}

/// The checksum of a document with the options that decide how its records are read and its labels look.
std::uint32_t SumOf(std::uint32_t aBytes, const TKDXData& aData, std::initializer_list<int> aLook) {
  std::string text = aData.fDataSel + '\n' + aData.fFieldRepeat;
  for (const int value : {int{aData.fType}, int{aData.fCsvSep}, int{aData.fCsvQuote}, int{aData.fCsvHeader},
                          int{aData.fCsvCode}})
    text += '\n' + std::to_string(value);
  for (const int value : aLook) text += '\n' + std::to_string(value);
  return CheckSum(text, aBytes);
}

}  // namespace

PrintCommand::PrintCommand(CLI::App& aProgram, const bool& aQuiet)
    : Command(aProgram, "print", "Print labels from data, counters and questions, sheet by sheet"),
      fQuiet(aQuiet) {
  Options()
      .add_option("input", fInput, "The document; - reads standard input")
      ->required()
      ->check(SomeFile());
  AddOutputOptions();
  fSource.AddOptions(Options());
  Options()
      .add_option("--answers", fAnswers, "The answers to the questions: a JSON object, name to value")
      ->check(SomeFile());
  AddRangeOptions();
  AddLedgerOptions();
  Options().parse_complete_callback([this] { CheckUse(); });
}

void PrintCommand::AddOutputOptions() {
  Options()
      .add_option("-o,--output", fOutput,
                  "The PDF to write, - for standard output; SVG and PNG are a file for each page, numbered "
                  "-0001, ...")
      ->check(SomeFile());
  Options()
      .add_option("--format", fFormat, "pdf, svg or png; told by the output's suffix if not given")
      ->check(CLI::IsMember({"pdf", "svg", "png"}));
  Options()
      .add_option("--dpi", fDpi, "Dots per inch of a PNG")
      ->check(Between(1, 9600))
      ->capture_default_str();
  Options().add_flag("--pad", fPad, "Zeros may be put in front of short barcodes");
  AddSvgText(Options(), fSvgText);
  Options().add_flag("--keep-going", fKeepGoing, "Leave labels with a problem empty, and tell which");
  Options().add_flag("--dry-run", fDryRun,
                     "Write nothing: tell labels, pages, and what the first and the last label show");
}

void PrintCommand::AddRangeOptions() {
  Options()
      .add_option("--labels", fLabels,
                  "Print only these labels of the run, in its order, from the first cell on: 1,3,5-7,90-")
      ->check(LabelsProblem);
  Options().add_flag("--counter-repeat", fCounterRepeat,
                     "Let labels behind the end of a counter show its last value again");
  constexpr int most = 32767;
  Options().add_option("--start-row", fStartRow, "The first row of the first sheet")->check(Between(1, most));
  Options()
      .add_option("--start-col", fStartCol, "The first column of the first sheet")
      ->check(Between(1, most));
}

void PrintCommand::AddLedgerOptions() {
  auto* manifest = Options()
                       .add_option("--manifest", fManifest,
                                   "Write in numbered parts, and note in this file what stands in each cell")
                       ->check(SomeFile());
  Options()
      .add_option("--part", fPart, "Pages to a part")
      ->needs(manifest)
      ->check(Between(1, 1000000))
      ->default_str("50, or what the ledger says");
  auto* resume = Options().add_flag("--resume", fResume, "Go on behind the last finished part");
  auto* reprint =
      Options()
          .add_option("--reprint", fReprint, "Print these labels of the noted run again: 1,3,5-7,90-")
          ->check(LabelsProblem);
  resume->needs(manifest)->excludes(reprint)->excludes("--dry-run");
  reprint->needs(manifest)->excludes("--labels");
}

void PrintCommand::CheckUse() {
  if (!fOutput.empty()) CheckOutputUse();
  if (fOutput.empty() && !fDryRun) throw CLI::RequiredError("--output");
  if ((fInput == "-") + (fAnswers == "-") + fSource.ReadsStandardInput() > 1)
    throw CLI::ValidationError("-", "standard input can be read for one of the files only");
}

void PrintCommand::CheckOutputUse() const {
  const std::optional<TRunFormat> format =
      fOutput == "-" && fFormat.empty() ? rfPdf : FormatOf(fFormat, fOutput);
  if (!format) {
    throw CLI::ValidationError("--format", "no format is known for '" + fOutput + "': tell pdf, svg or png");
  }
  if (fOutput == "-" && (*format != rfPdf || (!fManifest.empty() && fReprint.empty()))) {
    throw CLI::ValidationError("--output", "only a PDF without parts goes to standard output");
  }
}

TRunJob PrintCommand::Job() const {
  TRunJob job;
  job.output = fOutput;
  job.format = fOutput == "-" ? rfPdf : FormatOf(fFormat, fOutput).value_or(rfPdf);
  job.options.dpi = fDpi;
  job.options.print = true;
  job.options.svgText = fSvgText;
  job.part = fPart;
  job.keepGoing = fKeepGoing;
  if (fReprint.empty()) job.manifest = fManifest;
  if (fOutput == "-") {
    job.sink = [](std::string_view bytes) { WriteOutput("-", bytes); };
  }
  return job;
}

int PrintCommand::Run() const {
  TKDXLabel document;
  const std::uint32_t bytes = LoadDocument(document, fInput);
  FindPictures(document, fInput);
  fSource.Attach(document, fInput);
  TellUnlinked(document);
  const std::string answers = fAnswers.empty() ? "{}" : ReadTextInput(fAnswers);
  TLabelRun run = Named(fInput, [&] { return TLabelRun(document); });
  CheckHeader(document);
  document.fPrintInfo->fPadCodes = fPad;
  Named(fInput, [&] {
    const std::string repeat = fKeepGoing ? std::string() : document.fData->RepeatProblem();
    if (!repeat.empty()) throw Exception(repeat);
    run.CheckBindings();
    CheckLiteralCodes(document);
  });
  Named(fAnswers.empty() ? fInput : fAnswers, [&] { Answer(document, answers); });

  TRunJob job = Job();
  if (!fManifest.empty()) {
    job.data = CheckSum(fAnswers.empty() ? "" : answers, fSource.Sum(document));
    job.document = SumOf(bytes, *document.fData, {int{fPad}, int{fSvgText}});
  }
  ProgressLine progress(fQuiet);
  Listen(job, progress);
  return Named(fInput, [&] {
    TFileSet taken = Taken(document);
    if (fStartRow > 1 || fStartCol > 1) run.StartAt(fStartRow, fStartCol);
    Narrow(run, job, taken);
    CheckEnds(document, run);
    TRunWriter writer(document, run, job);
    if (!fDryRun) fResume ? writer.Resume() : writer.Begin();
    if (!fOutput.empty()) writer.CheckOutputs(taken);
    return fDryRun ? Rehearse(writer, run) : Write(writer);
  });
}

void PrintCommand::TellUnlinked(const TKDXLabel& aDocument) const {
  if (aDocument.fData->fLinkData) return;
  const auto isBound = [](const TKDXBaseItem* item) {
    const auto* bound = dynamic_cast<const IZORData*>(item);
    return bound != nullptr && !bound->FillName().empty();
  };
  const auto bound = std::count_if(aDocument.fItems.begin(), aDocument.fItems.end(), isBound);
  if (bound > 0)
    Tell(ToldName(fInput) +
         ": its data are switched off (\"LinkData\"): items that show the texts of the design: " +
         std::to_string(bound));
}

void PrintCommand::Listen(TRunJob& aJob, ProgressLine& aProgress) const {
  aJob.onPage = [&aProgress](int page, int pages) { aProgress.Show("page", page, pages); };
  aJob.onNote = [&aProgress](const std::string& text) {
    aProgress.Clear();
    Tell(text);
  };
  aJob.onLeftOut = [this, tell = aJob.onNote](const TRunLabel& label) {
    tell(ToldName(fInput) + ": left out: " + TRunWriter::Told(label));
  };
}

TFileSet PrintCommand::Taken(const TKDXLabel& aDocument) const {
  TFileSet taken;
  taken.Add(fInput, "the document");
  taken.Add(fAnswers, "the file of the answers");
  fSource.AddFiles(taken, aDocument);
  AddPictures(taken, aDocument);
  if (const std::string* what = taken.Find(fManifest))
    throw EStreamError(fManifest + ": this is " + *what + ", and no ledger");
  taken.Add(fManifest, "the ledger");
  return taken;
}

void PrintCommand::CheckHeader(const TKDXLabel& aDocument) const {
  for (const std::string& problem : aDocument.fData->HeaderProblems()) {
    if (!fKeepGoing) throw Exception(problem);
    Tell(problem);
  }
}

void PrintCommand::Answer(TKDXLabel& aDocument, const std::string& aAnswers) const {
  const std::unique_ptr<TJsonBaseObject> answers = TJsonBaseObject::Parse(aAnswers);
  if (answers == nullptr || !answers->IsObject()) throw Exception("the answers are no JSON object");
  AnswerQuestions(aDocument, static_cast<const TJsonObject&>(*answers));
}

void PrintCommand::Narrow(TLabelRun& aRun, const TRunJob& aJob, TFileSet& aTaken) const {
  const std::string& told = fReprint.empty() ? fLabels : fReprint;
  if (told.empty()) return;
  const TLabelRanges labels = *TLabelRanges::Parse(told);
  if (labels.Last() > aRun.Labels() && labels.Last() != TLabelRanges::End)
    Tell(ToldName(fInput) + ": the run ends with label " + std::to_string(aRun.Labels()));
  if (fReprint.empty()) return aRun.Select(labels);
  const TRunState state = CheckReprint(aJob, fManifest, aRun, labels);
  const std::string output = NameOfText(state.head.output);
  for (const std::string& folder : {ExtractFileDir(fManifest), ExtractFileDir(fOutput)}) {
    for (int number = 1; number <= state.Pages(); ++number) {
      const std::string part = CombinePath(folder, TRunWriter::NumberedName(output, number));
      if (FileExists(part)) aTaken.Add(part, "a part of the run");
    }
  }
}

void PrintCommand::CheckEnds(const TKDXLabel& aDocument, const TLabelRun& aRun) const {
  const std::string name = ToldName(fInput) + ": ";
  for (const std::string& spent : SpentCounters(aDocument, aRun)) {
    if (!fCounterRepeat) throw Exception(spent + "; --counter-repeat prints them so");
    Tell(name + spent);
  }
  for (const std::string& uneven : UnevenEnds(aDocument, aRun)) Tell(name + uneven);
}

int PrintCommand::Write(TRunWriter& aWriter) const {
  try {
    return aWriter.Write() > 0 ? 1 : 0;
  } catch (...) {
    if (const int parts = aWriter.FinishedParts(); parts > 0)
      Tell(fManifest + ": finished parts, which stand: " + std::to_string(parts) +
           "; --resume goes on behind them, from the same document and data");
    throw;
  }
}

int PrintCommand::Rehearse(TRunWriter& aWriter, const TLabelRun& aRun) const {
  PrintReport report(aRun);
  const int leftOut = aWriter.Rehearse([&](const TRunLabel& label) { report.Take(label); });
  WriteOutput("-", report.Text(fOutput.empty() ? std::vector<std::string>() : aWriter.Outputs()));
  return leftOut > 0 ? 1 : 0;
}

}  // namespace Zor::Program
