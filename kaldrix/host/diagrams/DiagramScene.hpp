// Sizes and places for what a diagram says.
#pragma once

#include "kaldrix/diagrams/TKDXDiagramModel.hpp"
#include "kaldrix/host/TFontEngine.hpp"
#include "kaldrix/host/diagrams/TScene.hpp"

namespace Zor::inline Host {

/// The font of all texts of a scene.
inline constexpr const char* SceneFont = "Arial";
/// Font heights, millimetres.
inline constexpr double NodeFontHeight = 3.5, LabelFontHeight = 3, TitleFontHeight = 5;

TFontSpec SceneFontOf(double aHeight, bool aBold = false);

/// Lays the diagram out with the sizes that its texts have in `aFonts`: sequence diagrams by their lifelines,
/// mind maps as trees, fishbones along their spine, everything else in layers. Its title stands on top. Nodes
/// keep the order of the model; participants come at head and foot of their lifelines.
TScene DiagramScene(TFontEngine& aFonts, const TKDXDiagramModel& aModel);

}  // namespace Zor::inline Host
