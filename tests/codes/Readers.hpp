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

/// Weights 3, 1, 3, ... from the right, as EAN, UPC and GS1 keys have them.
inline char Mod10Of(std::string_view aDigits) {
  int sum = 0, weight = 3;
  for (std::size_t i = aDigits.size(); i-- > 0; weight = 4 - weight) sum += (aDigits[i] - '0') * weight;
  return static_cast<char>('0' + (10 - sum % 10) % 10);
}

/// Digits of a UPC-E symbol with the check digit of the UPC-A code that it stands for (ISO/IEC 15420, 4.3.3).
inline std::string UpcE(const std::string& aSix) {
  const auto part = [&](std::size_t aFrom, std::size_t aCount) { return aSix.substr(aFrom, aCount); };
  const char last = aSix[5];
  std::string full = "0";
  if (last <= '2')
    full += part(0, 2) + last + "0000" + part(2, 3);
  else if (last == '3')
    full += part(0, 3) + "00000" + part(3, 2);
  else if (last == '4')
    full += part(0, 4) + "00000" + part(4, 1);
  else
    full += part(0, 5) + "0000" + last;
  return "0" + aSix + Mod10Of(full);
}

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
