#include "host/TRunWriter.hpp"

#include <algorithm>
#include <unordered_map>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Host {

TRunWriter::TRunWriter(TKDXLabel& aDocument, TLabelRun& aRun, const TRunJob& aJob)
    : fDocument(aDocument), fRun(aRun), fJob(aJob), fBackground(aDocument, true) {}

TRunWriter::~TRunWriter() = default;

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

TRunHead TRunWriter::Head() const {
  TRunHead head;
  head.labels = fRun.Labels();
  head.first = fRun.First();
  head.last = fRun.Last();
  head.startRow = fDocument.fPrintInfo->fFirstRow;
  head.startColumn = fDocument.fPrintInfo->fFirstCol;
  head.part = fJob.part;
  head.output = ExtractFileName(fJob.output);
  head.data = fJob.data;
  return head;
}

void TRunWriter::Resume() {
  if (!FileExists(fJob.manifest)) return;
  const TRunState state = TRunManifest::Read(fJob.manifest, [](const TRunLabel&, const std::string&) {});
  if (state.bytes == 0)
    return DeleteFile(fJob.manifest);  // A kill left no more than the beginning of a head.
  const std::string difference = Head().Difference(state.head);
  if (!difference.empty()) {
    throw Exception(fJob.manifest + ": this ledger tells of another run: " + difference);
  }
  fManifest = std::make_unique<TRunManifest>(fJob.manifest, state);
  fPart = state.parts;
  fPages = state.pages;
  if (state.lastLabel > 0 && state.lastLabel < fRun.Last()) fRun.GoOnBehind(state.pages, state.lastLabel);
}

int TRunWriter::Write() {
  if (!fJob.manifest.empty() && fManifest == nullptr)
    fManifest = std::make_unique<TRunManifest>(fJob.manifest, Head());
  if (fManifest != nullptr && fManifest->State().lastLabel >= fRun.Last()) return 0;
  const int pages = fRun.Pages();
  const int each = fManifest != nullptr ? fJob.part : pages;
  for (int page = fPages + 1; page <= pages; page += each) WritePart(page, std::min(page + each - 1, pages));
  return fLeftOut;
}

void TRunWriter::WritePart(int aFirst, int aLast) {
  ++fPart;
  for (int page = aFirst; page <= aLast; ++page) {
    WritePage(page);
    if (fJob.onPage) fJob.onPage(page, fRun.Pages());
  }
  if (fPdf != nullptr) fPdf->FinishPdf();
  fPdf.reset();
  if (fFile != nullptr) fFile->Commit();
  fFile.reset();
  if (fManifest != nullptr) fManifest->FinishPart();
}

void TRunWriter::WritePage(int aPage) {
  const TExportPlan plan = fRun.Fill(aPage, fJob.options);
  const std::string file = fJob.format == rfPdf ? PartName() : NumberedName(fJob.output, aPage);
  TakeSheet(file);
  switch (fJob.format) {
    case rfPdf:
      return AddToPdf(plan);
    case rfSvg:
      return WriteFileAtomically(file, PlanSvg(fDocument, plan, fJob.options));
    case rfPng:
      return WriteFileAtomically(file, PlanPng(fDocument, plan, fJob.options));
  }
}

std::string TRunWriter::PartName() const {
  return fManifest != nullptr ? NumberedName(fJob.output, fPart) : fJob.output;
}

void TRunWriter::AddToPdf(const TExportPlan& aPlan) {
  if (fPdf == nullptr) {
    std::function<void(std::string_view)> sink = fJob.sink;
    if (!sink) {
      fFile = std::make_unique<TAtomicFile>(PartName());
      sink = [this](std::string_view bytes) { fFile->Write(bytes); };
    }
    fPdf = std::make_unique<TSurface>(
        TSurface::MakePdf(fDocument.Fonts(), aPlan.width, aPlan.height, PdfInfo(fDocument), std::move(sink)));
  } else {
    fPdf->NewPage(aPlan.width, aPlan.height);
  }
  PaintPlan(*fPdf, fDocument, aPlan, fBackground);
}

void TRunWriter::TakeSheet(const std::string& aFile) {
  for (const TRunLabel& label : fRun.Sheet()) {
    if (!label.leftOut.empty()) {
      if (!fJob.keepGoing) throw Exception(Told(label));
      ++fLeftOut;
      if (fJob.onLeftOut) fJob.onLeftOut(label);
    }
    if (fManifest != nullptr) fManifest->Add(label, ExtractFileName(aFile));
  }
}

void CheckReprint(const std::string& aManifest, TLabelRun& aRun, std::uint32_t aData, int aFirst, int aLast) {
  std::unordered_map<int, TRunLabel> printed;
  const TRunState state = TRunManifest::Read(aManifest, [&](const TRunLabel& label, const std::string&) {
    if (label.label >= aFirst && label.label <= aLast) printed.emplace(label.label, label);
  });
  if (state.head.data != aData) throw Exception(aManifest + ": the data or the answers have changed since");
  aRun.SetRange(aFirst, aLast);
  for (int page = 1; page <= aRun.Pages(); ++page) {
    aRun.Fill(page, {});
    for (const TRunLabel& label : aRun.Sheet()) {
      const auto found = printed.find(label.label);
      const std::string which = aManifest + ": label " + std::to_string(label.label);
      if (found == printed.end()) throw Exception(which + " has not been printed");
      if (found->second.record != label.record || found->second.counters != label.counters) {
        throw Exception(which + " would have another record or other counter values now");
      }
    }
  }
}

}  // namespace Zor::inline Host
