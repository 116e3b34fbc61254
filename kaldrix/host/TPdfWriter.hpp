// The file format around what a PDF shows.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct z_stream_s;

namespace Zor::inline Host {

/// Writes the objects of a PDF 1.5 file one after the other (ISO 32000-1, 7.5), with the tree of its pages,
/// cross references and trailer. What is complete can be handed over at any time: only the places of objects
/// are kept, eight bytes each.
class TPdfWriter {
 public:
  using TSink = std::function<void(std::string_view)>;
  /// How hard a stream is packed: what is made for one page quickly, what is stored once well, what is packed
  /// already not at all.
  enum TPacking : std::uint8_t { ppQuick, ppSmall, ppNone };

  /// Without a sink, Finish gives the bytes.
  explicit TPdfWriter(TSink sink);
  ~TPdfWriter();
  TPdfWriter(const TPdfWriter&) = delete;
  TPdfWriter& operator=(const TPdfWriter&) = delete;

  /// The number of an object that will be written later.
  int Reserve();
  void Object(int object, std::string_view body);
  int Add(std::string_view body);
  /// `entries` are what the dictionary has besides length and filter.
  void Stream(int object, std::string_view entries, std::string_view bytes, TPacking packing);
  int AddStream(std::string_view entries, std::string_view bytes, TPacking packing);

  /// More of the current page's content.
  void Content(std::string_view bytes) { Pack(bytes, false); }
  /// Ends the page; `entries` are those of its dictionary besides type, parent and content. Sizes are points.
  void EndPage(double width, double height, std::string_view entries);

  /// Gives the sink what is there.
  void Drain();
  /// Ends the file; `info` is the dictionary that tells of the document.
  std::string Finish(std::string_view info);

 private:
  /// The node of the page tree that is being filled on a level.
  struct TNode {
    int object = 0;
    int kids = 0;
    std::int64_t pages = 0;
    std::string refs;
  };

  void Begin(int object);
  void WriteStream(int object, std::string_view entries, std::string_view filter, std::string_view bytes);
  void Pack(std::string_view bytes, bool last);
  int NodeOf(std::size_t level);
  void AddKid(std::size_t level, int object, std::int64_t pages);
  void CloseNode(std::size_t level, bool root);
  int ClosePageTree();
  void WriteReferences(int root, int info);

  TSink fSink;
  std::string fOut;
  std::uint64_t fDrained = 0;
  std::vector<std::uint64_t> fPlaces;
  std::vector<TNode> fLevels;
  std::unique_ptr<z_stream_s, void (*)(z_stream_s*)> fPacker;
  std::string fPacked;
};

}  // namespace Zor::inline Host
