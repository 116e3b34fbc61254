#include "kaldrix/diagrams/ZORParseDiagram.hpp"

#include <array>

#include "kaldrix/diagrams/DiagramText.hpp"
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"
#include "kaldrix/platform/TRegex.hpp"

namespace Zor::inline Diagramparsers {

namespace {

constinit const TRegex StartTag(
    "@start(?:uml|mindmap|gantt|wbs|json|yaml|chronology|salt|ebnf|regex|files|ditaa|chen)\\b", rcIgnore);

struct TReader {
  TZORDiagramFormat format;
  void (*parse)(std::string_view aText, TKDXDiagramModel& aModel);
};

constexpr std::array Readers{
    TReader{dgMermaid, TKDXMermaidParser::Parse},
    TReader{dgPlantUML, TKDXPlantUMLParser::Parse},
};

void RaiseFirstWarning(const TKDXDiagramModel& aModel) {
  for (const TZORDiagramDiagnostic& d : aModel.fDiagnostics) {
    if (d.Severity < dsWarning) continue;
    const std::string place = d.Line >= 1 ? " at line " + std::to_string(d.Line) : "";
    throw EZORDiagramParseError(d.Code + place + ": " + d.MessageText);
  }
}

}  // namespace

TZORDiagramFormat ZORDetectDiagramFormat(std::string_view aText) {
  std::string repaired;
  return StartTag.Matches(ValidDiagramText(aText, repaired)) ? dgPlantUML : dgMermaid;
}

std::unique_ptr<TKDXDiagramModel> ZORParseDiagram(std::string_view aText, TZORDiagramFormat aFormat,
                                                  bool aStrict) {
  if (aFormat == dgAuto) aFormat = ZORDetectDiagramFormat(aText);
  const auto* reader =
      std::find_if(Readers.begin(), Readers.end(), [&](const TReader& r) { return r.format == aFormat; });
  if (reader == Readers.end()) throw EInvalidOperation("There is no reader for this diagram format.");
  auto model = std::make_unique<TKDXDiagramModel>();
  reader->parse(aText, *model);
  if (model->fNodes.empty() && model->fParticipants.empty()) {
    model->AddDiagnostic(dsError, 0, "DIAGRAM_EMPTY_RESULT",
                         "The diagram did not produce any renderable element.");
  }
  if (aStrict) RaiseFirstWarning(*model);
  return model;
}

}  // namespace Zor::inline Diagramparsers
