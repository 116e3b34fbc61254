// The name of a member in eight bytes.
#pragma once

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace Zor::inline Jsondataobjects {

/// The name of a member. Up to seven bytes stand in the key itself, so that most comparisons are one of
/// two words; a longer name is a shared, counted text, and a small cache of each thread lets equal names
/// of many objects share one.
class TJsonKey {
 public:
  static constexpr std::size_t InlineLimit = 7;

  explicit TJsonKey(std::string_view aName)
      : fWord(aName.size() <= InlineLimit ? Pack(aName) : ShareLong(aName)) {}
  TJsonKey(TJsonKey&& aOther) noexcept : fWord(std::exchange(aOther.fWord, EmptyWord)) {}
  TJsonKey& operator=(TJsonKey&& aOther) noexcept {
    std::swap(fWord, aOther.fWord);
    return *this;
  }
  TJsonKey(const TJsonKey& aOther) noexcept : fWord(aOther.fWord) {
    if (!IsInline()) AddRef();
  }
  TJsonKey& operator=(const TJsonKey&) = delete;
  ~TJsonKey() {
    if (!IsInline()) Release();
  }

  /// The key of a name whose packed word is already known; see Pack.
  static TJsonKey FromPacked(std::uint64_t aWord) noexcept { return TJsonKey(TPacked{aWord}); }

  /// The word of a name of at most InlineLimit bytes.
  static std::uint64_t Pack(std::string_view aName) noexcept {
    std::uint64_t word = 0;
    for (std::size_t i = aName.size(); i > 0; --i) {
      word = word << 8U | static_cast<unsigned char>(aName[i - 1]);
    }
    return PackWord(word, aName.size());
  }
  /// The same from the name's bytes in a little-endian word; bytes beyond the name must be 0.
  static std::uint64_t PackWord(std::uint64_t aBytes, std::size_t aSize) noexcept {
    return aBytes << 8U | aSize << 1U | 1U;
  }

  /// The word; two inline names are equal when their words are.
  std::uint64_t Word() const noexcept { return fWord; }
  bool IsInline() const noexcept { return (fWord & 1U) != 0; }

  /// The name. The view of an inline name lives in this key, so it ends when the key moves.
  std::string_view View() const noexcept {
    if (IsInline()) return {reinterpret_cast<const char*>(&fWord) + 1, (fWord & 0xFFU) >> 1U};
    return {Long().Text(), Long().size};
  }

 private:
  static_assert(std::endian::native == std::endian::little, "View() takes the bytes of the word in order");
  static constexpr std::uint64_t EmptyWord = 1;

  struct TPacked {
    std::uint64_t word;
  };
  /// A long name: this header, then its bytes.
  struct TLongName {
    std::atomic<std::uint32_t> refs;
    std::size_t size;
    const char* Text() const noexcept { return reinterpret_cast<const char*>(this + 1); }
  };
  class TCache;

  explicit TJsonKey(TPacked aPacked) noexcept : fWord(aPacked.word) {}
  TLongName& Long() const noexcept { return *reinterpret_cast<TLongName*>(fWord); }
  void AddRef() const noexcept { Long().refs.fetch_add(1, std::memory_order_relaxed); }
  void Release() noexcept;
  static std::uint64_t ShareLong(std::string_view aName);
  static TLongName* MakeLong(std::string_view aName);

  std::uint64_t fWord;  ///< Lowest bit set: size * 2 + 1, then the bytes. Clear: address of a TLongName.
};

/// A name that is looked up: compares with keys without making one.
class TJsonProbe {
 public:
  explicit TJsonProbe(std::string_view aName) noexcept
      : fName(aName), fWord(aName.size() <= TJsonKey::InlineLimit ? TJsonKey::Pack(aName) : 0) {}

  bool Matches(const TJsonKey& aKey) const noexcept {
    if (fWord != 0) return aKey.Word() == fWord;
    return !aKey.IsInline() && aKey.View() == fName;
  }
  std::string_view Name() const noexcept { return fName; }

 private:
  std::string_view fName;
  std::uint64_t fWord;
};

}  // namespace Zor::inline Jsondataobjects
