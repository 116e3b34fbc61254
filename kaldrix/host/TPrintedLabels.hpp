#pragma once

#include <functional>
#include <string>
#include <unordered_map>

#include "kaldrix/host/TRunManifest.hpp"

namespace Zor::inline Host {

/// Labels that a ledger tells of, which are to be printed again just as they were.
class TPrintedLabels {
 public:
  /// Reads those that `aWanted` accepts; raises what TRunManifest::Read raises.
  TPrintedLabels(const std::string& aManifest, const std::function<bool(const TRunLabel&)>& aWanted);

  const TRunState& State() const { return fState; }
  /// Raises ELedgerError for a label that the ledger does not tell of, or tells of with another record or
  /// other counter values.
  void Check(const TRunLabel& aLabel) const;

 private:
  std::string fManifest;
  std::unordered_map<int, TRunLabel> fLabels;
  TRunState fState;
};

}  // namespace Zor::inline Host
