#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>

#include "kaldrix/host/diagrams/LayerRanks.hpp"

namespace Zor {
namespace {

/// Edges that hang together, some of them turned round.
std::vector<TRankEdge> RandomEdges(int aNodes, unsigned aSeed) {
  std::mt19937 random(aSeed);
  const auto any = [&](int aBelow) { return static_cast<int>(random() % static_cast<unsigned>(aBelow)); };
  std::vector<TRankEdge> edges;
  for (int i = 1; i < aNodes; ++i) {
    const int other = any(i);
    edges.push_back(any(2) == 0 ? TRankEdge{i, other, 1 + any(2)} : TRankEdge{other, i, 1 + any(2)});
  }
  for (int i = any(2 * aNodes); i > 0; --i) {
    const int from = any(aNodes), to = any(aNodes);
    if (from != to) edges.push_back({from, to, 1 + any(2)});
  }
  BreakCircles(aNodes, edges);
  return edges;
}

int LengthOf(const std::vector<TRankEdge>& aEdges, const std::vector<int>& aRanks) {
  int length = 0;
  for (const TRankEdge& edge : aEdges) {
    length += aRanks[static_cast<std::size_t>(edge.to)] - aRanks[static_cast<std::size_t>(edge.from)];
  }
  return length;
}

bool Allowed(const std::vector<TRankEdge>& aEdges, const std::vector<int>& aRanks) {
  return std::all_of(aEdges.begin(), aEdges.end(), [&](const TRankEdge& edge) {
    return aRanks[static_cast<std::size_t>(edge.to)] - aRanks[static_cast<std::size_t>(edge.from)] >=
           edge.least;
  });
}

/// The least length that any ranks below `aHeight` have, by trying them all.
int LeastLength(const std::vector<TRankEdge>& aEdges, std::size_t aNodes, int aHeight) {
  std::vector<int> ranks(aNodes);
  int least = INT_MAX;
  while (true) {
    if (Allowed(aEdges, ranks)) least = std::min(least, LengthOf(aEdges, ranks));
    std::size_t digit = 0;
    while (digit < aNodes && ++ranks[digit] == aHeight) ranks[digit++] = 0;
    if (digit == aNodes) return least;
  }
}

TEST(LayerRanks, EdgesAreAsShortAsTheyCanBe) {
  for (unsigned seed = 0; seed < 400; ++seed) {
    const int nodes = 2 + static_cast<int>(seed % 4);
    const std::vector<TRankEdge> edges = RandomEdges(nodes, seed);
    const std::vector<int> ranks = LayerRanks(nodes, edges);
    EXPECT_EQ(*std::min_element(ranks.begin(), ranks.end()), 0);
    ASSERT_TRUE(Allowed(edges, ranks)) << seed;
    EXPECT_EQ(LengthOf(edges, ranks), LeastLength(edges, static_cast<std::size_t>(nodes), 2 * nodes - 1))
        << seed;
  }
}

TEST(LayerRanks, LargeGraphsKeepTheLeastLengths) {
  for (const int nodes : {2000, 20000}) {
    const std::vector<TRankEdge> edges = RandomEdges(nodes, 1);
    EXPECT_TRUE(Allowed(edges, LayerRanks(nodes, edges))) << nodes;
  }
}

}  // namespace
}  // namespace Zor
