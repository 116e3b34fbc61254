#include "apps/kaldrix/DiagramCommand.hpp"

#include <CLI/CLI.hpp>
#include <array>

#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/diagrams/DiagramToJson.hpp"
#include "kaldrix/diagrams/ZORParseDiagram.hpp"
#include "kaldrix/host/diagrams/DiagramLoader.hpp"

namespace Zor::Program {

namespace {

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
  const auto model = ZORParseDiagram(ReadText(fInput), Language());
  const bool good = IsGood(*model);
  if (!good) TellAll(*model);
  if (good || !fStrict) fOutput.WriteBytes(DiagramToJson(*model)->ToJSON(false) + '\n');
  return good ? 0 : 1;
}

int DiagramCommand::Draw() const {
  // The fonts of the system are looked up while the text is read.
  TKDXLabel document;
  const auto model = ZORParseDiagram(ReadText(fInput), Language());
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
