#pragma once

#include <numbers>
#include <span>

#include "kaldrix/types/Records.hpp"
#include "kaldrix/types/TZORRect.hpp"

namespace Zor::inline Utils {

/// The plane geometry that items, the editor and the SVG writer share. Never instantiated; every operation is
/// without state and may be called from any thread. None of them throws or allocates (but for the result of
/// PoligonParalel).
///
/// Sections and their sources:
///   Scalars and vectors, Angles          TDraw2D.cpp
///   Circles and arcs from points         TDraw2D.Circles.cpp
///   Hits                                 TDraw2D.Hits.cpp
///   Crossings                            TDraw2D.Crossings.cpp
///   Extending, trimming, joining         TDraw2D.Edit.cpp
///   Offsets, Marks, Fitting and turning  TDraw2D.Marks.cpp
///
/// Conventions:
/// - Coordinates are base points, x to the right and y downwards; overloads on Single take drawing units. The
///   Int64 forms round half to even, the Single forms keep the fraction.
/// - Angles are radians, from the positive x axis towards the positive y axis: a growing angle turns
/// clockwise on
///   the screen. `ClockWise` is an arc whose angle grows from start to end; its sweep is positive.
/// - A failure is `false` or a count of 0. Results then keep what the caller put there, unless told
/// otherwise.
/// - Products are formed in 128 bits or in floats, so that coordinates near MaxCoordinate are safe.
class TDraw2D {
 public:
  TDraw2D() = delete;

  // --- Tolerances ----------------------------------------------------------------------------------------

  /// Length or component (base points) or determinant below which an edit operation has no direction; least
  /// ray parameter that counts as ahead; overshoot of a segment parameter in trimming.
  static constexpr double Degenerate = 1e-10;
  /// Least ray parameter that counts for a polyline (fraction of the line).
  static constexpr double PolylineAhead = 1e-6;
  /// LineCrossCircle: squared length (base points²); discriminant of a tangent, of ellipses too.
  static constexpr double TangentDiscriminant = 1e-7;
  /// LineCrossCircle: a line that misses by up to an eighth of this many base points counts as a tangent.
  static constexpr double NearMissFactor = 40;
  /// PointOnSegment: a segment shorter than this (base points) is a point.
  static constexpr double PointSegment = 1e-9;
  /// LineCrossEllipse: leading coefficient; extending to an ellipse: discriminant that counts as 0.
  static constexpr double EllipseCoefficient = 1e-12;
  /// Extending to an ellipse: leading coefficient below which there is no crossing.
  static constexpr double EllipseDegenerate = 1e-18;
  /// DrawArrowArc: a direction (radians) nearer to 0 is 0.
  static constexpr double ZeroDirection = 0.0001;
  /// TrimLineAtArc: how far a crossing may lie beyond the ends of the arc (radians).
  static constexpr double TrimAngle = 0.001;
  /// Gap between rims and half chord of one point (base points).
  static constexpr double CircleGap = 1.0;
  static constexpr double WideCircleGap = 5.0;
  /// Beyond every ray parameter.
  static constexpr double FarParameter = 1e30;

  static constexpr double Pi = std::numbers::pi;
  static constexpr double TwoPi = 2 * std::numbers::pi;

  // --- Scalars and vectors -------------------------------------------------------------------------------

  /// As the free function Distance.
  static Int64 Distance(Int64 x1, Int64 y1, Int64 x2, Int64 y2);
  /// Root in 64-bit float, truncated, without a correction; 0 for a negative value.
  static Int64 Int64Sqrt(Int64 aValue);
  static double Magnitude(Int64 x, Int64 y);
  static Int64 DotProduct(Int64 x1, Int64 y1, Int64 x2, Int64 y2);
  /// Of P1 to P2 with P1 to P3.
  static double CrossProduct(double x1, double y1, double x2, double y2, double x3, double y3);
  /// (Y1 - Y2, X2 - X1).
  static TZORPto64 VectorPerpendicular(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2);
  static TPointF VectorPerpendicular(Single X1, Single Y1, Single X2, Single Y2);
  /// The sign tells the side of the line on which P lies: positive on the side of VectorPerpendicular.
  static Int64 PointSide(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2, Int64 PX, Int64 PY);
  /// To the infinite line, truncated; 0 for a line without length.
  static Int64 DistancePointToLine(Int64 pX, Int64 pY, Int64 ax1, Int64 ay1, Int64 ax2, Int64 ay2);
  /// Degrees between the rays from a1 to a2 and to p, which both need a length.
  static double AnglePointToLine(Int64 pX, Int64 pY, Int64 ax1, Int64 ay1, Int64 ax2, Int64 ay2);

  // --- Angles --------------------------------------------------------------------------------------------

