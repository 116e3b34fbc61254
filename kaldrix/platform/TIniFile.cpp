#include "kaldrix/platform/TIniFile.hpp"
