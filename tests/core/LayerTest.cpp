#include <gtest/gtest.h>

#include <filesystem>

#include "kaldrix/core/TKDX2DItem.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

class TPlainItem final : public TKDX2DItem {
 public:
  TPlainItem(TKDXBaseLabel& aOwner, TKDXLayer& aLayer) : TKDX2DItem(aOwner, itRectangle, aLayer, false) {}
  void WriteSVG(TSvgList&, TSvgList&, TZORExportSVG, Single, bool) const override {}
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
  TZORBase CenterPoint() const override { return {}; }
};

std::string AllBytes() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<char>(i));
  return bytes;
}

TEST(Layer, RefusesAnImageAndAMapAtOnce) {
  TBareLabel doc;
  TKDXLayer& layer = doc.GetLayer(1);
  const TZOLayerOpts before = layer.fOptions;
  EXPECT_THROW(layer.SetOptions({lopVisible, lopImage, lopMap}), EInvalidOperation);
  EXPECT_EQ(layer.fOptions, before);
  layer.SetOptions({lopVisible, lopMap});
  EXPECT_EQ(doc.fIdxBack, 1);
  EXPECT_THROW(layer.SetName(""), Exception);
  EXPECT_EQ(layer.fName, "Default");
}

TEST(Layer, AnImageMarginBeyondTheLabelIsHalfOfIt) {
  TBareLabel doc;
  TKDXLayer& layer = doc.GetLayer(1);
  layer.SetImgMarLeft(61);
  layer.SetImgMarRight(60);
  layer.SetImgMarTop(36);
  layer.SetImgMarBottom(-1);
  EXPECT_EQ(layer.fImgMarLeft, 30000);
  EXPECT_EQ(layer.fImgMarRight, 60000);
  EXPECT_EQ(layer.fImgMarTop, 17500);
  EXPECT_EQ(layer.fImgMarBottom, 0);
}

TEST(Layer, ValuesReachItsOwnItemsOnly) {
  TBareLabel doc;
  TKDXLayer& layer = doc.AddLayer();
  auto* here = new TPlainItem(doc, layer);
  auto* elsewhere = new TPlainItem(doc, doc.GetLayer(1));
  layer.SetColor(0xFF112233);
  EXPECT_EQ(here->fColor, ColorBlack) << "items keep their colour unless asked";
  layer.SetColor(0xFF112233, true);
  layer.SetBackColor(0xFF445566, true);
  EXPECT_EQ(here->fColor, 0xFF112233U);
  EXPECT_EQ(here->fBackColor, 0xFF445566U);
  layer.fColor = 0xFF000001;
  layer.fBackColor = 0xFF000002;
  layer.fPenWidth = 777;
  layer.SetValues();
  EXPECT_EQ(here->fColor, 0xFF000001U);
  EXPECT_EQ(here->fBackColor, 0xFF000002U);
  EXPECT_EQ(here->fPenWidth, 777);
  EXPECT_EQ(elsewhere->fColor, ColorBlack);
  EXPECT_EQ(elsewhere->fPenWidth, 100);
  EXPECT_TRUE(doc.fStates.IsEmpty() || !doc.fStates.Has(lsUpdating));
}

TEST(Layer, CopiesAnImageIntoTheFolderUnlessItIsThere) {
  namespace fs = std::filesystem;
  const fs::path root = fs::path(testing::TempDir()) / "layer_images";
  fs::remove_all(root);
  fs::create_directories(root / "images");
  const std::string source = (root / "sea.png").string(), target = (root / "images" / "sea.png").string();
  WriteFileAtomically(source, "first");
  TBareLabel doc;
  doc.fImageFolder = (root / "images").string();
  TKDXLayer& layer = doc.GetLayer(1);
  layer.fArrayB = "old";
  layer.SetFileImg(source);
  EXPECT_EQ(ReadFile(target), "first");
  EXPECT_EQ(layer.fFileImg, "sea.png");
  EXPECT_EQ(layer.fImageType, itPng);
  EXPECT_TRUE(layer.fArrayB.empty());

  WriteFileAtomically(source, "second");
  layer.SetFileImg(source);
  EXPECT_EQ(ReadFile(target), "first");
  layer.fArrayB = "kept";
  EXPECT_THROW(layer.SetFileImg((root / "missing.gif").string()), EFileNotFoundException);
  EXPECT_EQ(layer.fFileImg, "sea.png");
  EXPECT_EQ(layer.fArrayB, "kept");
  fs::remove_all(root);
}

