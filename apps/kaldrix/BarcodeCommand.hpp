#pragma once

#include <string>

#include "apps/kaldrix/Command.hpp"
#include "apps/kaldrix/OutputFormat.hpp"
#include "host/TKDXLabel.hpp"

namespace Zor::Program {

/// `kaldrix barcode`: one symbol as SVG, PNG or PDF.
class BarcodeCommand final : public Command {
 public:
  explicit BarcodeCommand(CLI::App& aProgram);
  int Run() const override;

 private:
  TKDXBaseItem& MakeSymbol(TKDXLabel& aDocument, const std::string& aText) const;
  /// Raises Exception that begins with the type when the text cannot be encoded.
  TKDXBaseItem& MakeHeldSymbol(TKDXLabel& aDocument, const std::string& aText) const;
  /// Raises Exception when the symbol does not say all of the text, or could not be read.
  void CheckHeld(const TKDXBaseItem& aItem, const std::string& aText) const;
  template <class TItem>
  TItem& Make(TKDXLabel& aDocument, TZORItemType aType) const;

  std::string fType, fText;
  Output fOutput;
  Single fModule = 0, fHeight = 0;  ///< millimetres; 0 leaves the start value
  double fDpi = 300;
  bool fNoText = false, fCheck = false;
};

}  // namespace Zor::Program
