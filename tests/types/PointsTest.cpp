#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <vector>

#include "kaldrix/types/TZORPtoA.hpp"

namespace Zor {
namespace {

/// The same operations on a sequence and on a vector.
struct TPair {
  TZORPtoA points;
  std::vector<TZORPto> model;

  template <class TAction>
  void Do(TAction aAction) {
    aAction(points);
    aAction(model);
  }
  bool Agree() const {
    return points.size() == model.size() && std::equal(model.begin(), model.end(), points.begin()) &&
           points.empty() == model.empty();
  }
};

void Step(TPair& aPair, unsigned aKind, unsigned aPlace, const TZORPto& aPoint) {
  const std::size_t count = aPair.model.size();
  const auto place = static_cast<std::ptrdiff_t>(aPlace % (count + 1));
  const std::vector<TZORPto> some(aPlace % 4, aPoint);
  switch (aKind) {
    case 0:
      return aPair.Do([&](auto& a) { a.push_back(aPoint); });
    case 1:
      return aPair.Do([&](auto& a) { a.insert(a.begin() + place, aPoint); });
    case 2:
      return aPair.Do([&](auto& a) { a.insert(a.begin() + place, some.begin(), some.end()); });
    case 3:
      return aPair.Do([&](auto& a) { a.erase(a.begin() + place, a.end()); });
    case 4:
      return aPair.Do([&](auto& a) { a.resize(aPlace % 6, aPoint); });
    case 5:
      return aPair.Do([&](auto& a) { a.assign(some.begin(), some.end()); });
    default:
      if (count == 0) return;
      // A point of its own, which the growth moves.
      return aPair.Do([&](auto& a) { a.insert(a.begin(), a.back()); });
  }
}

TEST(Points, AgreeWithAVectorThroughAnyWalk) {
  std::mt19937 random(11);
  for (int walk = 0; walk < 200; ++walk) {
    TPair pair;
    for (int i = 0; i < 100; ++i) {
      const TZORPto point{static_cast<Int64>(random()), i};
      Step(pair, static_cast<unsigned>(random() % 7), static_cast<unsigned>(random()), point);
      ASSERT_TRUE(pair.Agree()) << walk << ", " << i;
    }
  }
}

TEST(Points, ChangeHandsWhateverTheirNumber) {
  for (const std::size_t count : {0U, 1U, 2U, 3U, 9U}) {
    for (const std::size_t other : {0U, 2U, 3U, 9U}) {
      TZORPtoA a(count, {1, 2}), b(other, {3, 4});
      const TZORPtoA copy = a;
      swap(a, b);
      EXPECT_EQ(b, copy);
      EXPECT_EQ(a, TZORPtoA(other, {3, 4}));
      a = std::move(b);
      EXPECT_EQ(a, copy);
      a = *&a;
      EXPECT_EQ(a, copy);
      b = copy;
      EXPECT_EQ(b, copy);
      EXPECT_EQ(TZORPtoA(std::move(a)), copy);
    }
  }
}

TEST(Points, TooManyAreRefusedBeforeMemoryIsTaken) {
  TZORPtoA points{{1, 2}};
  EXPECT_THROW(points.reserve(std::size_t{1} << 32), std::length_error);
  EXPECT_EQ(points, (TZORPtoA{{1, 2}}));
}

}  // namespace
}  // namespace Zor
