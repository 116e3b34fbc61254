#pragma once

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDX2DItem.hpp"
#include "kaldrix/core/TKDXBaseItem.hpp"

namespace Zor::inline Base {

/// An item with a line type, over TKDXBaseItem or TKDX2DItem.
template <class TBase>
class TStyledItem : public TBase, public IZORStyle {
 public:
  using TBase::TBase;

  TZOLineType GetLineType() const override { return fLineType; }
  void SetLineType(TZOLineType aValue) override {
    this->template Change<TKDXEnumValueCmd>(fLineType, aValue, 0, &TKDXBaseItem::StateUpdate);
  }

  TZOLineType fLineType = iiSolid;

 protected:
  void RecordLineType(TRecord& r) { r.Enum32(fLineType, "LineType"); }
  void WriteLineType(TJsonObject& aJson) const { aJson.PutInt("LineType", fLineType); }
  void ReadLineType(const TJsonObject& aJson) { fLineType = GetEnum<TZOLineType>(aJson, "LineType"); }
};

}  // namespace Zor::inline Base
