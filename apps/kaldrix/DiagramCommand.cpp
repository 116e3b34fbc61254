#include "apps/kaldrix/DiagramCommand.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/diagrams/DiagramToJson.hpp"
#include "kaldrix/diagrams/ZORParseDiagram.hpp"
#include "kaldrix/host/diagrams/DiagramLoader.hpp"
#include "kaldrix/platform/TRegex.hpp"

namespace Zor::Program {

namespace {

constexpr std::size_t LongestTurn = 100;  ///< bytes of a line that may tell a direction

constexpr std::array<TWord<TZORDiagramFormat>, 2> Languages{
    {{"mermaid", dgMermaid}, {"plantuml", dgPlantUML}}};
constexpr std::array<TWord<TZOREditorMode>, 4> Modes{{{"labelling", emLabelling},
                                                      {"flowchart", emFlowChart},
                                                      {"drawing", emDrawing},
                                                      {"interactive", emInteractive}}};

/// A file's text in UTF-8, its lines ended by a line feed, so that they are counted as editors do. Raises an
/// Exception for a file that is no text.
std::string ReadText(const std::string& aInput) {
  const std::string bytes = ReadTextInput(aInput);
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool pair = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
    if (!pair) text += bytes[i];
  }
  return text;
}

constinit const TRegex Turned("^\\s*(?:graph|flowchart|direction)\\s+(BT|RL)\\s*;?\\s*$", rcIgnore);

/// A Mermaid text that runs upwards or from the right is drawn downwards or from the left, of which its model
/// says nothing. Lines that are told already are passed over.
void WarnOfTurns(std::string_view aText, TKDXDiagramModel& aModel) {
  auto& told = aModel.fDiagnostics;
  std::int32_t number = 0;
  TMatch match;
  for (std::size_t start = 0, end = 0; start < aText.size(); start = end + 1) {
    end = std::min(aText.find('\n', start), aText.size());
    const std::string_view line = aText.substr(start, end - start);
    ++number;
    if (line.size() > LongestTurn || !Turned.Match(line, match)) continue;
    const auto place = std::find_if(told.begin(), told.end(),
                                    [=](const auto& d) { return d.Line >= number || d.Line == 0; });
    if (place != told.end() && place->Line == number) continue;
    const std::string drawn = aModel.fDirection == fdLeftRight ? "left to right" : "the top down";
    told.insert(place, {dsWarning, number, "MERMAID_DIRECTION_TURNED",
                        "Drawn from " + drawn + ", not in the direction " + std::string(match[1]) + ".",
                        std::string(line)});
  }
}

/// A line "FILE:LINE: CODE: message", as editors take up.
void TellOf(const std::string& aFile, const TZORDiagramDiagnostic& aDiagnostic) {
  const std::string line = aDiagnostic.Line > 0 ? std::to_string(aDiagnostic.Line) + ":" : "";
  TellLine(aFile + ":" + line + " " + aDiagnostic.Code + ": " + aDiagnostic.MessageText);
}

}  // namespace

DiagramCommand::DiagramCommand(CLI::App& aProgram)
    : Command(aProgram, "diagram", "Draw a Mermaid or PlantUML text") {
  Options().add_option("input", fInput, "The text; - reads standard input")->required()->check(SomeFile());
  CLI::Option* output = fOutput.AddOptions(Options(), false)->required(false);
  CLI::Option* model =
      Options().add_flag("--json", fModel, "Write what the text says, and what is wrong with it, as JSON");
  AddWords(Options(), "--format-in", fLanguage, Languages,
           "mermaid or plantuml; told by suffix and text if not given");
  Options().add_flag("--strict", fStrict, "The first warning is an error");
  AddWords(Options(), "--mode", fMode, Modes, "Of the drawing: labelling, flowchart, drawing or interactive")
      ->default_str("flowchart");
  Options()
      .add_option("--dpi", fOptions.dpi, "Dots per inch of a PNG")
      ->check(Between(1, 9600))
      ->capture_default_str();
  Options().parse_complete_callback([this, output, model] {
    if (model->count() > 0) return;
    if (output->count() == 0) throw CLI::RequiredError("--output");
    fOutput.Format();
  });
}

TZORDiagramFormat DiagramCommand::Language() const {
  return fLanguage == dgAuto ? ZORDiagramFormatFromExt(fInput) : fLanguage;
}

std::unique_ptr<TKDXDiagramModel> DiagramCommand::Parse() const {
  const std::string text = ReadText(fInput);
  const TZORDiagramFormat language = Language() == dgAuto ? ZORDetectDiagramFormat(text) : Language();
  auto model = ZORParseDiagram(text, language);
  if (language == dgMermaid && model->fKind == dkFlowChart) WarnOfTurns(text, *model);
  return model;
}

bool DiagramCommand::IsGood(const TKDXDiagramModel& aModel) const {
  return !aModel.HasDiagnostics(fStrict ? dsWarning : dsError);
}

void DiagramCommand::TellAll(const TKDXDiagramModel& aModel) const {
  for (const TZORDiagramDiagnostic& diagnostic : aModel.fDiagnostics) {
    TellOf(ToldName(fInput), diagnostic);
    if (fStrict && diagnostic.Severity >= dsWarning) return;
  }
}

int DiagramCommand::Model() const {
  const auto model = Parse();
  const bool good = IsGood(*model);
  if (!good) TellAll(*model);
  if (good || !fStrict) fOutput.WriteBytes(DiagramToJson(*model)->ToJSON(false) + '\n');
  return good ? 0 : 1;
}

int DiagramCommand::Draw() const {
  // The fonts of the system are looked up while the text is read.
  TKDXLabel document;
  const auto model = Parse();
  TellAll(*model);
  if (!IsGood(*model)) return 1;
  document.SetEditorMode(fMode);
  DrawDiagram(document, *model, dpgFit);
  fOutput.Write(document, fOptions);
  return 0;
}

int DiagramCommand::Run() const {
  fOutput.RequireOther(fInput);
  return fModel ? Model() : Draw();
}

}  // namespace Zor::Program
