// The barcode items: sizes and limits, placement, binding, and symbols that readers find in their SVG.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/SymbolImage.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TSvgList Svg(const TKDXBaseItem& aItem, TZORExportSVG aMode = svCurrentUnit, Single aFactor = 1) {
  TSvgList svg, defs;
  aItem.WriteSVG(svg, defs, aMode, aFactor, true);
  return svg;
}

std::string Joined(const TSvgList& aSvg) {
  std::string text;
  for (const std::string& entry : aSvg) text += entry + "\n";
  return text;
}

std::size_t Count(const std::string& aText, std::string_view aPart) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = aText.find(aPart, at)) != std::string::npos; at += aPart.size()) ++count;
  return count;
}

struct TRect {
  double x, y, width, height;
};

double Attribute(const std::string& aTag, std::string_view aName) {
  const std::string key = " " + std::string(aName) + "=\"";
  return std::strtod(aTag.c_str() + aTag.find(key) + key.size(), nullptr);
}

/// The dark rectangles of an SVG, without the background.
std::vector<TRect> DarkRects(const std::string& aSvg) {
  std::vector<TRect> rects;
  for (std::size_t at = 0; (at = aSvg.find("<rect", at)) != std::string::npos; ++at) {
    const std::string tag = aSvg.substr(at, aSvg.find('>', at) - at);
    if (tag.find("stroke-width") != std::string::npos) continue;
    rects.push_back(
        {Attribute(tag, "x"), Attribute(tag, "y"), Attribute(tag, "width"), Attribute(tag, "height")});
  }
  return rects;
}

/// The document of the tests, large enough for each symbol in each direction.
struct TDoc : TBareLabel {
  TDoc() { fMeasure->SetLabelSizeMM(300, 300); }
};

using TMake = TBarItem* (*)(TDoc&);

struct TSample {
  const char* name;
  TMake make;
  const char* text;
};

constexpr Int64 Middle = 150000;

template <TZORBarType TheType, bool TheCheck = false>
TBarItem* Linear(TDoc& aDoc, const char* aCode) {
  auto* barcode = aDoc.NewBarcode(Middle, Middle, aCode, TheType);
  barcode->SetCheckSum(TheCheck);
  aDoc.CalcPending();
  return barcode;
}

const TSample Samples[] = {
    {"Ean13", [](TDoc& doc) { return Linear<btEAN13, true>(doc, "400638133393"); }, "4006381333931"},
    {"Ean8", [](TDoc& doc) { return Linear<btEAN8>(doc, "96385074"); }, "96385074"},
    {"UpcA", [](TDoc& doc) { return Linear<btUPCA, true>(doc, "03600029145"); }, "036000291452"},
    {"UpcE", [](TDoc& doc) { return Linear<btUPCE0>(doc, "01234565"); }, "01234565"},
    {"Code39", [](TDoc& doc) { return Linear<btCODE39>(doc, "Label 7"); }, "LABEL 7"},
    {"Code128", [](TDoc& doc) { return Linear<btCODE128AUTO>(doc, "Box 12345678"); }, "Box 12345678"},
    {"Interleaved", [](TDoc& doc) { return Linear<btINTER_25>(doc, "1234567"); }, "01234567"},
    {"QRCode", [](TDoc& doc) -> TBarItem* { return doc.NewQRCode(Middle, Middle, "shelf 3"); }, "shelf 3"},
    {"DataMatrix", [](TDoc& doc) -> TBarItem* { return doc.NewDataMatrix(Middle, Middle, "shelf 4"); },
     "shelf 4"},
    {"PDF417", [](TDoc& doc) -> TBarItem* { return doc.NewPDF417(Middle, Middle, "shelf 5 on the left"); },
     "shelf 5 on the left"},
};

class BarcodeItems : public testing::TestWithParam<TSample> {};

void Align(TBarItem& aItem, TZORHorzAlign aHorz, TZORVertAlign aVert) {
  if (auto* barcode = dynamic_cast<TKDXBaseBarcode*>(&aItem)) barcode->SetHorzAlign(aHorz);
  if (auto* align = dynamic_cast<IZORAlign*>(&aItem)) align->SetHorzAlign(aHorz), align->SetVertAlign(aVert);
}

