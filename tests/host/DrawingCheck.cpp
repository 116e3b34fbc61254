#include "host/DrawingCheck.hpp"

#include <algorithm>
#include <array>
#include <sstream>
#include <type_traits>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/TKDXBaseFlow.hpp"
#include "kaldrix/items/TKDXBasePolyLine.hpp"
#include "kaldrix/items/TKDXBaseText.hpp"

namespace Zor::Testing {

namespace {

/// Base points within which things only touch.
constexpr double Touch = 50;

TSpot Spot(const TZORBase& aPoint) { return {static_cast<double>(aPoint.X), static_cast<double>(aPoint.Y)}; }
TSpot Spot(const TZORPto& aPoint) { return {static_cast<double>(aPoint.bX), static_cast<double>(aPoint.bY)}; }

void AddCurve(TTrace& aTrace, TSpot a, TSpot b, TSpot c, TSpot d) {
  constexpr int pieces = 24;
  for (int i = 1; i <= pieces; ++i) {
    const double t = i / double{pieces}, s = 1 - t;
    const std::array<double, 4> w{s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    aTrace.push_back({w[0] * a.x + w[1] * b.x + w[2] * c.x + w[3] * d.x,
                      w[0] * a.y + w[1] * b.y + w[2] * c.y + w[3] * d.y});
  }
}

struct TBox {
  double left, top, right, bottom;

  bool Overlaps(const TBox& b) const {
    return left + Touch < b.right && b.left + Touch < right && top + Touch < b.bottom &&
           b.top + Touch < bottom;
  }
  /// Does a piece of a line run inside (Liang and Barsky)?
  bool Holds(TSpot a, TSpot b) const {
    double from = 0, to = 1;
    const auto cut = [&](double aStart, double aWay, double aLow, double aHigh) {
      if (aWay == 0) return aStart > aLow && aStart < aHigh;
      const double t1 = (aLow - aStart) / aWay, t2 = (aHigh - aStart) / aWay;
      from = std::max(from, std::min(t1, t2));
      to = std::min(to, std::max(t1, t2));
      return from < to;
    };
    return cut(a.x, b.x - a.x, left + Touch, right - Touch) &&
           cut(a.y, b.y - a.y, top + Touch, bottom - Touch);
  }
};

TBox BoxOf(const TKDXBaseItem& aItem) {
  const TZORRect& r = aItem.fBoundsRect;
  return {static_cast<double>(r.Left), static_cast<double>(r.Top), static_cast<double>(r.Right),
          static_cast<double>(r.Bottom)};
}

double Side(TSpot a, TSpot b, TSpot p) { return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x); }

bool Cross(TSpot a, TSpot b, TSpot c, TSpot d) {
  // Products of base points: what is smaller comes from ends that touch.
  constexpr double least = 1e4;
  const double c1 = Side(a, b, c), d1 = Side(a, b, d), a2 = Side(c, d, a), b2 = Side(c, d, b);
  const auto opposite = [](double u, double v) {
    return (u > least && v < -least) || (u < -least && v > least);
  };
  return opposite(c1, d1) && opposite(a2, b2);
}

int Crossings(const TTrace& a, const TTrace& b) {
  int count = 0;
  for (std::size_t i = 1; i < a.size(); ++i) {
    for (std::size_t j = 1; j < b.size(); ++j) count += Cross(a[i - 1], a[i], b[j - 1], b[j]) ? 1 : 0;
  }
  return count;
}

template <class TItem>
std::vector<const TItem*> Items(const TKDXLabel& aDocument) {
  std::vector<const TItem*> items;
  for (const TKDXBaseItem* item : aDocument.fItems) {
    if (const auto* found = dynamic_cast<const TItem*>(item)) items.push_back(found);
  }
  return items;
}

/// The complaints of one drawing.
class TCheck {
 public:
  explicit TCheck(const TKDXLabel& aDocument)
      : fDocument(aDocument),
        fNodes(Items<TKDXBaseFlow>(aDocument)),
        fTexts(Items<TKDXBaseText>(aDocument)),
        fLinks(Items<TKDXBaseLink>(aDocument)) {}

  std::vector<std::string> All() {
    ForPairs(fNodes, fNodes, "overlaps");
    ForPairs(fTexts, fNodes, "covers");
    ForPairs(fTexts, fTexts, "covers");
    for (const TKDXBaseLink* link : fLinks) CheckLink(*link);
    const double width = fDocument.fMeasure->fWidth, height = fDocument.fMeasure->fHeight;
    for (const TKDXBaseItem* item : fDocument.fItems) {
      const TBox box = BoxOf(*item);
      if (box.left < 0 || box.top < 0 || box.right > width || box.bottom > height)
        Complain(*item, "leaves the page");
    }
    return std::move(fComplaints);
  }

