#include "kaldrix/platform/TBinaryWriter.hpp"
