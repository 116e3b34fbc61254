// A host of one's own, without fonts and painting of the library: it measures texts with a font of fixed
// pitch, and "paints" each item as a line of text.
#include <iostream>
#include <string>

#include "kaldrix/Kaldrix.hpp"

namespace {

/// What the items paint on. A real one holds a painter; the base class converts places to its dots.
class TTextSurface : public Zor::TKDXBaseDraw {
 public:
  void Paint(const Zor::TKDXBaseItem& aItem, const std::string& aText = {}) {
    std::cout << GetDrawX(aItem.fBoundsRect.Left) << ", " << GetDrawY(aItem.fBoundsRect.Top) << ": "
              << aItem.GetID() << (aText.empty() ? "" : ", ") << aText << '\n';
  }
};

template <class TBase>
class TMyItem : public Zor::TBareItem<TBase> {
 public:
  using Zor::TBareItem<TBase>::TBareItem;
  void DrawItem(Zor::TKDXBaseDraw& drw) override { static_cast<TTextSurface&>(drw).Paint(*this); }
};

template <>  // texts are measured with a font of the host's
class TMyItem<Zor::TKDXBaseText> : public Zor::TBareItem<Zor::TKDXBaseText> {
 public:
  using Zor::TBareItem<Zor::TKDXBaseText>::TBareItem;
  void DrawItem(Zor::TKDXBaseDraw& drw) override { static_cast<TTextSurface&>(drw).Paint(*this, fText); }
  void CalcValues(int) override {  // base points of paper
    const int ascent = fFontHeight * 3 / 4, width = fFontHeight * 3 / 5 * static_cast<int>(fText.size());
    SetMeasured(width, fFontHeight, ascent, fFontHeight - ascent, fFontHeight / 10, 1.0);
  }
};

class TMyLabel : public Zor::TKDXLabelOf<TMyItem> {
 public:
  using TKDXLabelOf::TKDXLabelOf;
  void PrinterChanged() override {}
  void Print() override {}
  void ExportDoc(Zor::TZORExport, const std::string&, int, Zor::Single, int, bool, bool, bool) override {}

  void Paint(TTextSurface& aSurface) {
    CalcPending();  // measures what has changed
    for (Zor::TKDXBaseItem* item : fItems) {
      if (item->Shows(Zor::lopVisible)) item->DrawElement(aSurface);
    }
  }
};

}  // namespace

int main() {
  TMyLabel label;
  label.NewRectangle(0, 0, 50800, 25400);
  auto* text = label.NewText(25400, 12700);
  text->SetText("Kaldrix");
  text->SetHorzAlign(Zor::haCenter);
  text->SetVertAlign(Zor::vaCenter);
  TTextSurface surface;  // 96 dots per inch
  label.Paint(surface);
  std::cout << "the text is " << text->GetEffectiveWidth() / 1000.0 << " mm wide\n";
}
