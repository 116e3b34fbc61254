#include "kaldrix/platform/TRecord.hpp"

#include <algorithm>
#include <limits>

namespace Zor {

void TRecord::Blob(std::string& aField) {
  const int count = Count(aField.size(), 1);
  if (Writing()) return fWriter->WriteBytes(aField);
  aField = fReader->ReadBytes(static_cast<std::size_t>(count));
}

int TRecord::Count(int aCount, std::size_t aLeastBytesEach) {
  if (Writing()) {
    fWriter->WriteInt32(aCount);
    return aCount;
  }
  const std::size_t position = fReader->Position();
  const int count = std::max(fReader->ReadInt32(), 0);
  if (static_cast<std::size_t>(count) > fReader->Left() / std::max<std::size_t>(aLeastBytesEach, 1)) {
    throw EReadError("Count " + std::to_string(count) + " at byte " + std::to_string(position) +
                     " is more than the data holds");
  }
  return count;
}

int TRecord::Count(std::size_t aCount, std::size_t aLeastBytesEach) {
  if (Writing() && aCount > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw EStreamError("A list of " + std::to_string(aCount) + " elements cannot be stored");
  }
  return Count(static_cast<int>(aCount), aLeastBytesEach);
}

void TRecord::RaiseUnknown(std::int32_t aOrdinal, const char* aName, std::size_t aPosition) {
  throw EReadError("Unknown value " + std::to_string(aOrdinal) + " of " + aName + " at byte " +
                   std::to_string(aPosition));
}

}  // namespace Zor
