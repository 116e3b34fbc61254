#include "apps/kaldrix/OutputFormat.hpp"

#include <CLI/CLI.hpp>
#include <array>

#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::Program {

namespace {

/// The document itself. What was measured is stored in it, and so has to be true.
template <TZORExt aFormat>
std::string DocumentBytes(TKDXLabel& aDocument, const TExportOptions& /*aOptions*/) {
  aDocument.Fonts().RequireFonts();
  return aDocument.SaveToBytes(aFormat);
}

constexpr std::array<TOutputFormat, 5> Formats{{
    {"svg", true, &ExportSvg},
    {"png", true, &ExportPng},
    {"pdf", true, &ExportPdf},
    {"json", false, &DocumentBytes<lfJSON>},
    {"bin", false, &DocumentBytes<lfBin>},
}};

const TOutputFormat* FindFormat(std::string_view aName, bool aPictures) {
  for (const TOutputFormat& format : Formats) {
    if (SameText(format.name, aName) && (format.picture || !aPictures)) return &format;
  }
  return nullptr;
}

constexpr std::array<TWord<TSvgTextForm>, 2> SvgTexts{{{"portable", stPortable}, {"exact", stExact}}};

}  // namespace

void AddSvgText(CLI::App& aOptions, TSvgTextForm& aForm) {
  AddWords(aOptions, "--svg-text", aForm, SvgTexts,
           "Texts of an SVG: portable, by their baseline, or exact, by edges that only browsers know")
      ->default_str("portable");
}

CLI::Option* Output::AddOptions(CLI::App& aOptions, bool aPictures) {
  fPictures = aPictures;
  CLI::Option* name =
      aOptions.add_option("-o,--output", fName, "The file to write; - writes to standard output")
          ->required()
          ->check(SomeFile());
  aOptions.add_option("--format", fFormat, Words() + "; told by the output's suffix if not given")
      ->check([this](const std::string& word) {
        return FindFormat(word, fPictures) != nullptr ? std::string()
                                                      : "'" + word + "' is none of " + Words();
      });
  AddSvgText(aOptions, fSvgText);
  return name;
}

std::string Output::Words() const { return fPictures ? "svg, png or pdf" : "svg, png, pdf, json or bin"; }

const TOutputFormat& Output::Format() const {
  const std::string suffix = ExtractFileExt(fName);
  const TOutputFormat* format = FindFormat(!fFormat.empty() ? fFormat
                                           : suffix.empty() ? suffix
                                                            : suffix.substr(1),
                                           fPictures);
  if (format == nullptr) {
    throw CLI::ValidationError("--format", "no format is known for '" + fName + "': tell " + Words());
  }
  return *format;
}

void Output::RequireOther(const std::string& aInput, TFileSet aFiles) const {
  aFiles.Add(aInput == "-" ? "/dev/stdin" : aInput, "the input");
  if (const std::string* what = aFiles.Find(fName))
    throw EStreamError(fName + ": this is " + *what + ", which the output would replace");
}

void Output::Write(TKDXLabel& aDocument, const TExportOptions& aOptions) const {
  TExportOptions options = aOptions;
  options.svgText = fSvgText;
  WriteOutput(fName, Format().make(aDocument, options));
}

void Output::WriteBytes(std::string_view aBytes) const { WriteOutput(fName.empty() ? "-" : fName, aBytes); }

}  // namespace Zor::Program
