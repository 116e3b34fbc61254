#include "kaldrix/diagrams/TKDXDiagramModel.hpp"

#include <algorithm>

namespace Zor::inline Diagramparsers {

int TKDXDiagramModel::NodeIndexOf(std::string_view aID) const {
  const auto found = fNodeIndex.find(aID);
  return found == fNodeIndex.end() ? -1 : found->second;
}

bool TKDXDiagramModel::HasDiagnostics(TZORDiagramDiagnosticSeverity aMinimumSeverity) const {
  return std::any_of(fDiagnostics.begin(), fDiagnostics.end(),
                     [&](const TZORDiagramDiagnostic& d) { return d.Severity >= aMinimumSeverity; });
}

void TKDXDiagramModel::Clear() { *this = {}; }

int TKDXDiagramModel::AddNode(std::string_view aID, std::string_view aText, TZORFlowType aShape,
                              bool aHasShape, std::int8_t aSide, TAlphaColor aBackColor, bool aHasBackColor) {
  if (aID.empty()) return -1;
  const int known = NodeIndexOf(aID);
  if (known < 0) {
    const std::string_view text = aText.empty() && !aHasShape ? aID : aText;
    const int index = static_cast<int>(fNodes.size());
    fNodes.push_back(
        {std::string(aID), 0, std::string(text), aShape, aHasShape, aSide, aBackColor, aHasBackColor});
    fNodeIndex.emplace(aID, index);
    return index;
  }
  TZORDiagNode& node = fNodes[static_cast<std::size_t>(known)];
  if (aHasShape && !node.HasShape) {
    node.Shape = aShape;
    node.HasShape = true;
    if (!aText.empty()) node.Text = aText;
  } else if (node.Text == node.ID && !aText.empty()) {
    node.Text = aText;
  }
  return known;
}

bool TKDXDiagramModel::HasRoom(std::size_t aEdgeText) {
  const std::size_t bytes = sizeof(TZORDiagEdge) + aEdgeText;
  if (fEdgeBytes > MostEdgeBytes) return false;
  if (bytes > MostEdgeBytes - fEdgeBytes) {
    fEdgeBytes = MostEdgeBytes + 1;
    AddDiagnostic(dsError, 0, "DIAGRAM_TOO_LARGE", "The diagram has too many edges; the rest was ignored.");
    return false;
  }
  fEdgeBytes += bytes;
  return true;
}

bool TKDXDiagramModel::AddEdge(std::string_view aFrom, std::string_view aTo, std::string_view aText,
                               bool aDotted, TZORDiagEdgeArrow aArrow) {
  if (aFrom.empty() || aTo.empty()) return true;
  if (!HasRoom(aFrom.size() + aTo.size() + aText.size())) return false;
  fEdges.push_back(
      {std::string(aFrom), std::string(aTo), std::string(aText), aDotted, TZORDiagEdgeArrow::eaNone, aArrow});
  return true;
}

bool TKDXDiagramModel::AddEdge(TZORDiagEdge aEdge) {
  if (aEdge.FromID.empty() || aEdge.ToID.empty()) return true;
  if (!HasRoom(aEdge.FromID.size() + aEdge.ToID.size() + aEdge.Text.size())) return false;
  fEdges.push_back(std::move(aEdge));
  return true;
}

void TKDXDiagramModel::AddParticipant(std::string_view aID, std::string_view aDisplay) {
  if (aID.empty()) return;
  const auto known = fParticipantIndex.find(aID);
  if (known == fParticipantIndex.end()) {
    fParticipantIndex.emplace(aID, static_cast<int>(fParticipants.size()));
    fParticipants.push_back({std::string(aID), std::string(aDisplay.empty() ? aID : aDisplay)});
  } else if (!aDisplay.empty() && aDisplay != aID) {
    fParticipants[static_cast<std::size_t>(known->second)].Display = aDisplay;
  }
}

void TKDXDiagramModel::AddDiagnostic(TZORDiagramDiagnosticSeverity aSeverity, std::int32_t aLine,
                                     std::string_view aCode, std::string_view aMessage,
                                     std::string_view aSource) {
  fDiagnostics.push_back({aSeverity, aLine, std::string(aCode), std::string(aMessage), std::string(aSource)});
}

void TKDXDiagramModel::SetNodeInId(std::string_view aID, std::int32_t aInId) {
  const int index = NodeIndexOf(aID);
  if (index >= 0) fNodes[static_cast<std::size_t>(index)].InId = aInId;
}

std::int32_t TKDXDiagramModel::GetNodeInId(std::string_view aID) const {
  const int index = NodeIndexOf(aID);
  return index < 0 ? 0 : fNodes[static_cast<std::size_t>(index)].InId;
}

}  // namespace Zor::inline Diagramparsers
