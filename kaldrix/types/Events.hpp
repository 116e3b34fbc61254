// The callbacks by which a document and its editor speak to their host. Each begins with its sender.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Base {
class TKDXBaseLabel;
}

namespace Zor::inline Types {

enum TZORMouseButton : std::uint8_t { mbLeft, mbMiddle, mbRight };

/// Keys held while the mouse is used.
enum TZORShiftKey : std::uint8_t { skShift, skCtrl, skAlt };
using TZORShift = TSet<TZORShiftKey>;

/// Fills `List` with the names of fonts.
using TZORGetFontListEvent =
    std::function<void(Base::TKDXBaseLabel* aSender, std::vector<std::string>& List)>;

using TZORInfoMsgEvent =
    std::function<void(Base::TKDXBaseLabel* aSender, const std::string& Action, const std::string& State)>;

using TZORInfoSymEvent = std::function<void(Base::TKDXBaseLabel* aSender, const std::string& Name,
                                            const std::string& Note, TZORUnits units)>;

/// A symbol is wanted from `aFile`; `aRead` tells whether it was read.
using TZORReadSymEvent =
    std::function<void(Base::TKDXBaseLabel* aSender, const std::string& aFile, bool& aRead)>;

using TZORUndoRedoEvent = std::function<void(Base::TKDXBaseLabel* aSender, bool emptyUndo, bool emptyRedo)>;

/// Positions in drawing units.
using TZORMouseEvent = std::function<void(Base::TKDXBaseLabel* aSender, TZORMouseButton Button,
                                          TZORShift Shift, Single X, Single Y)>;
using TZORMouseMoveEvent =
    std::function<void(Base::TKDXBaseLabel* aSender, TZORShift Shift, Single X, Single Y)>;

/// Fills `ListValues` with the values of the list `aName`; `aFill` tells whether it did.
using TZORGetListValues = std::function<void(Base::TKDXBaseLabel* aSender, const std::string& aName,
                                             std::vector<std::string>& ListValues, bool& aFill)>;

/// Coordinates of the reference system `EPSG` to degrees of latitude and longitude; `Handled` false leaves
/// the conversion to the library.
using TZORGMLCoordinateTransformEvent =
    std::function<void(Base::TKDXBaseLabel* aSender, int EPSG, double X, double Y, double& Latitude,
                       double& Longitude, bool& Handled)>;

}  // namespace Zor::inline Types
