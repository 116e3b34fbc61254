#include "kaldrix/platform/TBinaryReader.hpp"
