// A drawing of mixed items at four sizes: loading, writing, moving, undoing and deleting. Prints the cost of
// an item at each size with the pages of memory that the work touched for the first time (in the run that
// touched most: what a process has had before, it mostly keeps), and last the figures that have a target: the
// growth of that cost from ten thousand items to a million, reading JSON against parsing it, and the memory
// of a line.
//
//     document_bench [MOST]      leaves out the sizes above MOST
//
// document_bench_tcmalloc is the same over tcmalloc.
#include <malloc.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "support/TBareLabel.hpp"

namespace {

using namespace Zor;

constexpr std::array Sizes{1'000, 10'000, 100'000, 1'000'000};
constexpr std::size_t Small = 1, Large = 3;  // the sizes that are compared
constexpr int ItemsPerWork = 1'000'000;      // a small drawing is repeated until so many items are done
constexpr int LeastRuns = 3, MostRuns = 200;
constexpr int LinesWeighed = 100'000;

enum TWork { wkParse, wkLoadJson, wkLoadBinary, wkSvg, wkJson, wkBinary, wkMove, wkUndo, wkDelete, wkCount };
constexpr std::array<const char*, wkCount> WorkNames{"parse JSON", "load JSON",  "load binary",
                                                     "write SVG",  "write JSON", "write binary",
                                                     "move all",   "undo move",  "delete half"};

/// Nanoseconds per item, the fastest run, by size and work.
using TFigures = std::array<std::array<double, wkCount>, Sizes.size()>;
/// Pages by work.
using TPages = std::array<long, wkCount>;

/// Seconds of processor time, which other work on a shared machine disturbs least.
double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Pages of memory that this process touched for the first time.
long PagesTouched() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_minflt;
}

std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// The drawing --------------------------------------------------

class TDrawer {
 public:
  explicit TDrawer(TBareLabel& aLabel) : fLabel(aLabel) {}

  void Add(int aIndex) {
    const Int64 x = Within(160'000), y = Within(250'000), w = 1 + Within(30'000), h = 1 + Within(30'000);
    switch (aIndex % 8) {
      case 0:
      case 1:
        fLabel.NewLine(x, y, x + w, y + h);
        break;
      case 2:
        fLabel.NewPolyLine({{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}}, 3);
        break;
      case 3:
        fLabel.NewRectangle(x, y, w, h);
        break;
      case 4:
        fLabel.NewCircle(x + 15'000, y + 15'000, w / 2);
        break;
      case 5:
        fLabel.NewText(x, y)->SetText("Part " + std::to_string(aIndex) + ", see sheet 12");
        break;
      case 6:
        fLabel.NewArc(x, y, x + w, y + h / 2, x, y + h);
        break;
      default:
        fLabel.NewPolygon({{x, y}, {x + w, y + h / 2}, {x + w / 2, y + h}}, 2);
    }
  }

 private:
  Int64 Within(int aLimit) { return static_cast<Int64>(fRandom() % static_cast<unsigned>(aLimit)); }

  TBareLabel& fLabel;
  std::mt19937 fRandom{1};
};

struct TDrawing {
  std::string json, binary;
};

TDrawing MakeDrawing(int aCount) {
  TBareLabel label;
  label.fOptions.Remove(loUndoRedo);
  TDrawer drawer(label);
  label.BeginUpdate(false);
  for (int i = 0; i < aCount; ++i) drawer.Add(i);
  label.EndUpdate();
  return {label.SaveToBytes(lfJSON), label.SaveToBytes(lfBin)};
}

// The work --------------------------------------------------

/// Runs each work on one drawing and keeps the fastest time of each.
class TRun {
 public:
  TRun(int aCount, std::array<double, wkCount>& aBest, TPages& aMost)
      : fCount(aCount), fBest(aBest), fMost(aMost) {
    fBest.fill(std::numeric_limits<double>::max());
  }

  void All(const TDrawing& aDrawing) {
    Time(wkParse, [&] { return TJsonBaseObject::Parse(aDrawing.json); });
    {
      TBareLabel label;
      Time(wkLoadJson, [&] { label.LoadFromBytes(aDrawing.json); });
    }
    TBareLabel label;
    Time(wkLoadBinary, [&] { label.LoadFromBytes(aDrawing.binary); });
    Time(wkSvg, [&] { return label.SVG(svCurrentUnit, 1, false); });
    Time(wkJson, [&] { return label.GetJsonString(false); });
    Time(wkBinary, [&] { return label.SaveToBytes(lfBin); });
    Time(wkMove, [&] {
      label.BeginUpdate(true);
      for (TKDXBaseItem* item : label.fItems) item->BaseMove(500, 250, 0, 0, moAll, true);
      label.EndUpdate();
    });
    Time(wkUndo, [&] { label.Undo(); });
    for (int i = 1; i <= label.GetItemsCount(); i += 2) label.AddToSelection(*label.GetItem(i), false);
    Time(wkDelete, [&] {
      label.BeginUpdate(true);
      label.DeleteSelection();
      label.EndUpdate();
    });
  }

