#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

constexpr Int64 MaxInt64 = std::numeric_limits<Int64>::max();

/// How often an observer was told of new measures.
int Told(const TRecordingObserver& aObserver) {
  return static_cast<int>(std::count(aObserver.fChanges.begin(), aObserver.fChanges.end(), chMeasure));
}

/// The message of what `aAction` raises as TError.
template <class TError>
std::string MessageOf(const std::function<void()>& aAction) {
  try {
    aAction();
  } catch (const TError& error) {
    return error.what();
  }
  return "nothing raised";
}

TEST(Measure, TheScaleIsLimitedByTheLongerSideOfThePaper) {
  TBareLabel doc;
  EXPECT_EQ(doc.fMeasure->MaxDrawScale(), MaxInt64 / 297000);
  EXPECT_EQ(TKDXMeasure::MaxDrawScaleForPaper(0, 0), MaxInt64);
  EXPECT_EQ(TKDXMeasure::MaxDrawScaleForPaper(-7, 3), MaxInt64 / 7);
  EXPECT_EQ(TKDXMeasure::MaxDrawScaleForPaper(INT32_MIN, 0), MaxInt64 / (Int64{1} << 31));
}

TEST(Measure, RefusesWhatTheScaleCannotHold) {
  TBareLabel doc;
  TKDXMeasure& measure = *doc.fMeasure;
  doc.SetEditorMode(emDrawing);
  const Int64 most = MaxInt64 / 297000;
  const std::string range =
      "Drawing scale must be between 1:1 and 1:" + std::to_string(most) + " for the current paper size";
  for (const Int64 scale : {Int64{0}, Int64{-5}, most + 1}) {
    EXPECT_EQ(MessageOf<EArgumentOutOfRangeException>([&] { measure.SetDrawScale(scale); }), range) << scale;
  }
  EXPECT_EQ(measure.fDrawScale, 1);
  measure.SetDrawScale(most);
  const auto refusal = [&](int aPaper) {
    return "Drawing scale 1:" + std::to_string(most) +
           " cannot be represented with Int64 base coordinates for this paper size; maximum is 1:" +
           std::to_string(MaxInt64 / aPaper);
  };
  EXPECT_EQ(MessageOf<EInvalidOperation>([&] { measure.SetPaperWidth(400); }), refusal(400000));
  EXPECT_EQ(MessageOf<EInvalidOperation>([&] { measure.SetHeight(300); }), refusal(300000));
  EXPECT_EQ(MessageOf<EInvalidOperation>([&] { measure.SetLabelSizeMM(10, 310); }), refusal(310000));
  EXPECT_EQ(MessageOf<EInvalidOperation>([&] { measure.SetPaperSizeMM(320, 10); }), refusal(320000));
  EXPECT_EQ(MessageOf<EInvalidOperation>([&] { measure.SetPaperName("A3"); }), refusal(420000));
  EXPECT_EQ(measure.fPaperWidth, 210000);
  EXPECT_EQ(measure.fPaperHeight, 297000);
  EXPECT_EQ(measure.fHeight, 297000);
  EXPECT_EQ(measure.fPaperName, "A4");
  EXPECT_EQ(measure.GetSize(mtPaperHeight, true), 297000 * most);
}

TEST(Measure, LabelsAndFlowchartsHaveNoScale) {
  TBareLabel doc;
  for (const TZOREditorMode mode : {emLabelling, emFlowChart}) {
    doc.SetEditorMode(mode);
    doc.fMeasure->SetDrawScale(50);
    EXPECT_EQ(doc.fMeasure->fDrawScale, 1);
  }
}

