// Documents as files: round trips, hostile input, and what stays when reading fails.
#include <gtest/gtest.h>

#include <climits>
#include <cstdio>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Files.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

std::string Example(const char* aName) {
  return ReadFile(std::string(KALDRIX_SOURCE_DIR "/examples/") + aName);
}

constexpr const char* Examples[] = {"price-label.json", "badges.json",      "floor-plan.json",
                                    "pictogram.json",   "round-label.json", "shipping-label-inch.json"};

TEST(FileTest, ExamplesComeThroughBothFormsUnchanged) {
  for (const char* name : Examples) {
    TBareLabel first, second, third;
    first.LoadFromBytes(Example(name));
    first.fPrintInfo->SetLabs(7);
    const std::string text = first.SaveToBytes(lfJSON);
    second.LoadFromBytes(first.SaveToBytes(lfBin));
    EXPECT_TRUE(second.SaveToBytes(lfJSON) == text) << name;
    third.LoadFromBytes(second.GetJsonString(true));
    EXPECT_TRUE(third.SaveToBytes(lfJSON) == text) << name;
    EXPECT_TRUE(first.GetJson()->ToJSON(false) + "\n" == text) << name;
  }
}

TEST(FileTest, TheOrderOfTheKeysDoesNotMatter) {
  const std::string items = R"("Items":[{"Type":2,"InID":7,"Points":[{"X":1,"Y":2}]}])";
  const std::string usual = R"({"Version":3200,"Units":1,)" + items + "}";
  TBareLabel expected;
  expected.LoadFromBytes(usual);
  const std::string others[] = {
      "{" + items + R"(,"Version":3200,"Units":1})",
      R"({"Version":3200,)" + items + R"(,"Units":1})",
      R"({"Version":3200,"Units":1,)" + items + R"(,"Items":[{"Type":99}]})",
  };
  for (const std::string& text : others) {
    TBareLabel document;
    document.LoadFromBytes(text);
    EXPECT_EQ(document.SaveToBytes(lfJSON), expected.SaveToBytes(lfJSON)) << text;
  }
  TBareLabel document;
  EXPECT_THROW(document.LoadFromBytes(R"({"Version":3200,"Items":5,)" + items + "}"), Exception);
}

TEST(FileTest, EveryCutAndEveryFlippedByteOfABinaryFileIsRefused) {
  TBareLabel source;
  source.LoadFromBytes(Example("price-label.json"));
  const std::string bytes = source.SaveToBytes(lfBin);
  TBareLabel document;
  for (std::size_t i = 0; i < bytes.size(); i += 7) {
    EXPECT_THROW(document.LoadFromBytes(bytes.substr(0, i)), Exception) << i;
    std::string flipped = bytes;
    flipped[i] = static_cast<char>(flipped[i] ^ 0x10);
    EXPECT_THROW(document.LoadFromBytes(flipped), Exception) << i;
  }
}

TEST(FileTest, AFileThatCannotBeReadLeavesTheDocumentAsItWas) {
  TBareLabel document;
  document.LoadFromBytes(Example("floor-plan.json"));
  document.GetItem(3)->SetColor(0xFF123456);
  document.AddToSelection(*document.GetItem(5), false);
  const std::string before = document.GetJsonString(true);
  const int identity = document.GetItem(5)->fInID;
  const std::string broken[] = {
      "",
      "[]",
      "{}",
      R"({"Version":3200,"Items":[{"Type":2},{"Type":99}]})",
      R"({"Version":3200,"Items":[{"Type":2}]}])",
      R"({"Version":3200,"Items":[{"Type":2},null]})",
      R"({"Version":3200,"EditorMode":9})",
      R"({"Version":3200,"Layers":[{"Name":"a"},{"Name":null}]})",
      "KALDRIX\x1A",
  };
  for (const std::string& bytes : broken) {
    EXPECT_THROW(document.LoadFromBytes(bytes), Exception) << bytes;
    ASSERT_TRUE(document.GetJsonString(true) == before) << bytes;
    EXPECT_EQ(document.Select(), document.SearchItem(identity, false));
    EXPECT_TRUE(document.fOptions.Has(loUndoRedo));
  }
  document.Undo();
  EXPECT_NE(document.GetItem(3)->fColor, 0xFF123456);
}

