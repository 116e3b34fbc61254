#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <mutex>

namespace Zor {

/// Values that are made on first use, one per index, and stay; any thread may ask.
template <class T, std::size_t N>
class TOncePerIndex {
 public:
  /// `aMake` gives the value of the index when it is asked for first. 0-based, below N.
  template <class TMake>
  const T& Get(std::size_t aIndex, TMake aMake) {
    std::call_once(fFlags.at(aIndex), [&] { fValues[aIndex] = std::make_unique<const T>(aMake()); });
    return *fValues[aIndex];
  }

 private:
  std::array<std::once_flag, N> fFlags;
  std::array<std::unique_ptr<const T>, N> fValues;
};

}  // namespace Zor
