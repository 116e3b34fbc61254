#include "kaldrix/host/TSqliteDataSet.hpp"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "kaldrix/json/JsonDateTime.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Format.hpp"
#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Host {

namespace {

/// The kind that a declared type tells by a part of its name; the first row that fits counts. The rows
/// without dates are the rules of affinity (https://www.sqlite.org/datatype3.html, 3.1), which know no dates.
struct TDeclared {
  std::string_view part;
  TDataKind kind;
};
constexpr std::array<TDeclared, 13> DeclaredKinds{{{"datetime", dkDateTime},
                                                   {"timestamp", dkDateTime},
                                                   {"date", dkDate},
                                                   {"time", dkTime},
                                                   {"bool", dkBoolean},
                                                   {"int", dkInteger},
                                                   {"char", dkString},
                                                   {"clob", dkMemo},
                                                   {"text", dkString},
                                                   {"blob", dkBlob},
                                                   {"real", dkFloat},
                                                   {"floa", dkFloat},
                                                   {"doub", dkFloat}}};

constexpr double UnixEpoch = 25569;         // 1970-01-01 in days since 1899-12-30
constexpr double JulianOrigin = 2415018.5;  // 1899-12-30 00:00 as a Julian day
constexpr double SecondsOfDay = 86400;

TDataKind KindOfDeclaration(const std::string& aType) {
  for (const TDeclared& row : DeclaredKinds) {
    if (aType.find(row.part) != std::string::npos) return row.kind;
  }
  return dkFloat;
}

TDataKind KindOfValue(int aType) {
  switch (aType) {
    case SQLITE_INTEGER:
      return dkInteger;
    case SQLITE_FLOAT:
      return dkFloat;
    case SQLITE_BLOB:
      return dkBlob;
    default:
      return dkString;
  }
}

}  // namespace

void TSqliteDataSet::TCloseDatabase::operator()(sqlite3* aDatabase) const { sqlite3_close_v2(aDatabase); }
void TSqliteDataSet::TFinalize::operator()(sqlite3_stmt* aStatement) const { sqlite3_finalize(aStatement); }

// Columns ---------------------------------------------------------------------------------

class TSqliteDataSet::TColumn final : public TField {
 public:
  TColumn(const TSqliteDataSet& aOwner, int aIndex, std::string aName, TDataKind aKind)
      : fOwner(aOwner), fIndex(aIndex), fName(std::move(aName)), fKind(aKind) {}

  const std::string& FieldName() const override { return fName; }
  TDataKind DataType() const override { return fKind; }
  bool IsNull() const override { return Type(fOwner.Row()) == SQLITE_NULL; }

  std::string AsString() const override {
    sqlite3_stmt* row = fOwner.Row();
    const int type = Type(row);
    if (type == SQLITE_NULL || type == SQLITE_BLOB) return {};
    return Utf8::Repaired(Bytes(row, sqlite3_column_text(row, fIndex)));
  }
  std::int64_t AsInteger() const override {
    sqlite3_stmt* row = fOwner.Row();
    const int type = Type(row);
    if (type == SQLITE_TEXT) return TextToWhole(AsString()).value_or(0);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT ? sqlite3_column_int64(row, fIndex) : 0;
  }
  double AsFloat() const override {
    sqlite3_stmt* row = fOwner.Row();
    const int type = Type(row);
    if (type == SQLITE_TEXT) return TextToNumber(AsString()).value_or(0);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT ? sqlite3_column_double(row, fIndex) : 0;
  }
  TDateTime AsDateTime() const override {
    switch (Type(fOwner.Row())) {
      case SQLITE_INTEGER:
        return DateOfDays(AsFloat() / SecondsOfDay + UnixEpoch);
      case SQLITE_FLOAT:
        return DateOfDays(AsFloat() - JulianOrigin);
      case SQLITE_TEXT:
        return DateOfText();
      default:
        return 0;
    }
  }
  void SaveToStream(std::string& aBytes) const override {
    sqlite3_stmt* row = fOwner.Row();
    if (Type(row) != SQLITE_NULL) aBytes += Bytes(row, sqlite3_column_blob(row, fIndex));
  }

 private:
  int Type(sqlite3_stmt* aRow) const {
    return aRow == nullptr ? SQLITE_NULL : sqlite3_column_type(aRow, fIndex);
  }
  std::string_view Bytes(sqlite3_stmt* aRow, const void* aStart) const {
    if (aStart == nullptr) return {};
    return {static_cast<const char*>(aStart), static_cast<std::size_t>(sqlite3_column_bytes(aRow, fIndex))};
  }
  /// Of days since 1899-12-30 that count on evenly.
  TDateTime DateOfDays(double aDays) const {
    constexpr double mostDays = 1e7;  // well beyond the calendar, well within whole numbers
    try {
      return DateTimeOf(std::llround(std::clamp(aDays, -mostDays, mostDays) * SecondsOfDay * 1000));
    } catch (const ERangeError&) {
      RaiseNoDate();
    }
  }
  TDateTime DateOfText() const {
    const std::string text = AsString();
    try {
      // A time alone is one of the first day.
      const bool timeOnly = text.find('-') == std::string::npos;
      return JsonDateTimeOfText(timeOnly ? "1899-12-30 " + text : text, false);
    } catch (const Exception&) {
      RaiseNoDate();
    }
  }
  [[noreturn]] void RaiseNoDate() const {
    fOwner.Raise("column \"" + fName + "\", record " + std::to_string(fOwner.fRecNo) + ": \"" + AsString() +
                 "\" is no date");
  }

