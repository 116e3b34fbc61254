#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Zor::inline Base {

/// Values by whole-number keys, in one block of memory: an open-addressed table, at most half full. A value
/// that equals TValue() counts as none, so values are pointers that are set, or counts above 0.
///
/// Neighbouring keys stand side by side, since the identities of a drawing are mostly looked up in turn.
template <class TKey, class TValue>
class TFlatTable {
 public:
  /// The value of a key, or TValue().
  TValue Find(TKey aKey) const { return fSlots.empty() ? TValue() : fSlots[PlaceOf(aKey)].value; }

  /// Gives a key a value, which is not TValue().
  void Put(TKey aKey, TValue aValue) {
    if (fSlots.size() < 2 * (fCount + 1)) Resize(2 * (fCount + 1));
    TSlot& slot = fSlots[PlaceOf(aKey)];
    if (slot.value == TValue()) ++fCount;
    slot = {aKey, aValue};
  }

  void Remove(TKey aKey) {
    if (fSlots.empty()) return;
    std::size_t gap = PlaceOf(aKey);
    if (fSlots[gap].value == TValue()) return;
    // Those behind close up, as far as they then still stand at or behind the place where they are looked
    // for.
    for (std::size_t next = Behind(gap); fSlots[next].value != TValue(); next = Behind(next)) {
      if (((next - HomeOf(fSlots[next].key)) & Mask()) < ((next - gap) & Mask())) continue;
      fSlots[gap] = fSlots[next];
      gap = next;
    }
    fSlots[gap] = {};
    --fCount;
  }

  /// Room for so many keys in all.
  void Reserve(std::size_t aCount) {
    if (fSlots.size() < 2 * aCount) Resize(2 * aCount);
  }
  /// Gives the memory back, too.
  void Clear() {
    fSlots = {};
    fCount = 0;
  }

 private:
  struct TSlot {
    TKey key{};
    TValue value{};
  };
  /// Keys that differ in these bits only stand side by side. Few, since two runs that meet push each other
  /// on.
  static constexpr unsigned RunBits = 3;
  static constexpr std::size_t LeastSlots = std::size_t{2} << RunBits;

  std::size_t Mask() const { return fSlots.size() - 1; }
  std::size_t Behind(std::size_t aPlace) const { return (aPlace + 1) & Mask(); }

  /// Where the search for a key begins. The runs are scattered by multiplication with 2^64 divided by the
  /// golden ratio, whose upper bits spread neighbours widely (Knuth, The Art of Computer Programming, 6.4).
  std::size_t HomeOf(TKey aKey) const {
    const auto key = static_cast<std::uint64_t>(aKey);
    const std::uint64_t run = (key >> RunBits) * 0x9E3779B97F4A7C15U >> fShift;
    return static_cast<std::size_t>(run << RunBits | (key & ((1U << RunBits) - 1)));
  }

  /// The slot of the key, or the empty one where it would stand.
  std::size_t PlaceOf(TKey aKey) const {
    std::size_t place = HomeOf(aKey);
    while (fSlots[place].value != TValue() && fSlots[place].key != aKey) place = Behind(place);
    return place;
  }

  void Resize(std::size_t aLeast) {
    const std::vector<TSlot> former = std::exchange(fSlots, {});
    fSlots.resize(std::bit_ceil((std::max)(aLeast, LeastSlots)));
    fShift = 64 - (static_cast<unsigned>(std::countr_zero(fSlots.size())) - RunBits);
    for (const TSlot& slot : former) {
      if (slot.value != TValue()) fSlots[PlaceOf(slot.key)] = slot;
    }
  }

  std::vector<TSlot> fSlots;  ///< a power of two, or none
  std::size_t fCount = 0;
  unsigned fShift = 0;  ///< leaves as many upper bits of a scattered run as there are runs
};

}  // namespace Zor::inline Base
