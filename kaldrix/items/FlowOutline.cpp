#include "kaldrix/items/FlowOutline.hpp"

#include <array>

namespace Zor::inline F2d {

namespace {

constexpr TFlowPlace Start(int aPart = 0) { return {false, static_cast<std::int8_t>(aPart), false}; }
constexpr TFlowPlace End(int aPart = 0) { return {true, static_cast<std::int8_t>(aPart), false}; }
/// The same with the width, for the sheets of several documents.
constexpr TFlowPlace StartW(int aPart) { return {false, static_cast<std::int8_t>(aPart), true}; }
constexpr TFlowPlace EndW(int aPart) { return {true, static_cast<std::int8_t>(aPart), true}; }

constexpr TFlowPlace Half = Start(2);

constexpr std::array LeftBar{TFlowPoint{Start(15), Start()}, TFlowPoint{Start(15), End()}};
constexpr std::array RightBar{TFlowPoint{End(-15), Start()}, TFlowPoint{End(-15), End()}};

constexpr std::array Document{
    TFlowPoint{Start(), End()},   TFlowPoint{Start(4), End(6)}, TFlowPoint{Half, End()},
    TFlowPoint{End(-4), End(-6)}, TFlowPoint{End(), End()},     TFlowPoint{End(), Start()},
    TFlowPoint{Start(), Start()}, TFlowPoint{Start(), End()},
};
constexpr std::array BackSheet{
    TFlowPoint{Start(15), Start()},  TFlowPoint{End(), Start()},       TFlowPoint{End(), EndW(-15)},
    TFlowPoint{End(-30), EndW(-15)}, TFlowPoint{End(-30), StartW(30)}, TFlowPoint{Start(15), StartW(30)},
    TFlowPoint{Start(15), Start()},
};
constexpr std::array MiddleSheet{
    TFlowPoint{Start(30), StartW(30)}, TFlowPoint{End(-30), StartW(30)}, TFlowPoint{End(-30), EndW(-30)},
    TFlowPoint{End(-15), EndW(-30)},   TFlowPoint{End(-15), StartW(15)}, TFlowPoint{Start(30), StartW(15)},
    TFlowPoint{Start(30), StartW(30)},
};
constexpr std::array FrontSheet{
    TFlowPoint{Start(), End()},      TFlowPoint{Start(4), End(6)}, TFlowPoint{Half, End()},
    TFlowPoint{End(-4), End(-6)},    TFlowPoint{End(-15), End()},  TFlowPoint{End(-15), StartW(15)},
    TFlowPoint{Start(), StartW(15)}, TFlowPoint{Start(), End()},
};
constexpr std::array Decision{
    TFlowPoint{Half, Start()},
    TFlowPoint{End(), Half},
    TFlowPoint{Half, End()},
    TFlowPoint{Start(), Half},
};
constexpr std::array Data{
    TFlowPoint{Start(8), Start()},
    TFlowPoint{End(), Start()},
    TFlowPoint{End(-8), End()},
    TFlowPoint{Start(), End()},
};
constexpr std::array Database{
    TFlowPoint{Start(), End(-20)}, TFlowPoint{Start(), Start(20)}, TFlowPoint{Half, Start(-20)},
    TFlowPoint{End(), Start(20)},  TFlowPoint{End(), End(-20)},    TFlowPoint{Half, End(20)},
    TFlowPoint{Start(), End(-20)},
};
constexpr std::array ManualInput{
    TFlowPoint{Start(), Start(8)},
    TFlowPoint{End(), Start()},
    TFlowPoint{End(), End()},
    TFlowPoint{Start(), End()},
};
constexpr std::array ManualOperation{
    TFlowPoint{Start(), Start()},
    TFlowPoint{End(), Start()},
    TFlowPoint{End(-8), End()},
    TFlowPoint{Start(8), End()},
};
constexpr std::array Preparation{
    TFlowPoint{Start(4), Start()}, TFlowPoint{End(-4), Start()}, TFlowPoint{End(), Half},
    TFlowPoint{End(-4), End()},    TFlowPoint{Start(4), End()},  TFlowPoint{Start(), Half},
};
constexpr std::array StartShape{
    TFlowPoint{Start(8), Start()}, TFlowPoint{End(-8), Start()},  TFlowPoint{End(), Half},
    TFlowPoint{End(-8), End()},    TFlowPoint{Start(8), End()},   TFlowPoint{Start(), End(-4)},
    TFlowPoint{Start(), Start(4)}, TFlowPoint{Start(8), Start()},
};
constexpr std::array Step{
    TFlowPoint{Start(), Start()}, TFlowPoint{End(-8), Start()}, TFlowPoint{End(), Half},
    TFlowPoint{End(-8), End()},   TFlowPoint{Start(), End()},   TFlowPoint{Start(8), Half},
    TFlowPoint{Start(), Start()},
};
constexpr std::array EndShape{
    TFlowPoint{Start(), Start()}, TFlowPoint{End(-8), Start()}, TFlowPoint{End(), Start(4)},
    TFlowPoint{End(), End(-4)},   TFlowPoint{End(-8), End()},   TFlowPoint{Start(), End()},
    TFlowPoint{Start(8), Half},
};

constexpr TFlowElement Polygon(std::span<const TFlowPoint> aPoints, bool aNamed = true) {
  return {ffPolygon, aNamed, {}, aPoints};
}
constexpr TFlowElement Path(std::string_view aSteps, std::span<const TFlowPoint> aPoints) {
  return {ffPath, true, aSteps, aPoints};
}
constexpr TFlowElement Line(std::span<const TFlowPoint> aPoints) { return {ffLine, false, {}, aPoints}; }
constexpr TFlowElement Box{ffBox, true, {}, {}};

constexpr std::array TerminatorParts{TFlowElement{ffRoundBox, true, {}, {}}};
constexpr std::array ProcessParts{Box};
constexpr std::array DocumentParts{Path("MQQLLL", Document)};
constexpr std::array MultiDocumentParts{Polygon(BackSheet, false), Polygon(MiddleSheet, false),
                                        Path("MQQLLL", FrontSheet)};
constexpr std::array DecisionParts{Polygon(Decision)};
constexpr std::array DataParts{Polygon(Data)};
constexpr std::array DatabaseParts{Path("MLQLQ", Database)};
constexpr std::array PredefinedParts{Box, Line(LeftBar), Line(RightBar)};
constexpr std::array ManualInputParts{Polygon(ManualInput)};
constexpr std::array ManualOperationParts{Polygon(ManualOperation)};
constexpr std::array PreparationParts{Polygon(Preparation)};
constexpr std::array EllipseParts{TFlowElement{ffEllipse, true, {}, {}}};
constexpr std::array StartParts{Path("MLLLLC", StartShape)};
constexpr std::array StepParts{Polygon(Step)};
constexpr std::array EndParts{Path("MLCLL", EndShape)};

// By ordinal of TZORFlowType.
constexpr std::array<std::span<const TFlowElement>, EnumCount<TZORFlowType>> Outlines{
    TerminatorParts,  ProcessParts,  DocumentParts,   MultiDocumentParts, DecisionParts,
    DataParts,        DatabaseParts, PredefinedParts, ManualInputParts,   ManualOperationParts,
    PreparationParts, EllipseParts,  StartParts,      StepParts,          EndParts,
};

}  // namespace

std::span<const TFlowElement> FlowOutline(TZORFlowType aType) { return Outlines[aType]; }

}  // namespace Zor::inline F2d
