// Outlines for surfaces.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace Zor::inline Host {

/// A place on the paper in millimetres, y downwards.
struct TPaperPoint {
  double x = 0;
  double y = 0;
};

/// A box along the axes of the paper.
struct TPaperBox {
  double left = 0, top = 0, right = 0, bottom = 0;

  double Width() const { return right - left; }
  double Height() const { return bottom - top; }
  TPaperPoint Middle() const { return {(left + right) / 2, (top + bottom) / 2}; }
};

/// An outline of straight and curved pieces, in millimetres of paper, with the vocabulary of an SVG path.
/// Angles are radians, growing from the positive x axis towards positive y (clockwise on the paper).
class TPath {
 public:
  enum TStep : std::uint8_t { psMove, psLine, psCurve, psClose };

  TPath& MoveTo(double x, double y);
  TPath& LineTo(double x, double y);
  /// Quadratic and cubic Bezier curve from the current point.
  TPath& QuadTo(double cx, double cy, double x, double y);
  TPath& CurveTo(double c1x, double c1y, double c2x, double c2y, double x, double y);
  /// Straight line from the current point, if there is one, to the arc's start, then the arc. `sweep` is
  /// negative for an arc against the clock; more than a full turn is cut to one.
  TPath& Arc(double cx, double cy, double rx, double ry, double start, double sweep);
  TPath& Close();

  TPath& Lines(std::span<const TPaperPoint> points);
  /// Corners rounded as in SVG: the radius is held to half the width and to half the height, each by itself.
  TPath& Rect(double x, double y, double width, double height, double radius = 0);
  TPath& Ellipse(double cx, double cy, double rx, double ry);

  bool Empty() const { return fSteps.empty(); }
  /// The pieces, and their points in order: one for a move or line, three for a curve, none for a close.
  std::span<const TStep> Steps() const { return fSteps; }
  std::span<const TPaperPoint> Points() const { return fPoints; }
  /// The box of the outline itself, not of its controls; all 0 when there is none.
  TPaperBox Bounds() const;

 private:
  TPaperPoint Current() const { return fPoints.empty() ? TPaperPoint{} : fPoints.back(); }
  void ArcPiece(double cx, double cy, double rx, double ry, double from, double step);

  std::vector<TStep> fSteps;
  std::vector<TPaperPoint> fPoints;
};

/// The signed sweep from `start` to `end` (radians), with the clock (growing angle) or against it, below one
/// full turn either way; equal angles give 0.
double SweepBetween(double start, double end, bool clockwise);

}  // namespace Zor::inline Host
