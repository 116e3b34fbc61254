// Keeps a list of the items of a document right by what an observer of items is told.
#include <iostream>
#include <map>
#include <string>

#include "kaldrix/host/Host.hpp"

namespace {

class TItemNames final : public Zor::IZOItemObserver {
 public:
  explicit TItemNames(Zor::TKDXLabel& aLabel) : fLabel(aLabel) {
    ContentReplaced();
    aLabel.AttachItems(this);  // forgotten by itself when one of both goes
  }

  void ItemCame(Zor::TKDXBaseItem& aItem) override { fNames[&aItem] = aItem.GetID(); }
  void ItemChanged(Zor::TKDXBaseItem& aItem) override { fNames[&aItem] = aItem.GetID(); }
  void ItemGoes(Zor::TKDXBaseItem& aItem) override { fNames.erase(&aItem); }
  void ContentReplaced() override {
    fNames.clear();
    for (Zor::TKDXBaseItem* item : fLabel.fItems) ItemCame(*item);
  }

  void Tell(const char* aWhen) const {
    std::map<int, std::string> byIdentity;
    for (const auto& [item, name] : fNames) byIdentity[item->fInID] = name;
    std::cout << aWhen << ':';
    for (const auto& [id, name] : byIdentity) std::cout << ' ' << name;
    std::cout << '\n';
  }

 private:
  Zor::TKDXLabel& fLabel;
  std::map<Zor::TKDXBaseItem*, std::string> fNames;
};

}  // namespace

int main() {
  Zor::TKDXLabel label;
  label.NewLine(0, 0, 10000, 0);
  TItemNames names(label);
  names.Tell("attached");

  auto* circle = label.NewCircle(20000, 20000, 5000);
  circle->SetID("Hole");
  names.Tell("a circle");
  const std::string bytes = label.SaveToBytes(Zor::lfJSON);
  label.DeleteItem(circle, true);
  names.Tell("deleted");
  label.Undo();
  names.Tell("undone");

  label.New();
  names.Tell("a new document");
  label.LoadFromBytes(bytes);
  names.Tell("loaded");
  try {
    label.LoadFromBytes("no drawing");
  } catch (const Zor::Exception&) {
    names.Tell("not loaded");
  }
}
