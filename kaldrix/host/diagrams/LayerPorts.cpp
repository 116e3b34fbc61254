#include "kaldrix/host/diagrams/LayerPorts.hpp"

#include <algorithm>

#include "kaldrix/host/diagrams/PortDealing.hpp"

namespace Zor::inline Host {

namespace {

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

class TPortDealer {
 public:
  TPortDealer(const TLayoutGraph& aGraph, TLayerGraph& aCells) : fGraph(aGraph), fCells(aCells) {
    fChainOf.resize(aCells.strands.size());
    for (TChain& chain : aCells.chains) {
      fChainOf[At(chain.first)] = fChainOf[At(chain.first + chain.count - 1)] = &chain;
    }
    fLoops.resize(aGraph.nodes.size());
    for (const TLayoutEdge& edge : aGraph.edges) {
      if (edge.from == edge.to) fLoops[At(edge.from)] = true;
    }
  }

  void Deal() {
    for (std::size_t i = 0; i < fCells.cells.size(); ++i) {
      const int node = fCells.cells[i].node;
      if (node < 0) continue;
      fTaken.clear();
      if (fLoops[At(node)]) {
        const TLoopPorts loop = LoopPortsOf(fGraph.nodes[At(node)]);
        fTaken = {loop.out.position, loop.in.position};
      }
      DealSide(static_cast<int>(i), false);
      DealSide(static_cast<int>(i), true);
    }
  }

 private:
  bool Taken(const TLayoutPort& aPort) const {
    return std::find(fTaken.begin(), fTaken.end(), aPort.position) != fTaken.end();
  }
  /// All of them where all are taken.
  std::vector<TLayoutPort> FreePorts(const std::vector<TLayoutPort>& aPorts) const {
    std::vector<TLayoutPort> free;
    std::copy_if(aPorts.begin(), aPorts.end(), std::back_inserter(free),
                 [this](const TLayoutPort& port) { return !Taken(port); });
    return free.empty() ? aPorts : free;
  }
  TPortLine LineOf(int aStrand, bool aTop) const {
    const TChain& chain = *fChainOf[At(aStrand)];
    const TLayoutEdge& edge = fGraph.edges[At(chain.edge)];
    return aTop == chain.reversed ? TPortLine{edge.fromLook, false} : TPortLine{edge.toLook, true};
  }
  void DealSide(int aCell, bool aTop) {
    std::vector<int>& strands = (aTop ? fCells.above : fCells.below)[At(aCell)];
    if (strands.empty()) return;
    const auto place = [&](int aStrand) {
      const TStrand& strand = fCells.Strand(aStrand);
      return fCells.Cell(aTop ? strand.up : strand.down).place;
    };
    std::stable_sort(strands.begin(), strands.end(), [&](int a, int b) { return place(a) < place(b); });
    std::vector<TPortLine> lines;
    for (const int strand : strands) lines.push_back(LineOf(strand, aTop));
    const TLayoutNode& node = fGraph.nodes[At(fCells.Cell(aCell).node)];
    const std::vector<TLayoutPort> ports = FreePorts(node.ports[aTop ? lsdTop : lsdBottom]);
    const std::vector<std::size_t> dealt = DealPorts(ports, node.size.width, lines);
    for (std::size_t i = 0; i < strands.size(); ++i) {
      const TLayoutPort& port = ports[dealt[i]];
      TStrand& strand = fCells.Strand(strands[i]);
      (aTop ? strand.downPort : strand.upPort) = port.at.x - node.size.width / 2;
      (aTop ? fChainOf[At(strands[i])]->bottom : fChainOf[At(strands[i])]->top) = port;
      fTaken.push_back(port.position);
    }
  }

  const TLayoutGraph& fGraph;
  TLayerGraph& fCells;
  std::vector<TChain*> fChainOf;  ///< by strand, for the first and the last one of each chain
  std::vector<bool> fLoops;       ///< by node: is there an edge with itself?
  std::vector<std::uint16_t> fTaken;
};

}  // namespace

TLoopPorts LoopPortsOf(const TLayoutNode& aNode) {
  const TLayoutPort& in = MiddlePort(aNode, lsdRight);
  const std::vector<TLayoutPort>& top = aNode.ports[lsdTop];
  const auto above = std::find_if(top.rbegin(), top.rend(), [&](const TLayoutPort& port) {
    return port.at.y < in.at.y && port.leaving < 1;
  });
  return {above != top.rend() ? *above : top.back(), in};
}

void DealLayerPorts(const TLayoutGraph& aGraph, TLayerGraph& aCells) { TPortDealer(aGraph, aCells).Deal(); }

}  // namespace Zor::inline Host
