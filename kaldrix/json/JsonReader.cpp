#include "kaldrix/json/JsonReader.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <new>

#include "kaldrix/json/JsonScan.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Jsondataobjects {

namespace {

constexpr std::string_view EndOfFile = "end of file";
constexpr std::string_view InvalidSymbol = "invalid symbol";
constexpr std::string_view Identifier = "identifier";
constexpr std::string_view ValueName = "value";

/// The longest mark of an encoding.
constexpr std::size_t MostMark = 4;

bool IsDigit(char aChar) noexcept { return aChar >= '0' && aChar <= '9'; }

bool IsWordChar(char aChar) noexcept {
  const char lower = static_cast<char>(aChar | 0x20);
  return (lower >= 'a' && lower <= 'z') || IsDigit(aChar) || aChar == '_' || aChar == '$';
}

/// The word of letters, digits and "_" that begins at `aAt`.
std::string_view WordAt(const char* aAt, const char* aEnd) noexcept {
  const char* end = std::find_if_not(aAt, aEnd, IsWordChar);
  return {aAt, static_cast<std::size_t>(end - aAt)};
}

bool IsLiteral(std::string_view aWord) noexcept {
  return aWord == "true" || aWord == "false" || aWord == "null";
}

/// What the token at a place is called in error texts.
std::string_view TokenName(const char* aAt, const char* aEnd) noexcept {
  if (aAt == aEnd) return EndOfFile;
  switch (*aAt) {
    case '{':
      return "\"{\"";
    case '}':
      return "\"}\"";
    case '[':
      return "\"[\"";
    case ']':
      return "\"]\"";
    case ',':
      return "\",\"";
    case ':':
      return "\":\"";
    case '"':
      return ValueName;
    case '-':
      return aEnd - aAt > 1 && IsDigit(aAt[1]) ? ValueName : InvalidSymbol;
    default:
      break;
  }
  if (IsDigit(*aAt)) return ValueName;
  const std::string_view word = WordAt(aAt, aEnd);
  if (word.empty()) return InvalidSymbol;
  return IsLiteral(word) ? ValueName : Identifier;
}

void RefuseEncoding(std::string_view aText) {
  using namespace std::string_view_literals;
  for (const std::string_view mark : {"\xFE\xFF"sv, "\xFF\xFE"sv, "\0\0\xFE\xFF"sv}) {
    if (aText.starts_with(mark)) throw EJsonException("File encoding is not supported");
  }
}

}  // namespace

// The stack

TJsonReader::TStack::~TStack() {
  for (std::size_t i = 0; i < fSize; ++i) fMembers[i].~TJsonMember();
  ::operator delete(fMembers);
}

void TJsonReader::TStack::Grow() {
  constexpr std::size_t FirstCapacity = 32;
  const std::size_t capacity = std::max(FirstCapacity, fCapacity * 2);
  void* room = ::operator new(capacity * sizeof(TJsonMember));
  if (fSize > 0) std::memcpy(room, static_cast<const void*>(fMembers), fSize * sizeof(TJsonMember));
  ::operator delete(fMembers);
  fMembers = static_cast<TJsonMember*>(room);
  fCapacity = capacity;
}

// Roots

TJsonReader::TJsonReader(std::string_view aText)
    : fStart(aText.data()), fAt(fStart), fEnd(fStart + aText.size()) {
  RefuseEncoding(aText);
  if (aText.starts_with(Utf8::ByteOrderMark)) fAt += Utf8::ByteOrderMark.size();
  SkipLead();
}

TJsonReader::TJsonReader(const TFileWindow& aText, std::size_t aStep)
    : TJsonReader(aText.View(0, std::min(aText.Size(), std::max(aStep, MostMark)))) {
  fWindow = &aText;
  fStep = aStep;
  while (fAt == fEnd && Place() < fWindow->Size()) {
    Show(1);
    SkipLead();
  }
}

void TJsonReader::SkipLead() noexcept {
  while (fAt < fEnd && static_cast<unsigned char>(*fAt) < 33) ++fAt;
}

std::unique_ptr<TJsonBaseObject> TJsonReader::ReadAny() {
  if (fAt == fEnd) return nullptr;
  if (At('[')) return ReadArray();
  return ReadObject();
}