TEST(Measure, SettersHoldValuesInsideTheirLimits) {
  TBareLabel doc;
  TKDXMeasure& m = *doc.fMeasure;
  m.SetMarLeft(-7);
  m.SetMarTop(-4);
  m.SetDiHor(-1);
  m.SetNuHor(0);
  m.SetNuVer(-3);
  m.SetWidth(2);
  m.SetPaperHeight(-1);
  m.SetInnerCircle(99);
  EXPECT_EQ(m.fMarLeft, -5000);
  EXPECT_EQ(m.fMarTop, -4000);
  EXPECT_EQ(m.fDiHor, 0);
  EXPECT_EQ(m.fNuHor, 1);
  EXPECT_EQ(m.fNuVer, 1);
  EXPECT_EQ(m.fWidth, 5000);
  EXPECT_EQ(m.fPaperHeight, 5000);
  EXPECT_EQ(m.fInnerCircle, 5000);
  EXPECT_EQ(m.fPaperWidth, 210000) << "the paper of labels does not follow";
}

TEST(Measure, SizesAreDocumentUnitsInLabelsAndMillimetresElsewhere) {
  TBareLabel doc;
  doc.SetUnits(unINCH);
  doc.fMeasure->SetWidth(2);
  EXPECT_EQ(doc.fMeasure->fWidth, 50800);
  doc.SetEditorMode(emFlowChart);
  doc.fMeasure->SetWidth(200);
  EXPECT_EQ(doc.fMeasure->fWidth, 200000);
  EXPECT_EQ(doc.fMeasure->fPaperWidth, 200000) << "paper follows outside labels";
  EXPECT_EQ(doc.fMeasure->GetWidth(), 200.0F);
  doc.fMeasure->SetMarLeft(2);
  EXPECT_EQ(doc.fMeasure->fMarLeft, 50800) << "a margin is in document units everywhere";
}

TEST(Measure, OneChangeIsToldOnce) {
  TBareLabel doc;
  TRecordingObserver observer(duEditor);
  doc.Attach(&observer);
  doc.fMeasure->SetPaperWidth(300);
  EXPECT_EQ(Told(observer), 0) << "the paper of labels is nothing that a view shows";
  doc.fMeasure->SetWidth(70);
  doc.fMeasure->SetWidth(70);
  EXPECT_EQ(Told(observer), 1);
  doc.fMeasure->SetPaperName("no such paper");
  EXPECT_EQ(Told(observer), 1);
  doc.fMeasure->SetPaperName("a5");
  EXPECT_EQ(Told(observer), 2);
  EXPECT_EQ(doc.fMeasure->fPaperWidth, 148000);
  EXPECT_EQ(doc.fMeasure->fPaperSize, 11);
  EXPECT_EQ(doc.fMeasure->fWidth, 70000);
  doc.Detach(&observer);
}

TEST(Measure, TheShapeRulesOutBackStyles) {
  TBareLabel doc;
  doc.fBackSurf->SetStyle(biGradHor);
  doc.fMeasure->SetLabelType(ltCircle);
  EXPECT_EQ(doc.fMeasure->fHeight, 60000);
  EXPECT_EQ(doc.fMeasure->fWidth, 60000);
  EXPECT_EQ(doc.fBackSurf->fStyle, biNone);
  doc.fBackSurf->SetStyle(biGradVer);
  EXPECT_EQ(doc.fBackSurf->fStyle, biNone);
  doc.fBackSurf->SetStyle(biQuarter);
  doc.fMeasure->SetInnerCircle(10);
  doc.fMeasure->SetLabelType(ltRect);
  EXPECT_EQ(doc.fBackSurf->fStyle, biNone);
  EXPECT_EQ(doc.fMeasure->fInnerCircle, 0);
}

TEST(Measure, ContinuousPaperHasOneLabelOfItsSize) {
  TBareLabel doc;
  doc.fMeasure->SetContinousPaper(true);
  EXPECT_EQ(doc.fMeasure->fWidth, 210000);
  EXPECT_EQ(doc.fMeasure->fHeight, 297000);
  EXPECT_EQ(doc.fMeasure->fMarTop, 0);
  EXPECT_EQ(doc.fMeasure->fNuHor * doc.fMeasure->fNuVer, 1);
  doc.SetEditorMode(emDrawing);
  doc.fMeasure->SetContinousPaper(false);
  EXPECT_TRUE(doc.fMeasure->fContinousPaper);
}

