#pragma once

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// What a file holds of the settings; sizes are base points of paper.
struct TSettingsContent {
  TAlphaColor fTermColor = ColorBlack;
  TAlphaColor fFillTermColor = ColorWhite;
  int fTermSize = 2500;
  int fLinkGap = 5000;
};

/// What new terminators and links of a document start with. Sizes are base points of paper.
class TKDXSettings final : public TPersistent, public TSettingsContent {
 public:
  explicit TKDXSettings(TKDXBaseLabel* aOwner) : fOwner(aOwner) {}

  void Assign(const TPersistent& aSource) override;

  // Colours send chPaint on a change.
  void SetTermColor(TAlphaColor aValue);
  void SetFillTermColor(TAlphaColor aValue);
  /// Millimetres of the drawn object divided by the drawing scale.
  Single GetTermSize() const;
  Single GetLinkGap() const;
  /// Millimetres of paper; at least 0.5.
  void SetTermSize(Single aMM);
  /// Millimetres of paper; at least 0.
  void SetLinkGap(Single aMM);
  int BaseLinkGap() const { return fLinkGap; }

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Adds "Settings".
  void WriteJson(TJsonObject& aJson) const;
  /// Reads the object of that key, through the setters.
  void ReadJson(int aVersion, TJsonObject& aJson);

  TKDXBaseLabel* fOwner;

 protected:
  const char* ClassName() const override { return "TKDXSettings"; }

 private:
  void Record(TRecord& r);
  void SetSize(int& aField, int aBase);
  void SetPaintColor(TAlphaColor& aField, TAlphaColor aValue);
};

}  // namespace Zor::inline Base
