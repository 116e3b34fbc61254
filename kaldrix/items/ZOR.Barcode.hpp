// The barcode items.
#pragma once

#include "kaldrix/items/TKDXBaseBarcode.hpp"
#include "kaldrix/items/TKDXBaseDataMatrix.hpp"
#include "kaldrix/items/TKDXBasePDF417.hpp"
#include "kaldrix/items/TKDXBaseQRCode.hpp"
