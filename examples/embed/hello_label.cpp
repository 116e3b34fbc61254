// The shortest program that draws something.
#include "kaldrix/host/Host.hpp"

int main() {
  Zor::TKDXLabel label;                                        // 60 x 35 mm
  auto* frame = label.NewRectangle(1000, 1000, 58000, 33000);  // base points: 1000 to the millimetre
  frame->SetRadio(3);
  label.NewText(5000, 12000)->SetText("Hello, label");
  Zor::WriteFileAtomically("label.svg", Zor::ExportSvg(label, {}));
  Zor::WriteFileAtomically("label.pdf", Zor::ExportPdf(label, {}));
}
