#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kaldrix/platform/TDataSet.hpp"
#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

/// A data set over texts. Dates are days since 1899-12-30.
class TMemoryDataSet final : public TDataSet {
 public:
  struct TColumn {
    std::string name;
    TDataKind kind;
  };
  TMemoryDataSet(std::string aName, const std::vector<TColumn>& aColumns,
                 std::vector<std::vector<std::string>> aRows)
      : fName(std::move(aName)), fRows(std::move(aRows)) {
    for (std::size_t i = 0; i < aColumns.size(); ++i) {
      fFields.push_back(std::make_unique<TCell>(*this, i, aColumns[i]));
    }
    First();
  }

  const std::string& Name() const override { return fName; }
  void First() override {
    fRow = 0;
    fEof = fRows.empty();
  }
  void Next() override {
    if (fRow + 1 < fRows.size()) {
      ++fRow;
    } else {
      fEof = true;
    }
    if (fDisabled == 0) ++fShown;
  }
  bool Eof() const override { return fEof; }
  std::int64_t RecordCount() const override { return static_cast<std::int64_t>(fRows.size()); }
  std::int64_t RecNo() const override { return fRows.empty() ? 0 : static_cast<std::int64_t>(fRow) + 1; }
  void SetRecNo(std::int64_t aRecord) override {
    if (aRecord < 1 || aRecord > RecordCount()) return;
    fRow = static_cast<std::size_t>(aRecord - 1);
    fEof = false;
  }
  void DisableControls() override { ++fDisabled; }
  void EnableControls() override { --fDisabled; }
  int FieldCount() const override { return static_cast<int>(fFields.size()); }
  const TField& Fields(int aIndex) const override { return *fFields[static_cast<std::size_t>(aIndex)]; }
  const TField* FindField(std::string_view aName) const override {
    for (const auto& field : fFields) {
      if (SameText(field->FieldName(), aName)) return field.get();
    }
    return nullptr;
  }

  int fDisabled = 0;
  int fShown = 0;  ///< moves that whoever shows the records had to follow

 private:
  class TCell final : public TField {
   public:
    TCell(const TMemoryDataSet& aOwner, std::size_t aIndex, TColumn aColumn)
        : fOwner(aOwner), fIndex(aIndex), fColumn(std::move(aColumn)) {}
    const std::string& FieldName() const override { return fColumn.name; }
    TDataKind DataType() const override { return fColumn.kind; }
    bool IsNull() const override { return Text().empty(); }
    std::string AsString() const override { return Text(); }
    std::int64_t AsInteger() const override { return TextToWhole(Text()).value_or(0); }
    double AsFloat() const override { return TextToNumber(Text()).value_or(0); }
    TDateTime AsDateTime() const override { return AsFloat(); }
    void SaveToStream(std::string& aBytes) const override { aBytes += Text(); }

   private:
    const std::string& Text() const {
      static const std::string none;
      return fOwner.fRows.empty() ? none : fOwner.fRows[fOwner.fRow][fIndex];
    }
    const TMemoryDataSet& fOwner;
    std::size_t fIndex;
    TColumn fColumn;
  };

  std::string fName;
  std::vector<std::vector<std::string>> fRows;
  std::vector<std::unique_ptr<TCell>> fFields;
  std::size_t fRow = 0;
  bool fEof = true;
};

}  // namespace Zor
