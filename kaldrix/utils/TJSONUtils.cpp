#include "kaldrix/utils/TJSONUtils.hpp"

#include <array>
#include <string>
#include <string_view>

#include "kaldrix/utils/Colors.hpp"

namespace Zor::inline Utils {
namespace {

/// A channel of a stored colour: its key, and its place in the 32 bits.
struct TChannel {
  std::string_view key;
  int shift;
};

constexpr std::array<TChannel, 4> Channels{{{"R", 16}, {"G", 8}, {"B", 0}, {"A", 24}}};
constexpr std::string_view ColorKey = "Color";

constexpr int ChannelOf(TAlphaColor aColor, const TChannel& aChannel) {
  return static_cast<int>(aColor >> aChannel.shift & 0xFFU);
}

TAlphaColor Narrowed(const TJsonDataValue& aValue, const TChannel& aChannel) {
  return (static_cast<TAlphaColor>(aValue.GetInt()) & 0xFFU) << aChannel.shift;
}

}  // namespace

void ColorRGBA(TJsonObject& aJson, TAlphaColor aColor) {
  for (const TChannel& channel : Channels) aJson.SetInt(channel.key, ChannelOf(aColor, channel));
}

void ColorHex(TJsonObject& aJson, TAlphaColor aColor) { aJson.SetString(ColorKey, AlphaColorToHex(aColor)); }

TAlphaColor ParseJsColor(const TJsonObject& aJson) {
  TAlphaColor color = aJson.Contains("A") ? 0 : ColorBlack;
  for (const TChannel& channel : Channels) {
    if (const TJsonDataValue* value = aJson.Find(channel.key)) color |= Narrowed(*value, channel);
  }
  return color;
}

TAlphaColor ParseJsonColor(const TJsonObject& aJson) {
  if (aJson.Contains(ColorKey)) return ParseColor(aJson.GetString(ColorKey));
  const bool complete = aJson.Contains("R") && aJson.Contains("G") && aJson.Contains("B");
  return complete ? ParseJsColor(aJson) : ColorWhite;
}

std::unique_ptr<TJsonObject> TJSONUtils::SetAlphaColor(TAlphaColor aColor) {
  auto json = std::make_unique<TJsonObject>();
  json->Reserve(static_cast<int>(Channels.size()));
  for (const TChannel& channel : Channels) json->PutInt(channel.key, ChannelOf(aColor, channel));
  return json;
}

TAlphaColor TJSONUtils::GetAlphaColor(const TJsonObject& aJson) {
  TAlphaColor color = 0;
  for (const TChannel& channel : Channels) {
    const TJsonDataValue* value = aJson.Find(channel.key);
    if (value == nullptr) throw EJsonException("Colour without \"" + std::string(channel.key) + "\"");
    color |= Narrowed(*value, channel);
  }
  return color;
}

std::unique_ptr<TJsonObject> TJSONUtils::SetColor(TColor aColor) {
  return SetAlphaColor(ColorToAlphaColor(aColor));
}

TColor TJSONUtils::GetColor(const TJsonObject& aJson) { return AlphaColorToColor(GetAlphaColor(aJson)); }

}  // namespace Zor::inline Utils
