// The parser.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonObject.hpp"

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

/// Reads one text, which must outlive the reader. Members are gathered on a stack, so that each object and
/// array takes memory once, with its members behind it in the same block.
class TJsonReader {
 public:
  /// Skips a byte order mark; that of UTF-16 and UTF-32 raises EJsonException.
  explicit TJsonReader(std::string_view aText);

  /// An array where the text begins with "[", none where it is blank, else an object.
  std::unique_ptr<TJsonBaseObject> ReadAny();
  std::unique_ptr<TJsonObject> ReadObject();
  std::unique_ptr<TJsonArray> ReadArray();
  /// The object, without its first member that is an array of that name and what stands in front of it, where
  /// there is one: both go to `aSink`.
  std::unique_ptr<TJsonObject> ReadObject(std::string_view aArray, IJsonElements& aSink);

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

  TJsonKey Name();
  std::string_view Text();
  const char* FindSpecial(const char* aFrom) const noexcept;
  std::string_view CopiedText(const char* aStart);
  void Escape();
  std::uint32_t Hex4();

  [[noreturn]] void FailExpected(std::string_view aExpected, const char* aAt) const;
  [[noreturn]] void FailNumber(const TNumber& aNumber) const;
  [[noreturn]] void Fail(const std::string& aMessage, const char* aAt) const;

  const char* fStart;
  const char* fAt;
  const char* fEnd;
  int fDepth = 0;
  IJsonElements* fSink = nullptr;  ///< waits for the array of the outermost object that is named fSinkName
  std::string_view fSinkName;
  TStack fStack;
  std::string fText;  ///< A text that had to be copied because of escapes or bytes above 127.
};

}  // namespace Zor::inline Jsondataobjects
