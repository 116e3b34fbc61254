#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "kaldrix/json/TJsonObject.hpp"
#include "kaldrix/json/TLiveSlots.hpp"

namespace Zor::inline Jsondataobjects {

/// The names of a large object, and which of the slots of its members are in use: a member that is removed
/// leaves its slot empty, so that the others stay where they are.
///
/// The names stand in an open-addressed table, at most half full. Of equal names it holds the first. The hash
/// is seeded by the table's address, so that a text cannot be made to collide.
class TJsonIndex {
 public:
  /// Members up to which an object is simply searched.
  static constexpr std::uint32_t CountWithout = 32;

  /// The object has no empty slots yet.
  explicit TJsonIndex(const TJsonObject& aOwner);

  /// The slot of the first member of that name, or -1.
  int Find(const TJsonProbe& aProbe) const;
  /// Enters the member in the slot behind all.
  void AddLast();
  /// Forgets the member in a slot, whose name still stands there.
  void Drop(std::uint32_t aSlot);

  /// Slots, empty ones included.
  std::uint32_t Slots() const { return fSlots; }
  int PlaceOf(int aSlot) const {
    return fLive ? static_cast<int>(fLive->PlaceOf(static_cast<std::size_t>(aSlot))) : aSlot;
  }
  int SlotAt(int aPlace) const {
    return fLive ? static_cast<int>(fLive->SlotAt(static_cast<std::uint32_t>(aPlace))) : aPlace;
  }

 private:
  static constexpr std::uint32_t Empty = UINT32_MAX, Gone = UINT32_MAX - 1;

  std::size_t Mask() const { return fTable.size() - 1; }
  std::size_t HashOf(std::string_view aName) const;
  std::string_view NameAt(std::uint32_t aSlot) const;
  /// The entry of the table that tells the first slot of that name, or an empty one.
  std::size_t EntryOf(const TJsonProbe& aProbe) const;
  void Enter(std::uint32_t aSlot);
  void Rebuild(std::size_t aSize);

  const TJsonObject& fOwner;
  const std::uint64_t fSeed = reinterpret_cast<std::uintptr_t>(this) * 0xC2B2AE3D27D4EB4FU;
  std::vector<std::uint32_t> fTable;
  std::size_t fUsed = 0;  ///< entries that are not empty
  std::uint32_t fSlots;
  std::map<std::uint32_t, std::deque<std::uint32_t>> fRepeats;  ///< by the first slot of a name, the others
  std::optional<TLiveSlots> fLive;                              ///< once there are empty slots
};

}  // namespace Zor::inline Jsondataobjects
