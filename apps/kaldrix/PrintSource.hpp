#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/TKDXLabel.hpp"
#include "kaldrix/platform/TDataSet.hpp"
#include "kaldrix/platform/TFileSet.hpp"

namespace CLI {
class App;
}

namespace Zor::Program {

/// Where the records of a print come from: the options that tell it, and what is open for it.
class PrintSource {
 public:
  void AddOptions(CLI::App& aOptions);

  /// Binds a document to the source that was asked for, else to the one that the document itself names, whose
  /// relative file name starts at the folder of `aDocumentName`. The source must outlive the document's walk.
  /// Raises Exception that names the file.
  void Attach(TKDXLabel& aDocument, const std::string& aDocumentName);
  /// The checksum of what the records are made from: of a text source its bytes, of a database the query.
  std::uint32_t Sum(const TKDXLabel& aDocument) const;
  /// Adds the files that the records come from.
  void AddFiles(TFileSet& aFiles, const TKDXLabel& aDocument) const;
  bool ReadsStandardInput() const { return fCsv == "-" || fJson == "-"; }

 private:
  void AttachCsv(TKDXLabel& aDocument) const;
  void AttachJson(TKDXLabel& aDocument) const;
  void AttachSqlite(TKDXLabel& aDocument);
  void Select(TKDXLabel& aDocument, TZORDataType aType, const std::string& aFile) const;

  std::string fCsv, fSep, fQuote = "\"", fJson, fSqlite, fQuery, fName, fRepeat;
  bool fNoHeader = false;
  std::unique_ptr<TDataSet> fDataSet;
};

}  // namespace Zor::Program
