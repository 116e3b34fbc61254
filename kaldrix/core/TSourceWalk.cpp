#include "kaldrix/core/TSourceWalk.hpp"

#include <algorithm>

namespace Zor::inline Base {

Int64 TSourceWalk::SumRepeats() {
  Int64 sum = 0;
  for (bool more = GoTo(1); more; more = Next()) sum = AddHeld(sum, std::max<Int64>(Repeat(), 0));
  GoTo(1);
  return sum;
}

}  // namespace Zor::inline Base
