#include "kaldrix/platform/TRegex.hpp"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <new>

namespace Zor {

namespace {

constexpr std::size_t JitStackStart = 32 * 1024;
constexpr std::size_t JitStackMost = 8 * 1024 * 1024;

/// What a thread needs to match, made once and used for all patterns.
class TWorkspace {
 public:
  TWorkspace()
      : data(pcre2_match_data_create(TMatch::MostGroups, nullptr)),
        context(pcre2_match_context_create(nullptr)),
        fStack(pcre2_jit_stack_create(JitStackStart, JitStackMost, nullptr)) {
    if (!data || !context) {
      Free();
      throw std::bad_alloc();
    }
    pcre2_set_match_limit(context, TRegex::MatchLimit);
    if (fStack) pcre2_jit_stack_assign(context, nullptr, fStack);
  }
  ~TWorkspace() { Free(); }
  TWorkspace(const TWorkspace&) = delete;
  TWorkspace& operator=(const TWorkspace&) = delete;

  pcre2_match_data* const data;
  pcre2_match_context* const context;

 private:
  void Free() {
    pcre2_match_data_free(data);
    pcre2_match_context_free(context);
    pcre2_jit_stack_free(fStack);
  }

  pcre2_jit_stack* const fStack;
};

TWorkspace& Workspace() {
  thread_local TWorkspace workspace;
  return workspace;
}

std::string ErrorText(int aError) {
  std::array<PCRE2_UCHAR, 256> text{};
  pcre2_get_error_message(aError, text.data(), text.size());
  return reinterpret_cast<const char*>(text.data());
}

[[noreturn]] void RaiseFailed(int aError) {
  switch (aError) {
    case PCRE2_ERROR_MATCHLIMIT:
    case PCRE2_ERROR_DEPTHLIMIT:
    case PCRE2_ERROR_HEAPLIMIT:
    case PCRE2_ERROR_JIT_STACKLIMIT:
      throw ERegexLimit(ErrorText(aError));
    default:
      throw EArgumentException(ErrorText(aError));
  }
}

}  // namespace

TRegex::~TRegex() { pcre2_code_free(fCode.load()); }

const pcre2_real_code_8* TRegex::Code() const {
  if (const auto* code = fCode.load(std::memory_order_acquire)) return code;
  static std::mutex compiling;
  const std::lock_guard lock(compiling);
  if (const auto* code = fCode.load(std::memory_order_relaxed)) return code;
  int error = 0;
  PCRE2_SIZE place = 0;
  const std::uint32_t options = PCRE2_UTF | PCRE2_UCP | (fCase == rcIgnore ? PCRE2_CASELESS : 0);
  pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(fPattern), PCRE2_ZERO_TERMINATED, options,
                                   &error, &place, nullptr);
  if (!code) {
    throw EArgumentException("Pattern " + std::string(fPattern) + ", byte " + std::to_string(place) + ": " +
                             ErrorText(error));
  }
  pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);  // where there is none, the interpreter serves
  fCode.store(code, std::memory_order_release);
  return code;
}

const std::size_t* TRegex::Run(std::string_view aText, std::size_t aFrom) const {
  const TWorkspace& workspace = Workspace();
  const int found = pcre2_match(Code(), reinterpret_cast<PCRE2_SPTR>(aText.data()), aText.size(), aFrom,
                                aFrom == 0 ? 0 : PCRE2_NO_UTF_CHECK, workspace.data, workspace.context);
  if (found == PCRE2_ERROR_NOMATCH) return nullptr;
  if (found < 0) RaiseFailed(found);
  return pcre2_get_ovector_pointer(workspace.data);
}

bool TRegex::Match(std::string_view aText, TMatch& aMatch, std::size_t aFrom) const {
  if (!aText.data()) aText = "";
  const std::size_t* offsets = Run(aText, aFrom);
  if (!offsets) return false;
  aMatch.fStart = offsets[0];
  std::uint32_t groups = 0;
  pcre2_pattern_info(Code(), PCRE2_INFO_CAPTURECOUNT, &groups);
  for (std::size_t i = 0; i < TMatch::MostGroups; ++i) {
    const bool present = i <= groups && offsets[2 * i] != PCRE2_UNSET;
    aMatch.fGroups[i] =
        present ? std::string_view(aText.data() + offsets[2 * i], offsets[2 * i + 1] - offsets[2 * i])
                : std::string_view();
  }
  return true;
}

bool TRegex::Matches(std::string_view aText) const { return Run(aText.data() ? aText : "", 0) != nullptr; }

std::string TRegex::Replaced(std::string_view aText, std::string_view aWith) const {
  if (!aText.data()) aText = "";
  std::string result;
  std::size_t copied = 0;
  std::size_t from = 0;
  while (const std::size_t* offsets = from <= aText.size() ? Run(aText, from) : nullptr) {
    const std::size_t start = offsets[0];
    const std::size_t end = offsets[1];
    result.append(aText, copied, start - copied).append(aWith);
    copied = end;
    from = end;
    if (start != end) continue;
    // An empty match: the next search begins behind the character that follows.
    do ++from;
    while (from < aText.size() && (static_cast<unsigned char>(aText[from]) & 0xC0) == 0x80);
  }
  return result.append(aText.substr(copied));
}

}  // namespace Zor
