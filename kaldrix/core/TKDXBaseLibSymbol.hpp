#pragma once

#include <memory>
#include <string>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TBinaryWriter.hpp"

namespace Zor::inline Base {

/// A reusable drawing as the document knows it: what symbol items refer to by its GUID.
class TKDXBaseLibSymbol {
 public:
  TKDXBaseLibSymbol() = default;
  TKDXBaseLibSymbol(const TKDXBaseLibSymbol&) = delete;
  TKDXBaseLibSymbol& operator=(const TKDXBaseLibSymbol&) = delete;
  virtual ~TKDXBaseLibSymbol() = default;

  /// One entry of the array "Symbols".
  virtual std::unique_ptr<TJsonObject> WriteJson() const = 0;
  virtual void WriteData(TBinaryWriter& bW) const = 0;

  std::string fGuid;  ///< in text form with braces
  std::string fName;
  bool fUsed = false;  ///< mark of CleanLibray: some item uses it
};

}  // namespace Zor::inline Base
