#include <gtest/gtest.h>

#include "kaldrix/host/PngWriter.hpp"
#include "kaldrix/host/TImageLoader.hpp"
#include "kaldrix/host/TSurface.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {
namespace {

TEST(PngWriter, PixelsComeBack) {
  TFontEngine fonts;
  for (const TAlphaColor background : {ColorWhite, TAlphaColor{0}}) {
    TSurface sheet = TSurface::MakeRaster(fonts, 25.4, 12.7, 300, background);
    sheet.Rect(0, 0, 12.7, 12.7, 0, {}, {0x80FF8000, true});
    const std::string png = PngBytes(sheet.Raster());
    // pHYs: 300 dpi are 11811 pixels a metre, both ways.
    EXPECT_NE(png.find(std::string("pHYs\x00\x00\x2E\x23\x00\x00\x2E\x23\x01", 13)), std::string::npos);
    EXPECT_EQ(png[25], background == 0 ? 6 : 2) << "colour type";
    const TPicture picture = TImageLoader::Load(png);
    ASSERT_EQ(picture.width, 300);
    ASSERT_EQ(picture.height, 150);
    const TAlphaColor drawn = picture.pixels[300 * 75 + 10];
    EXPECT_EQ(drawn, background == 0 ? 0x80FF8000U : 0xFFFFBF7FU);
    EXPECT_EQ(picture.pixels.back(), background);
  }
}

TEST(PngWriter, RefusalsAndFailingSinks) {
  TRasterView huge;
  huge.width = huge.height = 10'001;
  try {
    PngBytes(huge);
    FAIL();
  } catch (const Exception& e) {
    EXPECT_NE(std::string(e.what()).find("10001 x 10001"), std::string::npos) << e.what();
  }
  const std::uint32_t pixel = ColorWhite;
  EXPECT_THROW(WritePng({1, 1, 1, &pixel, true, 96}, [](std::string_view) { throw EStreamError("full"); }),
               EStreamError);
}

}  // namespace
}  // namespace Zor
