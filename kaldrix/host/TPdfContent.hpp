// Operators and operands of a PDF, as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/host/TMatrix.hpp"

namespace Zor::inline Host {

/// The whole number nearest to `value`, which is within the range of 64 bits; quicker than the library's.
inline std::int64_t Nearest(double value) {
  return static_cast<std::int64_t>(value + (value < 0 ? -0.5 : 0.5));
}

/// A growing piece of a content stream or an object. Numbers are as short as they can be and stand apart.
class TPdfContent {
 public:
  TPdfContent& Raw(std::string_view bytes) {
    fBytes.append(bytes);
    return *this;
  }
  TPdfContent& Int(std::int64_t value);
  /// With at most `decimals` (up to 9) places after the point; beyond 10^9 it is held there.
  TPdfContent& Real(double value, int decimals = 3);
  TPdfContent& Point(const TPaperPoint& p) { return Int(Nearest(p.x)).Int(Nearest(p.y)); }
  /// The six numbers of `m`; the linear part with `decimals` places, the displacement with three.
  TPdfContent& Matrix(const TMatrix& m, int decimals);
  TPdfContent& Op(std::string_view name) {
    fBytes.append(name);
    fBytes.push_back('\n');
    return *this;
  }
  /// A string in parentheses.
  TPdfContent& Literal(std::string_view bytes);

  const std::string& Bytes() const { return fBytes; }
  std::size_t Size() const { return fBytes.size(); }
  void Clear() { fBytes.clear(); }

 private:
  std::string fBytes;
};

/// A text as hexadecimal string of UTF-16, with the mark of its byte order in front.
std::string PdfTextString(std::string_view utf8);
/// The hexadecimal digits of a text in UTF-16.
std::string PdfUtf16(std::string_view utf8);
/// A name with its slash; what cannot stand in one is left out.
std::string PdfName(std::string_view name);
/// "12 0 R "
std::string PdfRef(int object);

}  // namespace Zor::inline Host
