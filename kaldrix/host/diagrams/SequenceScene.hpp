#pragma once

#include "kaldrix/diagrams/TKDXDiagramModel.hpp"
#include "kaldrix/host/TFontEngine.hpp"
#include "kaldrix/host/diagrams/TScene.hpp"

namespace Zor::inline Host {

/// The participants and events of a model along their lifelines. Events of actors that are no participants
/// are left out.
TScene SequenceScene(TFontEngine& aFonts, const TKDXDiagramModel& aModel);

}  // namespace Zor::inline Host