  /// Into 0 to 2π. Intended: 2π itself stays.
  static double NormalizeAngle(double angle);
  /// Absolute difference, at most π.
  static double AngleDiff(double a, double b);
  static double SweepCCW(double aStart, double aEnd);
  /// Magnitude of the sweep between angles that are normalised.
  static double ArcSweep(double aStartAng, double aEndAng, bool aClockWise);
  /// Angle along the arc from its start to `ang`. Intended: the end takes no part.
  static double ArcParam(double startAng, double endAng, bool aClockWise, double ang);
  /// Ends included; all angles normalised. With the start above the end, the two and the sense are exchanged.
  static bool ArcContainsAngle(double angStart, double angEnd, double angFind, bool ClockWise);
  /// Between the two with growing angle, which may pass ±π.
  static bool IsAngleWithinArc(double angle, double initialAngle, double finalAngle);

  // --- Circles and arcs from points ----------------------------------------------------------------------

  /// The circle over the diameter P1 P2. Always true. The Single form gives a whole radius.
  static bool CircleTwoPoints(double x1, double y1, double x2, double y2, Int64& cx, Int64& cy, Int64& r);
  static bool CircleTwoPoints(double x1, double y1, double x2, double y2, Single& cx, Single& cy, Single& r);
  /// True when the rounded radius is positive. The points must not be on one line: see ArcThreePoints.
  static bool CircleThreePoints(double x1, double y1, double x2, double y2, double x3, double y3, Int64& cx,
                                Int64& cy, Int64& r);
  static bool CircleThreePoints(double x1, double y1, double x2, double y2, double x3, double y3, Single& cx,
                                Single& cy, Single& r);
  /// The arc from P1 over P2 to P3; false for points on one line.
  static bool ArcThreePoints(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64& cx, Int64& cy,
                             Int64& r, double& angStart, double& angEnd, double& angSweep, bool& ClockWise);
  static bool ArcThreePoints(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Single& cx,
                             Single& cy, Single& r, double& angStart, double& angEnd, double& angSweep,
                             bool& ClockWise);

  // --- Hits ----------------------------------------------------------------------------------------------
  // `gap` is in the unit of the coordinates.

  /// At most `gap` from the segment.
  static bool PointInLine(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 posX, Int64 posY, Int64 gap);
  /// In the bounds of the segment widened by `aTol`, and at most `aTol` from its line.
  static bool PointOnSegment(Int64 aX, Int64 aY, Int64 aSX, Int64 aSY, Int64 aEX, Int64 aEY, double aTol);
  static bool PointInCircle(Int64 cx, Int64 cy, Int64 r, Int64 posX, Int64 posY, Int64 gap);
  static bool PointOnCircle(Int64 cx, Int64 cy, Int64 r, Int64 posX, Int64 posY, Int64 gap);
  static bool PointInEllipse(Int64 cx, Int64 cy, Int64 rx, Int64 ry, Int64 posX, Int64 posY);
  /// In the ring that is `gap` wide in all; a ring that reaches the centre is full.
  static bool PointOnEllipse(Int64 cx, Int64 cy, Int64 rx, Int64 ry, Int64 posX, Int64 posY, Int64 gap);
  /// At most `aGap` from the circle and in a direction that the arc passes; of either sense, and through 0.
  static bool PointInArc(Int64 cx, Int64 cy, Int64 r, Int64 posX, Int64 posY, Int64 aGap, double dgAngStart,
                         double dgAngSweep);
  /// Closer than `gap` to one of 101 samples of the cubic.
  static bool PointInBezier(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                            Int64 x, Int64 y, Int64 gap);
  /// Strictly inside the square of half side `gap`.
  static bool CursorOnPos(Int64 x1, Int64 y1, Int64 posX, Int64 posY, Int64 gap);
  static bool CursorOnPosS(Int64 x1, Int64 y1, Int64 gap, Single posX, Single posY);
  /// Above a horizontal line, right of a vertical one, else above the line.
  static bool PosPoint(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 px, Int64 py);
  /// Whether the segment meets a normalised rectangle, edges included.
  static bool RectangleIntersectLine(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2, const TZORRect& aRect);
  /// Whether the arc, with growing angle from start to end, meets the rectangle's outline or begins or ends
  /// in it.
  static bool ArcIntersectsRect(Int64 CenterX, Int64 CenterY, Int64 Radius, double StartAngle,
                                double EndAngle, const TZORRect& Rect);
  /// Whether the filled ellipse meets the filled rectangle.
  static bool EllipseIntersectsRect(Int64 CenterX, Int64 CenterY, Int64 RadiusX, Int64 RadiusY,
                                    const TZORRect& Rect);

  // --- Crossings -----------------------------------------------------------------------------------------

