#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/core/TKDXDatasets.hpp"
#include "kaldrix/core/TOwnedList.hpp"
#include "kaldrix/core/TSourceWalk.hpp"
#include "kaldrix/core/TZOAskField.hpp"
#include "kaldrix/core/TZOValList.hpp"
#include "kaldrix/json/TJsonFile.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TCsvFile.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// `aName` behind the marker of its fill kind: "~Price" is a field, "@Number" a counter. A kind without data
/// gives the name as it stands; ftImg64 gives nothing.
std::string IncSymData(std::string_view aName, TZORFillType aFill);

/// What a file holds of the binding to data, and the source that is open by it.
struct TDataContent {
  TDataContent();
  TDataContent(TDataContent&&) noexcept;
  TDataContent& operator=(TDataContent&&) noexcept;
  ~TDataContent();

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
  /// The file, open and cut in a way of the host's own (records, standard input), in the place of
  /// fCsvFileName, which only names it then; not stored.
  std::shared_ptr<TCsvFile> fCsvOpen;
  TOwnedList<TZOValList> fListVal;
  TOwnedList<TZOAskField> fListAsk;
  int fPos = 1;            ///< current record, 1-based; of a CSV source the line of the file
  int fPosRepeat = 1;      ///< labels of this record that have been given
  int fRecordRepeat = 1;   ///< labels that this record gives
  int fNumlabels = 0;      ///< labels that the source gives in all
  bool fHasData = false;   ///< the source has records
  bool fValidCsv = false;  ///< Reset found the CSV file
  bool fHasList = false, fHasQuest = false;  ///< a list, a question is in use on the present print

 protected:
  std::shared_ptr<const TJsonFile> fJsonFile;
  std::unique_ptr<TSourceWalk> fSource;
  TZORDataType fOpenType = dtyNone;  ///< of fSource
  bool fRepeats = false;             ///< a field tells the labels of each record
  bool fEnded = false;               ///< no record with labels follows
  std::vector<double> fCalcFoot;
};

/// How a document is bound to data: which source, what it offers, value lists and questions, and the walk
/// through the source, label by label.
///
///   Lists, persistence  TKDXData.cpp
///   Sources             TKDXData.Sources.cpp
///   The walk            TKDXData.Walk.cpp
///   Values              TKDXData.Values.cpp
class TKDXData final : public TPersistent, public TDataContent {
 public:
  explicit TKDXData(TKDXBaseLabel* aOwner);
  ~TKDXData() override;

  void Assign(const TPersistent& aSource) override;

  // Sources --------------------------------------------------

  /// Takes the trimmed text; one that is no JSON object leaves none and raises (see CheckJson). An empty text
  /// is taken, and takes the description along.
  void SetJson(const std::string& aText);
  /// Describes the JSON text anew: each array of the top object is a source, with the fields and the details
  /// of its first element. Raises Exception with the message NoJson when the text is no object, and empties
  /// it; raises EJsonParserException for a fault inside.
  void CheckJson();
  /// Takes a text that stays in its file in the place of fJson, and describes it; not stored. Raises the
  /// message NoJson for none.
  void SetJsonFile(std::shared_ptr<const TJsonFile> aFile);
  /// Takes file, header, quote and separator, and describes the file. Raises the message NoFile for one that
  /// does not exist, which leaves no name behind, and NoSep for scvNone, which leaves the old separator.
  bool SetCsvData(const std::string& aFile, bool aHeader, TZORCsvSep aSep, TZORCsvQuote aQuote);
  /// Describes the CSV file anew by its first line; true. Raises the message NoFile.
  bool CheckCsvFields();
  /// The same, for a document whose description may be older than its file: a column goes on with the caption
  /// and the kind that its name has, without a header those of its place, so that items find the column that
  /// they mean wherever it stands, and in whatever language it was described.
  void RefreshCsvFields();
  // Each takes the value, and describes the file anew when it is another one.
  void SetCsvFileName(const std::string& aValue);
  void SetCsvHeader(bool aValue);
  void SetCsvSep(TZORCsvSep aValue);
  void SetCsvQuote(TZORCsvQuote aValue);
  /// The kind of a column, 0-based; one behind the last is passed over. False below 0 and without a CSV
  /// source.
  bool SetCsvField(int aIndex, TZORFieldType aType);
  void SetFieldRepeat(const std::string& aValue);

  /// Selects the source of that caption, compared without case; fType becomes its kind, or dtyNone.
  void SetDataSel(const std::string& aName);
  /// Selects a data set that is still to come.
  void MigrateDataSel(const std::string& aName);
  /// Selects the first source of a kind, or the one of that kind with the caption, and links the document to
  /// it. False, and nothing changes, when there is none.
  bool Select(TZORDataType aType, const std::string& aCaption = {});
  /// Forgets JSON text and CSV file with their descriptions, and the open source.
  void ClearSources();

  /// The source or, in the selected source, the detail of that caption, compared without case.
  TKDXDatasetItem* GetDataset(std::string_view aName) const { return fDatasets.Find(aName); }
  TKDXDetailItem* GetDetail(std::string_view aName) const;
  /// The description of the selected source. That of a CSV file, of which there is one at most, is found by
  /// its kind: its caption is a text of the catalogue, and another one in another language.
  TKDXDatasetItem* Source() const;
  /// The data set of the selected source; none for another kind.
  TDataSet* CurrentDataset() const;
  /// The column, 0-based, of the selected source's field with that caption; -1 when there is none.
  int GetCsvPos(std::string_view aField) const;
  /// How lines are cut; without a separator at semicolons.
  TCsvForm CsvForm() const;