std::unique_ptr<TJsonObject> TJsonReader::ReadObject() {
  std::unique_ptr<TJsonObject> root = Object();
  ExpectEnd();
  return root;
}

std::unique_ptr<TJsonObject> TJsonReader::ReadObject(std::string_view aArray, IJsonElements& aSink) {
  fSink = &aSink;
  fSinkName = aArray;
  return ReadObject();
}

TJsonDataValue TJsonReader::ReadValue() {
  fStack.Push(TJsonKey::FromPacked(TJsonKey::PackWord(0, 0)));
  Value(0);
  return std::move(fStack.At(0)->Value);
}

std::unique_ptr<TJsonArray> TJsonReader::ReadArray() {
  std::unique_ptr<TJsonArray> root = Array();
  ExpectEnd();
  return root;
}

void TJsonReader::ExpectEnd() {
  SkipBlanks();
  if (fAt < fEnd) FailExpected(EndOfFile, fAt);
}

// Structure

void TJsonReader::SkipBlanks() noexcept {
  if (fAt<fEnd&& * fAt> ' ') return;
  while (fAt < fEnd && (*fAt == ' ' || *fAt == '\n' || *fAt == '\t' || *fAt == '\r')) ++fAt;
}

void TJsonReader::Accept(char aChar, std::string_view aName) {
  if (!At(aChar)) FailExpected(aName, fAt);
  ++fAt;
}

void TJsonReader::Enter() {
  if (++fDepth > TJsonBaseObject::MaxNesting) {
    Fail("Nesting is deeper than " + std::to_string(TJsonBaseObject::MaxNesting), fAt);
  }
}

std::unique_ptr<TJsonObject> TJsonReader::Object() {
  Enter();
  Accept('{', "\"{\"");
  const std::size_t base = fStack.Size();
  SkipBlanks();
  if (!At('}')) {
    for (;;) {
      fStack.Push(Name());
      SkipBlanks();
      Accept(':', "\":\"");
      SkipBlanks();
      if (fSink != nullptr && fDepth == 1 && At('[') &&
          fStack.At(fStack.Size() - 1)->Name.View() == fSinkName) {
        HandOver(base);
      } else {
        Value(fStack.Size() - 1);
      }
      SkipBlanks();
      if (!At(',')) break;
      ++fAt;
      SkipBlanks();
    }
  }
  Accept('}', "\"}\"");
  std::unique_ptr<TJsonObject> object(TJsonObject::Adopt(fStack.At(base), fStack.Size() - base));
  fStack.Drop(base);
  --fDepth;
  return object;
}

std::unique_ptr<TJsonArray> TJsonReader::Array() {
  Enter();
  Accept('[', "\"[\"");
  const std::size_t base = fStack.Size();
  SkipBlanks();
  if (!At(']')) {
    for (;;) {
      fStack.Push(TJsonKey::FromPacked(TJsonKey::PackWord(0, 0)));
      Value(fStack.Size() - 1);
      SkipBlanks();
      if (!At(',')) break;
      ++fAt;
      SkipBlanks();
    }
  }
  Accept(']', "\"]\"");
  const std::size_t count = fStack.Size() - base;
  const void* values = count > 0 ? &fStack.At(base)->Value : nullptr;
  std::unique_ptr<TJsonArray> items(TJsonArray::Adopt(values, sizeof(TJsonMember), count));
  fStack.Drop(base);
  --fDepth;
  return items;
}

void TJsonReader::HandOver(std::size_t aBase) {
  IJsonElements& sink = *std::exchange(fSink, nullptr);
  const std::size_t name = fStack.Size() - 1;
  const std::unique_ptr<TJsonObject> front(TJsonObject::Adopt(fStack.At(aBase), name - aBase));
  fStack.At(name)->~TJsonMember();
  fStack.Drop(aBase);
  sink.Start(*front);
  Enter();
  ++fAt;
  SkipBlanks();
  if (!At(']')) {
    for (;;) {
      fStack.Push(TJsonKey::FromPacked(TJsonKey::PackWord(0, 0)));
      Value(aBase);
      sink.Element(fStack.At(aBase)->Value);
      fStack.At(aBase)->~TJsonMember();
      fStack.Drop(aBase);
      SkipBlanks();
      if (!At(',')) break;
      ++fAt;
      SkipBlanks();
    }
  }
  Accept(']', "\"]\"");
  --fDepth;
}