  /// Where the lines cross; false for parallels. With `Cross` the point must be in both segments, and without
  /// `EndLine` must not be one of their ends; it is given even then.
  static bool IntersectLines(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                             bool Cross, bool EndLine, Int64& xi, Int64& yi);
  /// Foot of the perpendicular from p; with `Cross` it must be within the segment. False too for a point on a
  /// horizontal or vertical line. The 32-bit form holds the foot at the ends of its range.
  static bool LinePerpenFromPoint(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 px, Int64 py, bool Cross,
                                  Int64& xi, Int64& yi);
  static bool LinePerpenFromPoint(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 px, Int64 py, bool Cross,
                                  int& xi, int& yi);
  /// Crossings of the infinite line, 0 to 2, the one farther along the line first. One point fills both
  /// places.
  static std::int16_t LineCrossCircle(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 cx, Int64 cy, Int64 r,
                                      Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y);
  static std::int16_t LineCrossEllipse(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 cx, Int64 cy, Int64 rx,
                                       Int64 ry, Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y);
  /// Crossings of the segment P1 P2 with the sides of the rectangle over P3 P4, 0 to 2: left, right, top,
  /// bottom.
  static std::int16_t LineCrossRect(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4,
                                    Int64 y4, Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y);
  /// 0 to 2; rims up to CircleGap apart touch, and a half chord below it is one point.
  static std::int16_t CircleCrossCircle(Int64 c1x, Int64 c1y, Int64 r1, Int64 c2x, Int64 c2y, Int64 r2,
                                        Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y);
  /// The same with WideCircleGap.
  static std::int16_t CircleCircleIntersections(double c1x, double c1y, double r1, double c2x, double c2y,
                                                double r2, double& px1, double& py1, double& px2,
                                                double& py2);

  // --- Extending, trimming, joining ----------------------------------------------------------------------
  // (px, py) is where the user picked the line. The results are first set to the line, so that a failure
  // leaves it unchanged. All but ExtendLines move the end nearer to the pick.

