#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Zor {

/// The bytes of a file, of which only a window stands in memory, so that a large file takes no more than a
/// small one. The file must not change meanwhile.
class TFileWindow {
 public:
  /// Of bytes, which all stand in memory.
  explicit TFileWindow(std::string aBytes);
  /// Of a file; one that is no plain file (a pipe, say) is read whole, up to MostWhole. Raises
  /// EFileNotFoundException and EStreamError with the name.
  static TFileWindow Open(const std::string& aFileName);
  TFileWindow(TFileWindow&&) noexcept;
  TFileWindow& operator=(TFileWindow&&) noexcept;
  ~TFileWindow();

  std::size_t Size() const { return fSize; }
  /// The bytes from a place up to another, both at most Size(). Valid until the next call. Raises
  /// EStreamError when the file has changed.
  std::string_view View(std::size_t aFrom, std::size_t aTo) const;
  /// Grows whenever views have become invalid.
  unsigned Moves() const { return fMoves; }

  /// As much as a view asks for that wants to see all of the file in turn.
  static constexpr std::size_t Step = std::size_t{1} << 17;
  /// The most bytes of what is read whole.
  static constexpr std::size_t MostWhole = std::size_t{1} << 31;

 private:
  struct TFile;

  void Load(std::size_t aFrom, std::size_t aTo) const;

  std::unique_ptr<TFile> fFile;  ///< none when all bytes stand in memory
  std::size_t fSize = 0;
  mutable std::string fBytes;
  mutable std::size_t fStart = 0;  ///< place of fBytes in the file
  mutable unsigned fMoves = 0;
};

}  // namespace Zor
