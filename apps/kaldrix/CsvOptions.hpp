#pragma once

#include <memory>
#include <string>

#include "kaldrix/core/TKDXData.hpp"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace Zor::Program {

/// A CSV file as the records of a print: the options that tell it and its form. The file is read as
/// spreadsheets write it, record by record; what the options do not tell is guessed from it.
class CsvOptions {
 public:
  /// Gives the option that tells the file.
  CLI::Option* AddOptions(CLI::App& aOptions);

  bool IsGiven() const { return !fFile.empty(); }
  bool HasEncoding() const { return !fEncoding.empty(); }
  /// The file, "-" for standard input.
  const std::string& File() const { return fFile; }
  /// Opens the file that the options tell.
  void Attach(TKDXData& aData) const;
  /// Opens the file that a document names, in the form that the document tells.
  void AttachOwn(TKDXData& aData, const std::string& aFile) const;

 private:
  std::shared_ptr<TCsvFile> Open(TKDXData& aData, const std::string& aFile) const;

  std::string fFile, fSep, fQuote = "\"", fEncoding;
  bool fNoHeader = false;
};

}  // namespace Zor::Program