 private:
  /// What the body returns is freed outside the time.
  template <class TBody>
  void Time(TWork aWork, TBody aBody) {
    const long pages = PagesTouched();
    const double start = ProcessorTime();
    if constexpr (std::is_void_v<decltype(aBody())>) {
      aBody();
      Keep(aWork, start, pages);
    } else {
      const auto result = aBody();
      Keep(aWork, start, pages);
    }
  }
  void Keep(TWork aWork, double aStart, long aPages) {
    fMost[aWork] = std::max(fMost[aWork], PagesTouched() - aPages);
    fBest[aWork] = std::min(fBest[aWork], (ProcessorTime() - aStart) * 1e9 / fCount);
  }

  int fCount;
  std::array<double, wkCount>& fBest;
  TPages& fMost;
};

/// Bytes that a plain line takes in a document: the item, its points and its place in lists and indexes.
double BytesOfLine() {
  std::string json;
  {
    TBareLabel label;
    label.fOptions.Remove(loUndoRedo);
    std::mt19937 random(1);
    const auto within = [&](unsigned aLimit) { return static_cast<Int64>(random() % aLimit); };
    for (int i = 0; i < LinesWeighed; ++i) {
      label.NewLine(within(200'000), within(280'000), within(200'000), within(280'000));
    }
    json = label.SaveToBytes(lfJSON);
  }
  TBareLabel label;
  const std::size_t before = HeapInUse();
  label.LoadFromBytes(json);
  label.SearchItem(1, false);               // makes the index of identities
  label.RepeatID("no such name", nullptr);  // makes the index of names
  return static_cast<double>(HeapInUse() - before) / LinesWeighed;
}

// The report --------------------------------------------------

void PrintSize(int aCount, const std::array<double, wkCount>& aFigures, const TPages& aPages) {
  std::printf("%d items\n", aCount);
  for (std::size_t work = 0; work < wkCount; ++work) {
    std::printf("  %-14s %10.3f ms %8.0f ns per item %6.1f pages per 1000\n", WorkNames[work],
                aFigures[work] * aCount / 1e6, aFigures[work],
                1000.0 * static_cast<double>(aPages[work]) / aCount);
  }
}

void PrintTarget(const std::string& aWhat, double aFigure, double aMost) {
  std::printf("  %-38s %8.2f  (at most %g)%s\n", aWhat.c_str(), aFigure, aMost,
              aFigure > aMost ? "  MISSED" : "");
}

void PrintTargets(const TFigures& aFigures, std::size_t aSizes) {
  std::printf("targets\n");
  if (aSizes > Large) {
    for (std::size_t work = wkLoadJson; work < wkCount; ++work) {
      PrintTarget(std::string("per item, 1000000 / 10000: ") + WorkNames[work],
                  aFigures[Large][work] / aFigures[Small][work], 1.5);
    }
  }
  for (std::size_t size = 0; size < aSizes; ++size) {
    PrintTarget("load JSON / parse JSON, " + std::to_string(Sizes[size]),
                aFigures[size][wkLoadJson] / aFigures[size][wkParse], 2.0);
  }
  // Another allocator than the system's takes nothing from the heap that is asked here.
  if (HeapInUse() > 0) PrintTarget("bytes of a line in the document", BytesOfLine(), 400);
}

}  // namespace

int main(int argc, char** argv) {
  int most = Sizes.back();
  if (argc > 1) std::from_chars(argv[1], argv[1] + std::strlen(argv[1]), most);
  TFigures figures{};
  std::size_t size = 0;
  for (; size < Sizes.size() && Sizes[size] <= most; ++size) {
    const int count = Sizes[size];
    const TDrawing drawing = MakeDrawing(count);
    if (size == 0)
      std::printf("%zu bytes of JSON and %zu of binary per item\n", drawing.json.size() / std::size_t(count),
                  drawing.binary.size() / std::size_t(count));
    TPages pages{};
    TRun run(count, figures[size], pages);
    for (int i = std::clamp(ItemsPerWork / count, LeastRuns, MostRuns); i > 0; --i) run.All(drawing);
    PrintSize(count, figures[size], pages);
  }
  PrintTargets(figures, size);
  return 0;
}
