#pragma once

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <string_view>

#include "kaldrix/platform/Files.hpp"

namespace Zor {

/// A file that lives as long as this object.
class TTestFile {
 public:
  explicit TTestFile(std::string_view aBytes) {
    static std::atomic<int> number{0};
    fName = std::filesystem::temp_directory_path() /
            ("kaldrix-test-" + std::to_string(::getpid()) + "-" + std::to_string(number++));
    WriteFileAtomically(fName, aBytes);
  }
  TTestFile(const TTestFile&) = delete;
  TTestFile& operator=(const TTestFile&) = delete;
  ~TTestFile() { RemoveFile(fName); }

  const std::string& Name() const { return fName; }

 private:
  std::string fName;
};

}  // namespace Zor