  /// The descriptions of the data sets that the host registered, which no file holds.
  TKDXDatasets::TMembers RegisteredDatasets() const;
  /// Exchanges all that a load replaces, what the sources offer included.
  void Exchange(TDataContent& aContent, TKDXDatasets::TMembers& aDatasets);

  // The walk --------------------------------------------------

  /// Opens the selected source and counts its labels. Raises NoFile for a CSV file that does not exist,
  /// EJsonParserException, and what a data set raises.
  void Reset();
  /// Back to the first record, and active counters to their first value.
  void First();
  /// One label further. At the last record the source stays.
  /// Intended: a record whose repeat field says 0 or less gives no label, and is passed over.
  void Next();
  /// To a record, 1-based; one past the end changes nothing but fPosRepeat.
  void SetPos(int aRecord);
  /// As many labels further, at the cost of the records that are passed.
  void Skip(Int64 aLabels);
  /// To a label, 1-based, where each record gives as many; past the last record to that.
  void GoToLabel(int aLabel);
  /// The records of the open source; 0 while there is none.
  int Records() const { return fSource == nullptr ? 0 : fSource->Records(); }
  /// The current record, 1-based; 0 without an open source.
  int Record() const { return fHasData && fSource != nullptr ? fSource->Record() : 0; }
  /// Does a field of the open source tell how many labels each record gives?
  bool Repeats() const { return fRepeats; }
  /// The first record whose repeat field tells no whole number, with the reason, of a walk that was opened
  /// with fStrict; empty for none.
  std::string RepeatProblem();
  /// Has the open source a field of that name? A key of JSON may be missing in some records.
  bool Offers(const std::string& aField) const;
  /// What is wrong with the current record, and with the names of the fields: lines that name file and line.
  std::vector<std::string> RecordProblems() const;
  std::vector<std::string> HeaderProblems() const;

  /// To the first row of a detail of the current record; gives how many there are.
  int FirstDetail(const std::string& aDetail);
  void NextDetail(const std::string& aDetail);

  // Values --------------------------------------------------

  /// Is there a value for an item of that binding?
  bool IsValidData(TZORFillType aFill, const std::string& aField) const;
  /// The field's value in the current record. The field's own name while the document is not linked or no
  /// source is open. A missing JSON key is empty, a missing column too with a format, else its name; a
  /// missing field of a data set raises Exception, and so does, with fStrict, a value that the text would not
  /// tell.
  std::string DataValue(const std::string& aField, const std::string& aFormat) const;
  /// The same in the current row of a detail.
  std::string DataDetailValue(const std::string& aDetail, const std::string& aField,
                              const std::string& aFormat) const;
  /// An aggregate over the rows of a detail of the current record; values that are no numbers count as 0.
  std::string GetDetailCalc(const std::string& aDetail, const std::string& aField, const std::string& aFormat,
                            TZORFooter aFooter);
  /// Replaces `aStream` by the bytes of a picture field of a data set; false when there are none.
  bool DataGraphic(const std::string& aField, std::string& aStream) const;
  /// The value picked in a list. A missing list or question gives its name, and 0 as a number.
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
  /// 1-based; none out of range.
  TZOValList* GetListVal(int aIndex) const;
  TZOValList* GetListVal(std::string_view aName) const;
  /// 1-based; none out of range.
  TZOAskField* GetAskField(int aIndex) const;
  TZOAskField* GetAskField(std::string_view aName) const;
  bool NameListExists(std::string_view aName) const;
  bool NameAskExists(std::string_view aName) const;
  void ClearListVal() { fListVal.Clear(); }
  void ClearAskList() { fListAsk.Clear(); }
  /// Frees the entry, 1-based, and unbinds the items that used it; false out of range.
  bool DeleteList(int aIndex);
  bool DeleteAsk(int aIndex);
  /// No list and no question is in use.
  void ResetListAsk();

  // Persistence --------------------------------------------------

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Adds "Data".
  void WriteJson(TJsonObject& aJson) const;
  /// Reads the object of that key; the mode of the document must stand. Raises EJsonException naming the key.
  void ReadJson(int aVersion, TJsonObject& aJson);

  TKDXBaseLabel* fOwner;
  TKDXDatasets fDatasets;         ///< what the sources offer
  TTextCode fCsvCode = tcByMark;  ///< not stored
  /// A record whose repeat field tells no whole number gives one label, with a problem, and a value that its
  /// text would not tell raises Exception; not stored.
  bool fStrict = false;
  unsigned fMoves = 0;  ///< grows with each move of the walk

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

  TKDXDatasetItem* CsvItem() const;
  TKDXDatasetItem& NewCsvItem();
  bool CsvExists() const;
  void DeleteSources(TZORDataType aType);
  template <class T>
  void SetCsvValue(T& aField, const T& aValue);
  std::unique_ptr<TSourceWalk> OpenSource();
  int Repetition() const;
  /// Takes up the record that has become the current one.
  void TakeRecord();
  void NextRecord();
  void SkipEmpty();
  TJsonArray* DetailRows(const TKDXDetailItem& aDetail) const;
  /// One number for each row of a detail.
  void FillCalc(TKDXDetailItem& aDetail, const std::string& aField);
  double Aggregate(TZORFooter aFooter);
};

}  // namespace Zor::inline Base
