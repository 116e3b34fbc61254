// What the PlantUML kinds share: the walk over their lines, the elements they make, small cuts of a text.
#pragma once

#include <string>
#include <string_view>

#include "kaldrix/diagrams/DiagramElements.hpp"
#include "kaldrix/diagrams/DiagramText.hpp"
#include "kaldrix/diagrams/TKDXDiagramModel.hpp"
#include "kaldrix/platform/TRegex.hpp"

namespace Zor::inline Diagramparsers::PlantUML {

/// Calls `aRead(text)` with each line; a line that asks for too many steps of matching is reported.
template <class TRead>
void ForEachEntry(TDiagramLines aLines, TKDXDiagramModel& aModel, TRead aRead) {
  for (const TDiagramLine& line : aLines) {
    try {
      aRead(line.Text);
    } catch (const ERegexLimit&) {
      ReportMatchLimit(line, aModel);
    }
  }
}

/// Nodes with running numbers: "name1", "name2"...
class TNumberedNodes {
 public:
  TNumberedNodes(TKDXDiagramModel& aModel, std::string_view aName) : fModel(aModel), fName(aName) {}

  /// Gives the new ID, which stays valid until the next node is added.
  const std::string& Add(std::string_view aText, TZORFlowType aShape, int aSide = 0,
                         TAlphaColor aBackColor = 0, bool aHasBackColor = false);
  /// The same, with an arrow from the node added before, if any.
  void Chain(std::string_view aText, TZORFlowType aShape);

 private:
  TKDXDiagramModel& fModel;
  std::string_view fName;
  std::string fLast;
  int fCount = 0;
};

/// Without these characters at both ends.
std::string_view WithoutEnds(std::string_view aText, std::string_view aCharacters);
/// Without one pair of brackets around the text.
std::string_view WithoutPair(std::string_view aText, char aOpen, char aClose);

}  // namespace Zor::inline Diagramparsers::PlantUML