TEST(FileTest, ErrorsNameThePlace) {
  struct TCase {
    const char* json;
    const char* error;
  };
  const TCase cases[] = {
      {R"({"Version":3200,"Items":[{"Type":2},{"Type":99}]})", "Items[1]: unknown item type 99"},
      {R"({"Version":3200,"Items":[{"Type":20}]})", "Items[0]: no class for items of type 20 (Polytext)"},
      {R"({"Version":3200,"Items":[{"Type":2,"LineType":12}]})",
       "Items[0]: \"LineType\": 12 is not a known value"},
      {R"({"Version":3200,"Items":[{"Type":2,"LineType":4294967298}]})",
       "Items[0]: \"LineType\": 4294967298 is not a known value"},
      {R"({"Version":3200,"Items":[{"Type":2,"LineType":18446744073709551615}]})",
       "Items[0]: \"LineType\": 9223372036854775807 is not a known value"},
      {R"({"Version":3200,"Items":[{"Type":4294967298}]})", "Items[0]: unknown item type 4294967298"},
      {R"({"Version":3200,"Units":256})", "\"Units\": 256 is not a known value"},
      {R"({"Version":3200,"EditorMode":4294967297})", "\"EditorMode\": 4294967297 is not a known value"},
      {R"({"Version":3200,"Layers":[{"ZPos":4294967297}]})",
       "Layers[0]: \"ZPos\": 4294967297 is not between 0 and 65535"},
      {R"({"Version":3200,"Items":[{"Type":2,"Points":[{"X":1e30,"Y":0}]}]})",
       "Items[0]: \"X\": the position is outside the coordinate range"},
      {R"({"Version":3200,"Items":[{"Type":2,"PenWidth":1e300}]})",
       "Items[0]: \"PenWidth\": the number is too large"},
      {R"({"Version":3200,"Items":[{"Type":2,"Color":null}]})", "Items[0]: Cannot cast null into Object"},
      {R"({"Version":3200,"Items":[{"Type":2,"InID":null}]})", "Items[0]: Cannot cast Object into Integer"},
      {R"({"Version":3200,"Items":[{"Type":2,"InID":2147483647}]})",
       "Items[0]: \"InID\": 2147483647 is above 2000000000"},
      {R"({"Version":3200,"Units":7})", "\"Units\": 7 is not a known value"},
      {R"({"Version":3200,"EditorMode":2,"Measures":{"DrawScale":0}})", nullptr},
      {R"({"Version":3200,"Symbols":[{}]})", "Symbols[0]: this build has no symbols"},
  };
  for (const TCase& row : cases) {
    TBareLabel document;
    try {
      document.LoadFromBytes(row.json);
      ADD_FAILURE() << row.json << " was read";
    } catch (const Exception& error) {
      if (row.error != nullptr) {
        EXPECT_STREQ(error.what(), row.error);
      } else {
        EXPECT_NE(std::string(error.what()).find("DrawScale"), std::string::npos) << error.what();
      }
    }
  }
}

TEST(FileTest, LenientPlacesStayLenient) {
  TBareLabel document;
  document.LoadFromBytes(R"({"Version":3300,"Items":[
    {"Type":6,"InID":7,"Layer":99,"Radio":50,"Points":[{"X":0,"Y":0},{"X":10,"Y":4},{"X":1,"Y":1}]}]})");
  ASSERT_EQ(document.GetItemsCount(), 1);
  const auto* box = dynamic_cast<TKDXBaseRectangle*>(document.GetItem(1));
  EXPECT_EQ(box->fLayer, &document.GetLayer(1));
  EXPECT_EQ(box->fRadio, 2000);
  EXPECT_EQ(box->NumPoints(), 2);
  EXPECT_EQ(document.fMaxID, 8);
  EXPECT_FALSE(document.fModified);
}

TEST(FileTest, OlderFilesHaveNoAngle) {
  TBareLabel document;
  document.LoadFromBytes(R"({"Version":3000,"Angle":1,"Items":[]})");
  EXPECT_EQ(document.fAngle, ag0);
  document.LoadFromBytes(R"({"Version":3100,"Angle":1,"Items":[]})");
  EXPECT_EQ(document.fAngle, ag90);
}

TEST(FileTest, TheLastCoordinatesAndLengthsAreReadAgainInEveryUnit) {
  for (const TZORUnits unit : {unMM, unINCH, unCM, unDM, unM, unFt, unYd}) {
    TBareLabel document, again;
    document.SetEditorMode(emDrawing);
    document.SetUnits(unit);
    document.NewLine(-MaxCoordinate, MaxCoordinate, MaxCoordinate, -MaxCoordinate)->fPenWidth = INT_MAX;
    again.LoadFromBytes(document.GetJsonString(true));
    EXPECT_EQ(again.GetJsonString(true), document.GetJsonString(true));
    EXPECT_NO_THROW(document.LoadFromBytes(again.SaveToBytes(lfBin)));
  }
}

// A count is checked against the bytes that are left: of many short records at the end of a file, the last
// must not be refused.
TEST(FileTest, ManyShortRecordsAreRead) {
  std::string entries = "{}";
  for (int i = 1; i < 40; ++i) entries += ",{}";
  for (const char* list : {"Layers", "DimStyles", "Counters"}) {
    TBareLabel document, again;
    document.LoadFromBytes(std::string(R"({"Version":3200,"EditorMode":2,")") + list + "\":[" + entries +
                           "]}");
    for (TKDXLayer* layer : document.fLayers) layer->fName = layer->fFontName = "";
    for (TKDXDimStyle* style : document.fDimStyles) style->fName = style->fFontName = "";
    const std::string text = document.SaveToBytes(lfJSON);
    again.LoadFromBytes(document.SaveToBytes(lfBin));
    EXPECT_EQ(again.SaveToBytes(lfJSON), text) << list;
  }
}

