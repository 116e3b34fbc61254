#pragma once

#include "kaldrix/items/TFontFields.hpp"
#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Base {
class TKDXBaseLabel;
}

namespace Zor::inline Text {

/// What holds the runs of a text and lays them out.
class IZOTextOwner {
 public:
  IZOTextOwner() = default;
  IZOTextOwner(const IZOTextOwner&) = delete;
  IZOTextOwner& operator=(const IZOTextOwner&) = delete;

  /// The size of a run may have changed.
  virtual void NeedLayout() = 0;
  /// Only the look changed.
  virtual void NeedPaint() = 0;
  virtual TKDXBaseLabel& Document() const = 0;

 protected:
  ~IZOTextOwner() = default;
};

/// One run of a text in one font and colour. Its owner owns it; the setters tell the owner and are not
/// recorded.
class TKDXBaseData : public TFontFields {
 public:
  explicit TKDXBaseData(IZOTextOwner& aOwner) : TFontFields(StartHeight), fOwner(&aOwner) {}
  virtual ~TKDXBaseData() = default;
  TKDXBaseData(const TKDXBaseData&) = delete;
  TKDXBaseData& operator=(const TKDXBaseData&) = delete;

  // Properties ------------------------------------------------------------------

  void SetText(const std::string& aValue);
  void SetFontName(const std::string& aValue);
  /// Document units.
  void SetFontHeight(Single aValue);
  void SetBold(bool aValue);
  void SetItalic(bool aValue);
  void SetUnderline(bool aValue);
  void SetStrikeout(bool aValue);
  void SetFontColor(TAlphaColor aValue);
  void SetFillBack(bool aValue);
  void SetBackColor(TAlphaColor aValue);

  // Measured size ---------------------------------------------------------------

  /// What the host measured, in base points, and font size to font height.
  void SetBaseSize(int aWidth, int aAscent, int aDescent, double aRatio);
  /// Document units.
  Single GetHeight() const;

  // Persistence -----------------------------------------------------------------

  /// The binary record, for writing and reading.
  virtual void Record(TRecord& r);
  virtual void WriteJson(TJsonObject& aJson) const;
  /// Raises EJsonException naming the key.
  virtual void ReadJson(int aVersion, TJsonObject& aJson);

  IZOTextOwner* fOwner;
  bool fFillBack = false;
  TAlphaColor fBackColor = ColorWhite;
  std::string fText;
  int fWidth = 0, fAscent = 0, fDescent = 0;  ///< base points, measured
  double fRatio = 1;                          ///< measured

 private:
  static constexpr int StartHeight = 6000;

  template <class T>
  void Take(T& aField, const T& aValue, void (IZOTextOwner::*aTell)());
};

}  // namespace Zor::inline Text