// Persistence
// -------------------------------------------------------------------------------------------------------

std::string JsonOf(const TKDXBaseLabel& aDoc) { return aDoc.GetJsonString(true); }

void ReadInto(TKDXBaseLabel& aDoc, const std::string& aText) {
  TJsonObject json;
  json.FromJSON(aText);
  aDoc.BeginRead(false);
  aDoc.ReadJson(json);
  aDoc.EndRead(false);
}

/// A few setters in a random order.
void Shuffle(TKDXMeasure& m, std::mt19937& aRandom) {
  const auto length = [&](int aLeast, int aMost) {
    return static_cast<Single>(std::uniform_int_distribution<>(aLeast, aMost)(aRandom)) / 1000.0F;
  };
  for (int i = 0; i < 8; ++i) {
    switch (std::uniform_int_distribution<>(0, 11)(aRandom)) {
      case 0:
        m.SetWidth(length(0, 90000));
        break;
      case 1:
        m.SetHeight(length(0, 90000));
        break;
      case 2:
        m.SetPaperWidth(length(0, 300000));
        break;
      case 3:
        m.SetPaperHeight(length(0, 300000));
        break;
      case 4:
        m.SetLabelSizeMM(length(5004, 90000), length(5004, 90000));
        break;
      case 5:
        m.SetMarLeft(length(-9000, 20000));
        break;
      case 6:
        m.SetDiVer(length(-1000, 9000));
        break;
      case 7:
        m.SetInnerCircle(length(0, 40000));
        break;
      case 8:
        m.SetContinousPaper(i % 2 == 0);
        break;
      case 9:
        m.SetPaperName("LETTER");
        break;
      case 10:
        m.SetLabelType(i % 2 == 0 ? ltCircle : ltRect);
        break;
      default:
        m.SetDrawScale(1 + i * 100);
        break;
    }
  }
  m.SetInnerCircle(m.GetInnerCircle());  // A label that shrank may have left it outside its limit.
}

TEST(Measure, AWrittenDocumentReadsBackToTheSameText) {
  std::mt19937 random(4711);
  for (int mode = emLabelling; mode <= emInteractive; ++mode) {
    for (int unit = unMM; unit <= unYd; ++unit) {
      for (int run = 0; run < 40; ++run) {
        TBareLabel doc, other;
        doc.SetEditorMode(static_cast<TZOREditorMode>(mode));
        doc.SetUnits(static_cast<TZORUnits>(unit));
        Shuffle(*doc.fMeasure, random);
        const std::string text = JsonOf(doc);
        ReadInto(other, text);
        ASSERT_EQ(JsonOf(other), text) << "mode " << mode << " unit " << unit << " run " << run;
      }
    }
  }
}

TEST(Measure, TheScaleOfAFileIsChecked) {
  TBareLabel doc;
  doc.SetEditorMode(emDrawing);
  doc.fMeasure->SetDrawScale((Int64{1} << 44) + 1);
  const std::string text = JsonOf(doc), key = "\"DrawScale\":" + std::to_string((Int64{1} << 44) + 1);
  const auto read = [&](const std::string& aScale) {
    TBareLabel other;
    other.SetEditorMode(emDrawing);
    other.fMeasure->SetDrawScale(MaxInt64 / 297000);  // What was open before is no measure for the file.
    std::string changed = text;
    changed.replace(changed.find(key), key.size(), aScale);
    ReadInto(other, changed);
    return other.fMeasure->fDrawScale;
  };
  EXPECT_EQ(read(key), (Int64{1} << 44) + 1);
  EXPECT_EQ(read("\"Unknown\":7"), 1) << "a missing key is 1:1";
  for (const std::string& scale :
       {std::string("0"), std::string("-1"), std::to_string(MaxInt64 / 297000 + 1)}) {
    EXPECT_NE(MessageOf<EJsonException>([&] { read("\"DrawScale\":" + scale); }).find("\"DrawScale\""),
              std::string::npos)
        << scale;
  }
}

