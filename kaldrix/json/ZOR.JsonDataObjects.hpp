// The JSON value layer: everything that reads or writes JSON goes through these classes.
#pragma once

#include "kaldrix/json/Exceptions.hpp"
#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonBaseObject.hpp"
#include "kaldrix/json/TJsonDataValue.hpp"
#include "kaldrix/json/TJsonDataValueHelper.hpp"
#include "kaldrix/json/TJsonObject.hpp"
#include "kaldrix/json/TJsonSerializationConfig.hpp"
