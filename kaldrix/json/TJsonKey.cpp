#include "kaldrix/json/TJsonKey.hpp"

#include <array>
#include <new>

namespace Zor::inline Jsondataobjects {

namespace {

constexpr std::size_t CacheSlots = 256;
constexpr std::size_t CachedSizeLimit = 64;  ///< Bytes; longer names are seldom repeated.

std::uint64_t LoadWord(const char* aText) noexcept {
  std::uint64_t word = 0;
  std::memcpy(&word, aText, sizeof word);
  return word;
}

/// The slot of a name of at least eight bytes: its ends and its size tell the names of a text apart.
std::size_t SlotOf(std::string_view aName) noexcept {
  const std::uint64_t head = LoadWord(aName.data());
  const std::uint64_t tail = LoadWord(aName.data() + aName.size() - sizeof(std::uint64_t));
  const std::uint64_t mixed = (head * 0x9E3779B97F4A7C15U) ^ ((tail + aName.size()) * 0xC2B2AE3D27D4EB4FU);
  return static_cast<std::size_t>((mixed * 0xD6E8FEB86659FD93U) >> 56U) % CacheSlots;
}

}  // namespace

/// The long names that this thread met last, one in a slot. The cache ends with the thread; names that are
/// made later still are not shared.
class TJsonKey::TCache {
 public:
  ~TCache() {
    for (TLongName*& slot : slots) Drop(std::exchange(slot, nullptr));
    open = false;
  }

  /// The shared name, counted for the caller.
  TLongName* Get(std::string_view aName) {
    TLongName*& slot = slots[SlotOf(aName)];
    if (slot == nullptr || std::string_view(slot->Text(), slot->size) != aName) {
      TLongName* fresh = MakeLong(aName);
      Drop(std::exchange(slot, fresh));
    }
    slot->refs.fetch_add(1, std::memory_order_relaxed);
    return slot;
  }

  static void Drop(TLongName* aName) noexcept {
    if (aName != nullptr && aName->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) {
      ::operator delete(aName);
    }
  }

  static inline constinit thread_local bool open = true;

 private:
  std::array<TLongName*, CacheSlots> slots{};
};

TJsonKey::TLongName* TJsonKey::MakeLong(std::string_view aName) {
  void* raw = ::operator new(sizeof(TLongName) + aName.size());
  std::memcpy(static_cast<char*>(raw) + sizeof(TLongName), aName.data(), aName.size());
  return new (raw) TLongName{1, aName.size()};
}

std::uint64_t TJsonKey::ShareLong(std::string_view aName) {
  thread_local TCache cache;
  const bool shared = TCache::open && aName.size() <= CachedSizeLimit;
  return reinterpret_cast<std::uint64_t>(shared ? cache.Get(aName) : MakeLong(aName));
}

void TJsonKey::Release() noexcept { TCache::Drop(&Long()); }

}  // namespace Zor::inline Jsondataobjects
