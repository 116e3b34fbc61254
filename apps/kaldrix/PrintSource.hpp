#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "apps/kaldrix/CsvOptions.hpp"
#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/json/TJsonFile.hpp"
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
  /// Raises Exception that names the file, also for a source or repeat field that is not there, and
  /// CLI::ValidationError for options that do not go together.
  void Attach(TKDXLabel& aDocument, const std::string& aDocumentName);
  /// The checksum of what the records are made from: of a text source its bytes, of a database the query.
  std::uint32_t Sum(const TKDXLabel& aDocument) const;
  /// Adds the files that the records come from.
  void AddFiles(TFileSet& aFiles, const TKDXLabel& aDocument) const;
  bool ReadsStandardInput() const { return fCsv.File() == "-" || fJson == "-"; }

 private:
  void CheckUse(const TKDXData& aData) const;
  void AttachJson(TKDXData& aData);
  void AttachSqlite(TKDXData& aData);
  void AttachOwn(TKDXData& aData, const std::string& aDocumentName) const;
  void AttachOwnCsv(TKDXData& aData, const std::string& aDocumentName) const;
  void SelectArray(TKDXData& aData, const std::string& aFile) const;
  void TakeRepeat(TKDXData& aData, const std::string& aDocumentName) const;

  CsvOptions fCsv;
  std::string fJson, fSqlite, fQuery, fName;
  std::optional<std::string> fRepeat;
  std::shared_ptr<const TJsonFile> fJsonFile;
  std::unique_ptr<TDataSet> fDataSet;
};

}  // namespace Zor::Program
