// What items keep of the numbers that they are given: nothing of what is none, and every digit of the others.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "support/OneOfEach.hpp"

namespace Zor {
namespace {

constexpr Single NoNumber = std::numeric_limits<Single>::quiet_NaN();
constexpr Single Infinite = std::numeric_limits<Single>::infinity();

/// The setters of an item that take a fraction; those it has not are left out.
std::vector<std::function<void(Single)>> SettersOf(TKDXBaseItem& aItem) {
  std::vector<std::function<void(Single)>> setters{
      [&](Single v) { aItem.SetPenWidth(v); },
      [&](Single v) { aItem.Move(v, 0, moAll); },
      [&](Single v) { aItem.Move(0, v, moAll); },
  };
  const auto add = [&]<class TAspect>(std::initializer_list<void (TAspect::*)(Single)> aSetters) {
    auto* aspect = dynamic_cast<TAspect*>(&aItem);
    if (aspect == nullptr) return;
    for (const auto setter : aSetters) setters.push_back([=](Single v) { (aspect->*setter)(v); });
  };
  if (!aItem.fPoints.empty()) {
    setters.push_back([&](Single v) { aItem.SetPointX(1, v); });
    setters.push_back([&](Single v) { aItem.SetPointY(1, v); });
  }
  add(std::initializer_list{&IZORSTerm::SetSizeFrom, &IZORSTerm::SetSizeTo});
  add(std::initializer_list{&IZORPadding::SetPaddingX, &IZORPadding::SetPaddingY});
  add(std::initializer_list{&IZORBar1D2D::SetFactor, &IZORBar1D2D::SetBarHeight, &IZORBar1D2D::SetBarWidth});
  add(std::initializer_list{&IZORFont::SetFontHeight, &IZORFont::SetScaleX});
  add(std::initializer_list{&IZORCenter::SetCenterX, &IZORCenter::SetCenterY});
  add(std::initializer_list{&IZORRadio::SetRadio});
  if (aItem.fPoints.size() > 1)
    add(std::initializer_list{&IZORWidthHeight::SetWidth, &IZORWidthHeight::SetHeight});
  add(std::initializer_list{&TKDXBaseEllipse::SetRadioX, &TKDXBaseEllipse::SetRadioY});
  add(std::initializer_list{&TKDXBaseSector::SetAngleStart, &TKDXBaseSector::SetAngleGap});
  add(std::initializer_list{&TKDXBaseBarcode::SetDistance, &TKDXBaseBarcode::SetFontHeight});
  add(std::initializer_list{&TKDXBaseFlow::SetShadowDX, &TKDXBaseFlow::SetShadowDY});
  if (auto* arc = dynamic_cast<TKDXBaseArc*>(&aItem)) {
    setters.push_back([=](Single v) { arc->SetPX(1, v); });
    setters.push_back([=](Single v) { arc->SetPY(2, v); });
  }
  if (auto* line = dynamic_cast<TKDXBasePolyLine*>(&aItem)) {
    setters.push_back([=](Single v) { line->AddPoint(v, 1); });
    setters.push_back([=](Single v) { line->AddPoint(1, v); });
  }
  return setters;
}

std::string BytesOf(TBareLabel& aDoc) { return aDoc.SaveToBytes(lfBin); }

TEST(Numbers, NoSetterTakesWhatIsNone) {
  TBareLabel doc;
  for (TKDXBaseItem* item : OneOfEach(doc)) {
    doc.CalcPending();
    doc.Clear({cleUndoRedo}, false);
    const std::string before = BytesOf(doc);
    const auto setters = SettersOf(*item);
    for (std::size_t i = 0; i < setters.size(); ++i) {
      for (const Single value : {NoNumber, Infinite, -Infinite}) {
        const std::string which = std::string(NameItem(item->fItemType)) + ", setter " + std::to_string(i);
        EXPECT_THROW(setters[i](value), EArgumentOutOfRangeException) << which;
        EXPECT_EQ(BytesOf(doc), before) << which;
        EXPECT_TRUE(doc.IsUndoEmpty()) << which;
      }
    }
  }
  EXPECT_THROW(doc.NewSector(1, 1, 1, NoNumber, 1), EArgumentOutOfRangeException);
  EXPECT_THROW(doc.NewSector(1, 1, 1, 1, Infinite), EArgumentOutOfRangeException);
}

TEST(Numbers, NoSatelliteTakesWhatIsNone) {
  TBareLabel doc;
  TKDXDimStyle& style = *doc.GetDimStyle(1);
  TKDXLayer& layer = doc.GetLayer(1);
  const std::string before = BytesOf(doc);
  const std::vector<std::function<void(Single)>> setters{
      [&](Single v) { doc.fMeasure->SetWidth(v); },
      [&](Single v) { doc.fMeasure->SetPaperHeight(v); },
      [&](Single v) { doc.fMeasure->SetMarLeft(v); },
      [&](Single v) { doc.fMeasure->SetInnerCircle(v); },
      [&](Single v) { doc.fMeasure->SetLabelSizeMM(v, 1); },
      [&](Single v) { doc.fSettings->SetTermSize(v); },
      [&](Single v) { doc.fSettings->SetLinkGap(v); },
      [&](Single v) { style.SetHeadSize(v); },
      [&](Single v) { style.SetDimSpace(v); },
      [&](Single v) { layer.SetPenWidth(v); },
      [&](Single v) { layer.SetImgMarLeft(v); },
      [&](Single v) { doc.SetVal(v, false); },
  };
  for (std::size_t i = 0; i < setters.size(); ++i) {
    for (const Single value : {NoNumber, Infinite, -Infinite})
      EXPECT_THROW(setters[i](value), EArgumentOutOfRangeException) << i;
  }
  EXPECT_EQ(BytesOf(doc), before);
}

TEST(Numbers, LargeOnesAreHeldAtTheEndsOfTheRange) {
  TBareLabel doc;
  auto* line = doc.NewLine(0, 0, 1000, 1000);
  line->SetPenWidth(3e6F);
  EXPECT_EQ(line->fPenWidth, INT_MAX);
  line->SetPointX(2, 3e30F);
  line->SetPointY(2, -3e30F);
  EXPECT_EQ(line->GetPoint(2), (TZORPto{MaxCoordinate, -MaxCoordinate}));
}

TEST(Numbers, CirclesLoseNothingFarAway) {
  // A circle of 3.46 mm, 10 km from the origin.
  constexpr Int64 far = 10'000'000'000, radius = 3460;
  TBareLabel doc;
  const auto* circle = doc.NewCircle3P(far + radius, far, far, far + radius, far - radius, far);
  EXPECT_EQ(circle->fBaseRadio, radius);
  const auto* arc = doc.NewArc(far + radius, far, far, far + radius, far - radius, far);
  EXPECT_EQ(arc->BaseCenterX(), far);
  EXPECT_EQ(arc->BaseCenterY(), far);
  EXPECT_EQ(arc->BaseRadio(), radius);
  // Nearly on one line: 1 base point of height over 20 mm is a radius of 50 m (a chord of 2 a and the height
  // h: (a a + h h) / 2 h).
  const auto* flat = doc.NewArc(far, far, far + 10000, far + 1, far + 20000, far);
  EXPECT_EQ(flat->BaseRadio(), 50000000);  // 50000000.5, to even
  EXPECT_THROW(doc.NewArc(far, far, far + 1, far + 1, far + 3, far + 3), EArgumentException);
  EXPECT_THROW(doc.NewCircle3P(far, far, far + 1, far + 1, far + 3, far + 3), EArgumentException);
  EXPECT_EQ(doc.GetItemsCount(), 3);
}

TEST(Numbers, SectorAnglesComeBackFromJsonToTheLastDigit) {
  TBareLabel doc, other;
  for (const Single angle : {33.3F, 0.0001234F, 123.45678F, 359.99997F, -0.1F}) {
    const auto* sector = doc.NewSector(15000, 15000, 5000, angle, 0.33333F);
    const auto json = sector->WriteJson();
    auto* read = static_cast<TKDXBaseSector*>(&other.ReadJsonItem(FormatVersion, *json));
    EXPECT_EQ(read->fAngleStart, sector->fAngleStart);
    EXPECT_EQ(read->fAngleGap, sector->fAngleGap);
  }
  EXPECT_EQ(doc.fItems[0]->WriteJson()->GetString("StartAngle"), "33.3");
}

TEST(Numbers, PathsOfTwoPointsTurnWithTheDocument) {
  TBareLabel doc;
  const TZORPtoA path{{1000, 2000}, {5000, 4000}};
  std::vector<TKDXBaseItem*> items{doc.NewPolyLine(path, 1), doc.NewPolygon(path, 1), doc.NewBezier(path, 1),
                                   doc.NewLine(1000, 2000, 5000, 4000)};
  doc.RotateRight();
  const Int64 width = doc.fMeasure->fWidth;
  for (const TKDXBaseItem* item : items) {
    EXPECT_EQ(item->GetPoint(1), (TZORPto{width - 2000, 1000})) << NameItem(item->fItemType);
    EXPECT_EQ(item->GetPoint(2), (TZORPto{width - 4000, 5000})) << NameItem(item->fItemType);
  }
}

}  // namespace
}  // namespace Zor
