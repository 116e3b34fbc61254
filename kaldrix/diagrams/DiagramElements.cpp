#include "kaldrix/diagrams/DiagramElements.hpp"

namespace Zor::inline Diagramparsers {

void ReportMatchLimit(const TDiagramLine& aLine, TKDXDiagramModel& aModel) {
  aModel.AddDiagnostic(dsWarning, aLine.Number, "DIAGRAM_MATCH_LIMIT",
                       "The line is too involved to be read and was ignored.", aLine.Text);
}

bool AddPlainEdge(TKDXDiagramModel& aModel, std::string_view aFrom, std::string_view aTo,
                  std::string_view aText, bool aDotted) {
  return aModel.AddEdge(aFrom, aTo, aText, aDotted, TZORDiagEdgeArrow::eaNone);
}

std::string NumberedID(std::string_view aName, int aNumber) {
  return std::string(aName) + std::to_string(aNumber);
}

std::string TwoLines(std::string_view aFirst, std::string_view aSecond) {
  std::string text(aFirst);
  text.append(LabelBreak).append(aSecond);
  return text;
}

}  // namespace Zor::inline Diagramparsers
