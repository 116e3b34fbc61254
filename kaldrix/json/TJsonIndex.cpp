#include "kaldrix/json/TJsonIndex.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

namespace Zor::inline Jsondataobjects {

namespace {

__extension__ using TWide = unsigned __int128;

std::uint64_t Mix(std::uint64_t aHash, const char* aBytes, std::size_t aSize) {
  std::uint64_t word = 0;
  if (aSize > 0) std::memcpy(&word, aBytes, aSize);
  const TWide product = TWide{aHash ^ word} * 0x9E3779B97F4A7C15U;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
}

}  // namespace

TJsonIndex::TJsonIndex(const TJsonObject& aOwner) : fOwner(aOwner), fSlots(aOwner.fCount) {
  Rebuild(std::bit_ceil(std::size_t{fSlots} * 4));
}

int TJsonIndex::Find(const TJsonProbe& aProbe) const {
  const std::uint32_t slot = fTable[EntryOf(aProbe)];
  return slot == Empty ? -1 : static_cast<int>(slot);
}

void TJsonIndex::AddLast() {
  ++fSlots;
  if (fLive) fLive->Add();
  if ((fUsed + 1) * 2 > fTable.size()) return Rebuild(std::bit_ceil(std::size_t{fOwner.fCount} * 4));
  Enter(fSlots - 1);
}

void TJsonIndex::Drop(std::uint32_t aSlot) {
  if (!fLive) fLive.emplace(fSlots);
  std::uint32_t& first = fTable[EntryOf(TJsonProbe(NameAt(aSlot)))];
  if (first != aSlot) {
    std::erase(fRepeats[first], aSlot);
  } else if (auto others = fRepeats.extract(aSlot); others && !others.mapped().empty()) {
    first = others.mapped().front();
    others.mapped().pop_front();
    others.key() = first;
    fRepeats.insert(std::move(others));
  } else {
    first = Gone;
  }
  fLive->Drop(aSlot);
}

std::size_t TJsonIndex::HashOf(std::string_view aName) const {
  std::uint64_t hash = fSeed ^ aName.size();
  while (aName.size() >= sizeof(std::uint64_t)) {
    hash = Mix(hash, aName.data(), sizeof(std::uint64_t));
    aName.remove_prefix(sizeof(std::uint64_t));
  }
  return static_cast<std::size_t>(Mix(hash, aName.data(), aName.size())) & Mask();
}

std::string_view TJsonIndex::NameAt(std::uint32_t aSlot) const { return fOwner.Slots()[aSlot].Name.View(); }

std::size_t TJsonIndex::EntryOf(const TJsonProbe& aProbe) const {
  for (std::size_t entry = HashOf(aProbe.Name());; entry = (entry + 1) & Mask()) {
    const std::uint32_t slot = fTable[entry];
    if (slot == Empty || (slot != Gone && aProbe.Matches(fOwner.Slots()[slot].Name))) return entry;
  }
}

void TJsonIndex::Enter(std::uint32_t aSlot) {
  std::uint32_t& entry = fTable[EntryOf(TJsonProbe(NameAt(aSlot)))];
  if (entry != Empty) return fRepeats[entry].push_back(aSlot);
  entry = aSlot;
  ++fUsed;
}

void TJsonIndex::Rebuild(std::size_t aSize) {
  fTable.assign(aSize, Empty);
  fUsed = 0;
  fRepeats.clear();
  for (std::uint32_t slot = 0; slot < fSlots; ++slot) {
    if (!fOwner.Slots()[slot].IsEmpty()) Enter(slot);
  }
}

}  // namespace Zor::inline Jsondataobjects
