#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gtest/gtest.h>

#include "kaldrix/host/PngWriter.hpp"
#include "kaldrix/host/TImageLoader.hpp"
#include "kaldrix/host/TSurface.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {
namespace {

/// A 3 x 2 picture, red on the left and blue elsewhere, as another program would store it.
std::string Encoded(const char* type) {
  GdkPixbuf* pixbuf = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, 48, 32);
  gdk_pixbuf_fill(pixbuf, 0x0000FFFF);
  GdkPixbuf* left = gdk_pixbuf_new_subpixbuf(pixbuf, 0, 0, 16, 32);
  gdk_pixbuf_fill(left, 0xFF0000FF);
  gchar* data = nullptr;
  gsize size = 0;
  EXPECT_TRUE(gdk_pixbuf_save_to_buffer(pixbuf, &data, &size, type, nullptr, nullptr));
  std::string bytes(data, size);
  g_free(data);
  g_object_unref(left);
  g_object_unref(pixbuf);
  return bytes;
}

std::string Gif() {
  // One frame of 2 x 1 pixels, black and white, LZW with a minimum code size of 2.
  return std::string(
      "GIF89a\x02\x00\x01\x00\x80\x00\x00\x00\x00\x00\xFF\xFF\xFF"
      "\x2C\x00\x00\x00\x00\x02\x00\x01\x00\x00\x02\x02\x44\x0A\x00\x3B",
      35);
}

/// Sets an Exif orientation behind the first marker of a JPEG.
std::string Turned(const std::string& jpeg, char orientation) {
  std::string exif(
      "\xFF\xE1\x00\x22"
      "Exif\0\0"
      "MM\0*\0\0\0\x08"
      "\0\x01"
      "\x01\x12\0\x03\0\0\0\x01\0",
      29);
  exif += orientation;
  exif += std::string("\0\0\0\0\0\0", 6);
  return jpeg.substr(0, 2) + exif + jpeg.substr(2);
}

std::string MessageOf(std::string_view bytes) {
  try {
    TImageLoader::Load(bytes, "photo");
  } catch (const Exception& e) {
    return e.what();
  }
  return "";
}

TEST(TImageLoader, ReadsTheThreeKinds) {
  const TPicture png = TImageLoader::Load(Encoded("png"));
  EXPECT_EQ(png.pixels[0], 0xFFFF0000U);
  EXPECT_EQ(png.pixels.back(), 0xFF0000FFU);
  const std::string bytes = Encoded("jpeg");
  const TPicture jpeg = TImageLoader::Load(bytes);
  EXPECT_EQ(jpeg.jpeg, bytes);
  EXPECT_GT(jpeg.pixels[0] >> 16 & 0xFF, 240U);
  const TPicture gif = TImageLoader::Load(Gif());
  EXPECT_EQ(gif.pixels, (std::vector<TAlphaColor>{ColorBlack, ColorWhite}));
  const TImageInfo info = TImageLoader::Info(bytes);
  EXPECT_EQ(info.type, itJpeg);
  EXPECT_EQ(info.width, 48);
  EXPECT_EQ(info.height, 32);
}

TEST(TImageLoader, TurnedPhotosStandUpright) {
  const std::string bytes = Turned(Encoded("jpeg"), 6);
  EXPECT_EQ(TImageLoader::Info(bytes).width, 32);
  const TPicture picture = TImageLoader::Load(bytes);
  ASSERT_EQ(picture.width, 32);
  ASSERT_EQ(picture.height, 48);
  EXPECT_GT(picture.pixels[31] >> 16 & 0xFF, 240U) << "the left is on top";
  EXPECT_TRUE(picture.jpeg.empty());
}

TEST(TImageLoader, WhatIsNoPictureIsNamed) {
  const std::string png = Encoded("png");
  std::string huge = png;
  huge.replace(16, 8, std::string("\x00\x01\x86\xA0\x00\x00\x03\xE9", 8));  // 100000 x 1001
  EXPECT_NE(MessageOf(huge).find("100000 x 1001"), std::string::npos) << MessageOf(huge);
  for (const std::string& bad : {std::string(), std::string("<svg/>"), png.substr(0, 60), png.substr(0, 20),
                                 Encoded("jpeg").substr(0, 650), Gif().substr(0, 12), Gif().substr(0, 31)}) {
    EXPECT_EQ(MessageOf(bad).rfind("photo: ", 0), 0U) << bad.size() << MessageOf(bad);
  }
  EXPECT_THROW(TImageLoader::LoadFile("/nowhere/photo.png"), EFileNotFoundException);
}

TEST(TImageLoader, JpegStaysJpegInPdf) {
  TFontEngine fonts;
  const std::string bytes = Encoded("jpeg");
  const auto picture = std::make_shared<const TPicture>(TImageLoader::Load(bytes));
  TSurface pdf = TSurface::MakePdf(fonts, 50, 50);
  for (int i = 0; i < 3; ++i) {
    pdf.Image(picture, 5, 5, 20, 20);
    pdf.NewPage(50, 50);
  }
  const std::string written = pdf.FinishPdf();
  const std::size_t first = written.find(bytes);
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(written.find(bytes, first + 1), std::string::npos) << "stored once";
}

TEST(TPicture, FiltersWorkOnLinearLight) {
  TPicture picture{3, 1, {0xFF808080, 0x80FF0000, 0xFF000000}, "kept"};
  TPicture hard = picture;
  ApplyFilter(picture, ifGrayScale);
  EXPECT_EQ(picture.pixels, (std::vector<TAlphaColor>{0xFF808080, 0x809C9C9C, 0xFF000000}));
  EXPECT_TRUE(picture.jpeg.empty());
  ApplyFilter(hard, ifBlackWhite);
  EXPECT_EQ(hard.pixels[1], 0x80FFFFFFU);
}

}  // namespace
}  // namespace Zor
