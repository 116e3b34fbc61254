#include "apps/kaldrix/PrintCommand.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <iostream>
#include <optional>

#include "apps/kaldrix/Documents.hpp"
#include "apps/kaldrix/OutputFormat.hpp"
#include "apps/kaldrix/ProgressLine.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "host/LiteralCodes.hpp"
#include "host/RunAnswers.hpp"
#include "host/TLabelRun.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/platform/CheckSum.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
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

/// From A to B, both counted from 1.
struct TRange {
  int first = 1;
  int last = 0;
};

/// "A-B", "A-" to the end, or "A" alone.
std::optional<TRange> RangeOf(std::string_view aText, int aEnd) {
  const auto number = [](std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : 0;
  };
  const std::size_t dash = aText.find('-');
  TRange range;
  range.first = number(aText.substr(0, dash));
  range.last = dash == std::string_view::npos ? range.first
               : dash + 1 == aText.size()     ? std::max(aEnd, range.first)
                                              : number(aText.substr(dash + 1));
  if (range.first < 1 || range.last < range.first) return std::nullopt;
  return range;
}

std::string RangeProblem(const std::string& aText) {
  return RangeOf(aText, INT_MAX) ? "" : "'" + aText + "' is no range A-B of labels";
}

}  // namespace

PrintCommand::PrintCommand(CLI::App& aProgram, const bool& aQuiet)
    : Command(aProgram, "print", "Print labels from data, counters and questions, sheet by sheet"),
      fQuiet(aQuiet) {
  Options().add_option("input", fInput, "The document; - reads standard input")->required();
  AddOutputOptions();
  fSource.AddOptions(Options());
  Options().add_option("--answers", fAnswers, "The answers to the questions: a JSON object, name to value");
  AddRangeOptions();
  AddLedgerOptions();
  Options().parse_complete_callback([this] { CheckUse(); });
}

void PrintCommand::AddOutputOptions() {
  Options()
      .add_option("-o,--output", fOutput,
                  "The PDF to write, - for standard output; SVG and PNG are a file for each page, numbered "
                  "-0001, ...")
      ->required();
  Options()
      .add_option("--format", fFormat, "pdf, svg or png; told by the output's suffix if not given")
      ->check(CLI::IsMember({"pdf", "svg", "png"}));
  Options()
      .add_option("--dpi", fDpi, "Dots per inch of a PNG")
      ->check(CLI::Range(1.0, 9600.0))
      ->capture_default_str();
  Options().add_flag("--pad", fPad, "Zeros may be put in front of short barcodes");
  AddSvgText(Options(), fSvgText);
  Options().add_flag("--keep-going", fKeepGoing, "Leave labels with a problem empty, and tell which");
}

void PrintCommand::AddRangeOptions() {
  Options()
      .add_option("--labels", fLabels,
                  "Print only the labels A to B of the run, from the first cell on: A-B, A- or A")
      ->check(RangeProblem);
  constexpr int most = 32767;
  Options()
      .add_option("--start-row", fStartRow, "The first row of the first sheet")
      ->check(CLI::Range(1, most));
  Options()
      .add_option("--start-col", fStartCol, "The first column of the first sheet")
      ->check(CLI::Range(1, most));
}

void PrintCommand::AddLedgerOptions() {
  auto* manifest = Options().add_option(
      "--manifest", fManifest, "Write in numbered parts, and note in this file what stands in each cell");
  Options()
      .add_option("--part", fPart, "Pages to a part")
      ->needs(manifest)
      ->check(CLI::Range(1, 1000000))
      ->capture_default_str();
  auto* resume = Options().add_flag("--resume", fResume, "Go on behind the last finished part");
  auto* reprint = Options()
                      .add_option("--reprint", fReprint, "Print labels of the noted run again: A-B, A- or A")
                      ->check(RangeProblem);
  resume->needs(manifest)->excludes(reprint);
  reprint->needs(manifest)->excludes("--labels");
}

void PrintCommand::CheckUse() {
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
  job.format = fOutput == "-" ? rfPdf : *FormatOf(fFormat, fOutput);
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
  LoadDocument(document, fInput);
  fSource.Attach(document, fInput);
  try {
    TLabelRun run(document);
    SetUp(run, document);
    TRunJob job = Job();
    if (!fManifest.empty())
      job.data = CheckSum(fAnswers.empty() ? "" : ReadInput(fAnswers), fSource.Sum(document));
    Narrow(run, job.data);
    return Write(document, run, job);
  } catch (const EFileNotFoundException&) {
    throw;
  } catch (const EStreamError&) {
    throw;
  } catch (const Exception& error) {
    throw Exception(fInput + ": " + error.what());
  }
}

void PrintCommand::SetUp(TLabelRun& aRun, TKDXLabel& aDocument) const {
  for (const std::string& problem : aDocument.fData->HeaderProblems()) {
    if (!fKeepGoing) throw Exception(problem);
    std::cerr << "kaldrix: " << problem << '\n';
  }
  aRun.CheckBindings();
  aDocument.fPrintInfo->fPadCodes = fPad;
  CheckLiteralCodes(aDocument);
  const std::unique_ptr<TJsonBaseObject> answers =
      fAnswers.empty() ? std::make_unique<TJsonObject>() : TJsonBaseObject::Parse(ReadInput(fAnswers));
  if (answers == nullptr || !answers->IsObject())
    throw Exception(fAnswers + ": the answers are no JSON object");
  AnswerQuestions(aDocument, static_cast<const TJsonObject&>(*answers));
  if (fStartRow > 1 || fStartCol > 1) aRun.StartAt(fStartRow, fStartCol);
}

void PrintCommand::Narrow(TLabelRun& aRun, std::uint32_t aData) const {
  if (!fLabels.empty()) {
    const TRange range = *RangeOf(fLabels, aRun.Labels());
    aRun.SetRange(range.first, range.last);
  }
  if (!fReprint.empty()) {
    const TRange range = *RangeOf(fReprint, aRun.Labels());
    CheckReprint(fManifest, aRun, aData, range.first, range.last);
  }
}

int PrintCommand::Write(TKDXLabel& aDocument, TLabelRun& aRun, TRunJob& aJob) const {
  ProgressLine progress(fQuiet);
  aJob.onPage = [&](int page, int pages) { progress.Show("page", page, pages); };
  aJob.onLeftOut = [&](const TRunLabel& label) {
    progress.Clear();
    std::cerr << "kaldrix: " << fInput << ": left out: " << TRunWriter::Told(label) << '\n';
  };
  TRunWriter writer(aDocument, aRun, aJob);
  if (fResume) writer.Resume();
  return writer.Write() > 0 ? 1 : 0;
}

}  // namespace Zor::Program
