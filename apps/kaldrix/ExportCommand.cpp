#include "apps/kaldrix/ExportCommand.hpp"

#include <CLI/CLI.hpp>
#include <array>

#include "apps/kaldrix/Documents.hpp"
#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/host/LiteralCodes.hpp"

namespace Zor::Program {

namespace {

constexpr std::array<TWord<TZORExportSVG>, 4> SvgModes{
    {{"current", svCurrentUnit}, {"plain", svCurUnitNoMed}, {"factor", svFactor}, {"px", svFactorPx}}};

/// A picture shows what is there, as an editor does; that no reader finds it is told all the same.
void TellCodes(const TKDXLabel& aDocument, const std::string& aInput) {
  for (const std::string& problem : LiteralCodeProblems(aDocument, lopExport))
    Tell(ToldName(aInput) + ": " + problem);
}

}  // namespace

ExportCommand::ExportCommand(CLI::App& aProgram)
    : Command(aProgram, "export", "Write a document as SVG, PNG, PDF, JSON or binary") {
  Options()
      .add_option("input", fInput, "The document; - reads standard input")
      ->required()
      ->check(SomeFile());
  fOutput.AddOptions(Options(), false);
  Options()
      .add_option("--dpi", fOptions.dpi, "Dots per inch of a PNG")
      ->check(Between(1, 9600))
      ->capture_default_str();
  Options()
      .add_option("--page", fOptions.page, "The sheet with all labels of this page instead of one label")
      ->check(Between(1, 1000000));
  Options().add_flag("--fit", fOptions.fit, "Only as large as the items are");
  Options().add_flag("--ids", fOptions.ids, "SVG elements carry the names of their items");
  AddWords(Options(), "--svg-mode", fOptions.svgMode, SvgModes,
           "Numbers of the SVG: current, plain, factor or px")
      ->default_str("current");
  Options()
      .add_option("--factor", fOptions.factor, "What the modes factor and px multiply by")
      ->check(Between(0.000001, 1000000))
      ->capture_default_str();
  Options().parse_complete_callback([this] { fOutput.Format(); });
}

int ExportCommand::Run() const {
  TKDXLabel document;
  LoadDocument(document, fInput);
  // A document may be written anew in its place.
  if (fOutput.Format().picture) {
    FindPictures(document, fInput);
    TFileSet pictures;
    AddPictures(pictures, document);
    fOutput.RequireOther(fInput, std::move(pictures));
  }
  TExportOptions options = fOptions;
  options.leaveOutInvalid = true;
  fOutput.Write(document, options);
  if (fOutput.Format().picture) TellCodes(document, fInput);
  return 0;
}

}  // namespace Zor::Program