 private:
  static std::string Name(const TKDXBaseItem& aItem) {
    if (const auto* node = dynamic_cast<const TKDXBaseFlow*>(&aItem)) return "node '" + node->fText + "'";
    if (const auto* text = dynamic_cast<const TKDXBaseText*>(&aItem)) return "text '" + text->fText + "'";
    return aItem.fID;
  }
  void Complain(const TKDXBaseItem& aItem, const std::string& aWhat) {
    fComplaints.push_back(Name(aItem) + " " + aWhat);
  }
  template <class TFirst, class TSecond>
  void ForPairs(const std::vector<const TFirst*>& aFirst, const std::vector<const TSecond*>& aSecond,
                const char* aWhat) {
    for (const TFirst* first : aFirst) {
      const TBox box = BoxOf(*first);
      for (const TSecond* second : aSecond) {
        // A pair of one kind is looked at once.
        if (std::is_same_v<TFirst, TSecond> && first->fInID >= second->fInID) continue;
        if (box.Overlaps(BoxOf(*second))) Complain(*first, aWhat + (" " + Name(*second)));
      }
    }
  }
  void CheckLink(const TKDXBaseLink& aLink) {
    const TTrace trace = TraceOf(aLink);
    if (trace.empty()) return Complain(aLink, "joins nothing");
    for (const TKDXBaseFlow* node : fNodes) {
      if (node->fInID == aLink.fFromID || node->fInID == aLink.fToID) continue;
      const TBox box = BoxOf(*node);
      for (std::size_t i = 1; i < trace.size(); ++i) {
        if (!box.Holds(trace[i - 1], trace[i])) continue;
        Complain(aLink, "runs through " + Name(*node));
        break;
      }
    }
  }

  const TKDXLabel& fDocument;
  std::vector<const TKDXBaseFlow*> fNodes;
  std::vector<const TKDXBaseText*> fTexts;
  std::vector<const TKDXBaseLink*> fLinks;
  std::vector<std::string> fComplaints;
};

}  // namespace

TTrace TraceOf(const TKDXBaseLink& aLink) {
  if (aLink.fFromItem == nullptr || aLink.fToItem == nullptr) return {};
  const TZORBase p1 = aLink.fFromItem->LinkPoint(static_cast<std::uint16_t>(aLink.fFromIndex));
  const TZORBase p2 = aLink.fToItem->LinkPoint(static_cast<std::uint16_t>(aLink.fToIndex));
  TTrace trace{Spot(p1)};
  if (aLink.fLinkType == ltCurve) {
    TZORBase pa = p1, pb = p2;
    TDraw2D::CurvePoints(p1, p2, static_cast<std::uint16_t>(aLink.fFromIndex),
                         static_cast<std::uint16_t>(aLink.fToIndex), pa, pb);
    AddCurve(trace, Spot(p1), Spot(pa), Spot(pb), Spot(p2));
    return trace;
  }
  for (const TZORPto& point : aLink.fLinkPoints) trace.push_back(Spot(point));
  trace.push_back(Spot(p2));
  return trace;
}

int Crossings(const std::vector<TTrace>& aTraces) {
  int count = 0;
  for (std::size_t i = 0; i < aTraces.size(); ++i) {
    for (std::size_t j = i + 1; j < aTraces.size(); ++j) count += Crossings(aTraces[i], aTraces[j]);
  }
  return count;
}

std::vector<TTrace> LinkTraces(const TKDXLabel& aDocument) {
  std::vector<TTrace> traces;
  for (const TKDXBaseLink* link : Items<TKDXBaseLink>(aDocument)) traces.push_back(TraceOf(*link));
  return traces;
}

std::vector<TTrace> PlainTraces(const std::string& aPlain) {
  constexpr double inch = 25400;
  std::vector<TTrace> traces;
  std::istringstream lines(aPlain);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string kind, from, to;
    std::size_t count = 0;
    if (!(words >> kind) || kind != "edge" || !(words >> from >> to >> count)) continue;
    std::vector<TSpot> points(count);
    for (TSpot& point : points) {
      words >> point.x >> point.y;
      point = {point.x * inch, point.y * inch};
    }
    TTrace trace{points.at(0)};
    for (std::size_t i = 0; i + 3 < count; i += 3) {
      AddCurve(trace, points[i], points[i + 1], points[i + 2], points[i + 3]);
    }
    traces.push_back(std::move(trace));
  }
  return traces;
}

std::vector<std::string> Complaints(const TKDXLabel& aDocument) { return TCheck(aDocument).All(); }

}  // namespace Zor::Testing
