// The PDF417 encoder: texts to codewords, codewords to widths of bars.
#pragma once

#include "kaldrix/codes/TPDF417.hpp"
