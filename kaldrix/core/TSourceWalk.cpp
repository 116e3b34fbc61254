#include "kaldrix/core/TSourceWalk.hpp"

#include <algorithm>

namespace Zor::inline Base {

Int64 TSourceWalk::SumLabels() {
  Int64 sum = 0;
  fFirstFault = 0;
  for (bool more = GoTo(1); more; more = Next()) {
    const bool fault = fStrict && !RepeatProblem().empty();
    if (fault && fFirstFault == 0) fFirstFault = Record();
    sum = AddHeld(sum, fault ? 1 : std::max<Int64>(Repeat(), 0));
  }
  GoTo(1);
  return sum;
}

}  // namespace Zor::inline Base
