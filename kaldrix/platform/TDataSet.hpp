#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Format.hpp"

namespace Zor {

/// The kind of a field's values.
enum TDataKind : std::uint8_t {
  dkUnknown,
  dkString,
  dkWideString,
  dkMemo,
  dkWideMemo,
  dkSmallint,
  dkInteger,
  dkWord,
  dkShortint,
  dkByte,
  dkLargeint,
  dkFloat,
  dkCurrency,
  dkExtended,
  dkBoolean,
  dkDate,
  dkTime,
  dkDateTime,
  dkBlob,
  dkGraphic,
  dkStream
};

/// A column of a data set and its value in the current record. A value that is none reads as an empty text
/// and as 0; so does, as a number, a text that is no number.
class TField {
 public:
  TField() = default;
  TField(const TField&) = delete;
  TField& operator=(const TField&) = delete;
  virtual ~TField() = default;

  virtual const std::string& FieldName() const = 0;
  /// What users see.
  virtual const std::string& DisplayName() const { return FieldName(); }
  virtual TDataKind DataType() const = 0;
  virtual bool IsNull() const = 0;
  virtual std::string AsString() const = 0;
  virtual std::int64_t AsInteger() const = 0;
  virtual double AsFloat() const = 0;
  virtual TDateTime AsDateTime() const = 0;
  /// Appends the bytes of the value.
  virtual void SaveToStream(std::string& aBytes) const = 0;
};

/// A table of records, one of which is current, supplied by the host.
class TDataSet {
 public:
  TDataSet() = default;
  TDataSet(const TDataSet&) = delete;
  TDataSet& operator=(const TDataSet&) = delete;
  virtual ~TDataSet() = default;

  /// The name that a source takes when it has none.
  virtual const std::string& Name() const = 0;
  virtual void First() = 0;
  /// From the last record to the end, where Eof holds and the last record stays current.
  virtual void Next() = 0;
  virtual bool Eof() const = 0;
  virtual std::int64_t RecordCount() const = 0;
  /// The current record, 1-based; 0 when there is none.
  virtual std::int64_t RecNo() const = 0;
  /// Jumps to a record; one that does not exist changes nothing.
  virtual void SetRecNo(std::int64_t aRecord) = 0;
  /// Between the two, what shows the records need not follow.
  virtual void DisableControls() {}
  virtual void EnableControls() {}

  virtual int FieldCount() const = 0;
  /// 0-based.
  virtual const TField& Fields(int aIndex) const = 0;
  /// Names are compared without case; none when it is missing.
  virtual const TField* FindField(std::string_view aName) const = 0;
  const TField& FieldByName(std::string_view aName) const {
    if (const TField* field = FindField(aName)) return *field;
    throw Exception(Name() + ": there is no field \"" + std::string(aName) + "\"");
  }
};

}  // namespace Zor
