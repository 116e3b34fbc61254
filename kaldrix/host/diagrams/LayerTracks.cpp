#include "kaldrix/host/diagrams/LayerTracks.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <queue>
#include <utility>

namespace Zor::inline Host {

namespace {

/// What counts as the same place, millimetres: lines that are closer seem to be one.
constexpr double Same = 0.8;
/// Straight is what bends less than this.
constexpr double Straight = 0.01;
/// Two lines on top of each other are worse than any crossings.
constexpr int OverlapCost = 1000;
/// In a gap with more ways than these nobody sees which one runs above which.
constexpr std::size_t MostCompared = 1500;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// The way of a strand along the gap.
struct TWay {
  double from = 0, to = 0;  ///< x above and below
  int up = 0, down = 0;     ///< cells; -1 at an end that is none of the strand's
  std::size_t strand = 0;   ///< of the gap
  double low = 0, high = 0;

  TWay(double aFrom, double aTo, int aUp, int aDown, std::size_t aStrand)
      : from(aFrom),
        to(aTo),
        up(aUp),
        down(aDown),
        strand(aStrand),
        low(std::min(aFrom, aTo)),
        high(std::max(aFrom, aTo)) {}

  bool Holds(double aX) const { return aX > low + Straight && aX < high - Straight; }
  bool Meets(const TWay& aOther) const { return low < aOther.high + Same && aOther.low < high + Same; }
  /// Do both begin, or both end, at one port?
  bool SharesPort(const TWay& aOther) const {
    return (up == aOther.up && std::abs(from - aOther.from) < Straight) ||
           (down == aOther.down && std::abs(to - aOther.to) < Straight);
  }
};

/// What it costs that the first way runs above the second.
int CostAbove(const TWay& aUpper, const TWay& aLower) {
  int cost = 0;
  if (aUpper.Holds(aLower.from)) ++cost;
  if (aLower.Holds(aUpper.to)) ++cost;
  // The upper one comes down where the lower one still goes down.
  if (std::abs(aUpper.to - aLower.from) < Same) cost += OverlapCost;
  return cost;
}

class TDealing {
 public:
  TDealing(const TLayerGraph& aGraph, const std::vector<int>& aStrands) {
    fTracks.legs.resize(aStrands.size());
    fTracks.alone.assign(aStrands.size(), true);
    for (std::size_t i = 0; i < aStrands.size(); ++i) {
      const TStrand& strand = aGraph.Strand(aStrands[i]);
      const double from = aGraph.UpX(strand), to = aGraph.DownX(strand);
      if (std::abs(from - to) >= Straight) fWays.emplace_back(from, to, strand.up, strand.down, i);
    }
  }

  TTracks Run() {
    fByLow = SortedByLow();
    if (fWays.size() > MostCompared) return FirstFit();
    SplitLocked();
    fByLow = SortedByLow();
    fBelow.resize(fWays.size());
    fApart.resize(fWays.size());
    fPull.resize(fWays.size());
    ForMeeting([&](int a, int b) { Compare(a, b); });
    fTrack.assign(fWays.size(), -1);
    fLeast.resize(fWays.size());
    for (const int way : Sorted()) Deal(way);
    TellLegs();
    return std::move(fTracks);
  }

 private:
  struct TAbove {
    int way;
    int weight;
  };

  std::vector<int> SortedByLow() const {
    std::vector<int> byLow(fWays.size());
    for (std::size_t i = 0; i < byLow.size(); ++i) byLow[i] = static_cast<int>(i);
    std::stable_sort(byLow.begin(), byLow.end(),
                     [&](int a, int b) { return fWays[At(a)].low < fWays[At(b)].low; });
    return byLow;
  }
  /// Calls `aDo` with each pair of ways whose extents meet; others do not matter to each other.
  template <class TDo>
  void ForMeeting(TDo aDo) const {
    for (std::size_t i = 0; i < fByLow.size(); ++i) {
      for (std::size_t j = i + 1; j < fByLow.size() && fWays[At(fByLow[i])].Meets(fWays[At(fByLow[j])]);
           ++j) {
        aDo(std::min(fByLow[i], fByLow[j]), std::max(fByLow[i], fByLow[j]));
      }
    }
  }

  /// Each way, from the left, on the track that has been free for longest.
  TTracks FirstFit() {
    using TFree = std::pair<double, int>;  // from where on, track
    std::priority_queue<TFree, std::vector<TFree>, std::greater<>> free;
    for (const int index : fByLow) {
      const TWay& way = fWays[At(index)];
      int track = fTracks.count;
      if (!free.empty() && free.top().first < way.low - Same) {
        track = free.top().second;
        free.pop();
      } else {
        ++fTracks.count;
      }
      free.emplace(way.high, track);
      fTracks.legs[way.strand].push_back({track, way.to});
      fTracks.alone[way.strand] = false;
    }
    return std::move(fTracks);
  }

