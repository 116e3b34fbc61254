// Layers: which one is active, what their items show, and which number counts from where.
#include <iostream>

#include "kaldrix/host/Host.hpp"

namespace {

bool IsShown(Zor::TKDXLabel& aLabel, const char* aName) {
  return aLabel.SVG(Zor::svCurrentUnit, 1, true).find(aName) != std::string::npos;
}

}  // namespace

int main() {
  Zor::TKDXLabel label;
  label.GetLayer(1).SetName("Outline");  // there always is a first layer
  Zor::TKDXLayer& notes = label.AddLayer();
  notes.SetName("Notes");
  notes.SetColor(0xFFC62828);

  label.SetActiveLayer(2);  // counts from 1, as GetLayer does; fActiveLayer counts from 0, as files do
  auto* line = label.NewLine(0, 0, 10000, 10000);
  std::cout << line->GetID() << " is on " << line->GetLayer().fName << ", layer "
            << label.LayerIdx(&line->GetLayer()) + 1 << " of " << label.fLayers.Count() << '\n';

  Zor::TZOLayerOpts hidden = notes.fOptions;
  hidden.Remove(Zor::lopVisible);
  notes.SetOptions(hidden);
  std::cout << "hidden: " << line->Shows(Zor::lopVisible) << IsShown(label, "Line001") << '\n';
  hidden.Add(Zor::lopVisible);
  notes.SetOptions(hidden);
  std::cout << "visible: " << line->Shows(Zor::lopVisible) << IsShown(label, "Line001") << '\n';

  label.DeleteLayer(2);
  std::cout << "without the layer it is on " << line->GetLayer().fName << '\n';
}
