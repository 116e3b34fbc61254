#include "kaldrix/platform/TRecord.hpp"