/// The symbol as an image at 20 pixels a millimetre, from its SVG alone.
TSymbolImage ImageOf(const TBarItem& aItem) {
  constexpr double scale = 20;
  const TZORRect& r = aItem.fBoundsRect;
  const auto pixels = [](double aMM) { return static_cast<int>(std::lround(aMM * scale)); };
  const double left = static_cast<double>(r.Left) / 1000, top = static_cast<double>(r.Top) / 1000;
  TSymbolImage image(pixels(static_cast<double>(r.GetWidth()) / 1000),
                     pixels(static_cast<double>(r.GetHeight()) / 1000), 1, 1, 40);
  for (const TRect& rect : DarkRects(Joined(Svg(aItem)))) {
    const int x = pixels(rect.x - left), y = pixels(rect.y - top);
    image.Fill(x, y, pixels(rect.x - left + rect.width) - x, pixels(rect.y - top + rect.height) - y);
  }
  return image;
}

TEST_P(BarcodeItems, AreReadInEveryDirection) {
  TReaderRun run;
  for (const TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    TDoc doc;
    TBarItem& item = *GetParam().make(doc);
    item.SetAngle(angle);
    Align(item, haCenter, vaBottom);
    run.Add(ImageOf(item));
  }
  const std::string found = run.Read("ZXingReader -1");
  EXPECT_EQ(Count(found, "\"" + std::string(GetParam().text) + "\""), 4U) << found;
}

