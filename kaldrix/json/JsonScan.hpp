// Eight bytes of text at a time: where the first byte stands that a JSON string cannot hold as it is.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Zor::inline Jsondataobjects {

inline constexpr std::uint64_t EachByte = 0x0101010101010101U;
inline constexpr std::uint64_t EachHighBit = 0x8080808080808080U;

inline std::uint64_t LoadBytes(const char* aText) noexcept {
  std::uint64_t word = 0;
  std::memcpy(&word, aText, sizeof word);
  return word;
}

/// High bits of the bytes that are 0. The lowest one is exact; a byte just above a match may be marked too.
inline std::uint64_t ZeroBytes(std::uint64_t aWord) noexcept {
  return (aWord - EachByte) & ~aWord & EachHighBit;
}

/// Marks double quotes, backslashes and bytes below 32; exact for the lowest mark.
inline std::uint64_t EscapeMarks(std::uint64_t aWord) noexcept {
  const std::uint64_t control = (aWord - EachByte * 0x20U) & ~aWord & EachHighBit;
  return ZeroBytes(aWord ^ EachByte * '"') | ZeroBytes(aWord ^ EachByte * '\\') | control;
}

/// The same, and bytes above 127.
inline std::uint64_t SpecialMarks(std::uint64_t aWord) noexcept {
  return EscapeMarks(aWord) | (aWord & EachHighBit);
}

/// The 0-based byte of the lowest mark.
inline std::size_t FirstMark(std::uint64_t aMarks) noexcept {
  return static_cast<std::size_t>(std::countr_zero(aMarks)) / 8;
}

}  // namespace Zor::inline Jsondataobjects
