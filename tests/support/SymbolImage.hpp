// Symbols as images, and the programs that read them: what tests of barcodes share.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace Zor {

/// A grey image that is painted module by module; the quiet zone lies around it. Coordinates are modules,
/// 0-based from the top left.
class TSymbolImage {
 public:
  /// A module becomes `aScaleX` x `aScaleY` pixels, the quiet zone is `aQuiet` pixels wide.
  TSymbolImage(int aCols, int aRows, int aScaleX, int aScaleY, int aQuiet)
      : fScaleX(aScaleX),
        fScaleY(aScaleY),
        fQuiet(aQuiet),
        fWidth(aCols * aScaleX + 2 * aQuiet),
        fHeight(aRows * aScaleY + 2 * aQuiet),
        fPixels(static_cast<std::size_t>(fWidth) * static_cast<std::size_t>(fHeight), '\xFF') {}

  /// Modules row by row, other than 0 for dark.
  TSymbolImage(std::span<const std::uint8_t> aModules, int aCols, int aRows, int aScale, int aQuiet)
      : TSymbolImage(aCols, aRows, aScale, aScale, aQuiet) {
    for (int y = 0; y < aRows; ++y) {
      for (int x = 0; x < aCols; ++x) {
        if (aModules[static_cast<std::size_t>(y * aCols + x)] != 0) Fill(x, y, 1, 1);
      }
    }
  }

  /// Makes a rectangle of modules dark.
  void Fill(int aX, int aY, int aCols, int aRows) {
    for (int y = 0; y < aRows * fScaleY; ++y) {
      const auto row = fPixels.begin() + (fQuiet + aY * fScaleY + y) * fWidth + fQuiet + aX * fScaleX;
      std::fill_n(row, aCols * fScaleX, '\0');
    }
  }

  /// Writes a PGM file (binary, 8 bits), which all the readers take.
  void Write(const std::string& aName) const {
    std::ofstream file(aName, std::ios::binary);
    file << "P5\n" << fWidth << ' ' << fHeight << "\n255\n";
    file.write(fPixels.data(), static_cast<std::streamsize>(fPixels.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + aName);
  }

 private:
  int fScaleX, fScaleY, fQuiet, fWidth, fHeight;
  std::vector<char> fPixels;
};

/// Images in a folder of their own, which goes with the object, and what a program says about them.
class TReaderRun {
 public:
  TReaderRun() {
    std::string pattern = (std::filesystem::temp_directory_path() / "symbolsXXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    fFolder = pattern;
  }
  ~TReaderRun() { std::filesystem::remove_all(fFolder); }
  TReaderRun(const TReaderRun&) = delete;
  TReaderRun& operator=(const TReaderRun&) = delete;

  void Add(const TSymbolImage& aImage) { aImage.Write(NewName(".pgm")); }
  /// The name of a further file, of which the caller makes an image.
  const std::string& NewName(const std::string& aSuffix) {
    std::string number = std::to_string(fFiles.size());
    number.insert(0, 5 - std::min<std::size_t>(number.size(), 5), '0');
    return fFiles.emplace_back(fFolder + "/" + number + aSuffix);
  }
  const std::vector<std::string>& Files() const { return fFiles; }

  /// Runs `aProgram` with its options on all files at once; what it writes to standard output. Its exit
  /// status is left to the judgement of what it wrote: readers differ.
  std::string Read(const std::string& aProgram) const {
    std::string command = aProgram;
    for (const std::string& file : fFiles) command += " " + file;
    return Run(command);
  }
  /// Runs it on one file after the other.
  std::vector<std::string> ReadEach(const std::string& aProgram) const {
    std::vector<std::string> texts;
    for (const std::string& file : fFiles) texts.push_back(Run(aProgram + " " + file));
    return texts;
  }

 private:
  static std::string Run(const std::string& aCommand) {
    std::FILE* pipe = popen((aCommand + " 2>/dev/null").c_str(), "r");
    if (pipe == nullptr) throw std::runtime_error("cannot run " + aCommand);
    std::string text;
    char buffer[4096];
    while (const std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe)) text.append(buffer, got);
    const int status = pclose(pipe);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 127) throw std::runtime_error("cannot run " + aCommand);
    return text;
  }

  std::string fFolder;
  std::vector<std::string> fFiles;
};

}  // namespace Zor
