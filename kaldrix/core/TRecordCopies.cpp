#include "kaldrix/core/TRecordCopies.hpp"

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Base {

TRecordCopies::TRecordCopies(TKDXBaseLabel& aDocument) : fDocument(aDocument) {}

TRecordCopies::~TRecordCopies() {
  // The last one first: the list of copies is searched from its end.
  for (auto copy = fCopies.rbegin(); copy != fCopies.rend(); ++copy) fDocument.Free(**copy);
}

TKDXBaseItem& TRecordCopies::CopyOf(const TKDXBaseItem& aItem) {
  const auto [place, missing] = fCopyOf.try_emplace(&aItem, nullptr);
  if (missing) place->second = &MakeCopy(aItem);
  return *place->second;
}

TKDXBaseItem& TRecordCopies::MakeCopy(const TKDXBaseItem& aItem) {
  const auto states = fDocument.fStates;
  try {
    fCopies.reserve(fCopies.size() + 1);
    fCopies.push_back(&fDocument.MakePreviewCopy(aItem, 0, 0));
    fCopies.back()->FillData(true);
    fDocument.CalcPending();
  } catch (const Exception& error) {
    fDocument.fStates = states;
    throw Exception(aItem.fID + ": " + error.what());
  }
  fDocument.fStates = states;
  return *fCopies.back();
}

}  // namespace Zor::inline Base
