// The list of items and the index of names, against a plain list and a plain search.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/platform/Utf8.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

using TItems = std::vector<TKDXBaseItem*>;

/// A document, and beside it what its list has to be.
class TMirroredLabel {
 public:
  TMirroredLabel() {
    doc.fOptions.Remove(loUniqueID);
    for (int i = 0; i < 4; ++i) doc.AddLayer();
    doc.SetLayerZOrder(true);
  }

  void Step() {
    // Some steps come in runs, so that the list grows and shrinks.
    const auto kind = fRandom() % 100;
    if (plain.empty() || kind < (fGrowing ? 50 : 20)) return Add();
    if (kind < 60) return Delete(Any());
    if (kind < 75) return SetLayer(Any());
    if (kind < 80) return Restack(Any());
    if (kind < 82) return Sort();
    if (kind < 83) return DeleteMany();
    if (kind < 84) fGrowing = !fGrowing;
    Rename(Any());
  }

  void Check() {
    ASSERT_EQ(TItems(doc.fItems.begin(), doc.fItems.end()), plain);
    ASSERT_EQ(doc.fItems.Count(), static_cast<int>(plain.size()));
    for (std::size_t i = 0; i < plain.size(); ++i) {
      ASSERT_EQ(doc.GetItem(static_cast<int>(i) + 1), plain[i]);
      ASSERT_EQ(doc.fItems.IndexOf(plain[i]), static_cast<int>(i));
    }
    for (const char* name : Names) CheckName(name);
  }

  TBareLabel doc;
  TItems plain;

 private:
  static constexpr const char* Names[] = {"Door",         "door",         "DOOR", "Wall",
                                          "\xC3\x84rger", "\xC3\xA4RGER", "none"};

  TKDXBaseItem* Any() { return plain[fRandom() % plain.size()]; }

  void Add() {
    plain.push_back(doc.NewLine(0, 0, 100, 100));
    if (fRandom() % 2 == 0) Rename(plain.back());
  }
  void Delete(TKDXBaseItem* aItem) {
    std::erase(plain, aItem);
    doc.DeleteItem(aItem, true);
  }
  void DeleteMany() {
    for (int i = 0; i < 20; ++i) doc.AddToSelection(*Any(), false);
    std::erase_if(plain, [](const TKDXBaseItem* item) { return item->fState != isNormal; });
    doc.DeleteSelection();
  }
  void SetLayer(TKDXBaseItem* aItem) {
    aItem->SetLayer(*doc.LayerAt(static_cast<int>(fRandom() % 5)));
    SortPlain();
  }
  void Sort() {
    doc.ExchangeLayers(2, 4);
    SortPlain();
  }
  void SortPlain() {
    std::stable_sort(plain.begin(), plain.end(), [this](const TKDXBaseItem* a, const TKDXBaseItem* b) {
      return doc.LayerIdx(a->fLayer) < doc.LayerIdx(b->fLayer);
    });
  }
  void Restack(TKDXBaseItem* aItem) {
    doc.SetSelection(aItem, isSelected);
    const bool top = fRandom() % 2 == 0;
    std::erase(plain, aItem);
    plain.insert(top ? plain.end() : plain.begin(), aItem);
    top ? doc.BringToFront() : doc.SendToBack();
    doc.ClearSelection(false);
  }
  void Rename(TKDXBaseItem* aItem) { aItem->SetID(Names[fRandom() % 6]); }

  void CheckName(const std::string& aName) {
    const auto has = [&](const TKDXBaseItem* item) { return SameText(item->fID, aName); };
    const auto first = std::find_if(plain.begin(), plain.end(), has);
    ASSERT_EQ(doc.SearchItem(aName, false), first == plain.end() ? nullptr : *first) << aName;
    if (first == plain.end()) return;
    ASSERT_EQ(doc.RepeatID(aName, *first), std::count_if(plain.begin(), plain.end(), has) > 1);
  }

  std::mt19937 fRandom{1};
  bool fGrowing = true;
};

