// A diagram with sizes and places, ready to become items of a document. All lengths are millimetres.
#pragma once

#include <string>
#include <vector>

#include "kaldrix/host/diagrams/TLayoutGraph.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Host {

struct TSceneBox {
  double x = 0, y = 0, width = 0, height = 0;

  double Right() const { return x + width; }
  double Bottom() const { return y + height; }
};

/// A flow node; its text is centred and may have several lines.
struct TSceneNode {
  TSceneBox box;
  TZORFlowType shape = ftProcess;
  std::string text;
  TAlphaColor fill = ColorWhite;
  double fontHeight = 3.5;
};

/// A link of two nodes.
struct TSceneLink {
  int from = 0, to = 0;  ///< indexes of nodes
  TLayoutRoute route;
  TZORTermType fromTerm = ttNone, toTerm = ttNone;
  bool dotted = false;
};

/// A line or polyline of its own, such as a lifeline or a message.
struct TSceneLine {
  std::vector<TLayoutPoint> points;
  TZORTermType fromTerm = ttNone, toTerm = ttNone;
  bool dotted = false;
};

/// Lines of text, equally high, one below the other.
struct TSceneText {
  TSceneBox box;
  std::vector<std::string> lines;
  double fontHeight = 3;
  TZORHorzAlign align = haCenter;
  bool bold = false;
  bool opaque = false;  ///< hides lines behind it
};

struct TScene {
  std::vector<TSceneNode> nodes;
  std::vector<TSceneLink> links;
  std::vector<TSceneLine> lines;
  std::vector<TSceneText> texts;
  TLayoutSize size;
};

}  // namespace Zor::inline Host
