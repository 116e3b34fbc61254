#include "kaldrix/platform/TTemporaryFile.hpp"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "kaldrix/platform/Files.hpp"

namespace Zor {

namespace {

// The list ---------------------------------------------------------------------------

/// Names of files in the making. Whoever takes a name out of its place owns it: the object that listed it, or
/// the handler of a signal, which then never gives it back. A file beyond the last place is not listed.
constexpr std::size_t Places = 256;
std::array<std::atomic<char*>, Places> Listed{};
static_assert(std::atomic<char*>::is_always_lock_free);  // the handler may not wait

int List(const std::string& aName) {
  auto name = std::make_unique<char[]>(aName.size() + 1);
  std::memcpy(name.get(), aName.c_str(), aName.size() + 1);
  for (std::size_t i = 0; i < Places; ++i) {
    char* nobody = nullptr;
    if (!Listed[i].compare_exchange_strong(nobody, name.get())) continue;
    name.release();
    return static_cast<int>(i);
  }
  return -1;
}

void Unlist(int aPlace) {
  if (aPlace < 0) return;
  const std::unique_ptr<char[]> name(Listed[static_cast<std::size_t>(aPlace)].exchange(nullptr));
}

// Signals ---------------------------------------------------------------------------

constexpr std::array<int, 3> Endings{SIGTERM, SIGINT, SIGHUP};

/// Calls only what a handler may. The signal's own effect has been restored by SA_RESETHAND, and comes when
/// this returns.
extern "C" void RemoveAndEnd(int aSignal) {
  for (std::atomic<char*>& place : Listed) {
    if (const char* name = place.exchange(nullptr)) ::unlink(name);
  }
  ::raise(aSignal);
}

}  // namespace

void RemoveTemporaryFilesOnSignals() {
  struct sigaction action {};
  action.sa_handler = &RemoveAndEnd;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  for (const int signal : Endings) sigaddset(&action.sa_mask, signal);
  for (const int signal : Endings) {
    struct sigaction former {};
    if (::sigaction(signal, nullptr, &former) != 0 || former.sa_handler == SIG_IGN) continue;
    ::sigaction(signal, &action, nullptr);
  }
}

// The names ---------------------------------------------------------------------------

namespace {

constexpr std::string_view Ending = ".tmp";

/// The text without the digits at its end; nothing when there are none.
std::string_view WithoutNumber(std::string_view aText) {
  const std::size_t last = aText.find_last_not_of("0123456789");
  return last == std::string_view::npos || last + 1 == aText.size() ? "" : aText.substr(0, last + 1);
}

/// "labels.pdf" of "labels.pdf.4711-3.tmp"; nothing for a name of another form.
std::string TargetOf(std::string_view aName) {
  if (!aName.ends_with(Ending)) return {};
  std::string_view rest = WithoutNumber(aName.substr(0, aName.size() - Ending.size()));
  if (!rest.ends_with('-')) return {};
  rest = WithoutNumber(rest.substr(0, rest.size() - 1));
  return rest.ends_with('.') ? std::string(rest.substr(0, rest.size() - 1)) : std::string();
}

/// A name that leaves room for process, number and ending below the 255 bytes that file systems take.
std::string Shortened(const std::string& aTarget) {
  constexpr std::size_t most = 255 - 32;
  const bool fits = ExtractFileName(aTarget).size() <= most;
  return fits ? aTarget : CombinePath(ExtractFileDir(aTarget), "kaldrix");
}

}  // namespace

TTemporaryFile::TTemporaryFile(const std::string& aTarget) {
  static std::atomic<unsigned> counter{0};
  fName = Shortened(aTarget) + "." + std::to_string(::getpid()) + "-" + std::to_string(counter++);
  fName += Ending;
  fPlace = List(fName);
}

TTemporaryFile::~TTemporaryFile() {
  if (!fName.empty()) ::unlink(fName.c_str());
  Unlist(fPlace);
}

void TTemporaryFile::Release() {
  Unlist(fPlace);
  fPlace = -1;
  fName.clear();
}

void RemoveLeftTemporaryFiles(const std::string& aFolder,
                              const std::function<bool(const std::string& aTargetName)>& aIsTarget) {
  namespace fs = std::filesystem;
  std::vector<std::string> left;
  std::error_code failed;
  for (fs::directory_iterator entry(aFolder.empty() ? "." : aFolder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const std::string name = entry->path().filename().string();
    const std::string target = TargetOf(name);
    if (!target.empty() && aIsTarget(target)) left.push_back(entry->path().string());
  }
  for (const std::string& name : left) ::unlink(name.c_str());
}

}  // namespace Zor
