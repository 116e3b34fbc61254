#include <gtest/gtest.h>

#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(DimStyle, LengthsStayInsideTheirLimits) {
  struct TCase {
    void (TKDXDimStyle::*set)(Single);
    int TKDXDimStyle::*field;
    int least, most;
  };
  constexpr TCase cases[] = {{&TKDXDimStyle::SetHeadSize, &TKDXDimStyle::fHeadSize, 500, 10000},
                             {&TKDXDimStyle::SetDimPenWidth, &TKDXDimStyle::fDimPenWidth, 100, 2000},
                             {&TKDXDimStyle::SetExtPenWidth, &TKDXDimStyle::fExtPenWidth, 100, 2000},
                             {&TKDXDimStyle::SetFontHeight, &TKDXDimStyle::fFontHeight, 800, 15000},
                             {&TKDXDimStyle::SetDimBreak, &TKDXDimStyle::fDimBreak, 0, 10000},
                             {&TKDXDimStyle::SetExtSize, &TKDXDimStyle::fExtSize, 2000, 25000},
                             {&TKDXDimStyle::SetExtGap, &TKDXDimStyle::fExtGap, 0, 15000}};
  TBareLabel doc;
  TKDXDimStyle& style = *doc.GetDimStyle(1);
  for (const TCase& row : cases) {
    style.fChanged = false;
    (style.*row.set)(-1);
    EXPECT_EQ(style.*row.field, row.least);
    (style.*row.set)(1e30F);
    EXPECT_EQ(style.*row.field, row.most);
    EXPECT_TRUE(style.fChanged);
  }
  style.SetExtSize(4);
  EXPECT_EQ(style.fExtGap, 3000) << "1 mm of the extension remains behind the gap";
  style.SetArrowOpen(90);
  EXPECT_EQ(style.fArrowOpen, 22);
  style.fChanged = false;
  style.SetArrowOpen(25);
  EXPECT_FALSE(style.fChanged) << "held at the value it had";
}

TEST(DimStyle, IdentitiesAreNeverTakenTwice) {
  TBareLabel doc;
  EXPECT_EQ(doc.GetDimStyle(1)->fID, 1);
  doc.GetDimStyle(1)->fID = 7;
  EXPECT_EQ((new TKDXDimStyle(&doc, "second"))->fID, 8);
  EXPECT_EQ((new TKDXDimStyle(&doc, false))->fID, 0);
  doc.GetDimStyle(2)->fID = 65535;
  EXPECT_EQ((new TKDXDimStyle(&doc, "full"))->fID, 1);
  EXPECT_EQ((new TKDXDimStyle(&doc, "fuller"))->fID, 2);
}

TEST(DimStyle, ReadsBackWhatItWrites) {
  TBareLabel doc;
  auto* style = new TKDXDimStyle(&doc, "Maß");
  style->fExtSize = 20000;
  style->fExtGap = 12345;
  style->fHeadType = ttCross;
  style->fRadialStyle = rs04;
  style->fUnit = unYd;
  style->fHeadColor = 0x80123456;
  style->fSuffix = " mm";
  style->fID = 40000;
  TJsonArray array, again;
  style->WriteJson(array);
  auto* other = new TKDXDimStyle(&doc, false);
  other->ReadJson(FormatVersion, array.GetObject(0));
  other->WriteJson(again);
  EXPECT_EQ(again.ToJSON(), array.ToJSON());

  std::string bytes, bytesAgain;
  TBinaryWriter writer(bytes), writerAgain(bytesAgain);
  style->WriteData(writer);
  auto* third = new TKDXDimStyle(&doc, false);
  TBinaryReader reader(bytes);
  third->ReadData(FormatVersion, reader);
  third->WriteData(writerAgain);
  EXPECT_EQ(bytesAgain, bytes);
  EXPECT_EQ(third->fID, 40000);
  for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
    TBinaryReader part(std::string_view(bytes).substr(0, cut));
    EXPECT_THROW(third->ReadData(FormatVersion, part), EReadError) << cut;
  }
}

TEST(DimStyle, NamesTheKeyOfAnUnknownValue) {
  TBareLabel doc;
  TJsonArray array;
  doc.GetDimStyle(1)->WriteJson(array);
  for (const char* key : {"DimLineType", "ExtLineType", "HeadType", "TextPos", "RadialStyle", "Unit", "ID"}) {
    auto json = array.GetObject(0).Clone();
    json->SetInt(key, 70000);
    try {
      doc.GetDimStyle(1)->ReadJson(FormatVersion, *json);
      ADD_FAILURE() << key << " was taken";
    } catch (const EJsonException& error) {
      EXPECT_NE(std::string(error.what()).find(key), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace Zor
