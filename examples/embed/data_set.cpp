// Labels from records that the program holds itself: a data set of one's own.
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "kaldrix/host/Host.hpp"

namespace {

struct TProduct {
  std::string name;
  double price;
};

/// A column; its value is that of the current record.
class TColumn final : public Zor::TField {
 public:
  TColumn(std::string aName, Zor::TDataKind aKind) : fName(std::move(aName)), fKind(aKind) {}
  const std::string& FieldName() const override { return fName; }
  Zor::TDataKind DataType() const override { return fKind; }
  bool IsNull() const override { return fText.empty(); }
  std::string AsString() const override { return fText; }
  std::int64_t AsInteger() const override { return static_cast<std::int64_t>(fNumber); }
  double AsFloat() const override { return fNumber; }
  Zor::TDateTime AsDateTime() const override { return fNumber; }
  void SaveToStream(std::string& aBytes) const override { aBytes += fText; }

  std::string fText;
  double fNumber = 0;

 private:
  std::string fName;
  Zor::TDataKind fKind;
};

class TProducts final : public Zor::TDataSet {
 public:
  explicit TProducts(std::vector<TProduct> aRows) : fRows(std::move(aRows)) { SetRecNo(1); }

  const std::string& Name() const override { return fName; }
  void First() override { SetRecNo(1); }
  void Next() override {
    fEof = fRecord >= RecordCount();
    SetRecNo(fRecord + 1);
  }
  bool Eof() const override { return fEof; }
  std::int64_t RecordCount() const override { return static_cast<std::int64_t>(fRows.size()); }
  std::int64_t RecNo() const override { return fRecord; }
  void SetRecNo(std::int64_t aRecord) override {
    if (aRecord < 1 || aRecord > RecordCount()) return;
    fRecord = aRecord;
    fEof = false;
    const TProduct& row = fRows[static_cast<std::size_t>(aRecord - 1)];
    fProduct.fText = row.name;
    fPrice.fNumber = row.price;
    fPrice.fText = std::to_string(row.price);
  }
  int FieldCount() const override { return 2; }
  const Zor::TField& Fields(int aIndex) const override { return aIndex == 0 ? fProduct : fPrice; }
  const Zor::TField* FindField(std::string_view aName) const override {
    for (const TColumn* column : {&fProduct, &fPrice}) {
      if (Zor::SameText(column->FieldName(), aName)) return column;
    }
    return nullptr;
  }

 private:
  std::string fName = "products";
  std::vector<TProduct> fRows;
  TColumn fProduct{"product", Zor::dkString}, fPrice{"price", Zor::dkFloat};
  std::int64_t fRecord = 0;
  bool fEof = true;
};

}  // namespace

int main() {
  TProducts products({{"Tea", 2.5}, {"Coffee", 4.25}, {"Cocoa", 3}});
  Zor::TKDXLabel label;
  label.fData->fDatasets.Add().SetDataset(&products);  // not owned; registered over a load too
  label.fData->Select(Zor::dtyDataset, "products");
  auto* name = label.NewText(5000, 5000);
  auto* price = label.NewText(5000, 15000);
  name->SetData(Zor::ftField, "product", "");
  price->SetData(Zor::ftField, "price", "0.00 €");

  label.CheckPrintData();  // opens the source, and plans the print
  std::cout << label.fPrintInfo->LabelsOfRun() << " labels\n";
  for (int i = 1; i <= label.fPrintInfo->LabelsOfRun(); ++i, label.NextData()) {
    std::cout << label.DataValue("product", "", Zor::ftField) << ", "
              << label.DataValue("price", "0.00 €", Zor::ftField) << '\n';
  }
}
