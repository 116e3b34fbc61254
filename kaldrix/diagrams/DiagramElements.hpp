// The elements that all readers of diagram text make.
#pragma once

#include <string>
#include <string_view>

#include "kaldrix/diagrams/DiagramText.hpp"
#include "kaldrix/diagrams/TKDXDiagramModel.hpp"

namespace Zor::inline Diagramparsers {

/// What a type makes of the whole model.
inline void BeginDiagram(TKDXDiagramModel& aModel, TZORDiagramKind aKind = dkFlowChart,
                         TZORFlowDirection aDirection = fdLeftRight) {
  aModel.fKind = aKind;
  aModel.fDirection = aDirection;
}

/// Tells that a line asked for more steps of matching than are granted.
void ReportMatchLimit(const TDiagramLine& aLine, TKDXDiagramModel& aModel);

/// An edge without a terminator.
bool AddPlainEdge(TKDXDiagramModel& aModel, std::string_view aFrom, std::string_view aTo,
                  std::string_view aText = {}, bool aDotted = false);

/// "name" + a running number.
std::string NumberedID(std::string_view aName, int aNumber);

/// Both lines of a label.
std::string TwoLines(std::string_view aFirst, std::string_view aSecond);

}  // namespace Zor::inline Diagramparsers
