#pragma once

#include <vector>

#include "kaldrix/items/TBarItem.hpp"
#include "kaldrix/utils/BarcodeLayout.hpp"

namespace Zor::inline Barcode {

/// A rectangle of dark modules, counted from the top left of the symbol.
struct TModuleRun {
  int col, row;
  int cols, rows;

  friend bool operator==(const TModuleRun&, const TModuleRun&) = default;
};

/// What the two-dimensional symbols share. Unlike linear barcodes they need no fonts: each change of the text
/// is encoded at once, so that symbol and text always belong together. A text that the symbology cannot hold
/// raises in the setter and changes nothing.
class TModuleItem : public TBarItem, public IZORAlign {
 public:
  // Text ------------------------------------------------------------------------

  /// UTF-8.
  const std::string& GetCode() const { return fCode; }
  /// Not recorded. For a text that does not fit an Exception tells the text, the symbology and what the
  /// encoder said.
  void SetCode(const std::string& aValue);

  // Look ------------------------------------------------------------------------

  /// Height to width of a module; 0 leaves them alone. Recorded, together with the height that follows.
  void SetFactor(Single aValue) override;
  /// Which corner or side of the symbol lies on point 1; a justified one begins there. Not recorded.
  TZORHorzAlign GetHorzAlign() const override { return fHorzAlign; }
  TZORVertAlign GetVertAlign() const override { return fVertAlign; }
  void SetHorzAlign(TZORHorzAlign aValue) override { Place(fHorzAlign, aValue); }
  void SetVertAlign(TZORVertAlign aValue) override { Place(fVertAlign, aValue); }

  /// What is drawn, in millimetres of paper: as it stands in the SVG, or with touching rectangles joined.
  std::vector<TBarRect> Bars(bool aJoined) const;

  // Operations of the classes -----------------------------------------------------

  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  void FillData(bool aFirst) override;
  /// Also whether a reader would find the value in the symbol.
  std::string ValueProblem() const override;

  std::string fCode;

 protected:
  using TBarItem::TBarItem;

  /// Makes the symbol of fCode and updates the size. A failure raises and leaves the symbol as it was.
  virtual void Encode() = 0;
  /// The elements of the symbol row by row, each as it is written to SVG.
  virtual void FillRuns(std::vector<TModuleRun>& aRuns) const = 0;
  /// The form in which the symbology takes a text.
  virtual std::string Taken(const std::string& aText) const = 0;
  /// Why a reader of the symbol would not find `aValue`, of which fCode was taken; empty when it would.
  virtual std::string ReadingProblem(const std::string& aValue) const = 0;
  void TieHeight() override;
  void TieWidth() override;
  /// The height that the width has under a factor, and the least without one.
  int TiedHeight(Single aFactor) const;

  /// Stores a value that the symbol depends on and encodes; the old one comes back if that fails.
  template <class T>
  void Encoded(T& aField, T aValue);
  /// Encode, where what its encoder raises goes on with the text and the symbology that it is about.
  void EncodeText();
  /// Takes the size of a symbol of so many modules.
  void TakeSize(int aCols, int aRows);

  // Parts of the record and of the JSON object, in the order in which they stand.
  void RecordSizes(TRecord& r);
  void RecordCode(TRecord& r);
  void WriteJsonSizes(TJsonObject& aJson) const;
  void ReadJsonSizes(TJsonObject& aJson);
  void WriteJsonCode(TJsonObject& aJson) const;
  void ReadJsonCode(TJsonObject& aJson);
  void AfterRead(TZORReadType aReadType) override;
};

template <class T>
void TModuleItem::Encoded(T& aField, T aValue) {
  if (aField == aValue) return;
  const TEdit edit(*this);
  std::swap(aField, aValue);
  try {
    EncodeText();
  } catch (...) {
    std::swap(aField, aValue);
    throw;
  }
  StateUpdate();
}

/// Joins runs of one row that touch, then runs of equal place and width in rows that follow each other.
/// `aRuns` stand row by row, from left to right; taller ones are left alone.
std::vector<TModuleRun> JoinedRuns(const std::vector<TModuleRun>& aRuns);

}  // namespace Zor::inline Barcode
