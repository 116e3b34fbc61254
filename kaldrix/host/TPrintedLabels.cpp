#include "kaldrix/host/TPrintedLabels.hpp"

namespace Zor::inline Host {

TPrintedLabels::TPrintedLabels(const std::string& aManifest,
                               const std::function<bool(const TRunLabel&)>& aWanted)
    : fManifest(aManifest), fState(TRunManifest::Read(aManifest, [&](const TRunLabel& label) {
        if (aWanted(label)) fLabels.emplace(label.label, label);
      })) {}

void TPrintedLabels::Check(const TRunLabel& aLabel) const {
  const auto found = fLabels.find(aLabel.label);
  const std::string which = fManifest + ": label " + std::to_string(aLabel.label);
  if (found == fLabels.end()) throw ELedgerError(which + " has not been printed");
  if (found->second.record != aLabel.record || found->second.counters != aLabel.counters)
    throw ELedgerError(which + " would have another record or other counter values now");
}

}  // namespace Zor::inline Host
