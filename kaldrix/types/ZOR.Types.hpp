// All of the value layer.
#pragma once

#include "kaldrix/types/AnsiString.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Events.hpp"
#include "kaldrix/types/ItemFacts.hpp"
#include "kaldrix/types/Numbers.hpp"
#include "kaldrix/types/Papers.hpp"
#include "kaldrix/types/Records.hpp"
#include "kaldrix/types/TKDXBaseDraw.hpp"
#include "kaldrix/types/TSet.hpp"
#include "kaldrix/types/TZORBPoint.hpp"
#include "kaldrix/types/TZORPto.hpp"
#include "kaldrix/types/TZORPtoA.hpp"
#include "kaldrix/types/TZORRect.hpp"
#include "kaldrix/types/Units.hpp"
