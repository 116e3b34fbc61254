// The elements of an array of a JSON source.
#pragma once

#include <memory>
#include <string>

#include "kaldrix/json/TJsonFile.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace Zor::inline Base {

/// Elements of an array, one of which is looked at at a time; places count from 0.
class TJsonRows {
 public:
  virtual ~TJsonRows() = default;
  virtual int Count() const = 0;
  /// 0-based. None where the element is no object. Valid until the next call.
  virtual const TJsonObject* Row(int aIndex) = 0;
};

/// Those of a text that was parsed as a whole.
class TParsedRows final : public TJsonRows {
 public:
  TParsedRows(std::unique_ptr<TJsonBaseObject> aRoot, const TJsonArray& aRows)
      : fRoot(std::move(aRoot)), fRows(aRows) {}
  int Count() const override { return fRows.Count(); }
  const TJsonObject* Row(int aIndex) override { return fRows.GetItem(aIndex).AsObject(); }

 private:
  std::unique_ptr<TJsonBaseObject> fRoot;
  const TJsonArray& fRows;
};

/// Those of a file, of which the one that was asked for last stands in memory.
class TFileRows final : public TJsonRows {
 public:
  TFileRows(std::shared_ptr<const TJsonFile> aFile, const TJsonFile::TArray& aRows)
      : fFile(std::move(aFile)), fRows(aRows) {}
  int Count() const override { return static_cast<int>(fRows.starts.size()); }
  const TJsonObject* Row(int aIndex) override {
    if (aIndex != fIndex) fRow = fFile->Element(fRows, aIndex);
    fIndex = aIndex;
    return fRow.AsObject();
  }

 private:
  std::shared_ptr<const TJsonFile> fFile;
  const TJsonFile::TArray& fRows;
  TJsonDataValue fRow;
  int fIndex = -1;
};

}  // namespace Zor::inline Base
