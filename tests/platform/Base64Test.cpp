#include <gtest/gtest.h>

#include "kaldrix/platform/Base64.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {
namespace {

// RFC 4648, section 10.
TEST(Base64, PublishedVectors) {
  const std::pair<std::string, std::string> vectors[] = {
      {"", ""},
      {"f", "Zg=="},
      {"fo", "Zm8="},
      {"foo", "Zm9v"},
      {"foob", "Zm9vYg=="},
      {"fooba", "Zm9vYmE="},
      {"foobar", "Zm9vYmFy"},
  };
  for (const auto& [bytes, text] : vectors) {
    EXPECT_EQ(EncodeBase64(bytes), text);
    EXPECT_EQ(DecodeBase64(text), bytes);
    EXPECT_EQ(DecodeBase64(text.substr(0, text.find('='))), bytes) << "without padding";
  }
}

TEST(Base64, LinesBreakBetween76CharactersOnly) {
  EXPECT_EQ(EncodeBase64(std::string(57, 'x')).size(), 76U);
  const std::string two = EncodeBase64(std::string(58, 'x'));
  EXPECT_EQ(two.substr(76), "\r\neA==");
  EXPECT_EQ(EncodeBase64Line(std::string(58, 'x')).size(), 80U);
}

TEST(Base64, AllBytesAndLengthsSurvive) {
  std::string bytes;
  for (int i = 0; i < 600; ++i) {
    EXPECT_EQ(DecodeBase64(EncodeBase64(bytes)), bytes);
    bytes += static_cast<char>(i * 37);
  }
}

TEST(Base64, WhiteSpaceIsSkippedAndTheRestRefused) {
  EXPECT_EQ(DecodeBase64(" Zm\r\n9v\tYg = =\n"), "foob");
  for (const char* wrong : {"Zm9*", "Z", "Zg==Zg==", "Zg===", "Zm9v=", "=", "Zm8=x", "Zm\xC3\xB1"}) {
    EXPECT_THROW(DecodeBase64(wrong), EConvertError) << wrong;
  }
}

}  // namespace
}  // namespace Zor
