#pragma once

#include <string>
#include <string_view>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/Format.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Base {

class TKDXData;

/// A named question that the user answers for a print; answers are not stored.
class TZOAskField {
 public:
  /// Enters its owner's list at its end.
  TZOAskField(TKDXData& aOwner, const std::string& aName);
  TZOAskField(const TZOAskField&) = delete;
  TZOAskField& operator=(const TZOAskField&) = delete;

  /// Raises the message EmptyText for an empty name, and RepeatName for one that another of the list has.
  void SetName(const std::string& aName);

  /// The answer as text. A format is a picture of FormatFloat, or of FormatDateTime for a date; texts take
  /// none.
  std::string Answer(std::string_view aFormat) const;
  /// The answer as a number: a date in days since 1899-12-30, a text that is no number 0.
  double AnswerNumber() const;

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Appends one object.
  void WriteJson(TJsonArray& aArray) const;
  void ReadJson(int aVersion, TJsonObject& aJson);

  TKDXData* fOwner;
  std::string fName;
  std::string fQuestion;
  std::string fAnsText;
  int fAnsInt = 0;
  TDateTime fAnsDT;  ///< local time; the moment of creation until it is answered
  double fAnsNumber = 0;
  TZORAskType fAskType = atText;
  bool fActive = false;  ///< used on the present print

 private:
  void Record(TRecord& r);
};

}  // namespace Zor::inline Base
