// Operations on single items, done for all items of a drawing: the cost of one at 10,000 items and at
// 100,000, and how much it grows. What walked over the whole drawing each time would grow tenfold.
//
//     growth_bench
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "kaldrix/core/TKDXLayer.hpp"
#include "support/TBareLabel.hpp"

namespace {

using namespace Zor;

constexpr std::array Sizes{10'000, 100'000};
constexpr int Runs = 5;
constexpr double MostGrowth = 4;  // of caches that are too small; a walk grows tenfold

double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <class T>
std::vector<T> Shuffled(std::vector<T> aValues) {
  std::shuffle(aValues.begin(), aValues.end(), std::mt19937(1));
  return aValues;
}

/// A drawing of lines.
struct TLines {
  explicit TLines(int aCount, bool aRecorded = false) {
    if (!aRecorded) label.fOptions.Remove(loUndoRedo);
    label.BeginUpdate(true);
    for (int i = 0; i < aCount; ++i) items.push_back(label.NewLine(i, 0, i, 100));
    label.EndUpdate();
  }
  TBareLabel label;
  std::vector<TKDXBaseItem*> items;
};

/// Seconds that the body takes, after what it needs has been made.
template <class TBody>
double Timed(TBody aBody) {
  const double start = ProcessorTime();
  aBody();
  return ProcessorTime() - start;
}

// The work: each does something once for each of so many items, and gives the seconds.

double SearchNames(int aCount) {
  TLines lines(aCount);
  return Timed([&] {
    for (const TKDXBaseItem* item : Shuffled(lines.items)) lines.label.SearchItem(item->GetID(), false);
  });
}

double SearchRepeatedNames(int aCount) {
  TLines lines(aCount);
  lines.label.fOptions.Remove(loUniqueID);
  for (int i = 0; i < aCount; ++i) {
    lines.items[static_cast<std::size_t>(i)]->SetID("n" + std::to_string(i % (aCount / 2)));
  }
  return Timed([&] {
    for (TKDXBaseItem* item : Shuffled(lines.items)) {
      lines.label.SearchItem(item->GetID(), false);
      lines.label.RepeatID(item->GetID(), item);
    }
  });
}

double SetLayers(int aCount) {
  TLines lines(aCount);
  for (int i = 0; i < 9; ++i) lines.label.AddLayer();
  lines.label.SetLayerZOrder(true);
  std::mt19937 random(1);
  return Timed([&] {
    for (TKDXBaseItem* item : Shuffled(lines.items)) {
      item->SetLayer(*lines.label.LayerAt(static_cast<int>(random() % 10)));
    }
  });
}

double MakeOnLayers(int aCount) {
  TLines lines(0);
  for (int i = 0; i < 9; ++i) lines.label.AddLayer();
  lines.label.SetLayerZOrder(true);
  return Timed([&] {
    for (int i = 0; i < aCount; ++i)
      lines.label.NewLine(i, 0, i, 100)->SetLayer(*lines.label.LayerAt(i % 10));
  });
}

double UndoMaking(int aCount) {
  TLines lines(aCount, true);
  for (TKDXBaseItem* item : lines.items) lines.label.AddToSelection(*item, false);
  return Timed([&] { lines.label.Undo(); });
}

double UndoMakingOfNodes(int aCount) {
  TBareLabel label;
  label.BeginUpdate(true);
  int former = label.NewFlow(0, 0, 1000, 1000, ftProcess)->fInID;
  for (int i = 1; i < aCount / 2; ++i) {
    const int node = label.NewFlow(i, 0, 1000, 1000, ftProcess)->fInID;
    label.NewLink(former, node, 1, 5, ltDirLine);
    former = node;
  }
  label.EndUpdate();
  for (TKDXBaseItem* item : label.fItems) label.AddToSelection(*item, false);
  label.FillLinkList();
  return Timed([&] { label.Undo(); });
}

double Delete(int aCount) {
  TLines lines(aCount, true);
  const auto order = Shuffled(lines.items);
  return Timed([&] {
    lines.label.BeginUpdate(true);
    for (TKDXBaseItem* item : order) lines.label.DeleteItem(item, true);
    lines.label.EndUpdate();
  });
}

double DeleteByPlace(int aCount) {
  TLines lines(aCount, true);
  std::mt19937 random(1);
  return Timed([&] {
    lines.label.BeginUpdate(true);
    for (int left = aCount; left > 0; --left) {
      const int place = 1 + static_cast<int>(random() % static_cast<unsigned>(left));
      lines.label.DeleteItem(lines.label.GetItem(place), true);
    }
    lines.label.EndUpdate();
  });
}

double RemoveMembers(int aCount) {
  TJsonObject object;
  std::vector<std::string> names;
  for (int i = 0; i < aCount; ++i) {
    names.push_back("key" + std::to_string(i));
    object.PutInt(names.back(), i);
  }
  names = Shuffled(names);
  return Timed([&] {
    for (const std::string& name : names) object.Remove(name);
  });
}

struct TWork {
  const char* name;
  double (*run)(int);
};
constexpr std::array Works{
    TWork{"search each name", SearchNames},
    TWork{"search names that come twice, RepeatID", SearchRepeatedNames},
    TWork{"SetLayer of each, in order of layers", SetLayers},
    TWork{"make each on a layer, in their order", MakeOnLayers},
    TWork{"undo the making, all selected", UndoMaking},
    TWork{"the same of nodes and links in turn", UndoMakingOfNodes},
    TWork{"delete each, in any order", Delete},
    TWork{"delete each, by a place", DeleteByPlace},
    TWork{"remove JSON members by name", RemoveMembers},
};

}  // namespace

int main() {
  std::printf("%-40s %10s %10s %8s  (ns of one; growth at most %g)\n", "", "10,000", "100,000", "growth",
              MostGrowth);
  for (const TWork& work : Works) {
    std::array<double, Sizes.size()> best{1e9, 1e9};
    for (std::size_t size = 0; size < Sizes.size(); ++size) {
      for (int run = 0; run < Runs; ++run)
        best[size] = std::min(best[size], work.run(Sizes[size]) * 1e9 / Sizes[size]);
    }
    const double growth = best[1] / best[0];
    std::printf("%-40s %10.0f %10.0f %8.2f%s\n", work.name, best[0], best[1], growth,
                growth > MostGrowth ? "  MISSED" : "");
    std::fflush(stdout);
  }
  return 0;
}
