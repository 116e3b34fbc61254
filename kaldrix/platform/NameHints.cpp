#include "kaldrix/platform/NameHints.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

constexpr std::size_t MostTold = 5;
constexpr std::size_t MostCompared = 64;  ///< characters

std::u32string Folded(std::string_view aName) {
  return Utf8::ToUtf32(LowerCase(Utf8::Sub(Utf8::Repaired(aName), 0, MostCompared)));
}

int Distance(const std::u32string& aFirst, const std::u32string& aSecond) {
  std::vector<int> row(aSecond.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (std::size_t i = 0; i < aFirst.size(); ++i) {
    int diagonal = std::exchange(row[0], static_cast<int>(i) + 1);
    for (std::size_t k = 0; k < aSecond.size(); ++k) {
      const int exchanged = diagonal + (aFirst[i] != aSecond[k]);
      diagonal = std::exchange(row[k + 1], std::min({row[k], row[k + 1], exchanged - 1}) + 1);
    }
  }
  return row.back();
}

/// The places of the names, nearest first.
std::vector<std::size_t> ByNearness(std::string_view aWanted, const std::vector<std::string>& aNames) {
  const std::u32string wanted = Folded(aWanted);
  std::vector<int> distances;
  for (const std::string& name : aNames) distances.push_back(Distance(wanted, Folded(name)));
  std::vector<std::size_t> places(aNames.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::stable_sort(places.begin(), places.end(),
                   [&](std::size_t a, std::size_t b) { return distances[a] < distances[b]; });
  return places;
}

}  // namespace

int NameDistance(std::string_view aFirst, std::string_view aSecond) {
  return Distance(Folded(aFirst), Folded(aSecond));
}

std::string NameHint(std::string_view aWanted, const std::vector<std::string>& aNames) {
  if (aNames.empty()) return "; there is none";
  std::vector<std::size_t> places = ByNearness(aWanted, aNames);
  const bool all = places.size() <= MostTold;
  if (!all) places.resize(MostTold);
  std::string hint = aNames.size() == 1 ? "; there is"
                     : all              ? "; there are"
                                        : "; the nearest of " + std::to_string(aNames.size()) + " are";
  for (const std::size_t place : places) {
    ((hint += place == places.front() ? " '" : ", '") += aNames[place]) += "'";
  }
  return hint;
}

}  // namespace Zor
