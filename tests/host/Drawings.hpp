// Documents that the tests of the host export.
#pragma once

#include <cmath>
#include <numbers>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/host/TKDXLabel.hpp"

namespace Zor::Testing {

inline void SetLabelMM(TKDXLabel& doc, double width, double height) {
  doc.fMeasure->fWidth = static_cast<int>(width * 1000);
  doc.fMeasure->fHeight = static_cast<int>(height * 1000);
}

/// A grid of places, each 20 mm wide and high, filled row by row.
class TGrid {
 public:
  static constexpr int Step = 20;
  TGrid(TKDXLabel& doc, int columns, Int64 scale = 1) : fDoc(doc), fColumns(columns), fScale(scale) {}

  /// Base points of a place in the current cell given in millimetres from its corner.
  Int64 X(double mm) const { return Base((fCount % fColumns) * Step + mm); }
  Int64 Y(double mm) const { return Base((fCount / fColumns) * Step + mm); }
  Int64 Base(double mm) const { return std::llround(mm * 1000) * fScale; }
  TZORPto At(double x, double y) const { return {X(x), Y(y)}; }
  double Left(int cell) const { return (cell % fColumns) * Step; }
  double Top(int cell) const { return (cell / fColumns) * Step; }
  int Count() const { return fCount; }
  void Next() { ++fCount; }
  TKDXLabel& Doc() { return fDoc; }