  /// Extends line P3 P4 to the line P1 P2; the pick takes no part. The kept end comes first, then the
  /// crossing.
  static bool ExtendLines(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                          Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2);
  static bool ExtendLineToCircle(Int64 cx, Int64 cy, Int64 r, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                                 Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2);
  static bool ExtendLineToEllipse(Int64 cx, Int64 cy, Int64 rx, Int64 ry, Int64 x1, Int64 y1, Int64 x2,
                                  Int64 y2, Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2,
                                  Int64& ay2);
  /// To the nearest side of the rectangle over P1 P2. An end that is on a side already is a success.
  static bool ExtendLineToRectangle(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4,
                                    Int64 y4, Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2,
                                    Int64& ay2);
  /// A new end with a coordinate below 1 is a failure, which leaves that end in the results.
  static bool ExtendLineToPolyline(TZORPtoArr aPoints, Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 px,
                                   Int64 py, bool isClose, Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2);
  /// To the arc P1 P2 P3. Only the nearest crossing with its circle is tried.
  static bool ExtendLineToArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                              Int64 x5, Int64 y5, Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2,
                              Int64& ay2);
  /// Cuts the line P4 P5 at its crossing with the arc P1 P2 P3 that is nearest to the pick.
  static bool TrimLineAtArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                            Int64 x5, Int64 y5, Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2,
                            Int64& ay2);
  /// Both lines to their crossing; each keeps the end on its pick's side. The kept end comes first, then the
  /// crossing.
  static bool JoinLines(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                        Int64 px1, Int64 py1, Int64 px2, Int64 py2, Int64& ax1, Int64& ay1, Int64& ax2,
                        Int64& ay2, Int64& ax3, Int64& ay3, Int64& ax4, Int64& ay4);

  // --- Offsets -------------------------------------------------------------------------------------------

  /// False for a distance of 0 and for a segment without length. A positive distance is the side of
  /// VectorPerpendicular.
  static bool DrawParallelLine(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 distance, Int64& x1p, Int64& y1p,
                               Int64& x2p, Int64& y2p);
  static bool DrawParallelLine(Single x1, Single y1, Single x2, Single y2, Single distance, Single& x1p,
                               Single& y1p, Single& x2p, Single& y2p);
  /// The parallel on the side of P.
  static void DrawParalLine(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2, Int64 PX, Int64 PY, Int64 Distance,
                            Int64& X3, Int64& Y3, Int64& X4, Int64& Y4);
  /// The middle of the parallel on the positive side.
  static void PosMidParal(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2, Int64 Distance, Int64& aPosX, Int64& aPosY);
  static void PosMidParal(Single X1, Single Y1, Single X2, Single Y2, Single Distance, Single& aPosX,
                          Single& aPosY);
  /// Each point moved along the normal of the edge that leaves it. There is no mitre and no removal of
  /// crossings; a point whose edge has no length stays.
  static TZORPtoA PoligonParalel(TZORPtoArr aPoints, Int64 aDist, bool aIn);
  /// About the mean of the points. With `aIner` the radius shrinks, and the points run the other way round.
  static bool EquidistArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 aDist, bool aIner,
                          Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2, Int64& ax3, Int64& ay3);
  /// Towards the side of p. False for points on one line, which come back as they are.
  static bool EquidistArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 px, Int64 py,
                          Int64 aDist, Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2, Int64& ax3,
                          Int64& ay3);
  static bool EquidistArc(Int64 cx, Int64 cy, Int64 r, double angStart, double angEnd, Int64 aDist, Int64 px,
                          Int64 py, Int64& acx, Int64& acy, Int64& ar, double& aStart, double& aEnd);

  // --- Marks ---------------------------------------------------------------------------------------------
  // True when the size is positive. `S` divides π: the half opening of an arrow head is π / S.

  /// The ends of the two barbs of a head whose tip is P2.
  static bool DrawArrow(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 arrowSize, Int64& x1p, Int64& y1p,
                        Int64& x2p, Int64& y2p, Single S);
  static bool DrawArrow(Single x1, Single y1, Single x2, Single y2, Single arrowSize, Single& x1p,
                        Single& y1p, Single& x2p, Single& y2p, Single S);
  /// With the tip at (x, y), pointing in a direction.
  static bool DrawArrow(Int64 x, Int64 y, Int64 arrowSize, Single angle, Int64& x1p, Int64& y1p, Int64& x2p,
                        Int64& y2p, Single S);
  static bool DrawArrow(Int64 x, Int64 y, Int64 arrowSize, TZORAngle angle, Int64& x1p, Int64& y1p,
                        Int64& x2p, Int64& y2p, Single S);
  /// With the tip at p, the end of an arc about c. Always true.
  static bool DrawArrowArc(Int64 cx, Int64 cy, Int64 px, Int64 py, Int64 arrowSize, Int64& x1p, Int64& y1p,
                           Int64& x2p, Int64& y2p, bool clockWise, Single S);
  /// A slash through P2, an eighth turn off the line.
  static bool DrawLeft(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 arrowSize, Int64& x1p, Int64& y1p,
                       Int64& x2p, Int64& y2p);
  static bool DrawLeft(Single x1, Single y1, Single x2, Single y2, Single arrowSize, Single& x1p, Single& y1p,
                       Single& x2p, Single& y2p);
  static bool DrawRight(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 arrowSize, Int64& x1p, Int64& y1p,
                        Int64& x2p, Int64& y2p);
  static bool DrawRight(Single x1, Single y1, Single x2, Single y2, Single arrowSize, Single& x1p,
                        Single& y1p, Single& x2p, Single& y2p);
  /// The control points of a curved link between link positions `aPos1` and `aPos2`; positions that ask for
  /// none leave them as they are.
  static void CurvePoints(const TZORBase& p1, const TZORBase& p2, std::uint16_t aPos1, std::uint16_t aPos2,
                          TZORBase& pt1, TZORBase& pt2);
  /// The angles of the part of a circle below a chord (left of it with `aVert`) that holds the fraction
  /// `aUPercent` of the diameter, 0 to 1.
  static void ArcSegment(Single aUPercent, bool aVert, Single& angFrom, Single& angTo);
  /// The same as start and movement; degrees unless `aRadian`.
  static void AngleSegment(Single aUPercent, bool aRadian, bool aVert, Single& angFrom, Single& angMove);

  // --- Fitting and turning -------------------------------------------------------------------------------

  /// Corners of the band of width `Diameter` along a segment; of a square round a segment without length.
  static TSlotPolygon CalculateSlotPolygon(double X1, double Y1, double X2, double Y2, double Diameter);
  /// The largest rectangle of that aspect, in the middle of WindowRect. Without an aspect: WindowRect.
  static TZORRect CenteredRect(Single OriginalWidth, Single OriginalHeight, const TZORRect& WindowRect);
  static TRectF CenteredRect(Single OriginalWidth, Single OriginalHeight, const TRectF& WindowRect);
  /// Turns in place; the result is normalised.
  static void Rotate(TRectF& Re, TPointF Center, TZORAngle Angle);
  static TPointF RotatePoint(TPointF Point, TPointF Center, TZORAngle Angle);
  /// By degrees.
  static TPoint RotatePoint(TPoint Point, TPoint Center, Single Angle);
  static TPointF RotatePoint(TPointF Point, TPointF Center, Single Angle);
  /// Sorts the first three by x; the fourth is overwritten. Fewer than four stay as they are.
  static void OrderPoints(std::span<TPoint> aPoint);
};

}  // namespace Zor::inline Utils
