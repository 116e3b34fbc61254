// Reading through the arrays of a text of which only a window stands in memory.
#include "kaldrix/json/JsonReader.hpp"

#include <algorithm>
#include <bitset>

namespace Zor::inline Jsondataobjects {

namespace {

/// As much as the name of a token in an error looks at.
constexpr std::size_t TokenBytes = 64;

/// Finds where a value ends, part by part of its text. What is no JSON may end anywhere: the reader finds its
/// fault in what has been seen by then.
class TValueEnd {
 public:
  /// The place of its last byte in this part, or of one behind it; the size of the part when it goes on.
  std::size_t FindIn(std::string_view aPart) {
    const auto* end =
        std::find_if(aPart.begin(), aPart.end(), [this](char c) { return fInText ? TextEnds(c) : Ends(c); });
    return static_cast<std::size_t>(end - aPart.begin());
  }

 private:
  static bool IsWord(char c) {
    return static_cast<unsigned char>(c) > ' ' &&
           std::string_view(",:{}[]\"").find(c) == std::string_view::npos;
  }

  bool TextEnds(char c) {
    if (static_cast<unsigned char>(c) < ' ') return true;  // no text has it
    if (fEscaped) {
      fEscaped = false;
    } else if (c == '\\') {
      fEscaped = true;
    } else if (c == '"') {
      fInText = false;
      return fDepth == 0;
    }
    return false;
  }

  bool Ends(char c) {
    switch (c) {
      case '"':
        if (fInWord && fDepth == 0) return true;
        fInText = true;
        return false;
      case '{':
      case '[':
        if (fDepth >= TJsonBaseObject::MaxNesting || (fInWord && fDepth == 0)) return true;
        fIsObject[static_cast<std::size_t>(fDepth++)] = c == '{';
        return false;
      case '}':
      case ']':
        return fDepth == 0 || fIsObject[static_cast<std::size_t>(fDepth - 1)] != (c == '}') || --fDepth == 0;
      default:
        if (fDepth == 0 && fInWord && !IsWord(c)) return true;
        fInWord = true;
        return false;
    }
  }

  std::bitset<TJsonBaseObject::MaxNesting> fIsObject;  ///< of the objects and arrays that are open
  int fDepth = 0;
  bool fInText = false, fEscaped = false, fInWord = false;
};

}  // namespace

void TJsonReader::Show(std::size_t aBytes) {
  if (fWindow == nullptr || static_cast<std::size_t>(fEnd - fAt) >= aBytes) return;
  const std::size_t place = Place();
  const std::string_view view =
      fWindow->View(place, std::min(fWindow->Size(), place + std::max(aBytes, fStep)));
  fStart = fAt = view.data();
  fEnd = fStart + view.size();
  fBase = place;
}

void TJsonReader::GoOn() {
  SkipBlanks();
  while (fAt == fEnd && fWindow != nullptr && Place() < fWindow->Size()) {
    Show(1);
    SkipBlanks();
  }
  Show(TokenBytes);
}

void TJsonReader::HoldValue() {
  if (fWindow == nullptr) return;
  TValueEnd end;
  std::size_t seen = 0;
  for (;;) {
    const auto shown = static_cast<std::size_t>(fEnd - fAt);
    seen += end.FindIn({fAt + seen, shown - seen});
    if (seen < shown) return Show(seen + TokenBytes);
    if (Place() + seen == fWindow->Size()) return;
    Show(seen * 2 + TokenBytes);
  }
}

template <class TTake>
void TJsonReader::Pass(TTake aTake) {
  HoldValue();
  const std::size_t place = fStack.Size();
  fStack.Push(TJsonKey::FromPacked(TJsonKey::PackWord(0, 0)));
  Value(place);
  aTake(fStack.At(place)->Value);
  fStack.At(place)->~TJsonMember();
  fStack.Drop(place);
}

void TJsonReader::ReadArrays(IJsonArrays& aSink) {
  GoOn();
  if (fAt == fEnd) return;
  Enter();
  Accept('{', "\"{\"");
  GoOn();
  if (!At('}')) {
    for (;;) {
      ArraysMember(aSink);
      GoOn();
      if (!At(',')) break;
      ++fAt;
      GoOn();
    }
  }
  Accept('}', "\"}\"");
  GoOn();
  ExpectEnd();
}

void TJsonReader::ArraysMember(IJsonArrays& aSink) {
  HoldValue();
  const TJsonKey name = Name();
  GoOn();
  Accept(':', "\":\"");
  GoOn();
  if (!At('[')) return Pass([](TJsonDataValue&) {});
  aSink.Array(name.View());
  ArraysElements(aSink);
}

void TJsonReader::ArraysElements(IJsonArrays& aSink) {
  Enter();
  ++fAt;
  GoOn();
  if (!At(']')) {
    for (;;) {
      const std::size_t place = Place();
      Pass([&](TJsonDataValue& aValue) { aSink.Element(aValue, place); });
      GoOn();
      if (!At(',')) break;
      ++fAt;
      GoOn();
    }
  }
  aSink.ArrayEnd(Place());
  Accept(']', "\"]\"");
  --fDepth;
}

}  // namespace Zor::inline Jsondataobjects
