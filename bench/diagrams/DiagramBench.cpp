// From diagram text to SVG inside one process: milliseconds for each file, the least of several runs.
//
//   diagram_bench FILE...      prints: file, parse, draw, SVG, all
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <limits>
#include <memory>

#include "kaldrix/diagrams/ZORParseDiagram.hpp"
#include "kaldrix/host/diagrams/DiagramLoader.hpp"
#include "kaldrix/platform/Files.hpp"

namespace {

using namespace Zor;

constexpr int Runs = 7;

double Now() {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

struct TTimes {
  double parse = std::numeric_limits<double>::max(), draw = parse, svg = parse, all = parse;
};

TTimes Measure(const std::string& aFile) {
  const std::string text = ReadFile(aFile);
  const auto fonts = std::make_shared<TFontEngine>();
  TTimes least;
  for (int run = 0; run < Runs; ++run) {
    const double start = Now();
    const auto model = ZORParseDiagram(text, ZORDiagramFormatFromExt(aFile), true);
    const double parsed = Now();
    TKDXLabel document(fonts);
    document.SetEditorMode(emFlowChart);
    DrawDiagram(document, *model, dpgFit);
    const double drawn = Now();
    const std::size_t size = document.SVG(svCurrentUnit, 1, false).size();
    const double written = Now();
    if (size == 0) throw Exception(aFile + ": nothing was drawn");
    least.parse = std::min(least.parse, parsed - start);
    least.draw = std::min(least.draw, drawn - parsed);
    least.svg = std::min(least.svg, written - drawn);
    least.all = std::min(least.all, written - start);
  }
  return least;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    for (int i = 1; i < argc; ++i) {
      const TTimes t = Measure(argv[i]);
      std::printf("%s %.3f %.3f %.3f %.3f\n", argv[i], t.parse, t.draw, t.svg, t.all);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
