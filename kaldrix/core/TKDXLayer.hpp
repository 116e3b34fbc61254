#pragma once

#include <cstdint>
#include <string>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {

class TKDXBaseItem;
class TKDXBaseLabel;

/// A layer: what its items show and export together, the values that new items take from it, and an image or
/// map behind them. Lengths are base points.
class TKDXLayer final : public TPersistent {
 public:
  /// Enters the document's list at its end, under the catalogue's name for a default layer.
  explicit TKDXLayer(TKDXBaseLabel* aOwner);
  /// Intended: the colours are not taken; a layer starts black on white.
  TKDXLayer(TKDXBaseLabel* aOwner, const std::string& aName, TAlphaColor aColor = ColorBlack,
            TAlphaColor aBackColor = ColorWhite);

  /// Back to the values of a new layer.
  void Reset();
  /// Takes all but strikeout, image type and image bytes.
  void Assign(const TPersistent& aSource) override;

  /// Raises the message EmptyText for an empty name.
  void SetName(const std::string& aValue);
  /// Raises EInvalidOperation for an image and a map at once.
  void SetOptions(TZOLayerOpts aValue);
  // With `aUpdateItems` the items of the layer take the value too.
  void SetColor(TAlphaColor aValue, bool aUpdateItems = false);
  void SetBackColor(TAlphaColor aValue, bool aUpdateItems = false);
  void SetFontColor(TAlphaColor aValue, bool aUpdateItems = false);
  /// All items of the layer take its pen, colours and font; strikeout does not pass.
  void SetValues();
  void SetZPos(std::uint16_t aValue);
  // Millimetres of paper.
  Single GetFontHeight() const;
  Single GetPenWidth() const;
  void SetFontHeight(Single aMM);
  void SetPenWidth(Single aMM);

  // Image
  // -------------------------------------------------------------------------------------------------------

  /// Takes an image file by its path: it is copied into the document's image folder unless a file of its name
  /// is there, and only the name is kept. Nothing for an empty name or the one it has.
  void SetFileImg(const std::string& aValue);
  /// Makes room for the bytes of an embedded image, which the caller fills in.
  void SetFileImgSize(int aSize);
  // Document units. Held at 0; one beyond the label turns into half of the label.
  Single GetImgMarLeft() const;
  Single GetImgMarTop() const;
  Single GetImgMarBottom() const;
  Single GetImgMarRight() const;
  void SetImgMarLeft(Single aValue);
  void SetImgMarTop(Single aValue);
  void SetImgMarBottom(Single aValue);
  void SetImgMarRight(Single aValue);

  // Persistence
  // -------------------------------------------------------------------------------------------------

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Appends one object.
  void WriteJson(TJsonArray& aArray) const;
  /// Reads such an object; units and measures of the document must stand.
  void ReadJson(int aVersion, TJsonObject& aJson);

  // State
  // -------------------------------------------------------------------------------------------------------

  TKDXBaseLabel* fOwner;
  std::string fName;
  TAlphaColor fColor = ColorBlack;
  TAlphaColor fBackColor = ColorWhite;
  TZOLineType fLineType = iiSolid;
  TZOLayerOpts fOptions{lopVisible, lopPrint, lopSelectable, lopExport};
  std::uint16_t fZPos = 0;
  int fPenWidth = 100;
  bool fBold = false, fItalic = false, fUnderline = false, fStrikeout = false;
  std::string fFontName = "Arial";
  int fFontHeight = 10000;
  TAlphaColor fFontColor = ColorBlack;
  bool fFill = true;
  std::string fFileImg;  ///< file name without folder
  TZORImgType fImageType = itNone;
  bool fEmbeded = true;  ///< the image bytes are stored with the document
  bool fPrintImg = false;
  int fImgMarLeft = 0, fImgMarTop = 0, fImgMarBottom = 0, fImgMarRight = 0;
  std::int16_t fZoom = 0;  ///< of a map
  TZORMapProvider fMapProvider = mpOpenStreetMap;
  double fLatitude = 0, fLongitude = 0;  ///< degrees
  bool fShowMapCenter = false;
  std::string fArrayB;  ///< bytes of the embedded image

 protected:
  const char* ClassName() const override { return "TKDXLayer"; }

 private:
  friend class TKDXBaseLabel;

  template <class TAction>
  void ForItems(TAction aAction);
  template <class T>
  void Keep(T& aField, const T& aValue);
  void SetImgMargin(int& aField, int aBase, int aSide);

  void Record(TRecord& r);
  void RecordImage(TRecord& r);
  void RecordMap(TRecord& r);
  void RecordBytes(TRecord& r);
  void WriteJsonFont(TJsonObject& aFont) const;
  void ReadJsonFont(TJsonObject& aFont);
  void WriteJsonBack(TJsonObject& aJson, bool aMap) const;
  void ReadJsonBack(const TJsonObject& aJson, bool aMap);

  mutable int fPlace = 0;  ///< in the document's list, when it was looked for last
};

}  // namespace Zor::inline Base
