#include "kaldrix/platform/Files.hpp"