TEST(FileTest, OutsideDrawingsAScaleInABinaryFileIsNone) {
  TBareLabel document, again;
  document.NewText(1000, 1000)->SetText("scale");
  document.CalcPending();
  const std::string text = document.GetJsonString(true);
  document.fMeasure->fDrawScale = 5000;
  again.LoadFromBytes(document.SaveToBytes(lfBin));
  EXPECT_EQ(again.fMeasure->fDrawScale, 1);
  EXPECT_EQ(again.GetJsonString(true), text);
}

TEST(FileTest, ThePastedItemsOfTheLastIdentityComeBackFromUndo) {
  TBareLabel document;
  document.LoadFromBytes(R"({"Version":3200,"Items":[{"Type":2,"InID":2000000000}]})");
  document.SetSelection(document.GetItem(1), isSelected);
  document.CopySelection();
  document.PasteSelection();
  document.DeleteSelection();
  document.Undo();
  EXPECT_EQ(document.GetItemsCount(), 2);
}

TEST(FileTest, SavingReplacesTheFileWhole) {
  const std::string name = testing::TempDir() + "kaldrix-file-test.json";
  TBareLabel document;
  document.NewLine(0, 0, 1000, 1000);
  EXPECT_TRUE(document.fModified);
  document.SaveToFile(name, lfJSON);
  EXPECT_FALSE(document.fModified);
  TBareLabel again;
  again.LoadFromFile(name);
  EXPECT_EQ(again.GetItemsCount(), 1);
  RemoveFile(name);
  try {
    again.LoadFromFile(name);
    FAIL() << "a missing file was read";
  } catch (const EFileNotFoundException& error) {
    EXPECT_NE(std::string(error.what()).find(name), std::string::npos);
  }
}

TEST(FileTest, APasteIsNewSelectedAndTwoMillimetresOff) {
  TBareLabel document;
  auto* line = document.NewLine(1000, 1000, 5000, 5000);
  document.SetSelection(line, isSelected);
  document.CopySelection();
  document.PasteSelection();
  ASSERT_EQ(document.GetItemsCount(), 2);
  const TKDXBaseItem* copy = document.GetItem(2);
  EXPECT_EQ(copy->fInID, 2);
  EXPECT_EQ(copy->fID, "Line002");
  EXPECT_EQ(copy->GetPoint(1), (TZORPto{3000, 3000}));
  EXPECT_EQ(document.fSelection, (std::vector<TKDXBaseItem*>{document.GetItem(2)}));
  document.ClearSelection(false);
  document.CopySelection();
  EXPECT_EQ(document.fMemCopy, std::string(4, '\0'));
}

TEST(FileTest, AClipboardThatIsNoneOrEmptyChangesNothing) {
  TBareLabel document;
  document.NewLine(1000, 1000, 5000, 5000);
  auto* other = document.NewText(1000, 1000);
  document.SetSelection(other, isSelected);
  document.AddToSelection(*document.GetItem(1), false);
  document.CopySelection();
  const std::string whole = document.fMemCopy;
  document.SetSelection(other, isSelected);
  document.fModified = false;
  const auto unchanged = [&](const std::string& clipboard) {
    EXPECT_EQ(document.GetItemsCount(), 2) << clipboard.size();
    EXPECT_EQ(document.fSelection, std::vector<TKDXBaseItem*>{other}) << clipboard.size();
    EXPECT_EQ(other->fState, isSelected) << clipboard.size();
    EXPECT_FALSE(document.fStates.HasAny({lsReading, lsUpdating, lsPaste})) << clipboard.size();
    EXPECT_FALSE(document.fModified) << clipboard.size();
    EXPECT_EQ(document.fMaxID, 3) << clipboard.size();
    EXPECT_TRUE(document.IsRecording()) << clipboard.size();
  };
  for (std::size_t length = 1; length <= whole.size(); ++length) {
    document.fMemCopy = length < whole.size() ? whole.substr(0, length) : whole + "x";
    EXPECT_THROW(document.PasteSelection(), Exception) << length;
    unchanged(document.fMemCopy);
  }
  for (const std::string& nothing : {std::string(), std::string(4, '\0')}) {
    document.fMemCopy = nothing;
    document.PasteSelection();
    unchanged(nothing);
  }
  document.fMemCopy = whole;
  document.PasteSelection();
  EXPECT_EQ(document.GetItemsCount(), 4);
  EXPECT_EQ(document.fSelection.size(), 2U);
  EXPECT_TRUE(document.fModified);
}

TEST(FileTest, APolylineOfManyPointsKeepsThemAll) {
  TBareLabel document, again;
  TZORPtoA points(70000);
  for (std::size_t i = 0; i < points.size(); ++i) points[i].SetBase(static_cast<Int64>(i), 5);
  document.NewPolyLine(points, static_cast<int>(points.size()) - 1);
  again.LoadFromBytes(document.SaveToBytes(lfBin));
  EXPECT_EQ(again.GetItem(1)->fPoints, points);
}

}  // namespace
}  // namespace Zor
