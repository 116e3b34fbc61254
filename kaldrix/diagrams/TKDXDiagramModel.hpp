#pragma once

#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kaldrix/diagrams/DiagramTypes.hpp"

namespace Zor::inline Diagramparsers {

/// What a diagram says: nodes and edges, or participants and events, with what was wrong in its text. It has
/// no coordinates. An ID stands at most once among the nodes; edges may name IDs that have no node.
class TKDXDiagramModel {
 public:
  /// Finds texts by views.
  struct THash {
    using is_transparent = void;
    std::size_t operator()(std::string_view aText) const { return std::hash<std::string_view>()(aText); }
  };
  using TNodeIndex = std::unordered_map<std::string, int, THash, std::equal_to<>>;

  /// What all edges together may take. Joining two groups of nodes makes an edge for each pair, so a short
  /// text could fill any memory.
  static constexpr std::size_t MostEdgeBytes = std::size_t{64} << 20;

  // Queries
  TZORDiagramKind GetKind() const { return fKind; }
  TZORFlowDirection GetDirection() const { return fDirection; }
  const std::string& GetTitle() const { return fTitle; }
  const std::vector<TZORDiagNode>& GetNodes() const { return fNodes; }
  const std::vector<TZORDiagEdge>& GetEdges() const { return fEdges; }
  const std::vector<TZORSeqParticipant>& GetParticipants() const { return fParticipants; }
  const std::vector<TZORSeqEvent>& GetSeqEvents() const { return fSeqEvents; }
  const std::vector<TZORDiagramDiagnostic>& GetDiagnostics() const { return fDiagnostics; }
  /// The 0-based place in fNodes; -1 for an unknown node.
  int NodeIndexOf(std::string_view aID) const;
  /// Whether anything of this severity or a higher one was reported.
  bool HasDiagnostics(TZORDiagramDiagnosticSeverity aMinimumSeverity) const;

  // Building
  void Clear();
  /// The index of the node, -1 for an empty ID. A new node without a text shows its ID, unless its shape is
  /// told. A known node takes shape and text when they are told for the first time, and a text in the place
  /// of its ID; everything else stays as it was given first.
  int AddNode(std::string_view aID, std::string_view aText = {}, TZORFlowType aShape = ftProcess,
              bool aHasShape = false, std::int8_t aSide = 0, TAlphaColor aBackColor = 0,
              bool aHasBackColor = false);
  /// Ignored when an end is empty. False when the edges take too much memory already: then the edge is
  /// dropped, and the first time this is reported as "DIAGRAM_TOO_LARGE".
  bool AddEdge(std::string_view aFrom, std::string_view aTo, std::string_view aText = {},
               bool aDotted = false, TZORDiagEdgeArrow aArrow = TZORDiagEdgeArrow::eaArrow);
  /// The same for an edge with a terminator of its own at the source.
  bool AddEdge(TZORDiagEdge aEdge);
  /// Ignored for an empty ID. A display that is neither empty nor the ID replaces that of a known
  /// participant.
  void AddParticipant(std::string_view aID, std::string_view aDisplay = {});
  void AddSeqEvent(TZORSeqEvent aEvent) { fSeqEvents.push_back(std::move(aEvent)); }
  void AddDiagnostic(TZORDiagramDiagnosticSeverity aSeverity, std::int32_t aLine, std::string_view aCode,
                     std::string_view aMessage, std::string_view aSource = {});

  /// The document item of a node; an unknown node is ignored, and has none (0).
  void SetNodeInId(std::string_view aID, std::int32_t aInId);
  std::int32_t GetNodeInId(std::string_view aID) const;

  TZORDiagramKind fKind = dkFlowChart;
  TZORFlowDirection fDirection = fdTopDown;
  std::string fTitle;
  std::vector<TZORDiagNode> fNodes;
  TNodeIndex fNodeIndex;
  std::vector<TZORDiagEdge> fEdges;
  std::vector<TZORSeqParticipant> fParticipants;
  std::vector<TZORSeqEvent> fSeqEvents;
  std::vector<TZORDiagramDiagnostic> fDiagnostics;

 private:
  bool HasRoom(std::size_t aEdgeText);

  TNodeIndex fParticipantIndex;
  std::size_t fEdgeBytes = 0;
};

}  // namespace Zor::inline Diagramparsers