/// Whatever alignment and angle, the bounds hold the padding and the bars, and touch the anchor.
TEST_P(BarcodeItems, LieInsideTheirBounds) {
  for (const TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    for (const TZORHorzAlign horz : {haLeft, haCenter, haRight}) {
      for (const TZORVertAlign vert : {vaTop, vaCenter, vaBottom}) {
        TDoc doc;
        TBarItem& item = *GetParam().make(doc);
        item.SetPaddingX(2);
        item.SetPaddingY(1);
        item.SetAngle(angle);
        Align(item, horz, vert);
        const TZORRect& r = item.fBoundsRect;
        EXPECT_TRUE(r.Left <= Middle && Middle <= r.Right && r.Top <= Middle && Middle <= r.Bottom);
        double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
        for (const TRect& rect : DarkRects(Joined(Svg(item)))) {
          left = std::min(left, rect.x), right = std::max(right, rect.x + rect.width);
          top = std::min(top, rect.y), bottom = std::max(bottom, rect.y + rect.height);
        }
        const bool across = angle == ag90 || angle == ag270;
        const double along = (across ? bottom - top : right - left) * 1000;
        EXPECT_NEAR(along, item.fBarCodeWidth - 4000, 30) << angle;
        constexpr double rounding = 0.011;
        const double gapX = across ? 1 : 2, gapY = across ? 2 : 1;
        EXPECT_GE(left, static_cast<double>(r.Left) / 1000 + gapX - rounding) << angle << horz << vert;
        EXPECT_LE(right, static_cast<double>(r.Right) / 1000 - gapX + rounding) << angle << horz << vert;
        EXPECT_GE(top, static_cast<double>(r.Top) / 1000 + gapY - rounding) << angle << horz << vert;
        EXPECT_LE(bottom, static_cast<double>(r.Bottom) / 1000 - gapY + rounding) << angle << horz << vert;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, BarcodeItems, testing::ValuesIn(Samples),
                         [](const auto& aInfo) { return std::string(aInfo.param.name); });

// Linear ------------------------------------------------------------------------------

TEST(LinearBarcodeItem, StartsAsCode39) {
  TDoc doc;
  const auto& item = dynamic_cast<TKDXBaseBarcode&>(*doc.NewItemOfType(itBarcode, false));
  EXPECT_EQ(item.GetBarType(), btCODE39);
  EXPECT_EQ(item.fBarWidth, 300);
  EXPECT_EQ(item.fBarHeight, 10000);
  EXPECT_EQ(item.fFactor, 3.0F);
  EXPECT_EQ(item.fPaddingX, 3000);
  EXPECT_TRUE(item.GetShowNumber());
  EXPECT_EQ(item.fFontHeight, 3000);
  EXPECT_FALSE(item.fResize);
  EXPECT_EQ(item.fBoundsRect.GetHeight(), 10000 + 2716 + 636);
}

TEST(LinearBarcodeItem, LimitsItsLengths) {
  TDoc doc;
  auto& item = *doc.NewBarcode(0, 0, "A", btCODE39);
  item.SetBarWidth(0.05F);
  EXPECT_EQ(item.fBarWidth, 120);
  item.SetBarHeight(1);
  EXPECT_EQ(item.fBarHeight, 2000);
  item.SetFontHeight(0.5F);
  EXPECT_EQ(item.fFontHeight, 1000);
  item.SetPaddingX(-1);
  EXPECT_EQ(item.fPaddingX, 0);
  item.SetHorzAlign(haJustify);
  EXPECT_EQ(item.GetHorzAlign(), haLeft);
}

TEST(LinearBarcodeItem, LimitsTheFactorByItsType) {
  TDoc doc;
  auto& item = *doc.NewBarcode(0, 0, "1", btCODE128AUTO);
  const auto factor = [&](TZORBarType aType, Single aValue) {
    item.SetCodeType(aType);
    item.SetFactor(aValue);
    return item.fFactor;
  };
  EXPECT_EQ(factor(btCODE128AUTO, 5), 5.0F);
  item.SetCodeType(btCODE39);
  EXPECT_EQ(item.fFactor, 3.0F);
  EXPECT_EQ(factor(btCODE39, 1.5F), 2.0F);
  EXPECT_EQ(factor(btMATRIX_25, 2.1F), 2.25F);
  EXPECT_EQ(factor(btMSI, 7), 6.0F);
}

TEST(LinearBarcodeItem, ACentredSymbolKeepsItsAnchor) {
  TDoc doc;
  auto& item = *doc.NewBarcode(Middle, Middle, "1", btCODE39);
  item.SetHorzAlign(haCenter);
  for (const char* code : {"1", "12345678"}) {
    item.SetCode(code);
    doc.CalcPending();
    EXPECT_EQ(item.GetPoint(1), (TZORPto{Middle, Middle}));
    EXPECT_EQ(item.fBoundsRect.Left + item.fBoundsRect.Right, 2 * Middle);
    EXPECT_EQ(item.fBoundsRect.Top, Middle);
  }
}

TEST(LinearBarcodeItem, WithoutItsNumberItIsLower) {
  TDoc doc;
  auto& item = *doc.NewBarcode(10000, 10000, "4006381333931", btEAN13);
  doc.CalcPending();
  EXPECT_EQ(item.fBoundsRect.GetHeight(), 13000);
  EXPECT_EQ(item.GetDrCode().substr(0, 3), "919");
  EXPECT_EQ(Count(Joined(Svg(item)), "<text"), 3U);
  item.SetShowNumber(false);
  EXPECT_EQ(item.fBoundsRect.GetHeight(), 10000);
  EXPECT_EQ(item.GetDrCode().substr(0, 3), "N1N");
  EXPECT_EQ(Count(Joined(Svg(item)), "<text"), 0U);
  for (const TRect& rect : DarkRects(Joined(Svg(item)))) EXPECT_EQ(rect.height, 10);
}

TEST(LinearBarcodeItem, AnInvalidCodeKeepsAFrameAndShowsNothing) {
  TDoc doc;
  auto& item = *doc.NewBarcode(10000, 10000, "AB", btCODE39);
  doc.CalcPending();
  const std::string pattern = item.GetDrCode();
  item.SetCode("A\u20ACB");
  doc.CalcPending();
  EXPECT_FALSE(item.fIsValid);
  EXPECT_EQ(item.GetCode(), "A\u20ACB");
  EXPECT_EQ(item.GetDrCode(), pattern);
  EXPECT_EQ(item.fBoundsRect.GetWidth(), 60 * 300 + 2 * 3000);
  EXPECT_TRUE(Svg(item).empty());
  item.SetCode("AB");
  doc.CalcPending();
  EXPECT_TRUE(item.fIsValid);
}

TEST(LinearBarcodeItem, SvgElements) {
  TDoc doc;
  auto& item = *doc.NewBarcode(10000, 10000, "1<", btCODE128B);
  doc.CalcPending();
  const TSvgList svg = Svg(item);
  ASSERT_EQ(svg.size(), 2U);
  // (Start, two characters, check: 44 modules; stop: 13) of 0.3 mm, and 3 mm on each side.
  EXPECT_EQ(svg[0], R"(<rect x="10" y="10" width="23.10" height="13"  fill="#FFFFFF" stroke-width="0"/>)");
  EXPECT_EQ(svg[1].substr(0, svg[1].find("\r\n")),
            R"(<rect x="13" y="10" width="0.60" height="10"  fill="#000000"/>)");
  EXPECT_EQ(
      svg[1].substr(svg[1].rfind("\r\n") + 2),
      R"(<text x="21.55" y="20" font-family="Arial" font-size="3"  fill="#000000" )"
      R"(alignment-baseline="text-before-edge" text-anchor="middle"  xml:space="preserve">1&lt;</text>)");
  item.SetAngle(ag90);
  EXPECT_NE(Svg(item)[1].find(R"x( transform="rotate(-90 10 10)"  xml:space="preserve">)x"),
            std::string::npos);
}

TEST(LinearBarcodeItem, TheGroupsOfAnEanStandUnderTheirBars) {
  TDoc doc;
  auto& item = *doc.NewBarcode(0, 0, "4006381333931", btEAN13);
  item.SetFilled(false);
  doc.CalcPending();
  const std::string svg = Joined(Svg(item));
  // Padding 3; the middles of the halves lie 24 and 71 modules of 0.3 mm to the right.
  for (const char* part : {R"(<text x="3" y="10")", R"(<text x="10.20" y="10")", R"(<text x="24.30" y="10")",
                           R"(text-anchor="end"  xml:space="preserve">4<)", ">006381<", ">333931<"}) {
    EXPECT_NE(svg.find(part), std::string::npos) << part;
  }
  // The guards reach 3/4 of the font height down.
  EXPECT_NE(svg.find(R"(height="12.25")"), std::string::npos);
}

TEST(LinearBarcodeItem, AtAScaleTheSymbolKeepsItsSizeOnPaper) {
  TDoc doc;
  doc.fEditorMode = emDrawing;
  doc.fMeasure->fDrawScale = 10;
  auto& item = *doc.NewBarcode(100000, 100000, "AB", btCODE39);
  item.SetHorzAlign(haRight);
  doc.CalcPending();
  EXPECT_EQ(item.fBoundsRect.GetWidth(), 10 * Int64{item.fBarCodeWidth});
  double right = 0;
  for (const TRect& rect : DarkRects(Joined(Svg(item)))) right = std::max(right, rect.x + rect.width);
  EXPECT_NEAR(right, 10 - 3, 0.011);
}

// Two dimensions -----------------------------------------------------------------------

TEST(ModuleItems, TheirPaddingBelongsToTheirSize) {
  TDoc doc;
  const auto& item = *doc.NewQRCode(0, 0, "QR");
  EXPECT_EQ(item.fCols, 21);
  EXPECT_EQ(item.fBoundsRect.GetWidth(), 10300);
  EXPECT_EQ(item.fBoundsRect.GetHeight(), 10300);
}

TEST(ModuleItems, AFactorTiesTheSides) {
  TDoc doc;
  auto& item = *doc.NewQRCode(0, 0, "QR");
  item.SetBarHeight(0.5F);
  EXPECT_EQ(item.fBarWidth, 300);
  item.SetFactor(1);
  EXPECT_EQ(item.fBarHeight, 300);
  item.SetBarWidth(0.1F);
  EXPECT_EQ(item.fBarWidth, 190);
  EXPECT_EQ(item.fBarHeight, 190);
  item.SetBarHeight(0.4F);
  EXPECT_EQ(item.fBarWidth, 400);
  item.SetFactor(0);
  item.SetBarWidth(0.2F);
  EXPECT_EQ(item.fBarHeight, 400);
}

TEST(ModuleItems, UndoOfAFactorBringsTheHeightBackInOneStep) {
  TDoc doc;
  auto& item = *doc.NewPDF417(0, 0, "A");
  item.SetBarHeight(0.9F);
  doc.Clear({cleUndoRedo}, false);
  item.SetFactor(1.5F);
  EXPECT_EQ(item.fBarHeight, 450);
  doc.Undo();
  EXPECT_TRUE(doc.IsUndoEmpty());
  EXPECT_EQ(item.fBarHeight, 900);
  EXPECT_EQ(item.fFactor, 0);
  doc.Redo();
  EXPECT_EQ(item.fBarHeight, 450);
  EXPECT_EQ(item.fFactor, 1.5F);
}

TEST(ModuleItems, ATextThatDoesNotFitIsRefusedAndTheSymbolStays) {
  const std::string longText(8000, 'x');
  TDoc doc;
  for (TModuleItem* item : std::initializer_list<TModuleItem*>{
           doc.NewQRCode(0, 0, "QR"), doc.NewDataMatrix(0, 0, "DM"), doc.NewPDF417(0, 0, "PDF")}) {
    const std::string code = item->GetCode(), svg = Joined(Svg(*item));
    const TZORRect bounds = item->fBoundsRect;
    try {
      item->SetCode(longText);
      ADD_FAILURE() << "taken";
    } catch (const Exception& error) {
      // The text, where it does not fit, and what the encoder said.
      const std::string told = error.what();
      EXPECT_NE(told.find(" characters does not fit into a "), std::string::npos) << told;
      EXPECT_TRUE(told.starts_with("'") && told.ends_with(" Error")) << told;
      EXPECT_LT(told.size(), 200U);
    }
    EXPECT_EQ(item->GetCode(), code);
    EXPECT_EQ(Joined(Svg(*item)), svg);
    EXPECT_EQ(item->fBoundsRect, bounds);
  }
  const int count = doc.GetItemsCount();
  EXPECT_THROW(doc.NewQRCode(0, 0, longText), Exception);
  EXPECT_EQ(doc.GetItemsCount(), count);
}

TEST(ModuleItems, ABlankPdf417HasNoBars) {
  TDoc doc;
  auto& item = *doc.NewPDF417(0, 0, "\u00E9");
  item.SetFilled(false);
  EXPECT_TRUE(Svg(item).empty());
  EXPECT_EQ(item.fBarCodeHeight, 3 * 600);
  EXPECT_EQ(item.fBarCodeWidth, 2 * 3000 + 300 * (17 * 5 + 1));
  item.SetRows(200);
  EXPECT_EQ(item.GetRows(), 90);
  item.SetRows(-1);
  EXPECT_EQ(item.GetRows(), 0);
}

TEST(ModuleItems, TextsAreTakenInTheFormOfTheirSymbology) {
  TDoc doc;
  EXPECT_EQ(doc.NewQRCode(0, 0, "caf\u00E9 \u00F1")->GetCode(), "cafe \u00F1");
  EXPECT_EQ(doc.NewDataMatrix(0, 0, "\u20AC \u0416")->GetCode(), "\u20AC ?");
}

TEST(ModuleItems, SizeAndShapeOfADataMatrixAreKeptButChangeNothing) {
  TDoc doc;
  auto& item = *doc.NewDataMatrix(0, 0, "A");
  item.SetDMSize(ecc200_144x144);
  item.SetDMShape(ecc200_Rectangle);
  item.Encode();
  EXPECT_EQ(item.fCols, 10);
  const auto json = item.WriteJson();
  TDoc other;
  other.BeginRead(false);
  const auto& read = dynamic_cast<TKDXBaseDataMatrix&>(other.ReadJsonItem(FormatVersion, *json));
  other.EndRead(false);
  EXPECT_EQ(read.GetDMSize(), ecc200_144x144);
  EXPECT_EQ(read.GetDMShape(), ecc200_Rectangle);
  EXPECT_EQ(read.fCols, 10);
}

TEST(ModuleItems, JoiningKeepsTheDarkModules) {
  TDoc doc;
  const auto& item = *doc.NewQRCode(0, 0, "joined");
  const std::vector<TBarRect> single = item.Bars(false), joined = item.Bars(true);
  EXPECT_LT(joined.size() * 2, single.size());
  const auto dark = [&](const std::vector<TBarRect>& aBars, int x, int y) {
    const double px = 2 + (x + 0.5) * 0.3, py = 2 + (y + 0.5) * 0.3;
    return std::count_if(aBars.begin(), aBars.end(), [&](const TBarRect& bar) {
      return bar.x < px && px < bar.x + bar.width && bar.y < py && py < bar.y + bar.height;
    });
  };
  for (int y = 0; y < item.fRows; ++y) {
    for (int x = 0; x < item.fCols; ++x) EXPECT_EQ(dark(single, x, y), dark(joined, x, y)) << x << " " << y;
  }
}

// Reading ------------------------------------------------------------------------------

TEST(BarcodeReading, ItemsTellWhatAReaderWouldNotFind) {
  TDoc doc;
  const auto problem = [&](TBarItem& aItem) {
    doc.CalcPending();
    return aItem.ValueProblem();
  };
  EXPECT_NE(problem(*doc.NewBarcode(0, 0, "", btCODE39)).find("no text"), std::string::npos);
  auto& ean = *doc.NewBarcode(0, 0, "12345", btEAN13);
  ean.SetCheckSum(true);
  EXPECT_NE(problem(ean).find("zeros in front"), std::string::npos);
  doc.fPrintInfo->fPadCodes = true;
  EXPECT_EQ(problem(ean), "");

  auto& qr = *doc.NewQRCode(0, 0, "caf\u00E9");
  EXPECT_EQ(problem(qr), "");  // The item has long become "cafe".
  EXPECT_EQ(qr.GetCode(), "cafe");
  EXPECT_EQ(problem(*doc.NewDataMatrix(0, 0, "5 \u00E9")), "");
  EXPECT_NE(problem(*doc.NewDataMatrix(0, 0, "5 \u20AC")).find("beyond ISO 8859-1"), std::string::npos);

  // A backslash is on purpose in a code, and just a character in data.
  auto& pdf = *doc.NewPDF417(0, 0, "\\065");
  EXPECT_EQ(problem(pdf), "");
  doc.fData->fLinkData = true;
  doc.fData->AddListVal("Path");
  TZOValList& list = *doc.fData->GetListVal("Path");
  pdf.SetData(ftNone, "=Path", "");
  for (const auto& [value, part] : {std::pair("C:\\065", "escape"), std::pair("C:\\home", "")}) {
    list.fAnsText = value;
    pdf.FillData(true);
    EXPECT_EQ(problem(pdf).empty(), std::string_view(part).empty()) << value;
  }
  qr.SetData(ftNone, "=Path", "");
  list.fAnsText = "caf\u00E9";
  qr.FillData(true);
  EXPECT_EQ(problem(qr), "'caf\u00E9' would be read as 'cafe'");
}

TEST(BarcodeReading, AnElementStringKeepsItsParenthesesBelowTheBars) {
  TDoc doc;
  auto& item = *doc.NewBarcode(0, 0, "(10)AB(21)7", btEAN128AUTO);
  doc.CalcPending();
  const std::string plain = item.GetDrCode();
  EXPECT_FALSE(item.ValueProblem().empty());
  item.SetElementString(true);
  doc.CalcPending();
  EXPECT_EQ(item.ValueProblem(), "");
  EXPECT_NE(item.GetDrCode(), plain);
  EXPECT_NE(Joined(Svg(item)).find(">(10)AB(21)7</text>"), std::string::npos);
  item.SetCode("(10)AB(21)");
  doc.CalcPending();
  EXPECT_FALSE(item.fIsValid);
  item.SetElementString(false);
  item.SetCode("(10)AB(21)7");
  doc.CalcPending();
  EXPECT_EQ(item.GetDrCode(), plain);
}

// Data ---------------------------------------------------------------------------------

TEST(BarcodeData, AListFillsEveryKind) {
  TDoc doc;
  doc.fData->fLinkData = true;
  doc.fData->AddListVal("Box");
  TZOValList& list = *doc.fData->GetListVal("Box");
  auto& linear = *doc.NewBarcode(0, 0, "1", btCODE39);
  auto& qr = *doc.NewQRCode(0, 0, "1");
  auto& matrix = *doc.NewDataMatrix(0, 0, "1");
  auto& pdf = *doc.NewPDF417(0, 0, "1");
  for (TBarItem* item : std::initializer_list<TBarItem*>{&linear, &qr, &matrix, &pdf}) {
    item->SetData(ftNone, "=Box", "");
    EXPECT_TRUE(item->GetIsData());
    EXPECT_EQ(item->SymFillName(), "=Box");
    list.fAnsText = "4711";
    item->FillData(true);
    list.fAnsText = "4712";
    item->FillData(true);
  }
  EXPECT_EQ(linear.GetCode(), "4712");
  EXPECT_EQ(linear.GetCCode().Bytes(), "4712");
  EXPECT_EQ(qr.GetCode(), "4712");
  EXPECT_EQ(matrix.GetCode(), "4712");
  EXPECT_EQ(pdf.GetCode(), "4712");
  // The same value again leaves the symbol alone, even one that somebody has drawn on.
  qr.fQRCode.FMatrix = TByteMatrix(21, 21);
  qr.FillData(true);
  EXPECT_EQ(std::count(qr.Modules().begin(), qr.Modules().end(), 0), 21 * 21);
  // A value that came without being measured is measured when that is asked for.
  list.fAnsText = "4713";
  linear.FillData(false);
  EXPECT_EQ(linear.GetCCode().Bytes(), "4712");
  linear.FillData(true);
  EXPECT_EQ(linear.GetCCode().Bytes(), "4713");
}

}  // namespace
}  // namespace Zor
