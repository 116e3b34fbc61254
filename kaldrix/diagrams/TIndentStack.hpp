#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Zor::inline Diagramparsers {

/// The open branches of a tree that is written by indentation.
class TIndentStack {
 public:
  /// Closes every branch that stands at this indentation or deeper. The node above the line, or an empty
  /// text.
  std::string_view ParentAt(int aIndent) {
    while (!fOpen.empty() && fOpen.back().first >= aIndent) fOpen.pop_back();
    return fOpen.empty() ? std::string_view() : fOpen.back().second;
  }
  void Push(int aIndent, std::string_view aID) { fOpen.emplace_back(aIndent, aID); }

 private:
  std::vector<std::pair<int, std::string>> fOpen;
};

}  // namespace Zor::inline Diagramparsers
