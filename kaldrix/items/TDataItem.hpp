#pragma once

#include "kaldrix/core/TKDXBaseItem.hpp"
#include "kaldrix/items/TDataFields.hpp"

namespace Zor::inline Base {

/// An item that a data field can fill, over one of the item base classes.
template <class TBase>
class TDataItem : public TBase, public TDataFields, public IZORData {
 public:
  using TBase::TBase;

  /// The binding while the document is linked to data, else ftNone.
  TZORFillType FillType() const override { return ActiveFill(*this->fOwner); }
  std::string FillName() const override { return fField; }
  /// The name of the field behind the marker of its kind.
  std::string SymFillName() const override { return SymField(); }
  std::string GetFormat() const override { return fFormat; }
  bool GetIsData() const override { return this->aIsData && HasValue(*this->fOwner); }
};

}  // namespace Zor::inline Base
