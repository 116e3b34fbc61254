// Diagrams as drawings: what a reader of the picture sees, and what a user of the document can do with it.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>

#include "host/DrawingCheck.hpp"
#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/DiagramLoader.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/diagrams/ZORParseDiagram.hpp"
#include "kaldrix/host/diagrams/DiagramLoader.hpp"
#include "kaldrix/items/TKDXBaseFlow.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

using namespace Testing;

void Draw(TKDXLabel& aDocument, const std::string& aText, TZORDiagramFormat aFormat = dgMermaid) {
  const auto model = ZORParseDiagram(aText, aFormat);
  aDocument.SetEditorMode(emFlowChart);
  DrawDiagram(aDocument, *model, dpgFit);
}

std::string Joined(const std::vector<std::string>& aLines) {
  std::string text;
  for (const std::string& line : aLines) text += line + "\n";
  return text;
}

std::string SvgOf(TKDXLabel& aDocument) { return aDocument.SVG(svCurrentUnit, 1, true); }

TKDXBaseFlow& NodeOf(TKDXLabel& aDocument, const std::string& aText) {
  for (TKDXBaseItem* item : aDocument.fItems) {
    auto* node = dynamic_cast<TKDXBaseFlow*>(item);
    if (node != nullptr && node->fText == aText) return *node;
  }
  throw Exception("There is no node " + aText);
}

std::vector<std::string> Examples() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(KALDRIX_SOURCE_DIR "/examples/diagrams")) {
    files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

TEST(Diagram, EveryExampleIsDrawnWithoutComplaint) {
  const std::vector<std::string> files = Examples();
  EXPECT_GE(files.size(), 42U);
  for (const std::string& file : files) {
    TKDXLabel document;
    Draw(document, ReadFile(file), ZORDiagramFormatFromExt(file));
    EXPECT_GT(document.GetItemsCount(), 3) << file;
    EXPECT_EQ(Joined(Complaints(document)), "") << file;
  }
}

TEST(Diagram, ASavedDiagramDrawsTheSamePicture) {
  for (const std::string& file : Examples()) {
    TKDXLabel document;
    Draw(document, ReadFile(file), ZORDiagramFormatFromExt(file));
    const std::string svg = SvgOf(document);
    for (const TZORExt format : {lfJSON, lfBin}) {
      TKDXLabel again;
      again.LoadFromBytes(document.SaveToBytes(format));
      EXPECT_EQ(SvgOf(again), svg) << file << " as " << format;
      EXPECT_EQ(again.SaveToBytes(format), document.SaveToBytes(format)) << file;
    }
  }
}

TEST(Diagram, LinksFollowANodeAndUndoBringsBothBack) {
  for (const char* text :
       {"flowchart TD\n A --> B\n B -->|back| A\n A --> C\n C --> B", "mindmap\n  A\n    B\n    C"}) {
    TKDXLabel document;
    Draw(document, text);
    const std::string before = SvgOf(document);
    const std::vector<TTrace> traces = LinkTraces(document);
    document.BeginUpdate(true);
    TKDXElePosCmd::AddCommand(NodeOf(document, "B"), 0);
    NodeOf(document, "B").BaseMove(7000, 3000, 0, 0, moAll, true);
    document.EndUpdate();
    const std::vector<TTrace> moved = LinkTraces(document);
    ASSERT_EQ(moved.size(), traces.size());
    EXPECT_NE(SvgOf(document), before);
    // The first link ends on B.
    EXPECT_DOUBLE_EQ(moved[0].back().x, traces[0].back().x + 7000) << text;
    EXPECT_DOUBLE_EQ(moved[0].back().y, traces[0].back().y + 3000) << text;
    document.Undo();
    EXPECT_EQ(SvgOf(document), before) << text;
  }
}

TEST(Diagram, TheLoaderReplacesTheDrawingAndKeepsThePageThatIsLargeEnough) {
  UseDiagramLoader();
  TKDXLabel document;
  document.SetEditorMode(emFlowChart);
  document.fMeasure->SetPaperSizeMM(210, 297);
  document.NewLine(0, 0, 10000, 10000);
  EXPECT_FALSE(document.LoadFromDiagramText("", dgAuto));
  EXPECT_EQ(document.GetItemsCount(), 1);
  EXPECT_TRUE(document.LoadFromDiagramText("@startuml\nA -> B : hello\n@enduml", dgAuto));
  EXPECT_EQ(document.fMeasure->fPaperWidth, 210000);
  EXPECT_EQ(Joined(Complaints(document)), "");
  std::string chain = "flowchart TD\n";
  for (int i = 0; i < 50; ++i) chain += "n" + std::to_string(i) + " --> n" + std::to_string(i + 1) + "\n";
  EXPECT_TRUE(document.LoadFromDiagramText(chain, dgMermaid));
  EXPECT_EQ(document.fMeasure->fPaperWidth, 210000);
  EXPECT_GT(document.fMeasure->fPaperHeight, 297000);
  EXPECT_EQ(Joined(Complaints(document)), "");
  ZORSetDiagramLoader(nullptr);
  EXPECT_FALSE(document.LoadFromDiagramText(chain, dgMermaid));
}

TEST(Diagram, FilesAreReadInUtf8AndElseInWindows1252) {
  UseDiagramLoader();
  TKDXLabel document;
  EXPECT_FALSE(document.LoadFromDiagram("no such file.mmd", dgAuto));
  const std::string file = testing::TempDir() + "umlaut.mmd";
  for (const char* bytes : {"flowchart TD\n A[Gr\xC3\xBC\xC3\x9F]", "flowchart TD\n A[Gr\xFC\xDF]"}) {
    WriteFileAtomically(file, bytes);
    EXPECT_TRUE(document.LoadFromDiagram(file, dgAuto));
    EXPECT_EQ(NodeOf(document, "Gr\xC3\xBC\xC3\x9F").fFlowType, ftProcess);
  }
  RemoveFile(file);
}

// Random flow charts ------------------------------------------------------------------

struct TRandomEdge {
  int from, to;
  bool label;
};

/// A chart of so many nodes that hangs together mostly, with some edges back and some to the node itself.
std::vector<TRandomEdge> RandomEdges(int aNodes, unsigned aSeed, double aPerNode) {
  std::mt19937 random(aSeed);
  const auto below = [&](int aLimit) { return static_cast<int>(random() % static_cast<unsigned>(aLimit)); };
  std::vector<TRandomEdge> edges;
  for (int i = 1; i < aNodes; ++i) edges.push_back({below(i), i, below(4) == 0});
  while (static_cast<double>(edges.size()) < aNodes * aPerNode) {
    int from = below(aNodes), to = below(aNodes);
    if (from > to && below(5) != 0) std::swap(from, to);
    edges.push_back({from, to, below(4) == 0});
  }
  return edges;
}

std::string MermaidText(const std::vector<TRandomEdge>& aEdges, const char* aDirection) {
  std::string text = std::string("flowchart ") + aDirection + "\n";
  for (const TRandomEdge& edge : aEdges) {
    text += "n" + std::to_string(edge.from) + (edge.label ? " -->|label| n" : " --> n") +
            std::to_string(edge.to) + "\n";
  }
  return text;
}

constexpr std::array Sizes{10, 30, 100, 300};
constexpr double PerNode = 1.3;

TEST(Diagram, RandomFlowchartsAreDrawnWithoutComplaint) {
  for (const int size : Sizes) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
      TKDXLabel document;
      Draw(document, MermaidText(RandomEdges(size, seed, PerNode), seed % 2 == 0 ? "TD" : "LR"));
      EXPECT_EQ(Joined(Complaints(document)), "") << size << " nodes, seed " << seed;
    }
  }
}

