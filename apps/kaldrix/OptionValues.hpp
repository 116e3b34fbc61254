// What options take: numbers between two ends, words that stand for values, sizes.
#pragma once

#include <CLI/CLI.hpp>
#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Zor::Program {

/// A number from one end to the other. What is none (nan) and what has no end (inf) lie outside.
CLI::Validator Between(double aLeast, double aMost);

/// The name of a file, which is not empty: a variable of a script that is not set would pass for an option
/// that is not given.
CLI::Validator SomeFile();

/// "4711", "64K", "4G", "1T": bytes, in steps of 1024; nothing for other texts.
std::optional<std::size_t> SizeOf(std::string_view aText);

template <class TValue>
struct TWord {
  std::string_view word;
  TValue value;
};

/// An option that takes one of the words, whatever their case, and tells which.
CLI::Option* AddWordOption(CLI::App& aOptions, const char* aName, std::vector<std::string> aWords,
                           std::function<void(std::size_t)> aTake, const std::string& aDescription);

/// The same for a field that takes the value that the word stands for. `aWords` has to outlive the option.
template <class TValue, std::size_t aCount>
CLI::Option* AddWords(CLI::App& aOptions, const char* aName, TValue& aField,
                      const std::array<TWord<TValue>, aCount>& aWords, const std::string& aDescription) {
  std::vector<std::string> words;
  for (const auto& row : aWords) words.emplace_back(row.word);
  return AddWordOption(
      aOptions, aName, std::move(words),
      [&aField, &aWords](std::size_t index) { aField = aWords[index].value; }, aDescription);
}

}  // namespace Zor::Program
