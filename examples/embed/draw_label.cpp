// Builds a label and writes it as SVG: draw_label OUTPUT.svg
#include <iostream>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/platform/Exceptions.hpp"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: draw_label OUTPUT.svg\n";
    return 2;
  }
  try {
    Zor::TKDXLabel label;
    label.fMeasure->SetLabelSizeMM(60, 30);

    // Positions are base points: 1000 to the millimetre.
    auto* frame = label.NewRectangle(1000, 1000, 58000, 28000);
    frame->SetRadio(3);
    frame->SetPenWidth(0.5F);
    frame->SetFilled(true);
    frame->SetBackColor(0xFFFFF8E1);

    auto* title = label.NewText(30000, 12000);
    title->SetText("Hello, label");
    title->SetFontHeight(7);
    title->SetBold(true);
    title->SetHorzAlign(Zor::haCenter);
    title->SetVertAlign(Zor::vaCenter);

    label.NewLine(10000, 19000, 50000, 19000)->SetColor(0xFFC62828);
    label.SaveSVG(argv[1], Zor::svCurrentUnit, 1, true);
  } catch (const Zor::Exception& error) {
    std::cerr << "draw_label: " << error.what() << '\n';
    return 1;
  }
}
