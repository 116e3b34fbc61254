// What crosses the border of a library: exceptions both ways, types, and the version. use_core FOLDER
#include <iostream>
#include <string>

#include "kaldrix/Version.hpp"
#include "kaldrix/core/TUpdateBracket.hpp"
#include "kaldrix/editor/TBareLabel.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace {

class TTooMuch : public Zor::EInvalidOperation {
 public:
  using EInvalidOperation::EInvalidOperation;
};

/// Raises an exception of its own in the midst of an operation of the library.
class TFullView final : public Zor::IZOObserver {
 public:
  Zor::TZODestUpdate Destination() override { return Zor::duEditor; }
  void Update(Zor::TZOChange aChange, const Zor::TZOChangeValue&) override {
    if (aChange == Zor::chPaint) throw TTooMuch("the view is full");
  }
};

template <class TError, class TWork>
void Tell(const std::string& aWhat, TWork aWork) {
  try {
    aWork();
    std::cout << aWhat << ": nothing was raised\n";
  } catch (const TError& error) {
    std::cout << aWhat << ": " << error.what() << '\n';
  } catch (...) {
    std::cout << aWhat << ": another exception\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string folder = argv[1];
  std::cout << "version " << KALDRIX_VERSION << '\n';

  Zor::TBareLabel label;
  Tell<Zor::EFileNotFoundException>("missing", [&] { label.LoadFromFile("missing.json"); });
  Zor::TKDXBaseItem* item = label.NewBarcode(1000, 1000, "4711", Zor::btEAN128A);
  Zor::TKDXBaseItem* made = label.NewLine(0, 0, 1000, 1000);
  std::cout << "line " << (dynamic_cast<Zor::TKDXBaseLine*>(made) != nullptr) << ", not a text "
            << (dynamic_cast<Zor::TKDXBaseText*>(made) == nullptr) << ", barcode "
            << (dynamic_cast<Zor::TKDXBaseBarcode*>(item) != nullptr) << '\n';

  TFullView view;
  label.Attach(&view);
  Tell<TTooMuch>("observer", [&] {
    const Zor::TUpdateBracket bracket(label);
    made->SetColor(0xFF1E88E5);
  });
  label.Detach(&view);

  label.SaveToFile(folder + "/drawing.bin", Zor::lfBin);
  label.LoadFromFile(folder + "/drawing.bin");
  label.SaveSVG(folder + "/drawing.svg", Zor::svCurrentUnit, 1, false);
  std::cout << "items " << label.GetItemsCount() << '\n';
}
