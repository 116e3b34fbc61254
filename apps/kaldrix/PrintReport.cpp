#include "apps/kaldrix/PrintReport.hpp"

#include "kaldrix/platform/ShownName.hpp"

namespace Zor::Program {

namespace {

/// "label 7: page 1, row 3, column 1, record 7, Tag 'A-01207'".
std::string Told(const TRunLabel& aLabel) {
  std::string text = "label " + std::to_string(aLabel.label) + ": page " + std::to_string(aLabel.page) +
                     ", row " + std::to_string(aLabel.row) + ", column " + std::to_string(aLabel.column);
  if (aLabel.record > 0) text += ", record " + std::to_string(aLabel.record);
  for (const auto& [name, value] : aLabel.counters)
    text += ", " + ShownName(name) + " '" + ShownName(value) + "'";
  return text;
}

}  // namespace

void PrintReport::Take(const TRunLabel& aLabel) {
  if (!fFirst) fFirst = aLabel;
  fLast = aLabel;
}

std::string PrintReport::Text(const std::vector<std::string>& aFiles) const {
  const TLabelRanges& labels = fRun.Selected();
  const bool all = labels.Count() == fRun.Labels();
  std::string text = "labels: " + std::to_string(labels.Count());
  if (!all) text += " of " + std::to_string(fRun.Labels()) + ": " + labels.Text();
  text += "\npages: " + std::to_string(fRun.Pages()) + "\n";
  if (fFirst) text += "first " + Told(*fFirst) + "\n";
  if (fLast) text += "last " + Told(*fLast) + "\n";
  if (!aFiles.empty()) {
    text += "files: " + std::to_string(aFiles.size()) + ": " + ShownName(aFiles.front());
    if (aFiles.size() > 1) text += " to " + ShownName(aFiles.back());
    text += "\n";
  }
  return text;
}

}  // namespace Zor::Program
