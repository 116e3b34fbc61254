// The Data Matrix encoder: bytes to modules.
#pragma once

#include "kaldrix/codes/CalcECC200.hpp"
#include "kaldrix/codes/TECC200SymbolParam.hpp"
