#pragma once

#include <cstdint>
#include <initializer_list>
#include <type_traits>

namespace Zor::inline Types {

/// A set of the values of a small enumeration, kept as the integer whose bit n stands for ordinal n.
/// That integer is the stored form.
template <class TEnum>
class TSet {
 public:
  constexpr TSet() = default;
  constexpr TSet(std::initializer_list<TEnum> aValues) {
    for (TEnum value : aValues) Add(value);
  }
  static constexpr TSet FromBits(std::uint32_t aBits) {
    TSet set;
    set.fBits = aBits;
    return set;
  }

  constexpr bool Has(TEnum aValue) const { return (fBits & Bit(aValue)) != 0; }
  constexpr bool HasAny(TSet aOther) const { return (fBits & aOther.fBits) != 0; }
  constexpr bool IsEmpty() const { return fBits == 0; }
  constexpr std::uint32_t Bits() const { return fBits; }

  constexpr void Add(TEnum aValue) { fBits |= Bit(aValue); }
  constexpr void Remove(TEnum aValue) { fBits &= ~Bit(aValue); }
  constexpr void Put(TEnum aValue, bool aIn) { aIn ? Add(aValue) : Remove(aValue); }
  constexpr void Clear() { fBits = 0; }

  friend constexpr bool operator==(TSet, TSet) = default;
  friend constexpr TSet operator+(TSet a, TSet b) { return FromBits(a.fBits | b.fBits); }
  friend constexpr TSet operator-(TSet a, TSet b) { return FromBits(a.fBits & ~b.fBits); }
  friend constexpr TSet operator*(TSet a, TSet b) { return FromBits(a.fBits & b.fBits); }

 private:
  static constexpr std::uint32_t Bit(TEnum aValue) {
    return std::uint32_t{1} << static_cast<unsigned>(aValue);
  }

  std::uint32_t fBits = 0;
};

}  // namespace Zor::inline Types
