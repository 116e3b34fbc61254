#include "kaldrix/platform/Format.hpp"
