#include "apps/kaldrix/OptionValues.hpp"

#include <algorithm>
#include <charconv>
#include <sstream>

#include "kaldrix/platform/NameHints.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::Program {

namespace {

/// The steps of 1024, first the one of 2^10.
constexpr std::string_view SizeSteps = "KMGT";
constexpr int StepBits = 10;

std::string Ends(double aLeast, double aMost, const char* aBetween) {
  std::ostringstream text;
  text << aLeast << aBetween << aMost;
  return text.str();
}

std::optional<std::size_t> IndexOf(const std::vector<std::string>& aWords, std::string_view aWord) {
  const auto found = std::find_if(aWords.begin(), aWords.end(),
                                  [aWord](const std::string& word) { return SameText(word, aWord); });
  if (found == aWords.end()) return std::nullopt;
  return static_cast<std::size_t>(found - aWords.begin());
}

}  // namespace

CLI::Validator Between(double aLeast, double aMost) {
  const auto problem = [aLeast, aMost](const std::string& text) {
    double value = 0;
    const bool inside = CLI::detail::lexical_cast(text, value) && value >= aLeast && value <= aMost;
    return inside ? std::string() : "'" + text + "' is no number from " + Ends(aLeast, aMost, " to ");
  };
  return {problem, Ends(aLeast, aMost, ".."), "Between"};
}

CLI::Validator SomeFile() {
  return {
      [](const std::string& name) { return name.empty() ? "the name of the file is empty" : std::string(); },
      "FILE", "SomeFile"};
}

std::optional<std::size_t> SizeOf(std::string_view aText) {
  int bits = 0;
  if (const std::size_t step = aText.empty() ? std::string_view::npos : SizeSteps.find(aText.back());
      step != std::string_view::npos) {
    bits = StepBits * (static_cast<int>(step) + 1);
    aText.remove_suffix(1);
  }
  std::size_t number = 0;
  const char* end = aText.data() + aText.size();
  const auto [last, error] = std::from_chars(aText.data(), end, number);
  if (error != std::errc{} || last != end || number == 0 || number > SIZE_MAX >> bits) return std::nullopt;
  return number << bits;
}

CLI::Option* AddWordOption(CLI::App& aOptions, const char* aName, std::vector<std::string> aWords,
                           std::function<void(std::size_t)> aTake, const std::string& aDescription) {
  const auto problem = [aWords](const std::string& word) {
    return IndexOf(aWords, word) ? std::string() : "there is no '" + word + "'" + NameHint(word, aWords);
  };
  const auto take = [words = std::move(aWords), takes = std::move(aTake)](const std::string& word) {
    takes(IndexOf(words, word).value());
  };
  return aOptions.add_option_function<std::string>(aName, take, aDescription)
      ->check(problem)
      ->type_name("WORD");
}

}  // namespace Zor::Program
