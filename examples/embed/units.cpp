// Lengths: base points, the unit of the document, and millimetres of paper, in a drawing at 1:50.
#include <iostream>

#include "kaldrix/host/Host.hpp"

int main() {
  Zor::TKDXLabel plan;
  plan.SetEditorMode(Zor::emDrawing);  // only here, and in emInteractive, are there scales and large units
  plan.fMeasure->SetPaperName("A4");
  plan.fMeasure->SetDrawScale(50);
  plan.SetUnits(Zor::unM);

  auto* room = plan.NewRectangle(1'000'000, 1'000'000, 4'000'000, 3'000'000);  // base points: 4 m by 3 m
  room->SetPointX(1, 0.5F);  // metres, the unit of the document; points count from 1
  room->SetWidth(4.5F);
  room->SetPenWidth(0.5F);  // millimetres of paper
  std::cout << "base points:  x " << room->GetPoint(1).bX << ", width " << room->BaseWidth() << '\n'
            << "metres:       x " << room->GetPointX(1) << ", width " << room->GetWidth() << '\n'
            << "mm of paper:  x " << room->GetPointMMX(1) << ", width " << plan.GetValMM(room->BaseWidth())
            << ", pen " << room->GetPenWidth() << '\n';

  // The same length for any unit, without a document.
  std::cout << "1 inch is " << Zor::SetValue(1, Zor::unINCH) << " base points, "
            << Zor::GetValue(25400, Zor::unCM) << " cm\n";
}
