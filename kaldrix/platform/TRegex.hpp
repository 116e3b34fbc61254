#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/platform/Exceptions.hpp"

struct pcre2_real_code_8;
struct pcre2_real_match_data_8;

namespace Zor {

/// A match was given up: the text asked for more steps, or more memory for them, than TRegex allows.
class ERegexLimit : public Exception {
 public:
  using Exception::Exception;
};

enum TRegexCase : std::uint8_t { rcRespect, rcIgnore };

/// What a pattern found: views of the text that was searched. Group 0 is the whole.
class TMatch {
 public:
  static constexpr std::size_t MostGroups = 16;

  /// Empty for a group that took no part.
  std::string_view operator[](std::size_t aGroup) const { return fGroups[aGroup]; }
  bool Has(std::size_t aGroup) const { return fGroups[aGroup].data() != nullptr; }
  /// The bytes of the whole match, [Start, End).
  std::size_t Start() const { return fStart; }
  std::size_t End() const { return fStart + fGroups[0].size(); }

 private:
  friend class TRegex;

  std::array<std::string_view, MostGroups> fGroups;
  std::size_t fStart = 0;
};

/// A pattern in Perl-compatible syntax, over UTF-8 with the character classes of Unicode. It is compiled at
/// its first use, so patterns are named constants:
///
///     constinit const TRegex TitleLine("^title\\s+(.+)$", rcIgnore);
///
/// A constant may be used by any number of threads. At most 15 groups.
class TRegex {
 public:
  /// Steps that one attempt to match may take.
  static constexpr std::uint32_t MatchLimit = 1'000'000;

  /// `aPattern` must outlive the object.
  explicit constexpr TRegex(const char* aPattern, TRegexCase aCase = rcRespect)
      : fPattern(aPattern), fCase(aCase) {}
  ~TRegex();
  TRegex(const TRegex&) = delete;
  TRegex& operator=(const TRegex&) = delete;

  /// The first match at or behind byte `aFrom`, which must be the beginning of a character; "^" and "\b" see
  /// the text in front of it. The text is checked for UTF-8 when `aFrom` is 0 only: a loop over one text
  /// begins there.
  /// @throws ERegexLimit when the limit was reached, EArgumentException for a text that is not UTF-8, or when
  /// the pattern has a fault.
  bool Match(std::string_view aText, TMatch& aMatch, std::size_t aFrom = 0) const;
  bool Matches(std::string_view aText) const;
  /// The text with `aWith`, taken as it stands, in the place of every match.
  std::string Replaced(std::string_view aText, std::string_view aWith) const;

 private:
  const pcre2_real_code_8* Code() const;
  /// The offsets of the groups; none without a match.
  const std::size_t* Run(std::string_view aText, std::size_t aFrom) const;

  const char* fPattern;
  TRegexCase fCase;
  mutable std::atomic<pcre2_real_code_8*> fCode = nullptr;
};

}  // namespace Zor
