// The forms in which commands write a document.
#pragma once

#include <string>
#include <string_view>

#include "kaldrix/host/Export.hpp"
#include "kaldrix/platform/TFileSet.hpp"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace Zor::Program {

struct TOutputFormat {
  std::string_view name;  ///< the suffix too
  bool picture;           ///< not the document itself
  std::string (*make)(TKDXLabel&, const TExportOptions&);
};

/// Adds --svg-text.
void AddSvgText(CLI::App& aOptions, TSvgTextForm& aForm);

/// Where a command writes to, and in which form.
class Output {
 public:
  /// Adds -o, which it gives, --format and --svg-text. With `aPictures`, the document itself is no form.
  CLI::Option* AddOptions(CLI::App& aOptions, bool aPictures);
  /// The form that was asked for, or that of the file's suffix. Raises CLI::ValidationError.
  const TOutputFormat& Format() const;
  /// Raises EStreamError when the output is the input, or one of those files, under whatever name.
  void RequireOther(const std::string& aInput, TFileSet aFiles = {}) const;
  void Write(TKDXLabel& aDocument, const TExportOptions& aOptions) const;
  /// Writes something that is no document; to standard output when no name was told.
  void WriteBytes(std::string_view aBytes) const;

 private:
  std::string Words() const;

  std::string fName, fFormat;
  bool fPictures = false;
  TSvgTextForm fSvgText = stPortable;
};

}  // namespace Zor::Program
