#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Format.hpp"

namespace Zor {
namespace {

TEST(AppendFixed, RoundsWrittenThousandthsHalfAwayFromZero) {
  std::mt19937_64 random(1);
  std::uniform_int_distribution<std::int64_t> thousandths(-5'000'000'000'000, 5'000'000'000'000);
  for (int i = 0; i < 200'000; ++i) {
    // Small numbers and ties in every second run, any in the others.
    const std::int64_t k = i % 2 == 0 ? i / 2 * 5 : thousandths(random);
    const std::int64_t cents = (std::abs(k) + 5) / 10;
    const std::string fraction = std::to_string(100 + cents % 100).substr(1);
    const std::string expected =
        (k < 0 && cents > 0 ? "-" : "") + std::to_string(cents / 100) + "." + fraction;
    ASSERT_EQ(FormatFixed(static_cast<double>(k) / 1000, 2), expected) << k;
  }
}

TEST(AppendFixed, EdgesOfTheRange) {
  struct TCase {
    double Value;
    int Decimals;
    std::string Text;
  };
  const TCase cases[] = {
      {0, 0, "0"},
      {-0.0, 2, "0.00"},
      {-0.004, 2, "0.00"},
      {-0.005, 2, "-0.01"},
      {0.5, 0, "1"},
      {2.5, 0, "3"},
      {-2.5, 0, "-3"},
      {1.005, 2, "1.01"},
      {9.999, 2, "10.00"},
      {0.05, 1, "0.1"},
      {0.04999, 1, "0.0"},
      {0.0996, 3, "0.100"},
      {1e-300, 3, "0.000"},
      {1e21, 1, "1000000000000000000000.0"},
      {123456789012.345, 2, "123456789012.35"},
      {0.000012345, 8, "0.00001235"},
      {99.5, 0, "100"},
      {std::nan(""), 2, "0.00"},
      {-std::numeric_limits<double>::infinity(), 1, "0.0"},
      {5e-324, 0, "0"},
  };
  for (const TCase& c : cases) EXPECT_EQ(FormatFixed(c.Value, c.Decimals), c.Text) << c.Value;
  EXPECT_EQ(FormatFixed(std::numeric_limits<double>::max(), 3).size(), 313U);
}

TEST(FormatFloat, Pictures) {
  struct TCase {
    std::string Picture;
    double Value;
    std::string Text;
  };
  const TCase cases[] = {
      {"0", 12.5, "13"},
      {"000", 7, "007"},
      {"000", 1234, "1234"},
      {"0.00 mm", 12.345, "12.35 mm"},
      {"0.00", -0.001, "0.00"},
      {"#", 0, ""},
      {"#.##", 0.5, ".5"},
      {"0.##", 1, "1"},
      {"0.##", 1.5, "1.5"},
      {"0.0#", 1, "1.0"},
      {".00", 12.3, "12.30"},
      {"#,##0.00", 1234567.891, "1,234,567.89"},
      {"#,##0", 999, "999"},
      {"0,000", 12, "0,012"},
      {"00-00", 1234, "12-34"},
      {"00-00", 51234, "512-34"},
      {"\"0.#\" 0 'a;b'", 5, "0.# 5 a;b"},
      {"0.0;(0.0);-", 2.25, "2.3"},
      {"0.0;(0.0);-", -2.25, "(2.3)"},
      {"0.0;(0.0);-", 0, "-"},
      {"0.0;(0.0);-", -0.01, "-"},
      {"0;;'none'", -5, "-5"},
      {"0;;'none'", 0, "none"},
      {"", 0.1, "0.1"},
      {"", -0.0, "0"},
      {"0 'open", 1, "1 open"},
      {"0.00.0", 1.25, "1.250"},
      {"0", std::nan(""), "NAN"},
      {"0", -std::numeric_limits<double>::infinity(), "-INF"},
  };
  for (const TCase& c : cases)
    EXPECT_EQ(FormatFloat(c.Picture, c.Value), c.Text) << c.Picture << " of " << c.Value;
}

TEST(FormatDateTime, Pictures) {
  const TDateTime evening = EncodeDateTime(2024, 2, 9, 17, 5, 3, 42);
  const std::pair<std::string, std::string> cases[] = {
      {"dd-mm-yyyy HH:nn", "09-02-2024 17:05"},
      {"d/m/yy h:n:s.z", "9/2/24 17:5:3.42"},
      {"yyyy-mm-dd\"T\"hh:mm:ss.zzz", "2024-02-09T17:05:03.042"},
      {"h:nn am/pm", "5:05 pm"},
      {"hh AM/PM 'am/pm'", "05 PM am/pm"},
      {"", "2024-02-09 17:05:03"},
      {"'day' d 'open", "day 9 open"},
  };
  for (const auto& [picture, text] : cases) EXPECT_EQ(FormatDateTime(picture, evening), text) << picture;
  EXPECT_EQ(FormatDateTime("h am/pm", 0.0), "12 am");
  EXPECT_EQ(FormatDateTime("h am/pm", 0.5), "12 pm");
}

TEST(FormatDateTime, CalendarAndItsLimits) {
  EXPECT_EQ(EncodeDateTime(1899, 12, 30), 0.0);
  EXPECT_EQ(EncodeDateTime(1970, 1, 1), 25569.0);
  EXPECT_EQ(FormatDateTime("", -1.25), "1899-12-29 06:00:00");
  EXPECT_EQ(FormatDateTime("", 45000.9999999999), "2023-03-16 00:00:00") << "rounds into the next day";
  EXPECT_EQ(FormatDateTime("", -1.9999999999), "1899-12-30 00:00:00") << "and into the first";
  EXPECT_EQ(FormatDateTime("", std::nextafter(2958466.0, 0)), "9999-12-31 23:59:59")
      << "but not beyond the last";
  for (const TDateTime value :
       {EncodeDateTime(1, 1, 1, 1, 2, 3), EncodeDateTime(9999, 12, 31, 23, 59, 59, 999),
        EncodeDateTime(1899, 12, 29, 6), EncodeDateTime(2000, 2, 29)}) {
    const TDateTimeParts p = DecodeDateTime(value);
    EXPECT_EQ(EncodeDateTime(p.Year, p.Month, p.Day, p.Hour, p.Minute, p.Second, p.Millisecond), value);
  }
  for (const double wrong : {1e300, -1e300, 2958466.0, -693595.0, std::nan("")}) {
    EXPECT_THROW(FormatDateTime("", wrong), ERangeError) << wrong;
  }
  EXPECT_EQ(EncodeDateTime(1900, 3, 1) - EncodeDateTime(1900, 2, 28), 1) << "1900 is no leap year";
  for (const int year : {1900, 2023}) EXPECT_THROW(EncodeDateTime(year, 2, 29), ERangeError) << year;
  EXPECT_THROW(EncodeDateTime(2023, 1, 1, 24), ERangeError);
}

TEST(FormatDateTime, MillisecondsCountOnEvenly) {
  constexpr std::int64_t hour = 3'600'000;
  const TDateTime dawn = EncodeDateTime(1899, 12, 29, 6);
  EXPECT_EQ(dawn, -1.25);
  EXPECT_EQ(MillisecondsOf(dawn), -18 * hour);
  EXPECT_EQ(DateTimeOf(MillisecondsOf(dawn) + 12 * hour), -1.75);
  EXPECT_EQ(DateTimeOf(MillisecondsOf(dawn) + 24 * hour), 0.25);
  EXPECT_EQ(DateTimeOf(MillisecondsOf(dawn) - 7 * hour), EncodeDateTime(1899, 12, 28, 23));
  EXPECT_EQ(MillisecondsOf(-0.25), 6 * hour) << "the first day has two signs";
  const std::int64_t first = MillisecondsOf(EncodeDateTime(1, 1, 1));
  const std::int64_t last = MillisecondsOf(EncodeDateTime(9999, 12, 31, 23, 59, 59, 999));
  EXPECT_EQ(FormatDateTime("", DateTimeOf(first)), "0001-01-01 00:00:00");
  EXPECT_EQ(FormatDateTime("", DateTimeOf(last)), "9999-12-31 23:59:59");
  EXPECT_THROW(DateTimeOf(first - 1), ERangeError);
  EXPECT_THROW(DateTimeOf(last + 1), ERangeError);
}

}  // namespace
}  // namespace Zor
