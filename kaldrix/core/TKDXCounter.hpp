#pragma once

#include <cstdint>
#include <string>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// A numbered sequence that items show, label by label.
class TKDXCounter final : public TPersistent {
 public:
  /// Enters the document's list at its end.
  explicit TKDXCounter(TKDXBaseLabel* aOwner);

  // The walk
  // ----------------------------------------------------------------------------------------------------

  /// Back to the first value.
  void Reset();
  /// One label further; past the last value the counter stays.
  void Next();
  /// To label `aPos`, 1-based. Constant time.
  void MoveTo(int aPos);
  /// Makes fValue from the current number.
  void SetValue();

  // The range; each setter counts the labels again
  // ----------------------------------------------------------------

  void CalcNumLabs();
  /// How many labels have a value of their own, `fRepeat` for each value; the labels behind show the last
  /// value again. With steps that do not fit the range this is more than fNumLabs, which rounds down.
  Int64 LabelsToEnd() const;
  /// Takes the other end along so that from stays at or before to.
  void SetNumFrom(Int64 aValue);
  void SetNumTo(Int64 aValue);
  /// At least 1.
  void SetRepeat(int aValue);
  void SetStep(int aValue);

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Appends one object.
  void WriteJson(TJsonArray& aArray) const;
  void ReadJson(int aVersion, TJsonObject& aJson);

  TKDXBaseLabel* fOwner;
  std::string fName;
  Int64 fNumFrom = 1, fNumTo = 100;
  std::int16_t fRepeat = 1;  ///< labels for each value
  int fStep = 1;
  std::string fBefore, fAfter;  ///< stand around the number
  std::string fFormat;          ///< picture of FormatFloat
  Int64 fCounter = 1;           ///< current number
  std::int16_t fRepeatPos = 1;  ///< labels that the current number has given
  std::int16_t fPos = 0;
  std::string fValue;    ///< the current value as text
  int fNumLabs = 100;    ///< labels that the counter can give, held at the end of 32 bits
  bool fActive = false;  ///< some item uses it on the present print

 protected:
  const char* ClassName() const override { return "TKDXCounter"; }

 private:
  void Record(TRecord& r);
  void AfterRead();
};

}  // namespace Zor::inline Base
