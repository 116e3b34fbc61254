// What is fixed for every kind of item.
#pragma once

#include <array>
#include <string_view>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Types {

struct TZORItemFacts {
  std::string_view name;
  int points;  ///< length of the point array of a new item; 0 where it grows with the item
};

/// By ordinal of TZORItemType.
inline constexpr std::array<TZORItemFacts, 30> ItemTable{{
    {"Undefined", 1}, {"Point", 1},      {"Line", 2},        {"ArrowLine", 4}, {"Polyline", 0},
    {"Arc", 2},       {"Rectangle", 2},  {"Polygon", 0},     {"Circle", 2},    {"Ellipse", 2},
    {"Text", 2},      {"Paragraph", 2},  {"Barcode", 2},     {"PDF417", 2},    {"DataMatrix", 2},
    {"QRCode", 2},    {"Image", 2},      {"FlowDiagram", 2}, {"Link", 1},      {"Table", 2},
    {"Polytext", 2},  {"Rank", 2},       {"NutriScore", 2},  {"Level", 2},     {"Symbol", 3},
    {"Bezier", 0},    {"Dimension", 10}, {"Sector", 2},      {"Package", 2},   {"RichText", 2},
}};
static_assert(ItemTable.size() == itRichText + 1);

/// The display name of a kind; "None" beyond the known kinds.
constexpr std::string_view NameItem(TZORItemType aType) {
  return aType < ItemTable.size() ? ItemTable[aType].name : "None";
}

/// Length of the point array of a new item of that kind; 0: it grows with the item.
constexpr int NumPointsItem(TZORItemType aType) {
  return aType < ItemTable.size() ? ItemTable[aType].points : 1;
}

/// The kinds whose point array grows with the item, and so is sized by what a file holds.
constexpr bool HasFreePoints(TZORItemType aType) {
  return aType == itPolyLine || aType == itPolygon || aType == itBezier;
}

/// The kinds that links can be attached to: all that offer IZORLink.
constexpr bool CarriesLinks(TZORItemType aType) {
  return aType == itPoint || aType == itImage || aType == itFlow || aType == itSymbol;
}

}  // namespace Zor::inline Types
