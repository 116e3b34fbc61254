#include "apps/kaldrix/ProgressLine.hpp"

#include <unistd.h>

#include <chrono>
#include <iostream>

namespace Zor::Program {

namespace {

double Seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

ProgressLine::ProgressLine(bool aQuiet) : fOn(!aQuiet && ::isatty(STDERR_FILENO) == 1) {}
ProgressLine::~ProgressLine() { Clear(); }

void ProgressLine::Show(const std::string& aWhat, int aDone, int aAll) {
  constexpr double pause = 0.2;
  if (!fOn || (fLast >= 0 && Seconds() - fLast < pause)) return;
  std::cerr << "\r" << aWhat << " " << aDone << " of " << aAll << std::flush;
  fShown = true;
  fLast = Seconds();
}

void ProgressLine::Clear() {
  if (fShown) std::cerr << "\r\033[K" << std::flush;
  fShown = false;
}

}  // namespace Zor::Program