void TJsonReader::Value(std::size_t aPlace) {
  if (fAt == fEnd) FailExpected(ValueName, fAt);
  switch (*fAt) {
    case '"':
      return fStack.At(aPlace)->Value.SetString(Text());
    case '{': {
      std::unique_ptr<TJsonObject> object = Object();
      fStack.At(aPlace)->Value.SetObject(std::move(object));
      return;
    }
    case '[': {
      std::unique_ptr<TJsonArray> items = Array();
      fStack.At(aPlace)->Value.SetArray(std::move(items));
      return;
    }
    case 't':
    case 'f':
    case 'n':
      return Literal(fStack.At(aPlace)->Value);
    default:
      return Number(fStack.At(aPlace)->Value);
  }
}

void TJsonReader::Literal(TJsonDataValue& aValue) {
  const std::string_view rest(fAt, static_cast<std::size_t>(fEnd - fAt));
  const std::size_t size = *fAt == 'f' ? 5 : 4;
  if (!IsLiteral(rest.substr(0, size)) || (rest.size() > size && IsWordChar(rest[size]))) {
    FailExpected(ValueName, fAt);
  }
  if (*fAt == 'n') {
    aValue.SetNull();
  } else {
    aValue.SetBool(*fAt == 't');
  }
  fAt += size;
}

// Numbers

namespace {

constexpr int ExactDigits = 19;  ///< So many always fit 64 bits.

std::int64_t LeadingZeros(std::string_view aNumber) noexcept {
  std::int64_t zeros = 0;
  for (const char c : aNumber) {
    if (c >= '1' && c <= '9') break;
    zeros += c == '0' ? 1 : 0;
  }
  return zeros;
}

}  // namespace

/// A number on its way: its text begins at Begin; Mantissa holds its digits as long as 19 hold them.
struct TJsonReader::TNumber {
  const char* Begin;
  bool Negative = false;
  std::uint64_t Mantissa = 0;
  std::int64_t Count = 0;     ///< Digits, leading zeros included.
  std::int64_t Fraction = 0;  ///< Digits behind the point.
  std::int64_t Exponent = 0;  ///< As written, held inside what cannot run over.
};

/// Takes one or more digits and gives their beginning.
const char* TJsonReader::Digits(TNumber& aNumber) {
  const char* begin = fAt;
  const char* at = fAt;
  std::uint64_t mantissa = aNumber.Mantissa;
  for (; at < fEnd && IsDigit(*at); ++at) mantissa = mantissa * 10 + static_cast<unsigned>(*at - '0');
  if (at == begin) FailNumber(aNumber);
  aNumber.Mantissa = mantissa;
  aNumber.Count += at - begin;
  fAt = at;
  return begin;
}

void TJsonReader::Exponent(TNumber& aNumber) {
  constexpr std::int64_t Held = 1000000000000;
  ++fAt;
  const bool negative = At('-');
  if (negative || At('+')) ++fAt;
  if (fAt == fEnd || !IsDigit(*fAt)) FailNumber(aNumber);
  std::int64_t exponent = 0;
  for (; fAt < fEnd && IsDigit(*fAt); ++fAt) exponent = std::min(exponent * 10 + (*fAt - '0'), Held);
  aNumber.Exponent = negative ? -exponent : exponent;
}

void TJsonReader::Number(TJsonDataValue& aValue) {
  TNumber number{fAt};
  number.Negative = *fAt == '-';
  if (!number.Negative && !IsDigit(*fAt)) FailExpected(ValueName, fAt);
  if (number.Negative) ++fAt;
  const char* whole = Digits(number);
  if (*whole == '0' && fAt - whole > 1) FailNumber(number);
  if (fAt == fEnd || (*fAt != '.' && (*fAt | 0x20) != 'e')) return Integer(number, aValue);
  if (*fAt == '.') {
    ++fAt;
    const char* fraction = Digits(number);
    number.Fraction = fAt - fraction;
  }
  if (fAt < fEnd && (*fAt | 0x20) == 'e') Exponent(number);
  aValue.SetFloat(Float(number));
}

