#include "kaldrix/types/TZORPtoA.hpp"

#include <limits>
#include <stdexcept>

namespace Zor::inline Types {

void TZORPtoA::Grow(size_type aLeast) {
  constexpr size_type most = std::numeric_limits<std::uint32_t>::max();
  if (aLeast > most) throw std::length_error("too many points");
  const size_type capacity = std::min(std::max(aLeast, size_type{fCount} * 2), most);
  TZORPto* points = std::allocator<TZORPto>().allocate(capacity);
  std::uninitialized_copy(begin(), end(), points);
  Release();
  fStore.heap = points;
  fCapacity = static_cast<std::uint32_t>(capacity);
}

}  // namespace Zor::inline Types
