#pragma once

#include <string>

#include "apps/kaldrix/BarcodeTypes.hpp"
#include "apps/kaldrix/Command.hpp"
#include "apps/kaldrix/OutputFormat.hpp"
#include "kaldrix/host/TKDXLabel.hpp"

namespace Zor::Program {

/// `kaldrix barcode`: one symbol as SVG, PNG or PDF.
class BarcodeCommand final : public Command {
 public:
  explicit BarcodeCommand(CLI::App& aProgram);
  int Run() const override;

 private:
  void AddLookOptions();
  void AddTextOptions();
  /// Raises CLI::ValidationError for an option that does nothing for the type.
  void CheckUse() const;
  const TBarcodeKind& Kind() const { return *FindBarcodeKind(fType); }
  TKDXBaseItem& MakeLinear(TKDXLabel& aDocument, const std::string& aText) const;
  TKDXBaseItem& MakeMatrix(TKDXLabel& aDocument, const std::string& aText) const;
  /// The text with the zeros and the check digit that were asked for and that the engine does not add.
  std::string Completed(std::string aText) const;
  /// Raises Exception that begins with the type when a reader would not find the text.
  TKDXBaseItem& MakeHeldSymbol(TKDXLabel& aDocument, const std::string& aText) const;
  template <class TItem>
  TItem& Make(TKDXLabel& aDocument) const;

  std::string fType, fText;
  Output fOutput;
  Single fModule = 0, fHeight = 0;  ///< millimetres; 0 leaves the start value
  double fDpi = 300;
  bool fNoText = false, fCheck = false, fPad = false, fGs1 = false, fEscapes = false;
};

}  // namespace Zor::Program