/// The kind goes by the digits: nine still make an Integer, twenty a Long or ULong where they hold it.
void TJsonReader::Integer(const TNumber& aNumber, TJsonDataValue& aValue) {
  constexpr int IntDigits = 9;
  constexpr std::uint64_t LongLimit = std::numeric_limits<Int64>::max();
  const std::uint64_t mantissa = aNumber.Mantissa;
  if (aNumber.Count <= IntDigits) {
    const int value = static_cast<int>(mantissa);
    return aValue.SetInt(aNumber.Negative ? -value : value);
  }
  // Twenty digits that run over 64 bits begin with 1 or more and leave less than 10^19.
  const bool fits = aNumber.Count <= ExactDigits ||
                    (aNumber.Count == ExactDigits + 1 && aNumber.Begin[aNumber.Negative] == '1' &&
                     mantissa >= 10000000000000000000U);
  if (!fits || (aNumber.Negative && mantissa > LongLimit + 1)) return aValue.SetFloat(Float(aNumber));
  if (aNumber.Negative) return aValue.SetLong(static_cast<Int64>(0 - mantissa));
  if (mantissa > LongLimit) return aValue.SetULong(mantissa);
  aValue.SetLong(static_cast<Int64>(mantissa));
}

/// A mantissa below 2^53 and a power of ten up to 22 are exact doubles, so that one operation rounds
/// correctly (Clinger, "How to read floating point numbers accurately", 1990). The rest takes the long way.
double TJsonReader::Float(const TNumber& aNumber) {
  static constexpr std::array<double, 23> Powers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  constexpr std::int64_t MaxPower = Powers.size() - 1;
  const std::int64_t exponent = aNumber.Exponent - aNumber.Fraction;
  if (aNumber.Count <= ExactDigits && aNumber.Mantissa <= (std::uint64_t{1} << 53U) && exponent <= MaxPower &&
      exponent >= -MaxPower) {
    const double mantissa = static_cast<double>(aNumber.Mantissa);
    const double value = exponent < 0 ? mantissa / Powers[static_cast<std::size_t>(-exponent)]
                                      : mantissa * Powers[static_cast<std::size_t>(exponent)];
    return aNumber.Negative ? -value : value;
  }
  double value = 0.0;
  if (std::from_chars(aNumber.Begin, fAt, value).ec == std::errc()) return value;
  const std::string_view text(aNumber.Begin, static_cast<std::size_t>(fAt - aNumber.Begin));
  if (exponent + aNumber.Count - LeadingZeros(text) > 0) FailNumber(aNumber);  // beyond the largest double
  return aNumber.Negative ? -0.0 : 0.0;
}

// Texts

TJsonKey TJsonReader::Name() {
  if (!At('"')) {
    const bool isWord = fAt < fEnd && TokenName(fAt, fEnd) == Identifier;
    if (isWord) Fail("Expected identifier but found invalid symbol", fAt);
    FailExpected(Identifier, fAt);
  }
  if (fEnd - fAt > 8) {
    const std::uint64_t bytes = LoadBytes(fAt + 1);
    const std::uint64_t marks = SpecialMarks(bytes);
    const std::size_t size = marks == 0 ? 8 : FirstMark(marks);
    if (size < 8 && fAt[1 + size] == '"') {
      fAt += size + 2;
      return TJsonKey::FromPacked(TJsonKey::PackWord(bytes & ((std::uint64_t{1} << 8 * size) - 1), size));
    }
  }
  return TJsonKey(Text());
}

/// The first byte from a place on that is no plain ASCII, or the end.
const char* TJsonReader::FindSpecial(const char* aFrom) const noexcept {
  const char* at = aFrom;
  for (; fEnd - at >= 8; at += 8) {
    const std::uint64_t marks = SpecialMarks(LoadBytes(at));
    if (marks != 0) return at + FirstMark(marks);
  }
  while (at < fEnd && static_cast<signed char>(*at) >= 0x20 && *at != '"' && *at != '\\') ++at;
  return at;
}

/// The text that begins at the quote; the view ends with the next text.
std::string_view TJsonReader::Text() {
  const char* start = fAt + 1;
  const char* at = FindSpecial(start);
  if (at < fEnd && *at == '"') {
    fAt = at + 1;
    return {start, static_cast<std::size_t>(at - start)};
  }
  const char* quote = fAt;
  fAt = at;
  fText.assign(start, at);
  return CopiedText(quote);
}

