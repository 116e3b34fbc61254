// What the tests of the encoders share: random texts, and what readers find in many images at once.
#pragma once

#include <map>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "support/SymbolImage.hpp"

namespace Zor {

constexpr std::string_view Printable =
    " !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~";

/// Texts of characters of an alphabet.
class TRandomText {
 public:
  explicit TRandomText(unsigned aSeed) : fRandom(aSeed) {}
  std::string Of(std::string_view aAlphabet, std::size_t aLength) {
    std::string text;
    for (std::size_t i = 0; i < aLength; ++i) text += aAlphabet[fRandom() % aAlphabet.size()];
    return text;
  }

 private:
  std::mt19937 fRandom;
};

/// The printable texts that ZXingReader finds, in the order of the files; empty where it finds none.
inline std::vector<std::string> ReadWithZXing(const TReaderRun& aRun, const std::string& aFormat) {
  std::map<std::string, std::string> byFile;
  std::istringstream lines(aRun.Read("ZXingReader -1 -ispure -format " + aFormat));
  for (std::string line; std::getline(lines, line);) {
    const std::size_t from = line.find('"'), to = line.rfind('"');
    if (from < to) byFile[line.substr(0, line.find(' '))] = line.substr(from + 1, to - from - 1);
  }
  std::vector<std::string> texts;
  for (const std::string& file : aRun.Files()) texts.push_back(byFile[file]);
  return texts;
}

}  // namespace Zor