#ifdef KALDRIX_DOT

/// The same boxes and edges for Graphviz, in points and inches.
std::string DotText(TKDXLabel& aDocument, const std::vector<TRandomEdge>& aEdges) {
  constexpr double inch = 25400;
  std::string text = "digraph {\nnode [shape=box, fixedsize=true, label=\"\"]\n";
  for (const TKDXBaseItem* item : aDocument.fItems) {
    const auto* node = dynamic_cast<const TKDXBaseFlow*>(item);
    if (node == nullptr) continue;
    const TZORRect& r = node->fBoundsRect;
    text += node->fText + " [width=" + std::to_string(static_cast<double>(r.GetWidth()) / inch) +
            ", height=" + std::to_string(static_cast<double>(r.GetHeight()) / inch) + "]\n";
  }
  for (const TRandomEdge& edge : aEdges) {
    text += "n" + std::to_string(edge.from) + " -> n" + std::to_string(edge.to) +
            (edge.label ? " [label=label, fontsize=8.5]\n" : "\n");
  }
  return text + "}\n";
}

/// The edges that `dot -Tplain` drew, in steps of the check.
std::vector<TTrace> DotTraces(const std::string& aText) {
  // Other runs of this test may be under way.
  const std::string own = testing::TempDir() + "graph" + std::to_string(getpid());
  const std::string input = own + ".dot", output = own + ".plain";
  WriteFileAtomically(input, aText);
  const std::string command = std::string(KALDRIX_DOT) + " -Tplain -o '" + output + "' '" + input + "'";
  const bool drawn = std::system(command.c_str()) == 0;
  const std::string plain = drawn ? ReadFile(output) : "";
  for (const std::string& file : {input, output}) RemoveFile(file);
  return PlainTraces(plain);
}

TEST(Diagram, LinksCrossHardlyMoreOftenThanThoseOfGraphviz) {
  for (const int size : Sizes) {
    int ours = 0, theirs = 0;
    for (unsigned seed = 1; seed <= 6; ++seed) {
      const std::vector<TRandomEdge> edges = RandomEdges(size, seed, PerNode);
      TKDXLabel document;
      Draw(document, MermaidText(edges, "TD"));
      const std::vector<TTrace> traces = DotTraces(DotText(document, edges));
      ASSERT_EQ(traces.size(), edges.size());
      ours += Crossings(LinkTraces(document));
      theirs += Crossings(traces);
    }
    std::printf("%d nodes: %d crossings, Graphviz %d\n", size, ours, theirs);
    EXPECT_LE(ours, 1.2 * theirs + 2) << size << " nodes";
  }
}

#endif

}  // namespace
}  // namespace Zor
