#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/platform/TDataSet.hpp"
#include "kaldrix/platform/TNameFinder.hpp"

struct sqlite3;
struct sqlite3_stmt;

namespace Zor::inline Host {

/// The records of a query on a SQLite database, which is only read. One record stands in memory at a time: to
/// go on costs a step, to go back runs the query again. All runs see the same state of the database.
///
/// A column has the kind that its declaration tells, and without one that of its value in the first record.
/// Dates are texts (ISO 8601), Unix seconds (whole numbers) or Julian days. Every failure raises an Exception
/// that names the file.
class TSqliteDataSet final : public TDataSet {
 public:
  /// How long a locked database is waited for.
  static constexpr int DefaultWaitMs = 2000;

  /// Opens the database and runs the query, one SELECT.
  TSqliteDataSet(const std::string& aFileName, const std::string& aQuery, int aWaitMs = DefaultWaitMs);
  ~TSqliteDataSet() override;

  const std::string& Name() const override { return fName; }
  void First() override;
  void Next() override;
  bool Eof() const override { return fEof; }
  /// Runs through the query the first time it is asked.
  std::int64_t RecordCount() const override;
  std::int64_t RecNo() const override { return fRecNo; }
  void SetRecNo(std::int64_t aRecord) override;
  int FieldCount() const override { return static_cast<int>(fFields.size()); }
  /// Raises EListError out of range.
  const TField& Fields(int aIndex) const override;
  const TField* FindField(std::string_view aName) const override;

 private:
  class TColumn;
  struct TCloseDatabase {
    void operator()(sqlite3* aDatabase) const;
  };
  struct TFinalize {
    void operator()(sqlite3_stmt* aStatement) const;
  };
  using TStatement = std::unique_ptr<sqlite3_stmt, TFinalize>;

  [[noreturn]] void Raise(const std::string& aWhat) const;
  void Check(int aResult) const;
  void Open(int aWaitMs);
  TStatement Prepare(const std::string& aQuery) const;
  void MakeFields();
  /// One record further; false at the end.
  bool Step(sqlite3_stmt* aStatement) const;
  /// From the start to a record that exists.
  void RunTo(std::int64_t aRecord) const;
  /// The statement, standing on the current record; none when there is no record.
  sqlite3_stmt* Row() const;

  std::string fFileName, fQuery, fName;
  std::unique_ptr<sqlite3, TCloseDatabase> fDatabase;
  TStatement fRows;
  std::vector<std::unique_ptr<TField>> fFields;
  mutable TNameFinder fFinder;
  mutable std::int64_t fCount = -1;
  mutable std::int64_t fStepped = 0;  ///< the record that fRows stands on, 0 for none
  std::int64_t fRecNo = 0;
  bool fEof = true;
};

}  // namespace Zor::inline Host
