// A copy of the items of a document, made of what the document tells alone.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/TBareLabel.hpp"

namespace Zor {

class TMirror final : public IZOItemObserver {
 public:
  explicit TMirror(TKDXBaseLabel& aDocument) : fDocument(aDocument) {
    aDocument.AttachItems(this);
    TakeAll();
  }

  void ItemCame(TKDXBaseItem& aItem) override {
    EXPECT_FALSE(fRecords.contains(&aItem)) << aItem.fID << " came twice";
    fOrder.push_back(&aItem);
    fRecords[&aItem] = RecordOf(aItem);
  }
  void ItemChanged(TKDXBaseItem& aItem) override {
    EXPECT_TRUE(fRecords.contains(&aItem)) << aItem.fID << " changed and never came";
    fRecords[&aItem] = RecordOf(aItem);
  }
  void ItemGoes(TKDXBaseItem& aItem) override {
    EXPECT_EQ(fRecords.erase(&aItem), 1U) << aItem.fID << " goes and never came";
    std::erase(fOrder, &aItem);
  }
  void OrderChanged() override { fOrder.assign(fDocument.fItems.begin(), fDocument.fItems.end()); }
  void ContentReplaced() override { TakeAll(); }
  void DocumentChanged() override { ++fDocumentChanges; }

  /// Empty when the mirror shows what the document holds, else what differs.
  std::string Fault() const {
    if (fOrder.size() != static_cast<std::size_t>(fDocument.GetItemsCount())) {
      return std::to_string(fOrder.size()) + " items in place of " +
             std::to_string(fDocument.GetItemsCount());
    }
    for (std::size_t i = 0; i < fOrder.size(); ++i) {
      const TKDXBaseItem* item = fDocument.fItems[static_cast<int>(i)];
      if (fOrder[i] != item) return "another item at place " + std::to_string(i);
      if (fRecords.at(item) != RecordOf(*item)) return item->fID + " is another one";
    }
    return {};
  }

  int fDocumentChanges = 0;

 private:
  static std::string RecordOf(const TKDXBaseItem& aItem) {
    std::string record;
    TBinaryWriter writer(record);
    aItem.WriteData(writer);
    return record;
  }
  void TakeAll() {
    fOrder.assign(fDocument.fItems.begin(), fDocument.fItems.end());
    fRecords.clear();
    for (const TKDXBaseItem* item : fDocument.fItems) fRecords[item] = RecordOf(*item);
  }

  TKDXBaseLabel& fDocument;
  std::vector<const TKDXBaseItem*> fOrder;
  std::map<const TKDXBaseItem*, std::string> fRecords;
};

}  // namespace Zor
