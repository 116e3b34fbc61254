#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// What a file holds of the measures; base points of paper.
struct TMeasureContent {
  int fHeight = 35000, fWidth = 60000;  ///< of one label
  int fMarLeft = 5000, fMarTop = 10000;
  int fDiHor = 4000, fDiVer = 4000;  ///< gaps between rows and between columns
  int fNuHor = 7, fNuVer = 3;        ///< rows and columns
  int fPaperHeight = 297000, fPaperWidth = 210000;
  std::int16_t fPaperSize = 9;  ///< code of the paper table
  int fInnerCircle = 0;         ///< hole of a round label
  std::string fPaperName = "A4";
  std::string fLabelName;
  std::string fPromoter, fAuthor, fProject, fTitle, fDate, fNote;
  int fPlanNumber = 1;
  TKaldrixType fLabelType = ltRect;
  bool fContinousPaper = false;
  Int64 fDrawScale = 1;  ///< the drawing is at 1:fDrawScale
  std::string fFormat;   ///< number format of displayed sizes
  bool fIncludeUnit = true;
};

/// Page geometry, drawing scale and title data of a document.
///
/// Lengths are base points of paper: the drawing scale is not in them. A size property is in document units
/// in emLabelling and in millimetres in the other modes; margins, gaps and the inner circle are in document
/// units everywhere. A large unit (dm, m, ft, yd) counts as millimetres here. With continuous paper, and
/// always outside emLabelling, label and paper follow each other.
class TKDXMeasure final : public TPersistent, public TMeasureContent {
 public:
  /// The least width and height of label and paper.
  static constexpr int LeastSize = 5000;
  /// How far a margin may be negative.
  static constexpr int LeastMargin = -5000;
  /// The format version from which the drawing scale is stored in 64 bits.
  static constexpr int WideScaleVersion = 3200;

  explicit TKDXMeasure(TKDXBaseLabel* aOwner);

  /// Names, titles, shape, scale and number format as in a new document; sizes stay.
  void Reset();
  void Assign(const TPersistent& aSource) override;
  /// Sends chLabelDef.
  void SendInfo();

  // Queries
  // -----------------------------------------------------------------------------------------------------

  /// Base points; with `incScale` of the drawn object, held at the ends of Int64.
  Int64 GetSize(TZORMeasureType aType, bool incScale) const;
  /// The label's size as drawn, in document units.
  Single WidthUnits() const;
  Single HeightUnits() const;
  Single GetWidth() const { return SizeProperty(fWidth); }
  Single GetHeight() const { return SizeProperty(fHeight); }
  Single GetPaperWidth() const { return SizeProperty(fPaperWidth); }
  Single GetPaperHeight() const { return SizeProperty(fPaperHeight); }
  Single GetMarLeft() const { return UnitProperty(fMarLeft); }
  Single GetMarTop() const { return UnitProperty(fMarTop); }
  Single GetDiHor() const { return UnitProperty(fDiHor); }
  Single GetDiVer() const { return UnitProperty(fDiVer); }
  Single GetInnerCircle() const { return UnitProperty(fInnerCircle); }

  // Sizes
  // -------------------------------------------------------------------------------------------------------

  // Each raises below 5 mm to 5 mm. A round label keeps width and height equal. Outside emLabelling one that
  // the drawing scale does not allow raises (see ValidateDrawScaleForPaper) and changes nothing.
  void SetWidth(Single aValue);
  void SetHeight(Single aValue);
  void SetPaperWidth(Single aValue);
  void SetPaperHeight(Single aValue);
  /// Millimetres in every mode; no least size.
  void SetLabelSizeMM(Single aMMWidth, Single aMMHeight);
  void SetPaperSizeMM(Single aMMWidth, Single aMMHeight);
  /// A name of the paper table brings its size and code.
  void SetPaperName(const std::string& aValue);
  /// On outside emLabelling whatever is asked. Turned on, margins and gaps go and the label takes the paper's
  /// size.
  void SetContinousPaper(bool aValue);
  void SetLabelType(TKaldrixType aValue);
  /// Held between 0 and the label's width.
  void SetInnerCircle(Single aValue);
  void SetLabelName(const std::string& aValue);

  // Labels on the sheet
  // -----------------------------------------------------------------------------------------

  /// At least -5 mm.
  void SetMarLeft(Single aValue);
  void SetMarTop(Single aValue);
  /// At least 0.
  void SetDiHor(Single aValue);
  void SetDiVer(Single aValue);
  /// Rows; at least 1.
  void SetNuHor(int aValue);
  /// Columns; at least 1.
  void SetNuVer(int aValue);

  // Drawing scale
  // -----------------------------------------------------------------------------------------------

  /// The greatest scale at which all coordinates of the paper stay inside Int64.
  Int64 MaxDrawScale() const { return MaxDrawScaleForPaper(fPaperWidth, fPaperHeight); }
  /// The same for a paper of that size, base points.
  static Int64 MaxDrawScaleForPaper(int aWidth, int aHeight);
  /// In emDrawing and emInteractive raises EInvalidOperation when the scale is too large for that paper.
  /// While values are taken over (loading, reading) it lets everything pass: the reader checks at its end.
  void ValidateDrawScaleForPaper(int aWidth, int aHeight) const;
  /// 1 outside emDrawing and emInteractive. Raises EArgumentOutOfRangeException outside 1 to MaxDrawScale.
  void SetDrawScale(Int64 aValue);

  // Persistence
  // -------------------------------------------------------------------------------------------------

  void WriteData(TBinaryWriter& bW) const;
  /// Stores as it comes. Raises EReadError for a drawing scale that does not fit mode and paper.
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Adds "Measures".
  void WriteJson(TJsonObject& aJson) const;
  /// Reads the object of that key; mode and units of the document must stand. Raises EJsonException naming
  /// the key.
  void ReadJson(int aVersion, TJsonObject& aJson);

  // State
  // -------------------------------------------------------------------------------------------------------

  TKDXBaseLabel* fOwner;
  Single fML = 0, fMT = 0, fDH = 0, fDV = 0;  ///< margins and gaps as a loading component brings them

 protected:
  const char* ClassName() const override { return "TKDXMeasure"; }

 private:
  bool IsLabelling() const;
  /// Do label and paper have to stay the same size?
  bool IsPaperTied() const { return fContinousPaper || !IsLabelling(); }
  Single SizeProperty(int aBase) const;
  Single UnitProperty(int aBase) const;
  int SizeBase(Single aValue) const;
  int UnitBase(Single aValue) const;
  void Changed();

  // The setters behind the conversion; base points.
  void TakeInnerCircle(int aBase);
  void TakeHeld(int& aField, int aValue, int aLeast);
  void TakeSpace(int& aField, Single& aLoaded, Single aValue, int aLeast);
  void TakeNamedPaper(const std::string& aName);

  void Record(TRecord& r);
  std::string ScaleFault() const;
  int JsonBase(const TJsonObject& aJson, std::string_view aKey) const;
  void WriteJsonTitles(TJsonObject& aJson) const;
  void ReadJsonTitles(const TJsonObject& aJson);
  void ReadJsonSizes(const TJsonObject& aJson);
  void ReadJsonScale(const TJsonObject& aJson);
  void FitPaperToScale();
};

}  // namespace Zor::inline Base
