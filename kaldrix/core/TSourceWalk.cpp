#include "kaldrix/core/TSourceWalk.hpp"

#include <algorithm>

namespace Zor::inline Base {

Int64 TSourceWalk::SumLabels() {
  Int64 sum = 0;
  fFirstFault = 0;
  for (bool more = GoTo(1); more; more = Next()) {
    sum = AddHeld(sum, std::max<Int64>(Labels(), 0));
    if (fStrict && fFirstFault == 0 && !RepeatProblem().empty()) fFirstFault = Record();
  }
  GoTo(1);
  return sum;
}

}  // namespace Zor::inline Base
