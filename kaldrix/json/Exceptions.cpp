#include "kaldrix/json/Exceptions.hpp"

namespace Zor::inline Jsondataobjects {

namespace {

std::string Positioned(const std::string& aMessage, int aLineNum, int aColumn) {
  if (aLineNum <= 0) return aMessage;
  return aMessage + " (" + std::to_string(aLineNum) + ", " + std::to_string(aColumn) + ")";
}

}  // namespace

EJsonParserException::EJsonParserException(const std::string& aMessage, int aLineNum, int aColumn,
                                           std::size_t aPosition)
    : EJsonException(Positioned(aMessage, aLineNum, aColumn)),
      FLineNum(aLineNum),
      FColumn(aColumn),
      FPosition(aPosition) {}

void RaiseJsonCast(std::string_view aFrom, std::string_view aInto) {
  throw EJsonCastException("Cannot cast " + std::string(aFrom) + " into " + std::string(aInto));
}

void RaiseJsonPathForm(std::string_view aPath) {
  throw EJsonPathException("Invalid JSON path \"" + std::string(aPath) + "\"");
}

void RaiseJsonPathNull(std::string_view aPath) {
  throw EJsonPathException("JSON path contains null value (\"" + std::string(aPath) + "\")");
}

void RaiseJsonPathIndex(std::string_view aIndex, std::string_view aPath) {
  throw EJsonPathException("JSON path index out of bounds (" + std::string(aIndex) + ") \"" +
                           std::string(aPath) + "\"");
}

void RaiseJsonIndex(long long aIndex) {
  throw EListError("List index out of bounds (" + std::to_string(aIndex) + ")");
}

void RaiseJsonCount(long long aCount) {
  throw EListError("List count out of bounds (" + std::to_string(aCount) + ")");
}

}  // namespace Zor::inline Jsondataobjects