  const TSqliteDataSet& fOwner;
  int fIndex;
  std::string fName;
  TDataKind fKind;
};

// Opening ---------------------------------------------------------------------------------

TSqliteDataSet::TSqliteDataSet(const std::string& aFileName, const std::string& aQuery, int aWaitMs)
    : fFileName(aFileName), fQuery(aQuery), fName(ExtractFileName(aFileName)) {
  Open(aWaitMs);
  fRows = Prepare(fQuery);
  if (sqlite3_column_count(fRows.get()) == 0) Raise("the query gives no columns");
  if (sqlite3_stmt_readonly(fRows.get()) == 0) Raise("the query would change the database");
  if (sqlite3_bind_parameter_count(fRows.get()) > 0) Raise("the query has parameters, which nothing fills");
  First();
  MakeFields();
}

TSqliteDataSet::~TSqliteDataSet() = default;

void TSqliteDataSet::Raise(const std::string& aWhat) const { throw Exception(fFileName + ": " + aWhat); }

void TSqliteDataSet::Check(int aResult) const {
  if (aResult != SQLITE_OK) Raise(sqlite3_errmsg(fDatabase.get()));
}

void TSqliteDataSet::Open(int aWaitMs) {
  if (DirectoryExists(fFileName)) Raise("this is a folder");
  if (!FileExists(fFileName)) throw EFileNotFoundException("File not found: " + fFileName);
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(fFileName.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
  fDatabase.reset(opened);
  if (opened == nullptr) Raise("there is no memory to open it");
  Check(result);
  sqlite3_busy_timeout(opened, aWaitMs);
  // The first record read begins a transaction that lasts as long as this object: all runs see one state.
  Check(sqlite3_exec(opened, "BEGIN", nullptr, nullptr, nullptr));
}

TSqliteDataSet::TStatement TSqliteDataSet::Prepare(const std::string& aQuery) const {
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const int result = sqlite3_prepare_v2(fDatabase.get(), aQuery.c_str(), -1, &prepared, &rest);
  TStatement statement(prepared);
  Check(result);
  if (prepared == nullptr) Raise("the query is empty");
  if (std::string_view(rest).find_first_not_of("; \t\r\n") != std::string_view::npos) {
    Raise("there is more than one query");
  }
  return statement;
}

void TSqliteDataSet::MakeFields() {
  sqlite3_stmt* row = Row();
  for (int i = 0; i < sqlite3_column_count(fRows.get()); ++i) {
    const char* declared = sqlite3_column_decltype(fRows.get(), i);
    const int valueType = row == nullptr ? SQLITE_NULL : sqlite3_column_type(row, i);
    const TDataKind kind =
        declared == nullptr ? KindOfValue(valueType) : KindOfDeclaration(LowerCase(declared));
    fFields.push_back(std::make_unique<TColumn>(*this, i, sqlite3_column_name(fRows.get(), i), kind));
  }
}

// Moving ----------------------------------------------------------------------------------

bool TSqliteDataSet::Step(sqlite3_stmt* aStatement) const {
  const int result = sqlite3_step(aStatement);
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) Raise(sqlite3_errmsg(fDatabase.get()));
  return false;
}

void TSqliteDataSet::RunTo(std::int64_t aRecord) const {
  if (fStepped == 0 || aRecord < fStepped) {
    sqlite3_reset(fRows.get());
    fStepped = 0;
  }
  while (fStepped < aRecord) {
    if (!Step(fRows.get())) {
      fStepped = 0;
      return;
    }
    ++fStepped;
  }
}

sqlite3_stmt* TSqliteDataSet::Row() const {
  if (fRecNo == 0) return nullptr;
  if (fStepped != fRecNo) RunTo(fRecNo);
  return fStepped == fRecNo ? fRows.get() : nullptr;
}

void TSqliteDataSet::First() {
  RunTo(1);
  fRecNo = fStepped;
  fEof = fRecNo == 0;
}

void TSqliteDataSet::Next() {
  if (fEof) return;
  const std::int64_t next = fRecNo + 1;
  Row();
  RunTo(next);
  fEof = fStepped != next;
  if (!fEof) fRecNo = next;
}

void TSqliteDataSet::SetRecNo(std::int64_t aRecord) {
  if (aRecord < 1 || aRecord > RecordCount()) return;
  fRecNo = aRecord;
  fEof = false;
}

std::int64_t TSqliteDataSet::RecordCount() const {
  if (fCount >= 0) return fCount;
  const TStatement counted = Prepare(fQuery);
  std::int64_t count = 0;
  while (Step(counted.get())) ++count;
  return fCount = count;
}

const TField& TSqliteDataSet::Fields(int aIndex) const {
  if (aIndex < 0 || aIndex >= FieldCount())
    throw EListError(fFileName + ": the query has no column " + std::to_string(aIndex));
  return *fFields[static_cast<std::size_t>(aIndex)];
}

const TField* TSqliteDataSet::FindField(std::string_view aName) const {
  const int index = fFinder.Find(aName, FieldCount(), [this](int i) -> const std::string& {
    return fFields[static_cast<std::size_t>(i)]->FieldName();
  });
  return index < 0 ? nullptr : fFields[static_cast<std::size_t>(index)].get();
}

}  // namespace Zor::inline Host
