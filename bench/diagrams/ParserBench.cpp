// Reading Mermaid and PlantUML text of three sizes: the cost of a line at each size, and how it grows.
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

/// Decisions, loops and actions, as an activity diagram nests them.
std::string Activity(int aLines) {
  constexpr std::array block{":Fetch part ", "while (More of part ", "if (Good, part ", ":Store part ",
                             "else (no)",    ":Send back part ",     "endif",           "endwhile (done)",
                             ":Report part "};
  constexpr std::array ends{";", "?) is (yes)", "?) then (yes)", ";", "", ";", "", "", ";"};
  std::string text = "@startuml\nstart\n";
  for (int i = 2; i < aLines; ++i) {
    const std::size_t row = static_cast<std::size_t>(i) % block.size();
    text += std::string(row >= 2 && row <= 6 ? "  " : "") + block[row];
    if (ends[row][0] != '\0') text += std::to_string(i) + ends[row];
    text += "\n";
  }
  return text;
}

/// A sequence that no line tells at once: all are tried.
std::string Messages(int aLines) {
  std::string text = "@startuml\n";
  for (int i = 1; i < aLines; ++i) {
    text += "Actor" + std::to_string(i % 20) + " -> Actor" + std::to_string(i % 17) + " : message " +
            std::to_string(i) + "\n";
  }
  return text;
}

/// Classes with members, and the relations between them.
std::string Classes(int aLines) {
  std::string text = "@startuml\n";
  for (int i = 1; i < aLines; ++i) {
    const std::string n = std::to_string(i);
    switch (i % 6) {
      case 0:
        text += "class Part" + n + " {\n";
        break;
      case 1:
        text += "  +name : string\n";
        break;
      case 2:
        text += "  #weight() : number\n";
        break;
      case 3:
        text += "}\n";
        break;
      case 4:
        text += "Part" + std::to_string(i - 4) + " <|-- Part" + std::to_string(i / 12 * 6) + "\n";
        break;
      default:
        text += "Part" + std::to_string(i - 5) + " o-- Store" + std::to_string(i % 40) + " : kept in\n";
        break;
    }
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
  Measure("activity", Activity);
  Measure("classes", Classes);
  Measure("messages", Messages);
}
