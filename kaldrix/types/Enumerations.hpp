// Enumerations of the drawing model. Stored documents hold ordinals, so the order is part of the formats:
// values are only ever added at the end.
#pragma once

#include <cstdint>

#include "kaldrix/types/TSet.hpp"

namespace Zor::inline Types {

/// What a surface is drawn for.
enum TZORDrawState : std::uint8_t { dsLabel, dsEdit, dsPreview, dsExport, dsPrint, dsSymbol };

enum TTimerType : std::uint8_t { ttNumUp, ttNumDown };

/// What kind of document is edited; it decides units, scale, paper and persisted keys.
enum TZOREditorMode : std::uint8_t { emLabelling, emFlowChart, emDrawing, emInteractive };

enum TZORPosType : std::uint8_t { ptX, ptY, ptXY, ptRadio, ptWidth, ptHeight };

/// Why an item record is read.
enum TZORReadType : std::uint8_t { rdNormal, rdPaste, rdPreview };

enum TZORInputType : std::uint8_t { intNone, intText, intFloat, intInt };

/// The unit in which a user enters and reads lengths.
enum TZORUnits : std::uint8_t { unMM, unINCH, unCM, unDM, unM, unFt, unYd };

enum TKaldrixType : std::uint8_t { ltRect, ltCircle };

/// Quarter turns, counted against the clock on the screen.
enum TZORAngle : std::uint8_t { ag0, ag90, ag180, ag270 };

enum TZORMeasureType : std::uint8_t {
  mtPaperWidth,
  mtPaperHeight,
  mtLabelWidth,
  mtLabelHeight,
  mtMarginLeft,
  mtMarginTop,
  mtGapHorz,
  mtGapVert
};

enum TKaldrixOption : std::uint8_t { loUniqueID, loUndoRedo, loBackImageLayer, loBackImageMap };

/// Transient states of the document inside a bracket.
enum TKaldrixState : std::uint8_t {
  lsModified,
  lsUpdate,
  lsUpdateMeasure,
  lsCalc,
  lsCalcNoUpdate,
  lsReading,
  lsUpdating,
  lsNoPaint,
  lsPaste,
  lsPrint
};

enum TZORBackStyle : std::uint8_t {
  biNone,
  biImage,
  biGradHor,
  biGradVer,
  biGraCircle,
  biHalf1,
  biHalf2,
  biQuarter
};

enum TZOREdAction : std::uint8_t {
  eaNone,
  eaSelection,
  eaMove,
  eaPoint,
  eaLine,
  eaArrowLine,
  eaRectangle,
  eaPolyline,
  eaArc,
  eaPolygon,
  eaBezier,
  eaCirclePR,
  eaCircle2P,
  eaCircle3P,
  eaEllipse,
  eaText,
  eaEdText,
  eaMoveText,
  eaParagraph,
  eaRichText,
  eaTrim,
  eaJoin,
  eaExtend,
  eaEquidist,
  eaBarcode,
  eaPDF417,
  eaDataMatrix,
  eaQRCode,
  eaImage,
  eaFlow,
  eaLink,
  eaPolyLink,
  eaTable,
  eaPolyText,
  eaRank,
  eaNutriScore,
  eaLevel,
  eaSymbol,
  eaDim,
  eaDimRad1,
  eaDimRad2,
  eaDimDia1,
  eaDimDia2,
  eaSectorPR,
  eaSector2P,
  eaSector3P,
  eaPackage,
  eaDimAng
};

enum TZOREdState : std::uint8_t {
  edPickPoint,
  edSelectDrag,
  edPickFirst,
  edPickSecond,
  edPickThird,
  edPickNext,
  edPickRadio,
  edPickCenter,
  edPickRadioX,
  edPickRadioY,
  edEnd,
  edEditing,
  edPickRef,
  edPickNextRef,
  edFirstRef,
  edSecondRef,
  edPick1Distance,
  edPick2Distance,
  edTrim,
  edExtend,
  edEquidist,
  edPackage,
  edPickSide,
  edPickCircle
};

enum TZORStEditor : std::uint8_t { seDraw, seDrag, seSelect, seEditProp };

enum TZORDrawType : std::uint8_t {
  dtNone,
  dtSelRect,
  dtPoint,
  dtLine,
  dtPolyline,
  dtRect,
  dtCircle,
  dtCircle2P,
  dtCircle3P,
  dtArc3P,
  dtText,
  dtEllipse,
  dtDiamond,
  dtDocument,
  dtTerminator,
  dtData,
  dtLink,
  dtPolyLink,
  dtHexagon,
  dtFlowEllipse,
  dtStart,
  dtStep,
  dtEnd,
  dtDim,
  dtDimRad1,
  dtDimRad2,
  dtDimDia1,
  dtDimDia2,
  dtSector
};

enum TZORMoveType : std::uint8_t {
  mtNone,
  mtObjects,
  mtRadio,
  mtLinkCurve,
  mtBezier,
  mtBezierCtrl,
  mtPoint,
  mtPolyPoint,
  mtRadioX,
  mtRadioY,
  mtArc,
  mtNW,
  mtN,
  mtNE,
  mtW,
  mtE,
  mtSW,
  mtS,
  mtSE,
  mtText,
  mtDispWidth
};

enum TZORSymEle : std::uint8_t {
  syPenW,
  syFill,
  syRoundCap,
  syScalePen,
  syFColor,
  syBColor,
  syLineType,
  syFontColor,
  syFontHeight,
  syFontName,
  syFontBold,
  syFontItalic,
  syFontUnderline,
  syLine,
  syCircle,
  syEllipse,
  syRectangle,
  syPolyline,
  syArc,
  syText,
  syBezier,
  syPath,
  sySector,
  syFontScale
};

enum TZORImgType : std::uint8_t { itNone, itJpeg, itPng, itGif };

enum TZORImgFilter : std::uint8_t { ifNone, ifGrayScale, ifBlackWhite };

enum TZORExport : std::uint8_t { exPDF, exXPS, exBMP, exPNG, exGIF, exJPEG };

enum TZORExt : std::uint8_t { lfBin, lfJSON };

enum TZORDiagramFormat : std::uint8_t { dgAuto, dgMermaid, dgPlantUML };

enum TZORRankType : std::uint8_t { rtSquare, rtCircle, rtStar, rtRhombus };

enum TZORRankPos : std::uint8_t { rpHorzLeft, rpHorzRight, rpVertLeft, rpVertRight };

enum TZORNutriType : std::uint8_t { ntStyle1, ntStyle2 };

enum TZORLevelType : std::uint8_t { ltFluidHorz, ltFluidVert, ltRadialHorz, ltRadialVert };

/// Where a text stands by its segment.
enum TZORTextPos : std::uint8_t { tpAbove, tpBelow, tpMiddle, tpMiddleRemove, tpHorz, tpVert };

enum TZORRadialStyle : std::uint8_t { rs01, rs02, rs03, rs04 };

enum TZORObjectAlign : std::uint8_t { oaLeft, oaTop, oaRight, oaBottom };

enum TZORImgAlign : std::uint8_t { iaLeftTop, iaCenter, iaRightBottom };

enum TZORHorzAlign : std::uint8_t { haLeft, haCenter, haRight, haJustify };

enum TZORVertAlign : std::uint8_t { vaTop, vaCenter, vaBottom };

enum TZORGradient : std::uint8_t { grNone, grHorz, grVert };

enum TZORFooter : std::uint8_t {
  foNone,
  foCount,
  foMin,
  foMax,
  foSum,
  foMean,
  foMedian,
  foVariance,
  foStdDev
};

enum TKDXGrid : std::uint8_t { gtNone, gtVert, gtHorz, gtBoth };

/// How numbers are written in SVG.
enum TZORExportSVG : std::uint8_t { svCurrentUnit, svCurUnitNoMed, svFactor, svFactorPx };

enum TZOREditorOption : std::uint8_t {
  eoZoom,
  eoUnits,
  eoSettings,
  eoRotate,
  eoShowOrto,
  eoShowSnapToGrid,
  eoInput,
  eoMouseWheel,
  eoEditOnDblClick,
  eoDrawLinkPoints,
  eoRichToolbar,
  eoResizeDataText
};

/// The kinds of item; the ordinals are stored in files.
enum TZORItemType : std::uint8_t {
  itUndefined,
  itPoint,
  itLine,
  itArrowLine,
  itPolyLine,
  itArc,
  itRectangle,
  itPolygon,
  itCircle,
  itEllipse,
  itText,
  itPara,
  itBarcode,
  itPDF417,
  itDataMatrix,
  itQRCode,
  itImage,
  itFlow,
  itLink,
  itTable,
  itPolyText,
  itRank,
  itNutriScore,
  itLevel,
  itSymbol,
  itBezier,
  itDim,
  itSector,
  itPackage,
  itRichText
};

enum TZORItemState : std::uint8_t { isNormal, isSelected, isRef };

enum TZORFlowType : std::uint8_t {
  ftTerminator,
  ftProcess,
  ftDocument,
  ftMultiDocument,
  ftDecision,
  ftData,
  ftDatabase,
  ftPredefined,
  ftManualInput,
  ftManualOperation,
  ftPreparation,
  ftEllipse,
  ftStart,
  ftStep,
  ftEnd
};

enum TZOLinkType : std::uint8_t {
  ltDirLine,
  ltLeftRightTopBottom,
  ltTopBottomLeftRight,
  ltStepLineTwoPto,
  ltArc,
  ltCurve,
  ltPolyline,
  ltRoundCorner
};

/// Terminators of open strokes.
enum TZORTermType : std::uint8_t {
  ttNone,
  ttCircle,
  ttFillCircle,
  ttArrow,
  ttFillArrow,
  ttSquare,
  ttFillSquare,
  ttRhombus,
  ttFillRhombus,
  ttLeftDia,
  ttRightDia,
  ttCross
};

enum TZODimType : std::uint8_t {
  dmtHorz,
  dmtVert,
  dmtAligned,
  dmtRadial1,
  dmtRadial2,
  dmtDiameter1,
  dmtDiameter2,
  dmtAngle
};

/// Stroke patterns; the digits are dash and gap lengths in pen widths.
enum TZOLineType : std::uint8_t {
  iiSolid,
  ii0505,
  ii11,
  ii21,
  ii12,
  ii22,
  ii31,
  ii33,
  ii41,
  ii42,
  ii44,
  ii411
};

enum TZORPolyType : std::uint8_t { poText, poBarcode, poQR, poDataMatrix };

enum TZORPackageStyle : std::uint8_t {
  psWireFrameNoDim,
  psWireFrameDim,
  poSolidNoDim,
  poSolidDim,
  poPartDrill,
  poPartDrillDim
};

/// What a move takes along: all points, or one edge or corner.
enum TZORMoveOpt : std::uint8_t {
  moAll,
  moLeft,
  moRight,
  moTop,
  moBottom,
  moTopLeft,
  moTopRight,
  moBotLeft,
  moBotRight
};

/// Options of layers; the first four apply to items too.
enum TZOLayerOp : std::uint8_t {
  lopVisible,
  lopPrint,
  lopSelectable,
  lopExport,
  lopBox,
  lopImage,
  lopMap,
  lopPrintBack,
  lopExportBack
};

/// What Clear removes.
enum TZORClear : std::uint8_t {
  cleAll,
  cleItems,
  cleSelection,
  cleLayers,
  cleBaseLayer,
  cleCounters,
  cleSymbols,
  cleAskList,
  cleValList,
  cleUndoRedo,
  clePreview,
  cleDimStyles,
  cleBaseStyle
};

enum TZORFrame : std::uint8_t { pfNone, pfRectangle, pfCircle, pfCropCircle };

enum TZORFieldType : std::uint8_t {
  ftString,
  ftBool,
  ftInt,
  ftInt64,
  ftFloat,
  ftDateTimeFloat,
  ftBase64,
  ftBlobImg
};

enum TZORDataType : std::uint8_t { dtyNone, dtyCustom, dtyDataset, dtyJson, dtyCsv };

enum TZORCsvSep : std::uint8_t { scvNone, scvSemicolon, scvComma, scvTabulator, scvSpace };

enum TZORCsvQuote : std::uint8_t { scqNone, scqQuotes, scqDoubleQuotes };

enum TZORAskType : std::uint8_t { atText, atInteger, atNumber, atDateTime };

enum TZORAlignType : std::uint8_t { anHorz, anVert };

enum TZORInsCol : std::uint8_t {
  ic11,
  ic12,
  ic22,
  ic13,
  ic23,
  ic33,
  ic14,
  ic24,
  ic34,
  ic44,
  ic15,
  ic25,
  ic35,
  ic45,
  ic55,
  ic223
};

enum TZORInsTypeBase : std::uint8_t {
  iyID,
  iyLayer,
  iyFont,
  iy1D,
  iy2D,
  iyBack,
  iyTwoPoint,
  iyPoint,
  iyBorder,
  iyAngle,
  iyData,
  iyRadio,
  iyCenter,
  iyAspect,
  iyFrame,
  iyMemo,
  iyPadding,
  iyAlignHorz,
  iyAlignHorzVert,
  iySize,
  iyWidthHeight,
  iyBackBarcode
};

enum TZORInsType : std::uint8_t {
  iyLine,
  iyDataImage,
  iyBarcode,
  iyText,
  iyImage,
  iyEmdeded,
  iyLink,
  iyTable,
  iyPolyText,
  iyRank,
  iyLevel,
  iyNutriScore,
  iyArrowLine,
  iySymbol,
  iySector,
  iyDim,
  iyDimStyle,
  iyPackage
};

enum TZOInspectorOption : std::uint8_t { ioEditTextOnCreate, ioMouseWheel, ioSelMapImage };

enum TZORInsProp : std::uint8_t {
  ipText,
  ipFloat,
  ipColor,
  ipBool,
  ipInt,
  ipImage,
  ipAlpha,
  ipCode,
  ipList,
  ipMemo,
  ipTable,
  ipPolyText,
  ipAlignHorz,
  ipAlignHorzVert,
  ipRank
};

enum TZOListProp : std::uint8_t {
  lpLayer,
  lpFrame,
  lpLine,
  lpBarcode,
  lpFont,
  lpTerm,
  lpRank,
  lpRankPos,
  lpAngle,
  lpField,
  lpFieldImg,
  lpFilterImg,
  lpFieldInt,
  lpFieldNum,
  lpFieldTxt,
  lpMasterDetail,
  lpDetail,
  lpGridType,
  lpPolyText,
  lpLevel,
  lpTextPos,
  lpNutriVal,
  lpNutriType,
  lpDimStyle,
  lpBoxStyle
};

enum TZORViewType : std::uint8_t { vtFitPage, vtFitWidth, vtTwoPages, vtZoomPage };

enum TZORSnap : std::uint8_t {
  snPoint,
  snGrid,
  snMiddle,
  snCenter,
  snEnd,
  snRefSymbol,
  snCross,
  snTangent,
  snPerpendicular
};

enum TZORKeyBoard : std::uint8_t { kyNUM, kyAlpha, ky39, ky128, kyCoda, kyCod11 };

enum TZORefType : std::uint8_t { rtyRect, rtyCircle, rtyCross };

enum TZORFillType : std::uint8_t {
  ftNone,
  ftField,
  ftCounter,
  ftJson,
  ftCsv,
  ftAsk,
  ftList,
  ftFieldCount,
  ftJsonCount,
  ftCsvCount,
  ftImg64
};

enum TZORDrawOP : std::uint8_t { doAllSel, doAllNotSel, doSel };

enum TZORChangeEd : std::uint8_t { ceAll, ceLeftRightRuler, ceTopBottomRuler, ceMargin, ceLabel, ceGrid };

/// What an observer is told.
enum TZOChange : std::uint8_t {
  chLabelDef,
  chBackSurf,
  chAligns,
  chMeasure,
  chPropItem,
  chUnits,
  chPaint,
  chDraw,
  chSelect,
  chScrollSelect,
  chClearSelect,
  chCursor,
  chSelCur,
  chInspect,
  chEditInspect,
  chEndInspect,
  chInspectPoint,
  chText,
  chChText,
  chPickSel,
  chSelSymbol
};

enum TZODestUpdate : std::uint8_t { duEditor, duInspector, duPreview, duSymbol };

enum TZORSelType : std::uint8_t {
  stNone,
  stData,
  stPoint,
  stSizePoint,
  stFixedPoint,
  stPolyPoint,
  stBezier,
  stBezierCtrl,
  stSizeRectNW,
  stSizeRectN,
  stSizeRectNE,
  stSizeRectW,
  stSizeRectE,
  stSizeRectSW,
  stSizeRectS,
  stSizeRectSE,
  stFixedRect,
  stRefLine,
  stCenter,
  stCenterCircle,
  stRadio,
  stRadioX,
  stRadioY,
  stArcLink,
  stRect,
  stAlign,
  stArc,
  stDispWidth
};

enum TZORBarType : std::uint8_t {
  btEAN13,
  btEAN8,
  btUPCA,
  btUPCE0,
  btCODE39,
  btCODE39EX,
  btCODE93,
  btCODE93EX,
  btCODABAR,
  btEAN128A,
  btEAN128B,
  btEAN128C,
  btEAN128AUTO,
  btCODE128A,
  btCODE128B,
  btCODE128C,
  btCODE128AUTO,
  btINTER_25,
  btINDUS_25,
  btMATRIX_25,
  btCODE11,
  btMSI,
  btPOSTNET
};

enum TZORCheckType : std::uint8_t { ctNone, ctMod10, ctMod10UPCE, ctMod10Right, ctMod11, ctMSI, ctMSI10 };

enum TZOR128AutoType : std::uint8_t {
  at128None,
  at128a,
  at128b,
  at128c,
  at128e,
  at128ac,
  at128nac,
  at128bc,
  at128cb,
  at128be
};

enum TZOR128BCState : std::uint8_t { bcsCodeB, bcsCodeC };

enum TZOR128AutoState : std::uint8_t { atsNone, atsCodeB, atsCodeE };

enum TZOR128AutoFN4 : std::uint8_t { atnOne, atnTwo };

enum TZOR128BCType : std::uint8_t { bct128None, bct128Beginning, bct128End, bct128Middle };

enum TZORDrawBar : std::uint8_t { dbB, dbB2, dbEB, dbW, dbEW };

enum TZORDrawWidth : std::uint8_t { dw1, dw1F, dw2, dw3, dw4, dw32 };

enum TZORMapServiceType : std::uint8_t { mstTiles, mstWMS, mstWMTS };

enum TZORMapProvider : std::uint8_t {
  mpOpenStreetMap,
  mpCartoDB,
  mpESRI,
  mpOpenTopo,
  mpSIGPAC,
  mpIGNBase,
  mpIGNPNOA,
  mpGoogleRoad,
  mpGoogleSatellite,
  mpGoogleTerrain,
  mpGoogleHybrid,
  mpHereMapsSatellite,
  mpCartoDark,
  mpCartoVoyager
};

enum TZORGMLMapTarget : std::uint8_t { gmtLayerBackground, gmtImageElement };

/// How the text of a QR Code is written. `Automatic` takes the densest that holds the text.
enum TQRCodeEncoding : std::uint8_t { Automatic, Numeric, Alphanumeric, ISO88591, UTF8NoBOM, UTF8BOM };

enum TECC200Shape : std::uint8_t { ecc200_Square, ecc200_Rectangle };

/// The sizes of Data Matrix symbols, rows x columns.
enum TECC200Size : std::uint8_t {
  ecc200_Autosize,
  ecc200_10x10,
  ecc200_12x12,
  ecc200_14x14,
  ecc200_16x16,
  ecc200_18x18,
  ecc200_20x20,
  ecc200_22x22,
  ecc200_24x24,
  ecc200_26x26,
  ecc200_32x32,
  ecc200_36x36,
  ecc200_40x40,
  ecc200_44x44,
  ecc200_48x48,
  ecc200_52x52,
  ecc200_64x64,
  ecc200_72x72,
  ecc200_80x80,
  ecc200_88x88,
  ecc200_96x96,
  ecc200_104x104,
  ecc200_120x120,
  ecc200_132x132,
  ecc200_144x144,
  ecc200_8x18,
  ecc200_8x32,
  ecc200_12x26,
  ecc200_12x36,
  ecc200_16x36,
  ecc200_16x48
};

enum TZORPdf417CorrectionLevel : std::uint8_t {
  Level0,
  Level1,
  Level2,
  Level3,
  Level4,
  Level5,
  Level6,
  Level7,
  Level8,
  Auto
};

using TKaldrixOptions = TSet<TKaldrixOption>;
using TKaldrixStateOptions = TSet<TKaldrixState>;
using TZOLayerOpts = TSet<TZOLayerOp>;
using TZORClearOpts = TSet<TZORClear>;
using TZOREditorOptions = TSet<TZOREditorOption>;
using TZORAlignTypes = TSet<TZORAlignType>;
using TZORInpectorBaseTypes = TSet<TZORInsTypeBase>;
using TZORInpectorTypes = TSet<TZORInsType>;
using TZOInspectorOptions = TSet<TZOInspectorOption>;
using TZORChanges = TSet<TZORChangeEd>;
using TZORMapProviders = TSet<TZORMapProvider>;

/// How many values an enumeration that files store has; a greater ordinal in a file is an error.
template <class TEnum>
inline constexpr int EnumCount = 0;
template <>
inline constexpr int EnumCount<TZOREditorMode> = emInteractive + 1;
template <>
inline constexpr int EnumCount<TZORUnits> = unYd + 1;
template <>
inline constexpr int EnumCount<TZORAngle> = ag270 + 1;
template <>
inline constexpr int EnumCount<TKaldrixType> = ltCircle + 1;
template <>
inline constexpr int EnumCount<TZORBackStyle> = biQuarter + 1;
template <>
inline constexpr int EnumCount<TZOLineType> = ii411 + 1;
template <>
inline constexpr int EnumCount<TZORTermType> = ttCross + 1;
template <>
inline constexpr int EnumCount<TZORItemType> = itRichText + 1;
template <>
inline constexpr int EnumCount<TZORImgType> = itGif + 1;
template <>
inline constexpr int EnumCount<TZORHorzAlign> = haJustify + 1;
template <>
inline constexpr int EnumCount<TZORVertAlign> = vaBottom + 1;
template <>
inline constexpr int EnumCount<TZORFillType> = ftImg64 + 1;
template <>
inline constexpr int EnumCount<TZORMapProvider> = mpCartoVoyager + 1;
template <>
inline constexpr int EnumCount<TZORTextPos> = tpVert + 1;
template <>
inline constexpr int EnumCount<TZORRadialStyle> = rs04 + 1;
template <>
inline constexpr int EnumCount<TZORDataType> = dtyCsv + 1;
template <>
inline constexpr int EnumCount<TZORFieldType> = ftBlobImg + 1;
template <>
inline constexpr int EnumCount<TZORCsvSep> = scvSpace + 1;
template <>
inline constexpr int EnumCount<TZORCsvQuote> = scqDoubleQuotes + 1;
template <>
inline constexpr int EnumCount<TZORAskType> = atDateTime + 1;
template <>
inline constexpr int EnumCount<TZOLayerOp> = lopExportBack + 1;
template <>
inline constexpr int EnumCount<TZOLinkType> = ltRoundCorner + 1;
template <>
inline constexpr int EnumCount<TZORFlowType> = ftEnd + 1;
template <>
inline constexpr int EnumCount<TZORGradient> = grVert + 1;
template <>
inline constexpr int EnumCount<TZODimType> = dmtAngle + 1;
template <>
inline constexpr int EnumCount<TZORBarType> = btPOSTNET + 1;
template <>
inline constexpr int EnumCount<TZORCheckType> = ctMSI10 + 1;
template <>
inline constexpr int EnumCount<TZOR128AutoType> = at128be + 1;
template <>
inline constexpr int EnumCount<TQRCodeEncoding> = UTF8BOM + 1;
template <>
inline constexpr int EnumCount<TECC200Shape> = ecc200_Rectangle + 1;
template <>
inline constexpr int EnumCount<TECC200Size> = ecc200_16x48 + 1;
template <>
inline constexpr int EnumCount<TZORPdf417CorrectionLevel> = Auto + 1;

}  // namespace Zor::inline Types
