// The outlines of flow nodes, told once for everything that draws them.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline F2d {

/// A place on one axis of the box that an outline stands in: an end of the axis and, unless `part` is 0, a
/// `part`th of the extent further on; back for a negative `part`.
struct TFlowPlace {
  bool atEnd;
  std::int8_t part;
  bool ofWidth;  ///< a vertical place that is measured with the width
};

struct TFlowPoint {
  TFlowPlace x, y;
};

/// The box, from the first point of a node to its second; a node that was turned over has it reversed.
struct TFlowBox {
  double x1, y1, x2, y2, width, height;

  double X(const TFlowPlace& aPlace) const { return Value(aPlace, x1, x2, width); }
  double Y(const TFlowPlace& aPlace) const { return Value(aPlace, y1, y2, aPlace.ofWidth ? width : height); }

 private:
  static double Value(const TFlowPlace& aPlace, double aStart, double aEnd, double aExtent) {
    return (aPlace.atEnd ? aEnd : aStart) + (aPlace.part == 0 ? 0 : aExtent / aPlace.part);
  }
};

enum TFlowFigure : std::uint8_t {
  ffBox,
  ffRoundBox,  ///< with half the height as the radius of its corners
  ffEllipse,
  ffPolygon,
  ffPath,
  ffLine  ///< between two points, never filled
};

/// A part of an outline. Boxes and ellipses span the whole box.
struct TFlowElement {
  TFlowFigure figure;
  bool named;              ///< carries the name of the item
  std::string_view steps;  ///< of a path that closes: M, L, Q and C, with 1, 1, 2 and 3 points each
  std::span<const TFlowPoint> points;
};

/// The parts in painting order.
std::span<const TFlowElement> FlowOutline(TZORFlowType aType);

}  // namespace Zor::inline F2d