std::string_view TJsonReader::CopiedText(const char* aStart) {
  for (;;) {
    if (fAt == fEnd) Fail("String not closed", aStart);
    if (*fAt == '"') break;
    if (*fAt == '\\') {
      Escape();
    } else if (static_cast<signed char>(*fAt) < 0) {
      const char* end = std::find_if(fAt, fEnd, [](char c) { return static_cast<signed char>(c) >= 0; });
      const std::string_view run(fAt, static_cast<std::size_t>(end - fAt));
      if (Utf8::IsValid(run)) {
        fText.append(run);
      } else {
        fText.append(Utf8::Repaired(run));
      }
      fAt = end;
    } else {
      Fail("Invalid character in string", fAt);
    }
    const char* plain = fAt;
    fAt = FindSpecial(plain);
    fText.append(plain, fAt);
  }
  ++fAt;
  return fText;
}

void TJsonReader::Escape() {
  static constexpr std::string_view Letters = "\"\\/bfnrt";
  static constexpr std::string_view Meanings = "\"\\/\b\f\n\r\t";
  const char* begin = fAt++;
  if (fAt == fEnd) Fail("String not closed", begin);
  if (*fAt != 'u') {
    const std::size_t letter = Letters.find(*fAt);
    if (letter == std::string_view::npos) Fail("Invalid character in string", begin);
    fText.push_back(Meanings[letter]);
    ++fAt;
    return;
  }
  ++fAt;
  char32_t code = Hex4();
  const bool high = code >= 0xD800 && code < 0xDC00;
  if (high && fEnd - fAt >= 6 && fAt[0] == '\\' && fAt[1] == 'u') {
    const char* second = fAt;
    fAt += 2;
    const char32_t low = Hex4();
    if (low >= 0xDC00 && low < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10U) + (low - 0xDC00);
    } else {
      fAt = second;
    }
  }
  Utf8::Append(fText, code);
}

std::uint32_t TJsonReader::Hex4() {
  const auto left = static_cast<std::size_t>(fEnd - fAt);
  const std::string_view digits(fAt, std::min<std::size_t>(left, 4));
  std::uint32_t code = 0;
  const char* end = digits.data() + digits.size();
  if (digits.size() < 4 || std::from_chars(digits.data(), end, code, 16).ptr != end) {
    const std::string_view shown = digits.substr(0, digits.find('"'));
    Fail("Invalid hex number \"" + Utf8::Repaired(shown) + "\"", fAt);
  }
  fAt += 4;
  return code;
}

// Errors

void TJsonReader::FailExpected(std::string_view aExpected, const char* aAt) const {
  const std::string expected(aExpected);
  if (aAt == fEnd) Fail("Unexpected end of file where " + expected + " was expected", aAt);
  Fail("Expected " + expected + " but found " + std::string(TokenName(aAt, fEnd)), aAt);
}

void TJsonReader::FailNumber(const TNumber& aNumber) const {
  Fail("Expected value but found invalid symbol", aNumber.Begin);
}

namespace {

/// Counts lines and characters.
struct TTextPlace {
  int line = 1;
  std::size_t column = 1;
  bool afterReturn = false;

  void Pass(std::string_view aText) {
    for (const char c : aText) {
      const bool lineEnd = c == '\r' || (c == '\n' && !afterReturn);
      line += lineEnd ? 1 : 0;
      const bool continues = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
      column = c == '\r' || c == '\n' ? 1 : column + (continues ? 0 : 1);
      afterReturn = c == '\r';
    }
  }
};

}  // namespace

void TJsonReader::Fail(const std::string& aMessage, const char* aAt) const {
  const std::size_t end = fBase + static_cast<std::size_t>(aAt - fStart);
  TTextPlace place;
  if (fWindow == nullptr) {
    place.Pass({fStart, end});
  } else {
    for (std::size_t from = 0; from < end; from += TFileWindow::Step) {
      place.Pass(fWindow->View(from, std::min(end, from + TFileWindow::Step)));
    }
  }
  throw EJsonParserException(aMessage, place.line, static_cast<int>(place.column), end);
}

}  // namespace Zor::inline Jsondataobjects
