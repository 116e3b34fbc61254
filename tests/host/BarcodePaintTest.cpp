// Barcodes as the host paints them: independent readers find them in PNG and in rendered PDF files.
#include <gtest/gtest.h>

#include "kaldrix/host/Export.hpp"
#include "tests/host/Drawings.hpp"
#include "tests/host/Rendered.hpp"
#include "tests/support/SymbolImage.hpp"

namespace Zor {
namespace {

using namespace Testing;

constexpr double Dpi = 300;

TExportOptions Options() {
  TExportOptions options;
  options.dpi = Dpi;
  return options;
}

/// A sheet with a barcode of each kind, all turned alike.
struct TSheet {
  TKDXLabel doc;
  std::vector<std::string> texts;

  explicit TSheet(TZORAngle aAngle) {
    SetLabelMM(doc, 100, 210);
    Add(doc.NewBarcode(50000, 30000, "4006381333931", btEAN13), aAngle, "4006381333931");
    Add(doc.NewBarcode(50000, 80000, "Box 123456", btCODE128AUTO), aAngle, "Box 123456");
    Add(doc.NewQRCode(50000, 120000, "shelf 3"), aAngle, "shelf 3");
    Add(doc.NewDataMatrix(50000, 140000, "shelf 4"), aAngle, "shelf 4");
    Add(doc.NewPDF417(50000, 180000, "shelf 5"), aAngle, "shelf 5");
    doc.CalcPending();
  }

 private:
  void Add(TBarItem* aItem, TZORAngle aAngle, const char* aText) {
    aItem->SetAngle(aAngle);
    aItem->fHorzAlign = haCenter;
    aItem->UpdatePoints();
    texts.emplace_back(aText);
  }
};

/// The part of a page around an item, as an image that readers take.
TSymbolImage Cut(const TRendered& aPage, const TKDXBaseItem& aItem) {
  const TZORRect& r = aItem.fBoundsRect;
  const auto pixel = [&](Int64 aBase) { return aPage.Pixel(static_cast<double>(aBase) / 1000); };
  const int left = pixel(r.Left), top = pixel(r.Top), right = pixel(r.Right), bottom = pixel(r.Bottom);
  TSymbolImage image(right - left, bottom - top, 1, 1, 30);
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      if (TRendered::Grey(aPage.At(x, y)) < 128) image.Fill(x - left, y - top, 1, 1);
    }
  }
  return image;
}

class BarcodePaint : public testing::TestWithParam<TZORAngle> {};

TEST_P(BarcodePaint, ReadersFindTheTexts) {
  TSheet sheet(GetParam());
  const TRendered png = FromPng(ExportPng(sheet.doc, Options()), Dpi);
  const TRendered pdf = FromPdf(ExportPdf(sheet.doc, Options()), Dpi);
  for (const TRendered* page : {&png, &pdf}) {
    TReaderRun run;
    for (int i = 1; i <= sheet.doc.GetItemsCount(); ++i) run.Add(Cut(*page, *sheet.doc.GetItem(i)));
    const std::string found = run.Read("ZXingReader -1");
    for (const std::string& text : sheet.texts) {
      EXPECT_NE(found.find("\"" + text + "\""), std::string::npos) << text << "\n" << found;
    }
  }
  EXPECT_LT(Strangers(png, pdf), 50);
  EXPECT_LT(Strangers(pdf, png), 50);
}

INSTANTIATE_TEST_SUITE_P(All, BarcodePaint, testing::Values(ag0, ag90, ag180, ag270));

/// Nothing between black and white: bars stand on whole pixels.
TEST(BarcodePaintDetails, BarsInAPngHaveSharpEdges) {
  TSheet sheet(ag90);
  for (int i = 1; i <= 2; ++i) dynamic_cast<TKDXBaseBarcode&>(*sheet.doc.GetItem(i)).SetShowNumber(false);
  const TRendered png = FromPng(ExportPng(sheet.doc, Options()), Dpi);
  for (int i = 1; i <= sheet.doc.GetItemsCount(); ++i) {
    TZORRect r = sheet.doc.GetItem(i)->fBoundsRect;
    int dark = 0;
    for (int y = png.Pixel(static_cast<double>(r.Top) / 1000) + 1;
         y < png.Pixel(static_cast<double>(r.Bottom) / 1000); ++y) {
      for (int x = png.Pixel(static_cast<double>(r.Left) / 1000) + 1;
           x < png.Pixel(static_cast<double>(r.Right) / 1000); ++x) {
        const int grey = TRendered::Grey(png.At(x, y));
        ASSERT_TRUE(grey == 0 || grey == 255) << i << ": " << x << " " << y;
        dark += grey == 0 ? 1 : 0;
      }
    }
    EXPECT_GT(dark, 1000) << i;
  }
}

TEST(BarcodePaintDetails, TheFontMeasuresTheHeight) {
  TKDXLabel doc;
  auto& item = *doc.NewBarcode(0, 0, "12", btCODE39);
  doc.CalcPending();
  EXPECT_EQ(item.fAscent, 2716);  // of the default font at 3 mm
  EXPECT_EQ(item.fDescent, 636);
  item.SetFontHeight(6);
  doc.CalcPending();
  EXPECT_NEAR(item.fAscent, 2 * 2716, 1);
  EXPECT_EQ(item.fBoundsRect.GetHeight(), 10000 + item.fAscent + item.fDescent);
}

TEST(HostBarcodes, ExportsRaiseForACodeThatTheyWouldLeaveOut) {
  TKDXLabel doc;
  doc.NewBarcode(1000, 1000, "40063813X", btEAN13);
  TExportOptions options;
  for (const auto& make : {&ExportSvg, &ExportPng, &ExportPdf}) {
    for (const int page : {0, 1}) {
      options.page = page;
      try {
        make(doc, options);
        ADD_FAILURE() << "exported";
      } catch (const Exception& error) {
        EXPECT_EQ(std::string(error.what()).find("Barcode001: '40063813X' is no code of EAN-13"), 0U)
            << error.what();
      }
    }
  }
  options.leaveOutInvalid = true;
  EXPECT_NE(ExportSvg(doc, options), "");
  doc.GetItem(1)->SetOptions({lopVisible, lopPrint});
  EXPECT_NE(ExportSvg(doc, {}), "") << "what is not exported is not missed";
}

TEST(HostBarcodes, KeepWhatAUserWrote) {
  TKDXLabel doc;
  EXPECT_EQ(doc.NewQRCode(0, 0, "caf\u00E9 \u20AC")->GetCode(), "caf\u00E9 \u20AC");
  // Fields of variable length that are not the last ones get a separator.
  auto& code = *doc.NewBarcode(0, 0, "(10)ABC(01)04006381333931", btEAN128AUTO);
  doc.CalcPending();
  EXPECT_EQ(code.ValueProblem(), "");
  EXPECT_FALSE(code.fDrCode.empty());
  code.SetCode("(01)04006381333932");
  doc.CalcPending();
  EXPECT_NE(code.ValueProblem(), "");
  EXPECT_FALSE(code.fIsValid);
}

}  // namespace
}  // namespace Zor
