// Files: what is unsaved, what a load replaces, and what stays.
#include <iostream>
#include <string>

#include "kaldrix/host/Host.hpp"

namespace {

/// A document that is open in a window: it knows whether there is something to save.
class TOpenDocument {
 public:
  Zor::TKDXLabel fLabel;

  bool IsUnsaved() const { return fLabel.ContentVersion() != fSaved; }
  void Save(const std::string& aFile) {
    fLabel.SaveToFile(aFile, Zor::lfJSON);  // the old file or the new one, whatever happens
    fSaved = fLabel.ContentVersion();
  }
  void Load(const std::string& aFile) {
    fLabel.LoadFromFile(aFile);  // JSON or binary, told by the content
    fSaved = fLabel.ContentVersion();
  }

 private:
  unsigned fSaved = fLabel.ContentVersion();
};

}  // namespace

int main() {
  TOpenDocument open;
  Zor::TKDXLabel& label = open.fLabel;
  Zor::TKDXMeasure& measure = *label.fMeasure;  // lives as long as the document

  label.NewLine(0, 0, 10000, 0);
  measure.SetLabelSizeMM(80, 40);
  std::cout << "drawn: " << (open.IsUnsaved() ? "unsaved" : "saved") << '\n';
  open.Save("drawing.json");
  std::cout << "written: " << (open.IsUnsaved() ? "unsaved" : "saved") << '\n';

  measure.SetLabelSizeMM(20, 20);
  label.fPrintInfo->fPrinterName = "Upstairs";  // in no file
  label.NewCircle(5000, 5000, 2000);
  std::cout << "edited: " << (open.IsUnsaved() ? "unsaved" : "saved") << '\n';
  try {
    open.Load("missing.json");
  } catch (const Zor::Exception& error) {
    std::cout << error.what() << '\n'
              << "as before: " << label.GetItemsCount() << " items, " << measure.GetWidth() << " mm, "
              << (open.IsUnsaved() ? "unsaved" : "saved") << '\n';
  }

  open.Load("drawing.json");
  std::cout << "loaded: " << label.GetItemsCount() << " item, " << measure.GetWidth() << " mm, "
            << (open.IsUnsaved() ? "unsaved" : "saved") << ", printer " << label.fPrintInfo->fPrinterName
            << '\n';
}
