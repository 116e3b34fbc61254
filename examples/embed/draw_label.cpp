// Builds a label and writes it as SVG: draw_label [OUTPUT.svg], standard output if not told.
#include <iostream>
#include <string>

#include "kaldrix/host/Host.hpp"

namespace {

void Draw(Zor::TKDXLabel& aLabel) {
  aLabel.fMeasure->SetLabelSizeMM(60, 30);

  // Positions are base points: 1000 to the millimetre.
  auto* frame = aLabel.NewRectangle(1000, 1000, 58000, 28000);
  frame->SetRadio(3);
  frame->SetPenWidth(0.5F);
  frame->SetFilled(true);
  frame->SetBackColor(0xFFFFF8E1);  // 0xAARRGGBB

  auto* title = aLabel.NewText(30000, 12000);
  title->SetText("Hello, label");
  title->SetFontHeight(7);
  title->SetBold(true);
  title->SetHorzAlign(Zor::haCenter);
  title->SetVertAlign(Zor::vaCenter);

  aLabel.NewLine(10000, 19000, 50000, 19000)->SetColor(0xFFC62828);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Zor::TKDXLabel label;
    Draw(label);
    Zor::TExportOptions options;
    options.ids = true;
    const std::string svg = Zor::ExportSvg(label, options);
    if (argc > 1) {
      Zor::WriteFileAtomically(argv[1], svg);
    } else {
      std::cout << svg;
    }
  } catch (const Zor::Exception& error) {
    std::cerr << "draw_label: " << error.what() << '\n';
    return 1;
  }
}
