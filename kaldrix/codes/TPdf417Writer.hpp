#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "kaldrix/codes/Pdf417Text.hpp"

namespace Zor::inline Pdf417 {

/// Writes the data codewords of one text: segments of text and digits, each behind its latch.
/// Expects bytes from 32 to 126. Raises Exception "PDF417 Encode Error" when there are too many codewords.
class TPdf417Writer {
 public:
  /// Descriptor, data and two check words, the fewest there are, fill a symbol.
  static constexpr std::size_t MaxWords = 926;

  explicit TPdf417Writer(std::string_view aText) : fText(aText) {}

  void Write();
  /// What was written; the descriptor before it is not among them.
  std::span<const std::uint16_t> Words() const { return {fWords.data() + 1, fCount - 1}; }

 private:
  /// What a text segment reads: a character, a codeword that goes into the symbol as it stands, or a Global
  /// Label Identifier.
  enum TTokenKind : std::uint8_t { tkCharacter, tkRaw, tkLabel };
  struct TToken {
    unsigned Value;
    TTokenKind Kind;
    std::size_t Consumed;
  };

  bool ValidNumeric() const;
  bool ValidText() const;
  TZORPdf417EncodeType Mode() const;

  void WriteNumeric();
  void WriteDigits(std::string_view aDigits);
  void WriteLastByte();

  void WriteText();
  TToken GetNextCharacter(std::size_t aPosition) const;
  unsigned Number(std::size_t aPosition, std::size_t aDigits, int aBase) const;
  void WriteToken(const TToken& aToken);
  void WriteRaw(unsigned aWord);
  void WriteGlobalLabel(unsigned aLabel);
  void WriteCharacter(unsigned aChar);
  bool IsOneShot() const;
  void WriteByteShift(unsigned aByte);

  void Put(std::size_t aWord);
  void PutValue(unsigned aValue);
  void CompletePair();

  static constexpr unsigned NoHalf = 30;

  std::string_view fText;
  std::size_t fPosition = 0;
  TZORPdf417TextMode fTextMode = tmAlpha;
  unsigned fHalf = NoHalf;  // the first value of a pair
  std::size_t fCount = 1;
  std::array<std::uint16_t, MaxWords> fWords;
};

}  // namespace Zor::inline Pdf417
