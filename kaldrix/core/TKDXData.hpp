#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/core/TOwnedList.hpp"
#include "kaldrix/core/TZOAskField.hpp"
#include "kaldrix/core/TZOValList.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// `aName` behind the marker of its fill kind: "~Price" is a field, "@Number" a counter. A kind without data
/// gives the name as it stands; ftImg64 gives nothing.
std::string IncSymData(std::string_view aName, TZORFillType aFill);

/// What walks the records of a source for the pages of a document.
class IZODataWalk {
 public:
  virtual void First() = 0;
  /// One label further, in records and counters alike.
  virtual void NextData() = 0;
  /// To a record, 1-based.
  virtual void SetPos(int aRecord) = 0;
  /// Fills the labels of a page, 1-based.
  virtual void FillDataPage(int aPage) = 0;
  virtual std::string DataValue(const std::string& aField, const std::string& aFormat,
                                TZORFillType aFill) const = 0;

 protected:
  ~IZODataWalk() = default;
};

/// A column of a CSV source.
struct TZOCsvField {
  std::string fCaption;  ///< what users see and items bind to
  std::string fName;
  TZORFieldType fFieldType = ftString;
};

/// How a document is bound to data: which source, its description, value lists and questions.
class TKDXData final : public TPersistent {
 public:
  explicit TKDXData(TKDXBaseLabel* aOwner) : fOwner(aOwner) {}

  void Assign(const TPersistent& aSource) override;

  /// Takes the trimmed text; one that is no JSON object leaves none and raises (see CheckJson). An empty text
  /// is taken.
  void SetJson(const std::string& aText);
  /// Raises Exception with the message NoJson when the text is no object, and empties it; raises
  /// EJsonParserException for a fault inside.
  void CheckJson();
  /// Is there a value for an item of that binding?
  bool IsValidData(TZORFillType aFill, const std::string& aField) const;

  // Values: a missing list or question gives its name, and 0 as a number.
  std::string DataValue(const std::string& aField, const std::string& aFormat) const;
  /// The value picked in a list.
  std::string DataList(const std::string& aName, const std::string& aFormat) const;
  /// The answer to a question, by the kind of the question.
  std::string DataAsk(const std::string& aName, const std::string& aFormat) const;
  /// Truncated, held at the ends of 32 bits.
  int DataAskInt(const std::string& aName) const;
  Single DataAskNum(const std::string& aName) const;

  // Value lists and questions: names are taken exactly when one is added, found without case; indexes count
  // from 1.
  /// False when the name is taken.
  bool AddListVal(const std::string& aName);
  bool AddAskVal(const std::string& aName);
  int GetNumListVal() const { return fListVal.Count(); }
  int GetNumQuestions() const { return fListAsk.Count(); }
  TZOValList* GetListVal(int aIndex) const;
  TZOValList* GetListVal(std::string_view aName) const;
  TZOAskField* GetAskField(int aIndex) const;
  TZOAskField* GetAskField(std::string_view aName) const;
  bool NameListExists(std::string_view aName) const;
  bool NameAskExists(std::string_view aName) const;
  void ClearListVal() { fListVal.Clear(); }
  void ClearAskList() { fListAsk.Clear(); }

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Adds "Data".
  void WriteJson(TJsonObject& aJson) const;
  /// Reads the object of that key; the mode of the document must stand. Raises EJsonException naming the key.
  void ReadJson(int aVersion, TJsonObject& aJson);

  TKDXBaseLabel* fOwner;
  IZODataWalk* fWalk = nullptr;  ///< not owned; none while no source is walked
  std::string fJson;
  TZORDataType fType = dtyNone;  ///< the source in use
  bool fLinkData = false;        ///< binding is switched on
  bool fSaveJson = false;        ///< the JSON text is stored in the document
  std::string fDataSel;          ///< caption of the selected source
  std::string fFieldRepeat;      ///< field that tells how many labels a record gives
  std::string fCsvFileName;
  TZORCsvSep fCsvSep = scvNone;
  bool fCsvHeader = true;  ///< the first line holds the column names
  TZORCsvQuote fCsvQuote = scqDoubleQuotes;
  std::vector<TZOCsvField> fCsvDescription;  ///< the columns of the CSV source
  TOwnedList<TZOValList> fListVal;
  TOwnedList<TZOAskField> fListAsk;
  int fPos = 1;           ///< current record, 1-based
  int fPosRepeat = 1;     ///< labels of this record that have been given
  int fRecordRepeat = 1;  ///< labels that this record gives
  int fNumlabels = 0;     ///< labels that the source gives in all

 protected:
  const char* ClassName() const override { return "TKDXData"; }

 private:
  void Record(TRecord& r);
  void RecordCsvFields(TRecord& r);
  void RecordLists(TRecord& r);
  void WriteJsonCsvFields(TJsonArray& aArray) const;
  void ReadJsonCsvFields(TJsonArray& aArray);
  void WriteJsonLists(TJsonObject& aJson) const;
  void ReadJsonLists(int aVersion, TJsonObject& aJson);
};

}  // namespace Zor::inline Base
