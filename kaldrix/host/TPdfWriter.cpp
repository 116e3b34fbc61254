#include "kaldrix/host/TPdfWriter.hpp"

#include <zlib.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "kaldrix/host/TPdfContent.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

constexpr int QuickLevel = 1;
/// Children of a node of the page tree.
constexpr int MostKids = 64;
/// Places of objects have ten digits.
constexpr std::uint64_t LargestFile = 9'999'999'999;
/// zlib counts in 32 bits.
constexpr std::size_t MostAtOnce = std::size_t{1} << 30;

using TPacker = std::unique_ptr<z_stream_s, void (*)(z_stream_s*)>;

TPacker MakePacker(int level) {
  auto stream = std::make_unique<z_stream>();
  if (deflateInit(stream.get(), level) != Z_OK) throw Exception("There is no memory for a PDF");
  return {stream.release(), [](z_stream_s* s) {
            deflateEnd(s);
            delete s;
          }};
}

/// Appends `bytes`, packed, to `out`.
void PackInto(std::string& out, z_stream_s& packer, std::string_view bytes, bool last) {
  do {
    const std::string_view piece = bytes.substr(0, MostAtOnce);
    bytes.remove_prefix(piece.size());
    packer.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(piece.data()));
    packer.avail_in = static_cast<uInt>(piece.size());
    const bool ends = last && bytes.empty();
    do {
      const std::size_t used = out.size();
      out.resize(used + std::max<std::size_t>(4096, deflateBound(&packer, packer.avail_in) + 64));
      packer.next_out = reinterpret_cast<Bytef*>(out.data() + used);
      packer.avail_out = static_cast<uInt>(std::min(out.size() - used, MostAtOnce));
      const std::size_t room = packer.avail_out;
      deflate(&packer, ends ? Z_FINISH : Z_NO_FLUSH);
      out.resize(used + room - packer.avail_out);
    } while (packer.avail_out == 0);
  } while (!bytes.empty());
}

std::string TenDigits(std::uint64_t value) {
  const std::string digits = std::to_string(value);
  return std::string(10 - digits.size(), '0') + digits;
}

}  // namespace

TPdfWriter::TPdfWriter(TSink sink) : fSink(std::move(sink)), fPacker(MakePacker(QuickLevel)) {
  // Bytes beyond ASCII tell programs that transfer files that this is no text.
  fOut = "%PDF-1.5\n%\xE2\xE3\xCF\xD3\n";
}

TPdfWriter::~TPdfWriter() = default;

int TPdfWriter::Reserve() {
  if (fPlaces.size() >= std::numeric_limits<int>::max()) throw Exception("The PDF has too many objects");
  fPlaces.push_back(0);
  return static_cast<int>(fPlaces.size());
}

void TPdfWriter::Begin(int object) {
  const std::uint64_t place = fDrained + fOut.size();
  if (place > LargestFile) throw Exception("The PDF is larger than 10 GB");
  fPlaces[static_cast<std::size_t>(object) - 1] = place;
  fOut.append(std::to_string(object)).append(" 0 obj\n");
}

void TPdfWriter::Object(int object, std::string_view body) {
  Begin(object);
  fOut.append(body).append("\nendobj\n");
}

int TPdfWriter::Add(std::string_view body) {
  const int object = Reserve();
  Object(object, body);
  return object;
}

void TPdfWriter::WriteStream(int object, std::string_view entries, std::string_view filter,
                             std::string_view bytes) {
  Begin(object);
  fOut.append("<<").append(entries).append(filter);
  fOut.append("/Length ").append(std::to_string(bytes.size())).append(">>\nstream\n");
  fOut.append(bytes).append("\nendstream\nendobj\n");
}

void TPdfWriter::Stream(int object, std::string_view entries, std::string_view bytes, TPacking packing) {
  if (packing == ppNone) return WriteStream(object, entries, {}, bytes);
  const TPacker packer = MakePacker(packing == ppQuick ? QuickLevel : Z_DEFAULT_COMPRESSION);
  std::string packed;
  PackInto(packed, *packer, bytes, true);
  WriteStream(object, entries, "/Filter/FlateDecode", packed);
}

int TPdfWriter::AddStream(std::string_view entries, std::string_view bytes, TPacking packing) {
  const int object = Reserve();
  Stream(object, entries, bytes, packing);
  return object;
}

void TPdfWriter::Pack(std::string_view bytes, bool last) { PackInto(fPacked, *fPacker, bytes, last); }

void TPdfWriter::EndPage(double width, double height, std::string_view entries) {
  Pack({}, true);
  const int content = Reserve();
  WriteStream(content, {}, "/Filter/FlateDecode", fPacked);
  fPacked.clear();
  deflateReset(fPacker.get());
  TPdfContent page;
  page.Raw("<</Type/Page/Parent ").Raw(PdfRef(NodeOf(0))).Raw("/MediaBox[0 0 ");
  page.Real(width, 6).Real(height, 6).Raw("]/Contents ").Raw(PdfRef(content)).Raw(entries).Raw(">>");
  AddKid(0, Add(page.Bytes()), 1);
}

/// The object of the node that is being filled on a level; the next one begins only when something comes.
int TPdfWriter::NodeOf(std::size_t level) {
  if (level == fLevels.size()) fLevels.emplace_back();
  if (fLevels[level].object == 0) fLevels[level].object = Reserve();
  return fLevels[level].object;
}

void TPdfWriter::AddKid(std::size_t level, int object, std::int64_t pages) {
  TNode& node = fLevels[level];
  node.refs += PdfRef(object);
  node.pages += pages;
  if (++node.kids == MostKids) CloseNode(level, false);
}

/// Writes a node of the page tree and leaves the level to the next one.
void TPdfWriter::CloseNode(std::size_t level, bool root) {
  const int parent = root ? 0 : NodeOf(level + 1);
  const TNode node = std::exchange(fLevels[level], TNode{});
  std::string body = "<</Type/Pages/Count " + std::to_string(node.pages) + "/Kids[" + node.refs + "]";
  if (!root) body += "/Parent " + PdfRef(parent);
  Object(node.object, body + ">>");
  if (!root) AddKid(level + 1, node.object, node.pages);
}

int TPdfWriter::ClosePageTree() {
  for (std::size_t level = 0;; ++level) {
    const bool root = level + 1 == fLevels.size();
    const int object = fLevels[level].object;
    if (fLevels[level].kids > 0) CloseNode(level, root);
    if (root) return object;
  }
}

void TPdfWriter::Drain() {
  if (!fSink || fOut.empty()) return;
  fSink(fOut);
  fDrained += fOut.size();
  fOut.clear();
}

std::string TPdfWriter::Finish(std::string_view info) {
  const int pages = ClosePageTree();
  const int root = Add("<</Type/Catalog/Pages " + PdfRef(pages) + ">>");
  WriteReferences(root, Add(info));
  Drain();
  return std::move(fOut);
}

void TPdfWriter::WriteReferences(int root, int info) {
  const std::uint64_t start = fDrained + fOut.size();
  const std::string count = std::to_string(fPlaces.size() + 1);
  fOut += "xref\n0 " + count + "\n0000000000 65535 f \n";
  for (const std::uint64_t place : fPlaces) fOut += TenDigits(place) + " 00000 n \n";
  fOut += "trailer\n<</Size " + count + "/Root " + PdfRef(root) + "/Info " + PdfRef(info);
  fOut += ">>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
}

}  // namespace Zor::inline Host
