#include "kaldrix/json/TJsonSerializationConfig.hpp"

namespace Zor::inline Jsondataobjects {

TJsonSerializationConfig& JsonSerializationConfig() {
  static TJsonSerializationConfig config;
  return config;
}

}  // namespace Zor::inline Jsondataobjects
