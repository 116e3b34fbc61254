#include "apps/kaldrix/ExportCommand.hpp"

#include <CLI/CLI.hpp>
#include <array>
#include <map>

#include "apps/kaldrix/Documents.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::Program {

namespace {

using TMaker = std::string (*)(TKDXLabel&, const TExportOptions&);

struct TFormat {
  std::string_view name;  ///< the suffix too
  TMaker make;
};
constexpr std::array<TFormat, 5> Formats{{
    {"svg", &ExportSvg},
    {"png", &ExportPng},
    {"pdf", &ExportPdf},
    {"json", [](TKDXLabel& aDocument, const TExportOptions&) { return aDocument.SaveToBytes(lfJSON); }},
    {"bin", [](TKDXLabel& aDocument, const TExportOptions&) { return aDocument.SaveToBytes(lfBin); }},
}};

const std::map<std::string, TZORExportSVG> SvgModes{
    {"current", svCurrentUnit}, {"plain", svCurUnitNoMed}, {"factor", svFactor}, {"px", svFactorPx}};

const TFormat* FindFormat(std::string_view aName) {
  for (const TFormat& format : Formats) {
    if (SameText(format.name, aName)) return &format;
  }
  return nullptr;
}

/// The format that was asked for, or that of the output's suffix.
const TFormat& FormatOf(const std::string& aFormat, const std::string& aOutput) {
  const std::string suffix = ExtractFileExt(aOutput);
  const TFormat* format = FindFormat(!aFormat.empty() ? aFormat : suffix.empty() ? suffix : suffix.substr(1));
  if (format == nullptr) {
    throw CLI::ValidationError("--format",
                               "no format is known for '" + aOutput + "': tell svg, png, pdf, json or bin");
  }
  return *format;
}

}  // namespace

ExportCommand::ExportCommand(CLI::App& aProgram)
    : Command(aProgram, "export", "Write a document as SVG, PNG, PDF, JSON or binary") {
  Options().add_option("input", fInput, "The document; - reads standard input")->required();
  Options().add_option("-o,--output", fOutput, "The file to write; - writes to standard output")->required();
  Options()
      .add_option("--format", fFormat, "svg, png, pdf, json or bin; told by the output's suffix if not given")
      ->check(CLI::IsMember({"svg", "png", "pdf", "json", "bin"}));
  Options()
      .add_option("--dpi", fOptions.dpi, "Dots per inch of a PNG")
      ->check(CLI::Range(1.0, 9600.0))
      ->capture_default_str();
  Options()
      .add_option("--page", fOptions.page, "The sheet with all labels of this page instead of one label")
      ->check(CLI::Range(1, 1000000));
  Options().add_flag("--fit", fOptions.fit, "Only as large as the items are");
  Options().add_flag("--ids", fOptions.ids, "SVG elements carry the names of their items");
  Options()
      .add_option("--svg-mode", fOptions.svgMode, "Numbers of the SVG: current, plain, factor or px")
      ->transform(CLI::CheckedTransformer(SvgModes))
      ->default_str("current");
  Options()
      .add_option("--factor", fOptions.factor, "What the modes factor and px multiply by")
      ->check(CLI::Range(0.000001, 1000000.0))
      ->capture_default_str();
  Options().parse_complete_callback([this] { FormatOf(fFormat, fOutput); });
}

int ExportCommand::Run() const {
  TKDXLabel document;
  LoadDocument(document, fInput);
  WriteOutput(fOutput, FormatOf(fFormat, fOutput).make(document, fOptions));
  return 0;
}

}  // namespace Zor::Program
