// The entry to the readers of diagram text.
#pragma once

#include <memory>
#include <string_view>

#include "kaldrix/diagrams/TKDXDiagramModel.hpp"
#include "kaldrix/utils/DiagramFormat.hpp"

namespace Zor::inline Diagramparsers {

/// dgPlantUML for a text with a PlantUML start tag anywhere and in any case, else dgMermaid.
TZORDiagramFormat ZORDetectDiagramFormat(std::string_view aText);

/// Reads a diagram. A bad one raises nothing: what was not read is told by the diagnostics of the model.
/// Bytes that are not UTF-8 become U+FFFD.
/// @param aStrict raises EZORDiagramParseError for the first warning or error.
std::unique_ptr<TKDXDiagramModel> ZORParseDiagram(std::string_view aText, TZORDiagramFormat aFormat = dgAuto,
                                                  bool aStrict = false);

}  // namespace Zor::inline Diagramparsers
