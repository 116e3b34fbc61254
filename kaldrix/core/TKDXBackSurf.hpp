#pragma once

#include <string>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// What a file holds of the surface.
struct TSurfaceContent {
  TZORBackStyle fStyle = biNone;
  TAlphaColor fColor = ColorWhite;    ///< first colour of a gradient or split
  TAlphaColor fToColor = ColorWhite;  ///< second colour
  std::string fFileName;              ///< the image of biImage
  bool fPrint = false;                ///< the surface is printed
};

/// What lies behind all items of a document, and the align marks.
class TKDXBackSurf final : public TPersistent, public TSurfaceContent {
 public:
  TKDXBackSurf(TKDXBaseLabel* aOwner, bool aCreateImage) : fOwner(aOwner), fCreateImage(aCreateImage) {}

  void Assign(const TPersistent& aSource) override;

  /// Gradients across a rectangle, which a round label cannot have.
  static bool IsRectStyle(TZORBackStyle aStyle) { return aStyle == biGradHor || aStyle == biGradVer; }
  /// Gradients and splits of a circle, which a rectangular label cannot have.
  static bool IsRoundStyle(TZORBackStyle aStyle) { return aStyle >= biGraCircle; }
  /// Does the style suit a label of that shape?
  static bool Suits(TZORBackStyle aStyle, TKaldrixType aShape) {
    return aShape == ltCircle ? !IsRectStyle(aStyle) : !IsRoundStyle(aStyle);
  }

  /// A name whose file does not exist is cleared.
  void SetFileName(const std::string& aValue);
  /// biImage without a file name, and a style that the label's shape cannot have, become biNone.
  void SetStyle(TZORBackStyle aValue);
  void SetColor(TAlphaColor aValue);
  void SetToColor(TAlphaColor aValue);
  void SetAlignColor(TAlphaColor aValue);
  void SetShowAlign(bool aValue);
  void SetPrint(bool aValue);
  /// Position of the align marks in document units, held on the label.
  Single GetAlignLeft() const;
  Single GetAlignTop() const;
  void SetAlignLeft(Single aValue);
  void SetAlignTop(Single aValue);
  /// Clears the name of an image file that does not exist.
  void ReadFileImage();

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Adds "BackSurface".
  void WriteJson(TJsonObject& aJson) const;
  /// Reads the object of that key.
  void ReadJson(int aVersion, TJsonObject& aJson);

  TKDXBaseLabel* fOwner;
  TAlphaColor fAlignColor = 0xFFFF0000;
  int fAlignLeft = 0, fAlignTop = 0;  ///< base points
  bool fShowAlign = false;

  // Marks of the host's drawing view.
  bool fChangingAlign = false;
  bool fDrawAlign = false;
  bool fNeedPaint = false;
  bool fCreateImage;  ///< the host keeps an image object for the surface

 protected:
  const char* ClassName() const override { return "TKDXBackSurf"; }

 private:
  void Record(TRecord& r);
  void SetSurfaceColor(TAlphaColor& aField, TAlphaColor aValue);
  void SetAlign(int& aField, Single aValue, int aMost);
};

}  // namespace Zor::inline Base
