#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "kaldrix/json/JsonFloat.hpp"

namespace {

using namespace Zor;

std::string Written(double aValue) {
  char text[JsonFloatSize];
  return {text, WriteJsonFloat(text, aValue)};
}

TEST(JsonFloat, GeneralFormatWith15Digits) {
  const struct {
    double Value;
    const char* Text;
  } cases[] = {
      {0.0, "0"},
      {-0.0, "0"},
      {0.1, "0.1"},
      {1.0 / 3.0, "0.333333333333333"},
      {-2.0 / 3.0, "-0.666666666666667"},
      {12.345, "12.345"},
      {-0.05, "-0.05"},
      {0.0001, "0.0001"},
      {0.00001, "1E-5"},
      {1.5e-7, "1.5E-7"},
      {1e14, "100000000000000"},
      {1e15, "1E15"},
      {-1.25e20, "-1.25E20"},
      {999999999999.999, "999999999999.999"},
      {0.1 + 0.2, "0.3"},
      {123456.789012, "123456.789012"},
      {999999999999999.9, "1E15"},
      {std::numeric_limits<double>::infinity(), "0"},
      {std::nan(""), "0"},
  };
  for (const auto& c : cases) EXPECT_EQ(Written(c.Value), c.Text);
}

/// What "%.15G" prints, with the exponent in the form without plus sign and leading zeros.
std::string Reference(double aValue) {
  char text[64];
  std::snprintf(text, sizeof text, "%.15G", aValue);
  std::string expected = text;
  const std::size_t mark = expected.find('E');
  if (mark == std::string::npos) return expected;
  return expected.substr(0, mark + 1) + std::to_string(std::stoi(expected.substr(mark + 1)));
}

TEST(JsonFloat, AgreesWithPrintfOnManyValues) {
  std::mt19937_64 random(20240517);
  for (int i = 0; i < 200000; ++i) {
    const double anyBits = std::bit_cast<double>(random());
    const double thousandths =
        static_cast<double>(static_cast<std::int64_t>(random()) >> (random() % 60)) / 1000.0;
    const double decimals =
        static_cast<double>(random() >> 30) * std::pow(10.0, -static_cast<int>(random() % 14));
    for (const double value : {anyBits, thousandths, decimals}) {
      if (!std::isfinite(value) || value == 0.0) continue;
      ASSERT_EQ(Written(value), Reference(value));
    }
  }
}

}  // namespace
