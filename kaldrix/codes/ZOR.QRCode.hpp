// The QR Code encoder: texts to modules.
#pragma once

#include "kaldrix/codes/TEncoder.hpp"
