#pragma once

#include <memory>

#include "kaldrix/diagrams/TKDXDiagramModel.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace Zor::inline Diagramparsers {

/// The whole model as one object: "kind", "direction" and "title", and the arrays "nodes", "edges",
/// "participants", "events" and "diagnostics". Enumerations are words, such as "flowchart", "left-right",
/// "decision" or "fillRhombus"; keys that do not apply are left out.
std::unique_ptr<TJsonObject> DiagramToJson(const TKDXDiagramModel& aModel);

}  // namespace Zor::inline Diagramparsers
