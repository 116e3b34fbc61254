// Reading Mermaid text of three sizes: the cost of a line at each size, and how it grows.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

#include "kaldrix/diagrams/ZOR.DiagramParsers.hpp"

namespace {

using namespace Zor;

constexpr std::array Sizes{100, 1'000, 10'000};
constexpr int LinesPerRun = 100'000;  // a small text is read until so many lines are done
constexpr int Runs = 5;

/// Seconds of processor time, which other work on a shared machine disturbs least.
double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Chains with shapes, labels, groups and comments, as people write them.
std::string Flowchart(int aLines) {
  std::string text = "flowchart TD\n";
  for (int i = 1; i < aLines; ++i) {
    const std::string n = std::to_string(i);
    const std::string next = std::to_string(i + 1);
    switch (i % 5) {
      case 0:
        text += "  step" + n + "[\"Check part " + n + "\"] --> step" + next + "{Good?}\n";
        break;
      case 1:
        text += "  step" + n + " -->|yes| step" + next + "([Store it])\n";
        break;
      case 2:
        text += "  step" + n + " -. no .-> step" + next + " & step" + std::to_string(i / 2) + "\n";
        break;
      case 3:
        text += "  step" + n + " ==> step" + next + "[(Stock)] %% counted\n";
        break;
      default:
        text += "  step" + n + "(Move on) --- step" + next + "\n";
        break;
    }
  }
  return text;
}

std::string Sequence(int aLines) {
  std::string text = "sequenceDiagram\n";
  for (int i = 1; i < aLines; ++i) {
    text += "  actor" + std::to_string(i % 20) + "->>actor" + std::to_string(i % 17) + ": message " +
            std::to_string(i) + "\n";
  }
  return text;
}

std::string Gantt(int aLines) {
  std::string text = "gantt\n";
  for (int i = 1; i < aLines; ++i) {
    const std::string n = std::to_string(i);
    text += "  Task " + n + " :active, t" + n + ", after t" + std::to_string(i - 1) + ", 3d\n";
  }
  return text;
}

/// Nanoseconds per line, of the fastest run.
double Cost(const std::string& aText, int aLines) {
  const int repeats = std::max(LinesPerRun / aLines, 1);
  double best = std::numeric_limits<double>::max();
  for (int run = 0; run < Runs; ++run) {
    const double start = ProcessorTime();
    for (int i = 0; i < repeats; ++i) {
      if (ZORParseDiagram(aText)->HasDiagnostics(dsWarning)) std::abort();
    }
    best = std::min(best, (ProcessorTime() - start) * 1e9 / repeats / aLines);
  }
  return best;
}

void Measure(const char* aName, std::string (*aMake)(int aLines)) {
  std::array<double, Sizes.size()> costs{};
  for (std::size_t i = 0; i < Sizes.size(); ++i) costs[i] = Cost(aMake(Sizes[i]), Sizes[i]);
  std::printf("%-10s", aName);
  for (const double cost : costs) std::printf("%9.0f ns", cost);
  std::printf("%9.2f ms%9.2f\n", costs.back() * Sizes.back() * 1e-6, costs.back() / costs.front());
}

}  // namespace

int main() {
  std::printf("%-10s", "per line");
  for (const int size : Sizes) std::printf("%12d", size);
  std::printf("%12s%9s\n", "the largest", "growth");
  Measure("flowchart", Flowchart);
  Measure("sequence", Sequence);
  Measure("gantt", Gantt);
}
