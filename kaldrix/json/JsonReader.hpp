// The parser.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonObject.hpp"
#include "kaldrix/platform/TFileWindow.hpp"

namespace Zor::inline Jsondataobjects {

/// Takes the elements of one array of an object while the text is read, so that they never stand in memory
/// together.
class IJsonElements {
 public:
  /// The array begins; `aFront` has the members of the object in front of it.
  virtual void Start(TJsonObject& aFront) = 0;
  virtual void Element(TJsonDataValue& aValue) = 0;

 protected:
  ~IJsonElements() = default;
};

/// Takes the arrays of an object while the text is read. Places are bytes from the start of the text.
class IJsonArrays {
 public:
  virtual void Array(std::string_view aName) = 0;
  /// The next element of the last array; it goes when this returns.
  virtual void Element(TJsonDataValue& aValue, std::size_t aPlace) = 0;
  /// The last array has no more; `aPlace` is that of its closing bracket.
  virtual void ArrayEnd(std::size_t aPlace) = 0;

 protected:
  ~IJsonArrays() = default;
};

/// Reads one text, which must outlive the reader. Members are gathered on a stack, so that each object and
/// array takes memory once, with its members behind it in the same block.
class TJsonReader {
 public:
  /// Skips a byte order mark; that of UTF-16 and UTF-32 raises EJsonException.
  explicit TJsonReader(std::string_view aText);
  /// Of a text of which as much stands in memory as the member of an object or array that is being read, and
  /// `aStep` bytes. Only ReadArrays reads it.
  explicit TJsonReader(const TFileWindow& aText, std::size_t aStep = TFileWindow::Step);

  /// An array where the text begins with "[", none where it is blank, else an object.
  std::unique_ptr<TJsonBaseObject> ReadAny();
  std::unique_ptr<TJsonObject> ReadObject();
  std::unique_ptr<TJsonArray> ReadArray();
  /// The object, without its first member that is an array of that name and what stands in front of it, where
  /// there is one: both go to `aSink`.
  std::unique_ptr<TJsonObject> ReadObject(std::string_view aArray, IJsonElements& aSink);
  /// The value that the text begins with; what stands behind it is not looked at.
  TJsonDataValue ReadValue();
  /// Reads the whole object, and keeps nothing of it: its arrays go to `aSink`, element by element. A blank
  /// text has none.
  void ReadArrays(IJsonArrays& aSink);

 private:
  /// Members of the objects and arrays that are still open; an array's elements have empty names.
  class TStack {
   public:
    TStack() = default;
    TStack(const TStack&) = delete;
    TStack& operator=(const TStack&) = delete;
    ~TStack();

    std::size_t Size() const noexcept { return fSize; }
    TJsonMember* At(std::size_t aPlace) noexcept { return fMembers + aPlace; }
    void Push(TJsonKey&& aName) {
      if (fSize == fCapacity) Grow();
      new (fMembers + fSize++) TJsonMember{std::move(aName), {}};
    }
    /// Forgets the members from a place on, which were moved away.
    void Drop(std::size_t aPlace) noexcept { fSize = aPlace; }

   private:
    void Grow();
    TJsonMember* fMembers = nullptr;
    std::size_t fSize = 0;
    std::size_t fCapacity = 0;
  };
  struct TNumber;

  void SkipLead() noexcept;
  void SkipBlanks() noexcept;
  bool At(char aChar) const noexcept { return fAt < fEnd && *fAt == aChar; }
  void Accept(char aChar, std::string_view aName);
  void Enter();
  void ExpectEnd();

  std::unique_ptr<TJsonObject> Object();
  std::unique_ptr<TJsonArray> Array();
  void Value(std::size_t aPlace);
  /// Hands the array over whose name stands last on the stack, and takes its object from `aBase` on away.
  void HandOver(std::size_t aBase);
  void Literal(TJsonDataValue& aValue);
  void Number(TJsonDataValue& aValue);
  void Integer(const TNumber& aNumber, TJsonDataValue& aValue);
  double Float(const TNumber& aNumber);
  const char* Digits(TNumber& aNumber);
  void Exponent(TNumber& aNumber);

  // Over a window
  std::size_t Place() const { return fBase + static_cast<std::size_t>(fAt - fStart); }
  /// Makes so many bytes visible from here on, or all that are left.
  void Show(std::size_t aBytes);
  /// Skips blanks over windows, and makes the token behind them visible.
  void GoOn();
  /// Makes the whole value visible that begins here.
  void HoldValue();
  void ArraysMember(IJsonArrays& aSink);
  void ArraysElements(IJsonArrays& aSink);
  /// Reads a value onto the stack and hands it to `aTake`, then forgets it.
  template <class TTake>
  void Pass(TTake aTake);

  TJsonKey Name();
  std::string_view Text();
  const char* FindSpecial(const char* aFrom) const noexcept;
  std::string_view CopiedText(const char* aStart);
  void Escape();
  std::uint32_t Hex4();

  [[noreturn]] void FailExpected(std::string_view aExpected, const char* aAt) const;
  [[noreturn]] void FailNumber(const TNumber& aNumber) const;
  [[noreturn]] void Fail(const std::string& aMessage, const char* aAt) const;

  const char* fStart;  ///< of the text or the window
  const char* fAt;
  const char* fEnd;
  int fDepth = 0;
  IJsonElements* fSink = nullptr;  ///< waits for the array of the outermost object that is named fSinkName
  std::string_view fSinkName;
  const TFileWindow* fWindow = nullptr;
  std::size_t fStep = 0;
  std::size_t fBase = 0;  ///< place of fStart in the text
  TStack fStack;
  std::string fText;  ///< A text that had to be copied because of escapes or bytes above 127.
};

}  // namespace Zor::inline Jsondataobjects