  /// Two ways that begin where the other one ends would lie on each other in either order: one of them takes
  /// two legs, one above and one below the other way.
  void SplitLocked() {
    std::vector<bool> locked(fWays.size());
    ForMeeting([&](int a, int b) {
      const TWay &first = fWays[At(a)], &second = fWays[At(b)];
      if (locked[At(a)] || locked[At(b)]) return;
      locked[At(a)] = CostAbove(first, second) >= OverlapCost && CostAbove(second, first) >= OverlapCost;
    });
    for (std::size_t i = 0; i < locked.size(); ++i) {
      if (!locked[i]) continue;
      const TWay way = fWays[i];
      const double middle = FreePlace(way);
      fWays[i] = TWay(way.from, middle, way.up, -1, way.strand);
      fWays.emplace_back(middle, way.to, -1, way.down, way.strand);
    }
  }
  /// A place near the middle of a way where no other one begins or ends.
  double FreePlace(const TWay& aWay) const {
    const double middle = (aWay.low + aWay.high) / 2;
    for (double off = 0; off < (aWay.high - aWay.low) / 2; off += Same) {
      for (const double x : {middle - off, middle + off}) {
        const bool taken = std::any_of(fWays.begin(), fWays.end(), [&](const TWay& way) {
          return std::abs(way.from - x) < Same || std::abs(way.to - x) < Same;
        });
        if (!taken) return x;
      }
    }
    return middle;
  }

  void Compare(int a, int b) {
    const TWay &first = fWays[At(a)], &second = fWays[At(b)];
    fTracks.alone[first.strand] = fTracks.alone[second.strand] = false;
    if (first.strand == second.strand) {
      fApart[At(a)].push_back(b);
      fApart[At(b)].push_back(a);
      return Prefer(a, b, OverlapCost);
    }
    const bool together = first.SharesPort(second);
    if (!together) {
      fApart[At(a)].push_back(b);
      fApart[At(b)].push_back(a);
    }
    const int ab = CostAbove(first, second), ba = CostAbove(second, first);
    if (ab < ba) Prefer(a, b, ba - ab);
    if (ba < ab) Prefer(b, a, ab - ba);
  }
  void Prefer(int aUpper, int aLower, int aWeight) {
    fBelow[At(aUpper)].push_back({aLower, aWeight});
    fPull[At(aUpper)] += aWeight;
    fPull[At(aLower)] -= aWeight;
  }

  /// From top to bottom, by the heuristic of Eades, Lin and Smyth (1993) for weighted circles: what has
  /// nothing above it comes first, and where there is a circle, what would go above most others.
  std::vector<int> Sorted() const {
    std::vector<int> order, above(fWays.size());
    std::vector<long> pull(fPull.begin(), fPull.end());
    std::vector<bool> done(fWays.size());
    for (const auto& below : fBelow) {
      for (const TAbove& other : below) ++above[At(other.way)];
    }
    std::vector<int> free;
    for (std::size_t i = fWays.size(); i > 0; --i) {
      if (above[i - 1] == 0) free.push_back(static_cast<int>(i - 1));
    }
    const auto take = [&](int aWay) {
      done[At(aWay)] = true;
      order.push_back(aWay);
      for (const TAbove& other : fBelow[At(aWay)]) {
        pull[At(other.way)] += other.weight;
        if (--above[At(other.way)] == 0 && !done[At(other.way)]) free.push_back(other.way);
      }
    };
    while (order.size() < fWays.size()) {
      if (!free.empty()) {
        const int way = free.back();
        free.pop_back();
        take(way);
        continue;
      }
      int best = -1;
      for (std::size_t i = 0; i < fWays.size(); ++i) {
        if (!done[i] && (best < 0 || pull[i] > pull[At(best)])) best = static_cast<int>(i);
      }
      take(best);
    }
    return order;
  }

  /// The highest track below everything that has to run above the way.
  void Deal(int aWay) {
    int track = fLeast[At(aWay)];
    std::vector<int> taken;
    for (const int other : fApart[At(aWay)]) {
      if (fTrack[At(other)] >= 0) taken.push_back(fTrack[At(other)]);
    }
    std::sort(taken.begin(), taken.end());
    for (const int other : taken) {
      if (other == track) ++track;
    }
    fTrack[At(aWay)] = track;
    fTracks.count = std::max(fTracks.count, track + 1);
    for (const TAbove& other : fBelow[At(aWay)]) {
      if (fTrack[At(other.way)] < 0) fLeast[At(other.way)] = std::max(fLeast[At(other.way)], track + 1);
    }
  }
  /// First legs stand before second ones.
  void TellLegs() {
    for (std::size_t i = 0; i < fWays.size(); ++i) {
      fTracks.legs[fWays[i].strand].push_back({fTrack[i], fWays[i].to});
    }
  }

  std::vector<TWay> fWays;
  std::vector<int> fByLow;
  std::vector<std::vector<TAbove>> fBelow;  ///< what should run below, by way
  std::vector<std::vector<int>> fApart;     ///< what needs another track, by way
  std::vector<long> fPull;                  ///< how much rather above than below
  std::vector<int> fTrack, fLeast;          ///< dealt so far, -1: none; the first that is low enough
  TTracks fTracks;
};

}  // namespace

TTracks DealTracks(const TLayerGraph& aGraph, const std::vector<int>& aStrands) {
  return TDealing(aGraph, aStrands).Run();
}

}  // namespace Zor::inline Host
