#include <gtest/gtest.h>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(BackSurf, ForgetsAFileThatDoesNotExist) {
  TBareLabel doc;
  doc.fBackSurf->SetFileName("no/such/file.png");
  EXPECT_EQ(doc.fBackSurf->fFileName, "");
  doc.fBackSurf->SetStyle(biImage);
  EXPECT_EQ(doc.fBackSurf->fStyle, biNone);
  doc.fBackSurf->SetFileName(__FILE__);
  doc.fBackSurf->SetStyle(biImage);
  EXPECT_EQ(doc.fBackSurf->fStyle, biImage);
}

TEST(BackSurf, AlignMarksStayOnTheLabel) {
  TBareLabel doc;
  doc.fBackSurf->SetAlignLeft(61);
  doc.fBackSurf->SetAlignTop(-1);
  EXPECT_EQ(doc.fBackSurf->fAlignLeft, doc.fMeasure->fWidth);
  EXPECT_EQ(doc.fBackSurf->fAlignTop, 0);
}

TEST(Settings, SizesHaveALeast) {
  TBareLabel doc;
  TJsonObject json;
  json.SetFloat("TermSize", 0.1);
  json.SetFloat("LinkGap", -3);
  doc.fSettings->ReadJson(FormatVersion, json);
  EXPECT_EQ(doc.fSettings->fTermSize, 500);
  EXPECT_EQ(doc.fSettings->fLinkGap, 0);
}

TEST(Satellites, TakeValuesOfTheirOwnClassOnly) {
  TBareLabel doc, other;
  other.fSettings->fLinkGap = 1;
  doc.fSettings->Assign(*other.fSettings);
  EXPECT_EQ(doc.fSettings->fLinkGap, 1);
  EXPECT_EQ(doc.fSettings->fOwner, &doc);
  EXPECT_THROW(doc.fSettings->Assign(*other.fMeasure), EConvertError);
  EXPECT_THROW(doc.fMeasure->Assign(*other.fBackSurf), EConvertError);
}

}  // namespace
}  // namespace Zor
