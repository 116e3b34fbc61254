#include "kaldrix/utils/TExSVG.hpp"
