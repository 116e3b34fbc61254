// An item of every class that can be made.
#pragma once

#include <vector>

#include "support/TBareLabel.hpp"

namespace Zor {

template <class TLabel>
std::vector<TKDXBaseItem*> OneOfEach(TLabel& aDoc) {
  const TZORPtoA path{{10000, 10000}, {12000, 16000}, {16000, 4000}, {20000, 10000}};
  auto* one = aDoc.NewFlow(10000, 10000, 10000, 8000, ftProcess);
  auto* other = aDoc.NewFlow(30000, 10000, 10000, 8000, ftProcess);
  return {one,
          aDoc.NewLink(one->fInID, other->fInID, 7, 15, ltDirLine),
          aDoc.NewLine(10000, 10000, 20000, 14000),
          aDoc.NewPolyLine(path, 3),
          aDoc.NewArc(20000, 15000, 15000, 20000, 10000, 15000),
          aDoc.NewRectangle(10000, 10000, 10000, 8000),
          aDoc.NewPolygon(path, 3),
          aDoc.NewBezier(path, 3),
          aDoc.NewCircle(15000, 15000, 5000),
          aDoc.NewSector(15000, 15000, 5000, 30, 120),
          aDoc.NewEllipse(15000, 15000, 5000, 3000),
          aDoc.NewText(15000, 15000),
          aDoc.NewBarcode(5000, 10000, "12", btINTER_25),
          aDoc.NewQRCode(10000, 10000, "Sample"),
          aDoc.NewDataMatrix(10000, 10000, "Sample"),
          aDoc.NewPDF417(1000, 10000, "A"),
          aDoc.NewPoint(15000, 15000)};
}

}  // namespace Zor
