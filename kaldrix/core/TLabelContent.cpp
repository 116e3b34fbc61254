#include "kaldrix/core/TLabelContent.hpp"

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/TKDXBaseItem.hpp"
#include "kaldrix/core/TKDXBaseLibSymbol.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"

namespace Zor::inline Base {

TLabelContent::TLabelContent() = default;
TLabelContent::TLabelContent(TLabelContent&&) noexcept = default;
TLabelContent& TLabelContent::operator=(TLabelContent&&) noexcept = default;
TLabelContent::~TLabelContent() = default;

}  // namespace Zor::inline Base
