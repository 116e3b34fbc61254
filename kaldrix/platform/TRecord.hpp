#pragma once

#include <cstdint>
#include <string>

#include "kaldrix/platform/TBinaryReader.hpp"
#include "kaldrix/platform/TBinaryWriter.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/TSet.hpp"

namespace Zor {

/// One description of a binary record that serves writing and reading: a function names the fields in the
/// order of the format, and each operation here either writes the field or stores what was read into it.
///
///     void TThing::Record(TRecord& r) {
///       r.Int32(fWidth);
///       r.Enum32(fLineType, "LineType");
///       if (r.Since(3100)) r.Int32(fAngle);
///       fPoints.resize(std::size_t(r.Count(int(fPoints.size()), 16)));
///       for (auto& p : fPoints) r.Int64(p.X), r.Int64(p.Y);
///     }
///
/// Reading raises EReadError on data that ends early or holds what no writer makes; fields read before
/// that keep their new values.
class TRecord {
 public:
  /// Writes records of format version `aVersion`.
  TRecord(TBinaryWriter& aWriter, int aVersion) : fWriter(&aWriter), fVersion(aVersion) {}
  /// Reads records that a writer of format version `aVersion` made.
  TRecord(TBinaryReader& aReader, int aVersion) : fReader(&aReader), fVersion(aVersion) {}

  bool Writing() const { return fWriter != nullptr; }
  bool Reading() const { return fReader != nullptr; }
  int Version() const { return fVersion; }
  /// Whether the record holds what came with format version `aVersion`: always when writing.
  bool Since(int aVersion) const { return Writing() || fVersion >= aVersion; }

  /// The streams below, for records of other shape; null in the other direction.
  TBinaryWriter* Writer() const { return fWriter; }
  TBinaryReader* Reader() const { return fReader; }

  void Byte(std::uint8_t& aField) {
    Writing() ? fWriter->WriteByte(aField) : void(aField = fReader->ReadByte());
  }
  void Boolean(bool& aField) { aField = BooleanOf(aField); }
  void Int16(std::int16_t& aField) {
    Writing() ? fWriter->WriteInt16(aField) : void(aField = fReader->ReadInt16());
  }
  void UInt16(std::uint16_t& aField) {
    Writing() ? fWriter->WriteUInt16(aField) : void(aField = fReader->ReadUInt16());
  }
  void Int32(std::int32_t& aField) { aField = Int32Of(aField); }
  void UInt32(std::uint32_t& aField) {
    Writing() ? fWriter->WriteUInt32(aField) : void(aField = fReader->ReadUInt32());
  }
  void Int64(std::int64_t& aField) {
    Writing() ? fWriter->WriteInt64(aField) : void(aField = fReader->ReadInt64());
  }
  void Double(double& aField) {
    Writing() ? fWriter->WriteDouble(aField) : void(aField = fReader->ReadDouble());
  }
  void Single(float& aField) {
    Writing() ? fWriter->WriteSingle(aField) : void(aField = fReader->ReadSingle());
  }
  void String(std::string& aField) {
    Writing() ? fWriter->WriteString(aField) : void(aField = fReader->ReadString());
  }
  /// Bytes behind an Int32 count; a count below 1 reads as none.
  void Blob(std::string& aField);

  /// Forms for fields that cannot be referenced (bit fields, values behind a setter, wider integers): the
  /// value is written and comes back, or the value that was read comes back.
  [[nodiscard]] std::uint8_t ByteOf(std::uint8_t aValue) {
    if (Reading()) return fReader->ReadByte();
    fWriter->WriteByte(aValue);
    return aValue;
  }
  [[nodiscard]] bool BooleanOf(bool aValue) {
    if (Reading()) return fReader->ReadBoolean();
    fWriter->WriteBoolean(aValue);
    return aValue;
  }
  [[nodiscard]] std::int32_t Int32Of(std::int32_t aValue) {
    if (Reading()) return fReader->ReadInt32();
    fWriter->WriteInt32(aValue);
    return aValue;
  }

  /// An enumeration as its ordinal in 1, 2 or 4 bytes. Reading refuses an ordinal that the enumeration has
  /// not: "Unknown value 77 of LineType at byte 123", where `aName` is the name.
  template <class TEnum>
  void Enum8(TEnum& aField, const char* aName) {
    if (Writing()) return fWriter->WriteByte(static_cast<std::uint8_t>(aField));
    aField = Checked<TEnum>(fReader->ReadByte(), 1, aName);
  }
  template <class TEnum>
  void Enum16(TEnum& aField, const char* aName) {
    if (Writing()) return fWriter->WriteInt16(static_cast<std::int16_t>(aField));
    aField = Checked<TEnum>(fReader->ReadInt16(), 2, aName);
  }
  template <class TEnum>
  void Enum32(TEnum& aField, const char* aName) {
    if (Writing()) return fWriter->WriteInt32(static_cast<std::int32_t>(aField));
    aField = Checked<TEnum>(fReader->ReadInt32(), 4, aName);
  }

  /// A set as the 32-bit integer whose bit n stands for ordinal n. Reading drops bits that stand for no
  /// value, where the number of values is known.
  template <class TEnum>
  void Set32(TSet<TEnum>& aField) {
    if (Writing()) return fWriter->WriteUInt32(aField.Bits());
    aField = TSet<TEnum>::FromBits(fReader->ReadUInt32() & KnownBits<TEnum>());
  }

  /// How many elements follow, as an Int32: writes `aCount`, or gives the count that was read. A count below
  /// 1 reads as 0. One whose elements, of at least `aLeastBytesEach` bytes (below 1 counts as 1), the rest of
  /// the data cannot hold raises, so that no memory is taken for it.
  int Count(int aCount, std::size_t aLeastBytesEach);
  int Count(std::size_t aCount, std::size_t aLeastBytesEach);

 private:
  template <class TEnum>
  TEnum Checked(std::int32_t aOrdinal, std::size_t aBytes, const char* aName) const {
    static_assert(EnumCount<TEnum> > 0, "add the enumeration to EnumCount in Enumerations.hpp");
    if (aOrdinal < 0 || aOrdinal >= EnumCount<TEnum>) [[unlikely]]
      RaiseUnknown(aOrdinal, aName, fReader->Position() - aBytes);
    return static_cast<TEnum>(aOrdinal);
  }
  template <class TEnum>
  static constexpr std::uint32_t KnownBits() {
    constexpr int count = EnumCount<TEnum>;
    return count > 0 && count < 32 ? (std::uint32_t{1} << count) - 1 : ~std::uint32_t{0};
  }
  [[noreturn]] static void RaiseUnknown(std::int32_t aOrdinal, const char* aName, std::size_t aPosition);

  TBinaryWriter* fWriter = nullptr;
  TBinaryReader* fReader = nullptr;
  int fVersion;
};

}  // namespace Zor