TEST(ItemList, AWalkOfChangesKeepsOrderAndNames) {
  TMirroredLabel mirrored;
  for (int i = 0; i < 6000 && !testing::Test::HasFatalFailure(); ++i) {
    mirrored.Step();
    if (i % 10 == 0) mirrored.Check();
  }
  // Several blocks, each cut and filled again.
  for (int i = 0; i < 2000; ++i) mirrored.plain.push_back(mirrored.doc.NewLine(0, 0, 100, 100));
  for (int i = 0; i < 4000 && !testing::Test::HasFatalFailure(); ++i) {
    mirrored.Step();
    if (i % 100 == 0) mirrored.Check();
  }
  EXPECT_GT(mirrored.plain.size(), 1000U);
}

TEST(ItemList, AFormerOrderIsNotTakenForThePresentOne) {
  TBareLabel doc;
  TKDXLayer& upper = doc.AddLayer();
  doc.SetLayerZOrder(true);
  for (int i = 0; i < 40; ++i) doc.NewLine(0, 0, 100, 100)->SetLayer(upper);
  while (doc.fItems.Count() > 1) doc.DeleteItem(doc.fItems.Last(), true);
  // What comes now has the ranks that ordered items had.
  TKDXBaseItem* below = doc.NewLine(0, 0, 100, 100);
  for (int i = 0; i < 40; ++i) doc.NewLine(0, 0, 100, 100)->fLayer = &upper;
  doc.fItems.Last()->SetLayer(upper);
  EXPECT_EQ(doc.fItems.First(), below);

  doc.SetLayerZOrder(false);
  doc.fItems.Last()->SetLayer(doc.GetLayer(1));
  doc.fLayerZOrder = true;
  below->SetLayer(upper);
  EXPECT_EQ(doc.LayerIdx(doc.fItems.First()->fLayer), 0);
}

TEST(ItemList, RanksAreGivenAnewWhereNoneIsLeft) {
  TBareLabel doc;
  doc.fOptions.Remove(loUniqueID);
  constexpr int layers = 80;
  for (int i = 0; i < layers; ++i) doc.AddLayer();
  doc.SetLayerZOrder(true);
  doc.NewLine(0, 0, 100, 100);
  doc.NewLine(0, 0, 100, 100)->SetLayer(doc.GetLayer(layers));
  // Each comes between the one before and the last.
  for (int i = 2; i < layers; ++i) {
    TKDXBaseItem* item = doc.NewLine(0, 0, 100, 100);
    item->SetID("same");
    item->SetLayer(doc.GetLayer(i));
    ASSERT_EQ(doc.fItems.IndexOf(item), i - 1);
    ASSERT_EQ(doc.SearchItem("same", false), doc.GetItem(2));
  }
  for (int i = 1; i <= layers; ++i) EXPECT_EQ(doc.LayerIdx(doc.GetItem(i)->fLayer), i - 1);
}

TEST(ItemList, WhatIsDeletedWhileItIsSelectedAndWaitsLeavesEveryList) {
  // Selected in their order, against it and twice; deleted from both ends and from the middle.
  for (const int kind : {0, 1, 2}) {
    TBareLabel doc;
    doc.BeginUpdate(true);
    TItems items;
    for (int i = 0; i < 9; ++i) items.push_back(doc.NewText(1000 * i, 1000));
    for (TKDXBaseItem* item : items) static_cast<TKDXBaseText*>(item)->SetText("waits");
    if (kind == 1) std::reverse(items.begin(), items.end());
    for (TKDXBaseItem* item : items) doc.AddToSelection(*item, false);
    if (kind == 2) doc.AddToSelection(*items[4], false);
    for (const std::size_t index : {8U, 0U, 4U, 5U}) {
      doc.DeleteItem(items[index], true);
      EXPECT_EQ(std::count(doc.fSelection.begin(), doc.fSelection.end(), items[index]), 0);
      EXPECT_EQ(std::count(doc.fCalcs.begin(), doc.fCalcs.end(), items[index]), 0);
    }
    doc.EndUpdate();
    doc.ClearPreview();
    doc.Undo();
    EXPECT_EQ(doc.GetItemsCount(), 0) << "the deletions and then the making, in one group";
    EXPECT_TRUE(doc.fSelection.empty());
  }
}

}  // namespace
}  // namespace Zor
