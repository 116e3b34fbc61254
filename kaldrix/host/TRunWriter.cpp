#include "kaldrix/host/TRunWriter.hpp"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <filesystem>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Format.hpp"
#include "kaldrix/platform/ShownName.hpp"
#include "kaldrix/platform/TTemporaryFile.hpp"

namespace Zor::inline Host {

namespace {

std::string FormOf(const TRunJob& aJob) {
  switch (aJob.format) {
    case rfSvg:
      return "svg";
    case rfPng:
      return "png, " + FormatFloat("0.###", aJob.options.dpi) + " dpi";
    default:
      return "pdf";
  }
}

/// A file without a byte is none: that is what a full disk or a machine without power leaves.
bool IsThere(const std::string& aFileName) {
  std::error_code failed;
  return FileExists(aFileName) && std::filesystem::file_size(aFileName, failed) > 0;
}

/// Is it what NumberedName makes of that output?
bool IsNumberedName(const std::string& aOutput, const std::string& aName) {
  const std::size_t stem = aOutput.size() - ExtractFileExt(aOutput).size() + 1;  // with the dash
  const std::size_t end = aName.find_first_not_of("0123456789", std::min(stem, aName.size()));
  int number = 0;
  std::from_chars(aName.data() + std::min(stem, aName.size()), aName.data() + std::min(end, aName.size()),
                  number);
  return number > 0 && TRunWriter::NumberedName(aOutput, number) == aName;
}

}  // namespace

TRunWriter::TRunWriter(TKDXLabel& aDocument, TLabelRun& aRun, const TRunJob& aJob)
    : fDocument(aDocument),
      fRun(aRun),
      fJob(aJob),
      fBackground(aDocument, true),
      fEach(aJob.part.value_or(DefaultPart)) {
  if (fJob.sink && !fJob.manifest.empty())
    throw EArgumentException("A run with a ledger is written into files, not into a sink");
  if (!fJob.sink && fJob.output == "-")
    throw EArgumentException("The output \"-\" of a run needs a sink; a file of that name is \"./-\"");
}

/// What is unfinished goes.
TRunWriter::~TRunWriter() {
  for (const std::string& file : fUnfinished) std::remove(file.c_str());
}

std::string TRunWriter::NumberedName(const std::string& aOutput, int aNumber) {
  constexpr std::size_t leastDigits = 4;
  std::string number = std::to_string(aNumber);
  if (number.size() < leastDigits) number.insert(0, leastDigits - number.size(), '0');
  const std::string extension = ExtractFileExt(aOutput);
  return aOutput.substr(0, aOutput.size() - extension.size()) + "-" + number + extension;
}

std::string TRunWriter::Told(const TRunLabel& aLabel) {
  return "label " + std::to_string(aLabel.label) +
         (aLabel.record > 0 ? ", record " + std::to_string(aLabel.record) : "") + ": " + aLabel.leftOut;
}

// What the run is ---------------------------------------------------------------------------

TRunHead TRunWriter::Head() const {
  TRunHead head;
  head.labels = fRun.Labels();
  head.first = fRun.First();
  head.last = fRun.Last();
  if (fRun.Selected().Ranges().size() > 1) head.only = fRun.Selected().Text();
  head.startRow = fDocument.fPrintInfo->fFirstRow;
  head.startColumn = fDocument.fPrintInfo->fFirstCol;
  head.part = fEach;
  head.output = NameAsText(ExtractFileName(fJob.output));
  head.form = FormOf(fJob);
  head.data = fJob.data;
  head.document = fJob.document;
  return head;
}

std::string TRunWriter::PartName(int aPart) const {
  return fJob.manifest.empty() ? fJob.output : NumberedName(fJob.output, aPart);
}

std::string TRunWriter::FileOf(int aPart, int aPage) const {
  return fJob.format == rfPdf ? PartName(aPart) : NumberedName(fJob.output, aPage);
}

std::vector<std::string> TRunWriter::Outputs() const {
  if (fJob.sink) return {};
  const int pages = fRun.Pages(), each = fJob.manifest.empty() ? pages : fEach;
  const int files = fJob.format == rfPdf ? (pages - 1) / each + 1 : pages;
  std::vector<std::string> names;
  for (int number = 1; number <= files; ++number) names.push_back(FileOf(number, number));
  return names;
}

void TRunWriter::CheckOutputs(const TFileSet& aTaken) const {
  for (const std::string& name : Outputs()) {
    if (const std::string* what = aTaken.Find(name))
      throw EStreamError(name + ": this is " + *what + ", which the output would replace");
  }
}

int TRunWriter::FinishedParts() const {
  return fManifest == nullptr ? 0 : static_cast<int>(fManifest->State().parts.size());
}

void TRunWriter::Note(const std::string& aText) const {
  if (fJob.onNote) fJob.onNote(aText);
}

// Going on ---------------------------------------------------------------------------

void TRunWriter::OpenLedger() {
  fManifest = std::make_unique<TRunManifest>(fJob.manifest);
  // Nobody else writes this run now: what is unfinished beside its files was left by a kill.
  RemoveLeftTemporaryFiles(ExtractFileDir(fJob.output), [this](const std::string& name) {
    return IsNumberedName(ExtractFileName(fJob.output), name);
  });
}

void TRunWriter::Begin() {
  if (fJob.manifest.empty()) return;
  OpenLedger();
  if (FinishedParts() > 0)
    throw ELedgerError(fJob.manifest + ": there is a ledger already: resume that run, or remove the file");
}

void TRunWriter::Resume() {
  OpenLedger();
  if (FinishedParts() == 0) return;
  if (!fJob.part) fEach = fManifest->State().head.part;
  CheckSameRun();
}

void TRunWriter::CheckSameRun() const {
  const TRunState& state = fManifest->State();
  const std::string difference = Head().Difference(state.head);
  if (!difference.empty())
    throw ELedgerError(fJob.manifest + ": this ledger tells of another run: " + difference);
  if (state.Pages() > fRun.Pages()) throw ELedgerError(fJob.manifest + ": this ledger tells of more pages");
  if (!state.head.document)
    Note(fJob.manifest +
         ": an older version wrote this ledger: whether the document has changed is not told");
}

void TRunWriter::WriteMissing() {
  struct TMissing {
    int part, first, last;  // pages
  };
  std::vector<TMissing> missing;
  const std::vector<int> ends = fManifest->State().parts;
  std::vector<bool> wanted(static_cast<std::size_t>(fManifest->State().Pages()) + 1);
  for (int part = 1, page = 1; part <= FinishedParts(); ++part) {
    const int end = ends[static_cast<std::size_t>(part) - 1], step = fJob.format == rfPdf ? end - page : 0;
    for (; page <= end; page += step + 1) {
      if (IsThere(FileOf(part, page))) continue;
      missing.push_back({part, page, page + step});
      std::fill_n(wanted.begin() + page, step + 1, true);
    }
  }
  if (missing.empty()) return;
  const TPrintedLabels printed(
      fJob.manifest, [&](const TRunLabel& label) { return wanted.at(static_cast<std::size_t>(label.page)); });
  fPrinted = &printed;
  for (const TMissing& m : missing) {
    WritePart(m.part, m.first, m.last);
    Note(FileOf(m.part, m.first) +
         ": this file of a finished part was missing or empty, and is written again");
  }
  fPrinted = nullptr;
}

// Writing ---------------------------------------------------------------------------

int TRunWriter::Rehearse(const std::function<void(const TRunLabel&)>& aVisit) {
  for (int page = 1; page <= fRun.Pages(); ++page) {
    fRun.Fill(page, fJob.options);
    JudgeSheet();
    for (const TRunLabel& label : fRun.Sheet()) aVisit(label);
    if (fJob.onPage) fJob.onPage(page, fRun.Pages());
  }
  return fLeftOut;
}

int TRunWriter::Write() {
  if (fManifest == nullptr) {
    WritePart(1, 1, fRun.Pages());
    return fLeftOut;
  }
  WriteMissing();
  if (IsFinished()) {
    Note(fJob.manifest + ": this run is finished; parts: " + std::to_string(FinishedParts()));
    return fLeftOut;
  }
  fManifest->GoOn(Head());
  const int pages = fRun.Pages();
  for (int page = fManifest->State().Pages() + 1; page <= pages; page = fManifest->State().Pages() + 1)
    WritePart(FinishedParts() + 1, page, fEach <= pages - page ? page + fEach - 1 : pages);
  return fLeftOut;
}

void TRunWriter::WritePart(int aPart, int aFirst, int aLast) {
  for (int page = aFirst; page <= aLast; ++page) {
    WritePage(page, FileOf(aPart, page));
    if (fJob.onPage) fJob.onPage(page, fRun.Pages());
  }
  FinishPdf(PartName(aPart));
  if (fManifest != nullptr && fPrinted == nullptr) fManifest->FinishPart();
  fUnfinished.clear();
}

void TRunWriter::WritePage(int aPage, const std::string& aFile) {
  const TExportPlan plan = fRun.Fill(aPage, fJob.options);
  TakeSheet(aFile);
  switch (fJob.format) {
    case rfPdf:
      return AddToPdf(plan, aFile);
    case rfSvg:
      return WriteWhole(aFile, PlanSvg(fDocument, plan, fJob.options));
    case rfPng:
      return WriteWhole(aFile, PlanPng(fDocument, plan, fJob.options));
  }
}

void TRunWriter::WriteWhole(const std::string& aFile, const std::string& aBytes) {
  if (fJob.sink) return fJob.sink(aBytes);
  WriteFileAtomically(aFile, aBytes);
  fUnfinished.push_back(aFile);
}

void TRunWriter::AddToPdf(const TExportPlan& aPlan, const std::string& aFile) {
  if (fPdf == nullptr) {
    std::function<void(std::string_view)> sink = fJob.sink;
    if (!sink) {
      fFile = std::make_unique<TAtomicFile>(aFile);
      sink = [this](std::string_view bytes) { fFile->Write(bytes); };
    }
    fPdf = std::make_unique<TSurface>(
        TSurface::MakePdf(fDocument.Fonts(), aPlan.width, aPlan.height, PdfInfo(fDocument), std::move(sink)));
  } else {
    fPdf->NewPage(aPlan.width, aPlan.height);
  }
  PaintPlan(*fPdf, fDocument, aPlan, fBackground);
}

void TRunWriter::FinishPdf(const std::string& aFile) {
  if (fPdf == nullptr) return;
  fPdf->FinishPdf();
  fPdf.reset();
  if (fFile == nullptr) return;
  fFile->Commit();
  fFile.reset();
  fUnfinished.push_back(aFile);
}

void TRunWriter::TakeSheet(const std::string& aFile) {
  JudgeSheet();
  for (const TRunLabel& label : fRun.Sheet()) {
    if (fPrinted != nullptr) {
      fPrinted->Check(label);
    } else if (fManifest != nullptr) {
      fManifest->Add(label, ExtractFileName(aFile));
    }
  }
}

void TRunWriter::JudgeSheet() {
  for (const TRunLabel& label : fRun.Sheet()) {
    if (label.leftOut.empty()) continue;
    if (!fJob.keepGoing) throw Exception(Told(label));
    ++fLeftOut;
    if (fJob.onLeftOut) fJob.onLeftOut(label);
  }
}

// Printing again ---------------------------------------------------------------------------

TRunState CheckReprint(const TRunJob& aJob, const std::string& aManifest, TLabelRun& aRun,
                       const TLabelRanges& aLabels) {
  const TPrintedLabels printed(aManifest, [&](const TRunLabel& label) { return aLabels.Has(label.label); });
  if (printed.State().parts.empty()) throw ELedgerError(aManifest + ": no part of that run is finished");
  TRunHead now;  // of which only these count
  now.data = aJob.data;
  now.document = aJob.document;
  const std::string difference = now.SourceDifference(printed.State().head);
  if (!difference.empty()) throw ELedgerError(aManifest + ": changed since that run: " + difference);
  aRun.Select(aLabels);
  for (int page = 1; page <= aRun.Pages(); ++page) {
    aRun.Fill(page, {});
    for (const TRunLabel& label : aRun.Sheet()) printed.Check(label);
  }
  return printed.State();
}

}  // namespace Zor::inline Host
