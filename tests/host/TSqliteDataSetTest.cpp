#include <gtest/gtest.h>
#include <sqlite3.h>

#include "kaldrix/host/TSqliteDataSet.hpp"
#include "support/TTestFile.hpp"

namespace Zor {
namespace {

/// A database in a file of its own, open for writing.
class SqliteDataSet : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(sqlite3_open(file.Name().c_str(), &database), SQLITE_OK);
    Run("CREATE TABLE item (id INTEGER, name VARCHAR(20), price REAL, made DATETIME, photo BLOB, flag "
        "BOOLEAN)");
    Run("INSERT INTO item VALUES (1, 'one', 1.5, '2024-05-01 12:30:00', x'504E47', 1), (5000000000, 'zwölf', "
        "12, NULL, NULL, 0), (3, NULL, NULL, 'soon', x'', NULL)");
  }
  void TearDown() override { sqlite3_close(database); }

  void Run(const char* aSql) {
    ASSERT_EQ(sqlite3_exec(database, aSql, nullptr, nullptr, nullptr), SQLITE_OK);
  }
  std::string Failure(const std::string& aFile, const std::string& aQuery) {
    try {
      TSqliteDataSet set(aFile, aQuery, 10);
      set.RecordCount();
    } catch (const Exception& error) {
      return error.what();
    }
    return "";
  }

  TTestFile file{""};
  sqlite3* database = nullptr;
};

