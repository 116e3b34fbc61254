#include "kaldrix/platform/Utf8.hpp"