void FillImage(TKDXLayer& aLayer) {
  aLayer.fName = "Hintergrund ü";
  aLayer.fFileImg = "a.png";
  aLayer.fImageType = itPng;
  aLayer.fPrintImg = true;
  aLayer.fImgMarTop = 1234;
  aLayer.fArrayB = AllBytes();
  aLayer.fZoom = -4;
  aLayer.fMapProvider = mpCartoVoyager;
  aLayer.fLatitude = 47.12345678;
  aLayer.fLongitude = -0.00000001;
  aLayer.fZPos = 65535;
  aLayer.fLineType = ii411;
}

std::string RecordOf(const TKDXLayer& aLayer) {
  std::string bytes;
  TBinaryWriter writer(bytes);
  aLayer.WriteData(writer);
  return bytes;
}

TEST(Layer, ReadsBackWhatItWrites) {
  const TZOLayerOpts backs[] = {{lopVisible}, {lopBox, lopImage}, {lopExport, lopMap, lopExportBack}};
  for (const TZOLayerOpts& options : backs) {
    TBareLabel doc;
    TKDXLayer &layer = doc.GetLayer(1), &other = doc.AddLayer(), &third = doc.AddLayer();
    FillImage(layer);
    layer.fOptions = options;
    TJsonArray array, again;
    layer.WriteJson(array);
    other.ReadJson(FormatVersion, array.GetObject(0));
    other.WriteJson(again);
    EXPECT_EQ(again.ToJSON(), array.ToJSON());

    const std::string bytes = RecordOf(layer);
    TBinaryReader reader(bytes);
    third.ReadData(FormatVersion, reader);
    EXPECT_EQ(RecordOf(third), bytes);
    const bool hasBack = options.Has(lopImage) || options.Has(lopMap);
    for (const TKDXLayer* copy : {&other, &third}) EXPECT_EQ(copy->fArrayB, hasBack ? AllBytes() : "");
    for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
      TBinaryReader part(std::string_view(bytes).substr(0, cut));
      EXPECT_THROW(third.ReadData(FormatVersion, part), EReadError) << cut;
    }
  }
}

TEST(Layer, AnImageThatIsNotEmbeddedLeavesNoBytes) {
  TBareLabel doc;
  TKDXLayer &layer = doc.GetLayer(1), &other = doc.AddLayer();
  FillImage(layer);
  layer.fOptions = {lopImage};
  layer.fEmbeded = false;
  const std::string bytes = RecordOf(layer);
  EXPECT_EQ(bytes.substr(bytes.size() - 4), std::string(4, '\0'));
  other.fArrayB = "earlier";
  TBinaryReader reader(bytes);
  other.ReadData(FormatVersion, reader);
  EXPECT_EQ(other.fArrayB, "earlier");
  TJsonArray array;
  layer.WriteJson(array);
  EXPECT_FALSE(array.GetObject(0).GetObject("Image").Contains("Img"));
}

TEST(Layer, NamesTheKeyOfWhatItCannotRead) {
  TBareLabel doc;
  TKDXLayer& layer = doc.GetLayer(1);
  FillImage(layer);
  layer.fOptions = {lopMap};
  TJsonArray array;
  layer.WriteJson(array);
  const auto refused = [&](const char* aSection, const char* aKey, TJsonDataValue aValue) {
    auto json = array.GetObject(0).Clone();
    TJsonObject& section = *aSection != '\0' ? json->GetObject(aSection) : *json;
    section.SetValue(aKey, std::move(aValue));
    try {
      layer.ReadJson(FormatVersion, *json);
      ADD_FAILURE() << aKey << " was taken";
    } catch (const EJsonException& error) {
      EXPECT_NE(std::string(error.what()).find(aKey), std::string::npos) << error.what();
    }
  };
  refused("", "LineType", 12);
  refused("", "ZPos", 65536);
  refused("", "PenWidth", 1e30);
  refused("Mapping", "Provider", -1);
  refused("Mapping", "Zoom", 40000);
  refused("Mapping", "Img", "not!base64");
}

}  // namespace
}  // namespace Zor
