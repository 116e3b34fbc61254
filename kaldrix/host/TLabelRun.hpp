// A label run: every label that data, counters and the number of labels give, sheet by sheet.
#pragma once

#include <memory>
#include <vector>

#include "kaldrix/core/TLabelRanges.hpp"
#include "kaldrix/host/Export.hpp"
#include "kaldrix/host/ExportPlan.hpp"
#include "kaldrix/host/TRunManifest.hpp"

namespace Zor::inline Host {

/// Plans a print of a document and walks through its sheets. The cost of a sheet does not depend on those
/// before it.
class TLabelRun {
 public:
  /// Plans the print; questions and lists in use are active from then on (see RunAnswers.hpp). Raises what
  /// the source raises.
  explicit TLabelRun(TKDXLabel& aDocument);

  /// Raises Exception that names every item whose field, counter, list or question there is not, or a source
  /// that gives no label.
  void CheckBindings() const;

  /// Labels of the whole run.
  int Labels() const { return fLabels; }
  /// Those that are printed; all of them before Select.
  const TLabelRanges& Selected() const { return fSelected; }
  int First() const { return fSelected.First(); }
  int Last() const { return fSelected.Last(); }
  int Pages() const;
  /// The first cell of the first page, 1-based. Raises EArgumentOutOfRangeException off the sheet.
  void StartAt(int aRow, int aColumn);
  /// Prints only some of the labels. Ranges may end behind the run; raises EArgumentOutOfRangeException for
  /// one that begins there.
  void Select(const TLabelRanges& aLabels);

  /// Fills a page of those labels, 1-based. What stands in its cells is in Sheet() until the next call.
  TExportPlan Fill(int aPage, const TExportOptions& aOptions);
  const std::vector<TRunLabel>& Sheet() const { return fSheet; }

 private:
  /// What there is not; empty when it is there.
  std::string MissingBinding(TZORFillType aFill, const std::string& aName) const;
  void TakeSheet(int aPage);

  TKDXLabel& fDocument;
  int fLabels = 0;
  TLabelRanges fSelected;
  std::vector<TRunLabel> fSheet;
};

}  // namespace Zor::inline Host
