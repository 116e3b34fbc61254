#pragma once

#include <string>
#include <string_view>

#include "kaldrix/core/TKDXBaseLabel.hpp"

namespace Zor::inline Base {

/// A document that reads and writes files: what every host does alike. The items are left to TKDXLabelOf.
///
/// A binary file begins with the eight bytes "KALDRIX" 0x1A, an Int32 frame version, the Int64 length and the
/// UInt32 CRC-32 of what follows: base section, document section, symbols and items, each with a count in
/// front, and the Int32 number of labels to print.
class TKDXFileLabel : public TKDXBaseLabel {
 public:
  /// Binary or JSON, told by the content. A file that cannot be read raises an Exception that names file and
  /// place, and leaves the document as it was.
  void LoadFromFile(const std::string& aFilename) override;
  /// The same from memory; errors name the place only.
  void LoadFromBytes(std::string_view aBytes);
  /// Written beside the target and renamed: a crash leaves the old file or the new one.
  void SaveToFile(const std::string& aFilename, TZORExt aFormat) override;
  std::string SaveToBytes(TZORExt aFormat);

  static bool IsBinary(std::string_view aBytes);
  /// All of a document but its items, inside a read bracket of the caller.
  void ReadSections(TJsonObject& aJson);

  void CreateElementFromStream(std::string_view aStream) override;
  /// The pasted items are selected and lie 2 mm of paper to the right and below; with an empty clipboard
  /// nothing happens. A clipboard that CopySelection did not make raises an Exception, and items, selection
  /// and fModified stay as they were.
  void PasteSelection() override;

 protected:
  using TKDXBaseLabel::TKDXBaseLabel;

 private:
  void ReadBinary(std::string_view aPayload);
  /// Makes each item as soon as its text is read. False, with the document as it was, for a text that is not
  /// in the order in which we write, or is faulty: the tree of the whole text then tells what it holds.
  bool LoadJsonInPassing(std::string_view aBytes);
  void LoadJsonTree(std::string_view aBytes);
  /// Uses the items of the tree up.
  void ReadJsonDocument(TJsonObject& aJson);
  void WritePayload(std::string& aBytes);
  void ReadClipboard(TBinaryReader& aReader, int aCount);
};

}  // namespace Zor::inline Base
