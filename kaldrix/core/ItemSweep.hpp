// Asking for memory before it is worked on: the items of a large drawing fit no cache.
#pragma once

#include <cstddef>
#include <cstdint>

#include "kaldrix/core/TKDXBaseItem.hpp"

namespace Zor::inline Base {

/// Asks for the first `aBytes` from an address on.
inline void Fetch([[maybe_unused]] const void* aMemory, [[maybe_unused]] std::size_t aBytes) {
#if defined(__GNUC__)
  constexpr std::size_t line = 64;
  // A number, since this is only a hint: there may be no object, or a shorter one.
  const auto memory = reinterpret_cast<std::uintptr_t>(aMemory);
  for (std::size_t at = 0; at < aBytes; at += line) {
    __builtin_prefetch(reinterpret_cast<const void*>(memory + at), 1);
  }
#endif
}

/// Calls `aVisit` with each item in turn; the first bytes of later ones, and then their points, are on their
/// way meanwhile.
template <std::size_t TheBytes = sizeof(TKDXBaseItem), class TIterator, class TVisit>
void SweepItems(TIterator aFirst, TIterator aLast, TVisit aVisit) {
  constexpr std::ptrdiff_t soon = 4, later = 8;
  for (; aFirst != aLast; ++aFirst) {
    const std::ptrdiff_t left = aLast - aFirst;
    if (left > later) Fetch(aFirst[later], TheBytes);
    if (left > soon) Fetch(aFirst[soon]->fPoints.data(), sizeof(TZORPto));
    aVisit(*aFirst);
  }
}

}  // namespace Zor::inline Base
