#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Zor::inline Jsondataobjects {

/// Which slots of a row are still in use, so that the place of a slot among those, and the slot at a place,
/// are told in logarithmic time while others are given up: sums over ranges whose lengths are powers of two
/// (Fenwick, A New Data Structure for Cumulative Frequency Tables, 1994). Slots and places count from 0.
class TLiveSlots {
 public:
  /// The first `aCount` slots are in use.
  explicit TLiveSlots(std::size_t aCount) : fSums(aCount + 1) {
    for (std::size_t i = 1; i <= aCount; ++i) fSums[i] = static_cast<std::uint32_t>(Range(i));
  }

  /// One slot more, which is in use.
  void Add() {
    const std::size_t last = fSums.size();
    std::uint32_t sum = 1;
    for (std::size_t part = 1; part < Range(last); part <<= 1U) sum += fSums[last - part];
    fSums.push_back(sum);
  }

  /// Gives a slot up that is in use.
  void Drop(std::size_t aSlot) {
    for (std::size_t i = aSlot + 1; i < fSums.size(); i += Range(i)) --fSums[i];
  }

  /// How many slots before this one are in use.
  std::uint32_t PlaceOf(std::size_t aSlot) const {
    std::uint32_t place = 0;
    for (std::size_t i = aSlot; i > 0; i -= Range(i)) place += fSums[i];
    return place;
  }

  /// The slot in use that so many in use stand before.
  std::size_t SlotAt(std::uint32_t aPlace) const {
    std::size_t slot = 0;
    for (std::size_t step = std::bit_floor(fSums.size()); step > 0; step >>= 1U) {
      if (slot + step >= fSums.size() || fSums[slot + step] > aPlace) continue;
      slot += step;
      aPlace -= fSums[slot];
    }
    return slot;
  }

 private:
  /// The length of the range that ends with the slot before `aIndex`.
  static std::size_t Range(std::size_t aIndex) { return aIndex & (~aIndex + 1); }

  std::vector<std::uint32_t> fSums;  ///< by the slot that ends the range, counted from 1
};

}  // namespace Zor::inline Jsondataobjects
