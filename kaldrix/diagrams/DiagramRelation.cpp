#include "kaldrix/diagrams/DiagramRelation.hpp"

#include <algorithm>
#include <array>
#include <tuple>

#include "kaldrix/diagrams/DiagramText.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using enum TZORDiagEdgeArrow;

/// In the order of trial: a token that holds another stands before it.
constexpr std::array<std::string_view, 14> RelationTokens{
    "<|--", "--|>", "<|..", "..|>", "*--", "--*", "o--", "--o", "<--", "-->", "<..", "..>", "--", "..",
};

}  // namespace

bool HasRelationToken(std::string_view aLine) {
  // Every token holds one of the last two.
  return aLine.find("--") != std::string_view::npos || aLine.find("..") != std::string_view::npos;
}

std::string TakeLabel(std::string_view& aText) {
  const std::size_t colon = aText.find(':');
  std::string label;
  if (colon != std::string_view::npos) label = CleanDiagramText(aText.substr(colon + 1));
  aText = Trim(aText.substr(0, colon));
  return label;
}

bool FindRelation(std::string_view aLine, TDiagramRelation& aRelation) {
  if (!HasRelationToken(aLine)) return false;
  std::size_t pos = 0;
  const auto* token = std::find_if(RelationTokens.begin(), RelationTokens.end(), [&](std::string_view t) {
    pos = aLine.find(t);
    return pos != std::string_view::npos;
  });
  aRelation.Token = *token;
  std::tie(aRelation.Left, aRelation.Right) = TrimmedSides(aLine, pos, token->size());
  aRelation.Label = TakeLabel(aRelation.Right);
  return true;
}

TZORDiagEdge RelationEdge(std::string_view aFrom, std::string_view aTo, const TDiagramRelation& aRelation) {
  const std::string_view token = aRelation.Token;
  TZORDiagEdge edge{std::string(aFrom),
                    std::string(aTo),
                    aRelation.Label,
                    token.find('.') != std::string_view::npos,
                    eaNone,
                    eaNone};
  switch (token.front()) {
    case '<':
      edge.FromArrow = eaArrow;
      break;
    case '*':
      edge.FromArrow = eaFillRhombus;
      break;
    case 'o':
      edge.FromArrow = eaRhombus;
      break;
    default:
      break;
  }
  switch (token.back()) {
    case '>':
      edge.Arrow = eaArrow;
      break;
    case '*':
      edge.Arrow = eaFillRhombus;
      break;
    case 'o':
      edge.Arrow = eaRhombus;
      break;
    default:
      break;
  }
  return edge;
}

}  // namespace Zor::inline Diagramparsers
