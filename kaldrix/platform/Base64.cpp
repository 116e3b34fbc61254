#include "kaldrix/platform/Base64.hpp"