TEST_F(SqliteDataSet, GivesTheRecordsInTurn) {
  TSqliteDataSet set(file.Name(), "SELECT * FROM item ORDER BY rowid;");
  EXPECT_EQ(set.RecordCount(), 3);
  std::string names;
  for (set.First(); !set.Eof(); set.Next()) names += set.FieldByName("NAME").AsString() + ",";
  EXPECT_EQ(names, "one,zwölf,,");
  EXPECT_EQ(set.RecNo(), 3);
  EXPECT_EQ(set.FieldByName("id").AsInteger(), 3) << "the last record stays";
  for (const int record : {2, 1, 3, 2, 4, 0}) {
    set.SetRecNo(record);
    const int expected = record == 4 || record == 0 ? 2 : record;
    EXPECT_EQ(set.RecNo(), expected);
    EXPECT_EQ(set.FieldByName("id").AsInteger(), expected == 2 ? 5'000'000'000 : expected);
  }
  set.Next();
  EXPECT_EQ(set.RecNo(), 3);
  EXPECT_FALSE(set.Eof());
}

TEST_F(SqliteDataSet, ColumnsHaveTheKindsOfTheirDeclaration) {
  TSqliteDataSet set(file.Name(),
                     "SELECT *, id + 1 AS whole, price * 2 AS half, name || '!' AS text FROM item");
  const TDataKind kinds[] = {dkInteger, dkString,  dkFloat, dkDateTime, dkBlob,
                             dkBoolean, dkInteger, dkFloat, dkString};
  ASSERT_EQ(set.FieldCount(), static_cast<int>(std::size(kinds)));
  for (int i = 0; i < set.FieldCount(); ++i) {
    EXPECT_EQ(set.Fields(i).DataType(), kinds[i]) << set.Fields(i).FieldName();
  }
  EXPECT_EQ(set.FieldByName("made").AsDateTime(), EncodeDateTime(2024, 5, 1, 12, 30));
  EXPECT_EQ(set.FieldByName("price").AsFloat(), 1.5);
  std::string bytes = "<";
  set.FieldByName("photo").SaveToStream(bytes);
  EXPECT_EQ(bytes, "<PNG");
  EXPECT_EQ(set.FieldByName("photo").AsString(), "");
  set.SetRecNo(3);
  EXPECT_TRUE(set.FieldByName("price").IsNull());
  EXPECT_EQ(set.FieldByName("price").AsFloat(), 0);
  EXPECT_EQ(set.FieldByName("name").AsInteger(), 0);
  EXPECT_EQ(set.FindField("nope"), nullptr);
  EXPECT_THROW(set.FieldByName("nope"), Exception);
  EXPECT_THROW(set.FieldByName("made").AsDateTime(), Exception);
}

TEST_F(SqliteDataSet, DatesAreTextsSecondsOrJulianDays) {
  const double expected = EncodeDateTime(2024, 5, 1, 12);
  for (const char* value : {"'2024-05-01T12:00:00'", "'2024-05-01 12:00'", "unixepoch('2024-05-01 12:00')",
                            "julianday('2024-05-01 12:00')"}) {
    TSqliteDataSet set(file.Name(), std::string("SELECT ") + value + " AS d");
    EXPECT_NEAR(set.Fields(0).AsDateTime(), expected, 1e-8) << value;
  }
  TSqliteDataSet set(file.Name(), "SELECT '06:00' AS t");
  EXPECT_NEAR(set.Fields(0).AsDateTime(), 0.25, 1e-12);
  for (const char* value :
       {"'1850-06-01 06:00'", "unixepoch('1850-06-01 06:00')", "julianday('1850-06-01 06:00')"}) {
    TSqliteDataSet old(file.Name(), std::string("SELECT ") + value + " AS d");
    EXPECT_EQ(old.Fields(0).AsDateTime(), EncodeDateTime(1850, 6, 1, 6)) << value;
  }
  TSqliteDataSet far(file.Name(), "SELECT 9e15, CAST(9e15 AS INTEGER)");
  EXPECT_THROW(far.Fields(0).AsDateTime(), Exception);
  EXPECT_THROW(far.Fields(1).AsDateTime(), Exception);
}

TEST_F(SqliteDataSet, AnEmptyResultHasFieldsAndNoRecord) {
  TSqliteDataSet set(file.Name(), "SELECT * FROM item WHERE id < 0");
  EXPECT_TRUE(set.Eof());
  EXPECT_EQ(set.RecordCount(), 0);
  EXPECT_EQ(set.RecNo(), 0);
  EXPECT_EQ(set.FieldByName("name").AsString(), "");
  EXPECT_TRUE(set.FieldByName("id").IsNull());
  set.Next();
  EXPECT_TRUE(set.Eof());
}

TEST_F(SqliteDataSet, SeesOneStateOfTheDatabase) {
  Run("PRAGMA journal_mode = WAL");
  TSqliteDataSet set(file.Name(), "SELECT * FROM item");
  Run("DELETE FROM item");
  EXPECT_EQ(set.RecordCount(), 3);
  set.SetRecNo(3);
  EXPECT_EQ(set.FieldByName("id").AsInteger(), 3);
}

TEST_F(SqliteDataSet, FailuresNameFileAndReason) {
  const TTestFile text("this is a text that is no database, and long enough to be looked at as one");
  const std::string prefix = file.Name() + ": ";
  EXPECT_EQ(Failure("missing.db", "SELECT 1"), "File not found: missing.db");
  EXPECT_EQ(Failure(text.Name(), "SELECT * FROM item"), text.Name() + ": file is not a database");
  const std::pair<const char*, const char*> cases[] = {
      {"SELECT nope FROM item", "no such column: nope"},
      {"SELECT * FROM nope", "no such table: nope"},
      {"SELEKT 1", "near \"SELEKT\": syntax error"},
      {"", "the query is empty"},
      {"-- nothing", "the query is empty"},
      {"SELECT 1; SELECT 2", "there is more than one query"},
      {"DELETE FROM item", "the query gives no columns"},
      {"DELETE FROM item RETURNING id", "the query would change the database"},
      {"ATTACH 'x' AS y", "the query gives no columns"},
  };
  for (const auto& [query, what] : cases) EXPECT_EQ(Failure(file.Name(), query), prefix + what);
  const TSqliteDataSet set(file.Name(), "SELECT 1");
  EXPECT_THROW(set.Fields(1), EListError);
  Run("BEGIN EXCLUSIVE");
  EXPECT_EQ(Failure(file.Name(), "SELECT * FROM item"), prefix + "database is locked");
}

}  // namespace
}  // namespace Zor
