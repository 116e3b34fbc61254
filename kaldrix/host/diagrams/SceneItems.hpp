// A scene as items of a document.
#pragma once

#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/host/diagrams/TScene.hpp"

namespace Zor::inline Host {

/// Adds the scene to the document, its top left corner at (`aLeft`, `aTop`), millimetres: flow nodes, the
/// links that join them, lines and texts. Gives the identities of the flow nodes by their place in the scene.
std::vector<int> AddScene(TKDXLabel& aDocument, const TScene& aScene, double aLeft, double aTop);

}  // namespace Zor::inline Host
