#include "kaldrix/core/TComponent.hpp"

#include <algorithm>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Base {

void TPersistent::Assign(const TPersistent& aSource) {
  throw EConvertError(std::string("Cannot assign a ") + aSource.ClassName() + " to a " + ClassName());
}

TComponent::TComponent(TComponent* aOwner) : fComponentOwner(aOwner) {
  if (aOwner != nullptr) aOwner->fComponents.push_back(this);
}

TComponent::~TComponent() {
  fState.destroying = true;
  const std::vector<TComponent*> listeners = std::move(fNotify);
  fNotify.clear();
  for (TComponent* listener : listeners) {
    std::erase(listener->fNotify, this);
    listener->Notification(*this, TOperation::opRemove);
  }
  if (fComponentOwner != nullptr) {
    std::erase(fComponentOwner->fComponents, this);
    if (!fComponentOwner->IsDestroying()) fComponentOwner->Notification(*this, TOperation::opRemove);
  }
  while (!fComponents.empty()) delete fComponents.back();
}

void TComponent::FreeNotification(TComponent& aComponent) {
  if (std::find(fNotify.begin(), fNotify.end(), &aComponent) != fNotify.end()) return;
  fNotify.push_back(&aComponent);
  aComponent.fNotify.push_back(this);
}

void TComponent::RemoveFreeNotification(TComponent& aComponent) {
  std::erase(fNotify, &aComponent);
  std::erase(aComponent.fNotify, this);
}

}  // namespace Zor::inline Base