/// A paper that just holds the scale is written in thousandths of its unit, and may come back longer.
TEST(Measure, EveryScaleThatTheSettersTakeComesBack) {
  std::mt19937 random(811);
  std::uniform_real_distribution<double> digits(0, 1);
  for (const TZOREditorMode mode : {emDrawing, emInteractive}) {
    for (int unit = unMM; unit <= unYd; ++unit) {
      for (int run = 0; run < 200; ++run) {
        TBareLabel doc, other;
        doc.SetEditorMode(mode);
        doc.SetUnits(static_cast<TZORUnits>(unit));
        TKDXMeasure& measure = *doc.fMeasure;
        // Sides from 5 mm to the two kilometres that 32 bits hold.
        measure.SetPaperWidth(static_cast<Single>(5 * std::pow(4e5, digits(random))));
        measure.SetPaperHeight(static_cast<Single>(5 * std::pow(4e5, digits(random))));
        const double part = run % 2 == 0 ? 1 : std::pow(digits(random), 8);
        const auto most = static_cast<double>(measure.MaxDrawScale());
        measure.SetDrawScale(part == 1 ? measure.MaxDrawScale() : std::max<Int64>(1, Int64(most * part)));
        const std::string text = JsonOf(doc);
        ASSERT_NO_THROW(ReadInto(other, text)) << text;
        ASSERT_EQ(other.fMeasure->fDrawScale, measure.fDrawScale) << text;
        ASSERT_EQ(JsonOf(other), text);
        ASSERT_LE(other.fMeasure->fDrawScale, other.fMeasure->MaxDrawScale()) << text;
      }
    }
  }
}

std::string RecordOf(const TKDXMeasure& aMeasure) {
  std::string bytes;
  TBinaryWriter writer(bytes);
  aMeasure.WriteData(writer);
  return bytes;
}

void ReadRecord(TKDXMeasure& aMeasure, int aVersion, const std::string& aBytes) {
  TBinaryReader reader(aBytes);
  aMeasure.ReadData(aVersion, reader);
  EXPECT_EQ(reader.Left(), 0U);
}

TEST(Measure, ARecordReadsBackAsItIs) {
  for (const TZOREditorMode mode : {emLabelling, emDrawing}) {
    TBareLabel doc, other;
    doc.SetEditorMode(mode);
    other.SetEditorMode(mode);
    doc.fMeasure->fWidth = 3;  // No limits apply to records.
    doc.fMeasure->fTitle = "Süd";
    doc.fMeasure->fPlanNumber = 12;
    doc.fMeasure->fLabelType = ltCircle;
    const std::string bytes = RecordOf(*doc.fMeasure);
    ReadRecord(*other.fMeasure, FormatVersion, bytes);
    EXPECT_EQ(RecordOf(*other.fMeasure), bytes);
    EXPECT_EQ(other.fMeasure->fTitle, mode == emDrawing ? "Süd" : "");
    for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
      EXPECT_THROW(ReadRecord(*other.fMeasure, FormatVersion, bytes.substr(0, cut)), EReadError) << cut;
    }
  }
}

TEST(Measure, AnOlderRecordHoldsTheScaleInFourBytes) {
  TBareLabel doc;
  doc.fMeasure->fDrawScale = 0x1122334455667788;
  std::string bytes = RecordOf(*doc.fMeasure);
  bytes.replace(bytes.find("\x88\x77\x66\x55"), 8, "\xFF\xFF\xFF\xFF");
  ReadRecord(*doc.fMeasure, 3100, bytes);
  EXPECT_EQ(doc.fMeasure->fDrawScale, -1);
}

TEST(Measure, ARecordOfADrawingNeedsAScaleThatFits) {
  TBareLabel doc;
  doc.fEditorMode = emDrawing;
  for (const Int64 scale : {Int64{0}, MaxInt64}) {
    doc.fMeasure->fDrawScale = scale;
    const std::string bytes = RecordOf(*doc.fMeasure);
    EXPECT_THROW(ReadRecord(*doc.fMeasure, FormatVersion, bytes), EReadError);
  }
}

}  // namespace
}  // namespace Zor
