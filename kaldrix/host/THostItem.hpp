#pragma once

#include "kaldrix/editor/TLaidFlow.hpp"
#include "kaldrix/host/ItemPainter.hpp"
#include "kaldrix/host/TKDXSurfaceDraw.hpp"

namespace Zor::inline Host {

/// The fonts of the document that an item stands in, which has to be a TKDXLabel.
TFontEngine& FontsOf(const TKDXBaseItem& aItem);

/// The concrete items of this host: each is painted by the overload of Paint for its class, on a drawing and
/// a print alike.
template <class TBase>
class THostItem final : public TBase {
 public:
  using TBase::TBase;
  void DrawItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }
  void PrintItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }
};

template <>
class THostItem<TKDXBaseText> final : public TKDXBaseText {
 public:
  using TKDXBaseText::TKDXBaseText;
  Single GetScale() const override { return fScaleX; }
  void CalcValues(int /*aType*/) override { Measure(FontsOf(*this), *this); }
  void DrawItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }
  void PrintItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }
};

template <>
class THostItem<TKDXBaseBarcode> final : public TKDXBaseBarcode {
 public:
  using TKDXBaseBarcode::TKDXBaseBarcode;
  void CalcValues(int /*aType*/) override { Measure(FontsOf(*this), *this); }
  /// What a user writes with application identifiers is read so.
  bool GetElementString() const override { return true; }
  void DrawItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }
  void PrintItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }
};

template <>
class THostItem<TKDXBaseQRCode> final : public TKDXBaseQRCode {
 public:
  using TKDXBaseQRCode::TKDXBaseQRCode;
  void DrawItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }
  void PrintItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }

 protected:
  /// The text as it was written: a reader shall find its accents.
  std::string Taken(const std::string& aText) const override { return aText; }
};

template <>
class THostItem<TKDXBaseFlow> final : public TLaidFlow {
 public:
  using TLaidFlow::TLaidFlow;
  void DrawItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }
  void PrintItem(TKDXBaseDraw& drw) override { Paint(Surface(drw), *this); }

 protected:
  void LayOut() override { Measure(FontsOf(*this), *this); }
};

}  // namespace Zor::inline Host
