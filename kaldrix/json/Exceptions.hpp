// The errors of the JSON value layer, and the one place where their texts are made.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Jsondataobjects {

/// The base of all errors of JSON texts and values.
class EJsonException : public Exception {
 public:
  using Exception::Exception;
};

/// A value of one kind that was asked for as another kind that it cannot give.
class EJsonCastException : public EJsonException {
 public:
  using EJsonException::EJsonException;
};

/// A path of bad form, or one that leads nowhere.
class EJsonPathException : public EJsonException {
 public:
  using EJsonException::EJsonException;
};

/// A text that is not JSON. The message ends in "(line, column)" when the line is known.
class EJsonParserException : public EJsonException {
 public:
  /// `aLineNum` and `aColumn` are 1-based, 0 when unknown; `aPosition` is a 0-based offset in bytes.
  EJsonParserException(const std::string& aMessage, int aLineNum, int aColumn, std::size_t aPosition);

  int FLineNum;           ///< 1-based; LF, CR and CR LF end a line.
  int FColumn;            ///< 1-based, in code points.
  std::size_t FPosition;  ///< 0-based, in bytes from the start of the text.
};

/// "Cannot cast %s into %s", with kind names such as "Integer".
[[noreturn]] void RaiseJsonCast(std::string_view aFrom, std::string_view aInto);
/// "Invalid JSON path", with the whole path.
[[noreturn]] void RaiseJsonPathForm(std::string_view aPath);
/// "JSON path contains null value", with the path up to the null.
[[noreturn]] void RaiseJsonPathNull(std::string_view aPath);
/// "JSON path index out of bounds", with the index as it was written and the path up to it.
[[noreturn]] void RaiseJsonPathIndex(std::string_view aIndex, std::string_view aPath);
/// The list error of an index outside an object or array.
[[noreturn]] void RaiseJsonIndex(long long aIndex);
/// The list error of a count that an array cannot have.
[[noreturn]] void RaiseJsonCount(long long aCount);

}  // namespace Zor::inline Jsondataobjects
