#include "kaldrix/diagrams/PlantUMLLines.hpp"

#include <utility>

namespace Zor::inline Diagramparsers::PlantUML {

const std::string& TNumberedNodes::Add(std::string_view aText, TZORFlowType aShape, int aSide,
                                       TAlphaColor aBackColor, bool aHasBackColor) {
  fLast = NumberedID(fName, ++fCount);
  fModel.AddNode(fLast, aText, aShape, true, static_cast<std::int8_t>(aSide), aBackColor, aHasBackColor);
  return fLast;
}

void TNumberedNodes::Chain(std::string_view aText, TZORFlowType aShape) {
  const std::string before = std::move(fLast);
  fModel.AddEdge(before, Add(aText, aShape));
}

std::string_view WithoutEnds(std::string_view aText, std::string_view aCharacters) {
  const std::size_t first = aText.find_first_not_of(aCharacters);
  if (first == std::string_view::npos) return {};
  return aText.substr(first, aText.find_last_not_of(aCharacters) + 1 - first);
}

std::string_view WithoutPair(std::string_view aText, char aOpen, char aClose) {
  const bool paired = aText.size() >= 2 && aText.front() == aOpen && aText.back() == aClose;
  return paired ? aText.substr(1, aText.size() - 2) : aText;
}

}  // namespace Zor::inline Diagramparsers::PlantUML