 private:
  TKDXLabel& fDoc;
  int fColumns;
  Int64 fScale;
  int fCount = 0;
};

template <class TItem>
TItem* Styled(TItem* item, TAlphaColor color, float pen, TZOLineType line = iiSolid) {
  item->fColor = color;
  item->SetPenWidth(pen);
  item->fLineType = line;
  return item;
}

template <class TItem>
TItem* Filled(TItem* item, TAlphaColor fill) {
  item->fBackColor = fill;
  item->fFill = fill != 0;
  return item;
}

template <class TItem>
void Ended(TItem* item, TZORTermType from, TZORTermType to) {
  item->fFromType = from;
  item->fToType = to;
  item->fSizeFrom = item->fSizeTo = 4000;
  item->fFromColor = 0xFFFF0000;
}

inline void AddStrokes(TGrid& g) {
  TKDXLabel& doc = g.Doc();
  Styled(doc.NewLine(g.X(3), g.Y(3), g.X(17), g.Y(15)), 0xFF0000FF, 1);
  g.Next();
  Styled(doc.NewLine(g.X(3), g.Y(10), g.X(17), g.Y(10)), ColorBlack, 1.5F, ii31);
  g.Next();
  const TZORPtoA zigzag{g.At(4, 4), g.At(16, 4), g.At(5, 15), g.At(15, 16)};
  Ended(Styled(doc.NewPolyLine(zigzag, 3), ColorBlack, 0.5F), ttFillArrow, ttSquare);
  g.Next();
  Ended(Styled(doc.NewArc(g.X(4), g.Y(12), g.X(10), g.Y(4), g.X(16), g.Y(12)), ColorBlack, 0.5F), ttArrow,
        ttFillRhombus);
  g.Next();
  Styled(doc.NewArc(g.X(16), g.Y(10), g.X(10), g.Y(17), g.X(6), g.Y(4)), 0xFF008000, 1, ii22);
  g.Next();
  const TZORPtoA wave{g.At(3, 15), g.At(6, 0), g.At(12, 22), g.At(17, 5)};
  Ended(Styled(Filled(doc.NewBezier(wave, 3), 0), ColorBlack, 0.5F), ttCircle, ttArrow);
  g.Next();
}

inline void AddShapes(TGrid& g) {
  TKDXLabel& doc = g.Doc();
  Styled(Filled(doc.NewRectangle(g.X(3), g.Y(5), g.Base(14), g.Base(10)), 0xFFFFC0C0), ColorBlack, 0.5F);
  g.Next();
  auto* frame = doc.NewRectangle(g.X(3), g.Y(5), g.Base(14), g.Base(9));
  Styled(Filled(frame, 0), 0xFF0000FF, 1, ii42);
  g.Next();
  const TZORPtoA star{g.At(10, 3), g.At(14, 16), g.At(3, 8), g.At(17, 8), g.At(6, 16)};
  Styled(Filled(doc.NewPolygon(star, 4), 0xFF80FF80), 0xFF800080, 0.4F);
  g.Next();
  const TZORPtoA leaf{g.At(4, 10),  g.At(6, 0),  g.At(14, 0), g.At(16, 10),
                      g.At(14, 18), g.At(6, 20), g.At(5, 14)};
  Styled(Filled(doc.NewBezier(leaf, 6), 0xFFFFFF00), ColorBlack, 0.5F);
  g.Next();
  Styled(Filled(doc.NewCircle(g.X(10), g.Y(10), g.Base(7)), 0x80FF0000), 0xFF0000FF, 0.8F, ii0505);
  g.Next();
  for (const auto& [start, sweep] : {std::pair(30.0F, 75.0F), std::pair(-60.0F, 250.0F)}) {
    Styled(Filled(doc.NewSector(g.X(10), g.Y(10), g.Base(7), start, sweep), 0xFF00FFFF), ColorBlack, 0.5F);
    g.Next();
  }
  auto* turned = doc.NewSector(g.X(10), g.Y(10), g.Base(7), 30, 75);
  Styled(Filled(turned, 0xFF004000), ColorBlack, 0)->SetAngle(ag90);
  g.Next();
  Styled(Filled(doc.NewEllipse(g.X(10), g.Y(10), g.Base(8), g.Base(4)), 0xFF4040FF), ColorBlack, 0.5F);
  g.Next();
}

inline void AddRounded(TGrid& g) {
  auto* rect = g.Doc().NewRectangle(g.X(3), g.Y(5), g.Base(14), g.Base(10));
  Styled(Filled(rect, 0xFFFFC0C0), ColorBlack, 0.5F)->fRadio = static_cast<int>(g.Base(3));
  g.Next();
}

inline TKDXBaseText* AddText(TGrid& g, const char* words, double mm = 4) {
  auto* text = g.Doc().NewText(g.X(10), g.Y(10));
  text->fText = words;
  text->fFontHeight = static_cast<int>(mm * 1000);
  return text;
}

/// Every alignment at every angle; "Ep" tells the sides apart and has a descender.
inline void AddTexts(TGrid& g) {
  for (const TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    for (const TZORVertAlign vert : {vaTop, vaCenter, vaBottom}) {
      for (const TZORHorzAlign horz : {haLeft, haCenter, haRight}) {
        auto* text = AddText(g, "Ep");
        text->fHorzAlign = horz;
        text->fVertAlign = vert;
        text->fAngle = angle;
        text->CalcValues(1);
        g.Next();
      }
    }
  }
}

/// What a text may have besides: stretch, padding, back, styles.
inline void AddDressedTexts(TGrid& g, bool underlined) {
  for (const TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    for (const float stretch : {0.5F, 1.6F}) {
      auto* text = AddText(g, "Ep");
      text->fAngle = angle;
      text->fScaleX = stretch;
      text->fHorzAlign = stretch < 1 ? haRight : haLeft;
      text->fVertAlign = stretch < 1 ? vaBottom : vaTop;
      text->fPaddingX = 1500;
      text->fPaddingY = 700;
      text->fBold = stretch < 1;
      text->fItalic = !text->fBold;
      text->fUnderline = underlined;
      text->fFill = text->fBold;
      text->fBackColor = 0xFFFFFF80;
      text->fColor = 0xFFC0C0FF;
      text->fPenWidth = 500;
      text->fRadio = 1000;
      text->CalcValues(1);
      g.Next();
    }
  }
}

/// Texts cut at a display width, in every direction and from every end.
inline void AddCutTexts(TGrid& g) {
  for (const TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    for (const TZORHorzAlign horz : {haLeft, haCenter, haRight}) {
      auto* text = AddText(g, "EHEHEHEH");
      text->fAngle = angle;
      text->fHorzAlign = horz;
      text->fPaddingX = 500;
      text->fFill = true;
      text->fBackColor = 0xFFFFFF80;
      text->CalcValues(1);
      text->SetDispWidth(7000);
      g.Next();
    }
  }
}

/// Every outline, with two lines of text.
inline void AddFlows(TGrid& g) {
  for (int i = 0; i < EnumCount<TZORFlowType>; ++i) {
    auto* flow = g.Doc().NewFlow(g.X(2), g.Y(4), g.Base(16), g.Base(12), static_cast<TZORFlowType>(i));
    Styled(Filled(flow, i % 2 == 0 ? 0xFFFFE0C0 : 0), 0xFF0000C0, 0.3F);
    flow->SetText("Ep\nfor");
    flow->SetFontHeight(3);
    flow->fBold = i % 3 == 0;
    flow->fVertAlign = vaCenter;
    g.Next();
  }
}

/// Every routing between two points, with terminators and dashes. An arc stays below a half circle, which is
/// all that its SVG tells.
inline void AddLinks(TGrid& g) {
  TKDXLabel& doc = g.Doc();
  for (int i = 0; i < EnumCount<TZOLinkType>; ++i) {
    const auto type = static_cast<TZOLinkType>(i);
    const bool arc = type == ltArc;
    const int from = doc.NewPoint(g.X(arc ? 2 : 4), g.Y(arc ? 14 : 4))->fInID;
    const int to = doc.NewPoint(g.X(arc ? 18 : 16), g.Y(arc ? 14 : 15))->fInID;
    auto* link = type == ltPolyline
                     ? doc.NewPolyLink(from, to, 0, 0, type, {g.At(4, 10), g.At(10, 5), g.At(16, 5)}, 2)
                     : doc.NewLink(from, to, 7, 15, type);
    Styled(link, 0xFF0000C0, 0.5F, type == ltCurve ? ii42 : iiSolid);
    link->fFromType = ttFillCircle;
    link->fToType = ttFillArrow;
    link->fToColor = 0xFFFF0000;
    g.Next();
  }
}

}  // namespace Zor::Testing
