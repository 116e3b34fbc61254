// document_seeds FOLDER DOCUMENT...: writes what the document targets start from.
//
//   FOLDER/json, FOLDER/binary   small documents: each given one, and its first item of each kind
//   FOLDER/large                 what is too big for a mutator, to be read once: files of any form
#include <sys/stat.h>

#include <set>
#include <string>
#include <vector>

#include "fuzz/document/DocumentWork.hpp"
#include "kaldrix/platform/Files.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {

namespace {

constexpr int HostileCount = 2000000000;
/// What a binary file holds in front of its payload, in bytes.
constexpr std::size_t FrameSize = 24;
constexpr int ManyPoints = 70000;
constexpr std::size_t DeepNesting = 1000000;

struct THostile {
  const char* name;
  const char* json;
};

constexpr THostile HostileDocuments[] = {
    {"empty", R"({"Version":3200,"Items":[]})"},
    {"nulls",
     R"({"Version":null,"EditorMode":null,"Units":null,"Measures":null,"Layers":[null],"Items":[null]})"},
    {"unknown-type", R"({"Version":3200,"Items":[{"Type":99}]})"},
    {"unknown-ordinals",
     R"({"Version":3200,"Items":[{"Type":2,"LineType":-1,"Angle":4,"FromType":2000000000}]})"},
    {"infinite",
     R"({"Version":3200,"Items":[{"Type":2,"PenWidth":1e999,"Points":[{"X":-1e999,"Y":1e308}]}]})"},
    {"ends", R"({"Version":3200,"EditorMode":2,"Measures":{"DrawScale":2147483647},"Items":[
{"Type":2,"Points":[{"X":-2e9,"Y":-2e9},{"X":2e9,"Y":2e9}]},{"Type":3,"Points":[{"X":9e12,"Y":-9e12},{"X":-9e12,"Y":9e12}]},
{"Type":6,"Radio":1e9,"Points":[{"X":-1e9,"Y":-1e9},{"X":1e9,"Y":1e9}]},{"Type":10,"Text":"end","Points":[{"X":2e9,"Y":-2e9}]}]})"},
    {"scale-0", R"({"Version":3200,"EditorMode":2,"Measures":{"DrawScale":0},"Items":[]})"},
    {"scale-1",
     R"({"Version":3200,"EditorMode":2,"Units":4,"Measures":{"DrawScale":1},"Items":[{"Type":2}]})"},
    {"no-size",
     R"({"Version":3200,"Measures":{"LabelWidth":0,"LabelHeight":0,"PaperWidth":0,"PaperHeight":0,"Rows":0,"Columns":0},
"Items":[{"Type":2},{"Type":6},{"Type":10,"Text":"x","FontHeight":0}]})"},
    {"no-points", R"({"Version":3200,"Items":[{"Type":3,"Points":[]}]})"},
    {"few-points",
     R"({"Version":3200,"Items":[{"Type":3,"Points":[{"X":1,"Y":1}]},{"Type":7,"Points":[{"X":1,"Y":1}]},
{"Type":25,"Points":[{"X":1,"Y":1},{"X":2,"Y":2}]},{"Type":4},{"Type":5},{"Type":8},{"Type":9},{"Type":27}]})"},
    {"same-names", R"({"Version":3200,"Layers":[{"Name":"a"},{"Name":"A"}],"Items":[
{"Type":2,"InID":2000000000,"ID":"x","Layer":1},{"Type":2,"InID":2000000000,"ID":"X","Layer":-1}]})"},
    {"last-identity",
     R"({"Version":3200,"Items":[{"Type":2,"InID":2147483647},{"Type":2,"InID":-2147483648}]})"},
    {"nodes",
     R"({"Version":3200,"Units":1,"Items":[{"Type":17,"ID":"a","FlowType":3,"PaddingX":1,"Filled":true,
"Points":[{"X":1,"Y":1},{"X":2,"Y":2}],"Interline":9,"Font":{"Name":"b","FontHeight":2e6},"Text":"c\u00e9\r\nd","TextPos":[
{"FromPos":2147483647,"ToPos":2147483647,"BaseX":9223372036854775807},{"FromPos":-2147483648,"ToPos":9},{"ToPos":-1}]}]})"},
    {"links",
     R"({"Version":3200,"Units":1,"Items":[{"Type":18,"InID":9,"LinkType":4,"FromID":1,"ToID":2,"FromType":3,"ToType":1,
"LinkPoints":[{"BaseX":9000,"BaseY":1}]},{"Type":18,"InID":8,"LinkType":3,"FromID":1,"FromIndex":3,"ToID":2,"ToIndex":11},
{"Type":18,"InID":7,"LinkType":7,"FromID":2,"ToID":7},{"Type":18,"InID":6,"LinkType":6,"FromID":2,"ToID":1,"LinkPoints":
[{"BaseX":-2305843009213693952},{"BaseY":2305843009213693952}]},{"Type":1,"InID":1,"Points":[{"X":0.12345,"Y":2e9}]},
{"Type":1,"InID":2,"Points":[{"X":3,"Y":4}]}]})"},
    {"flowchart", R"({"Version":3200,"EditorMode":1,"Layers":[{"Name":"a"},{"Name":"b","BoxFrame":true}],
"Counters":[{"Name":"n","Start":-9223372036854775808}],"Items":[{"Type":10,"Text":"\u0000\ud800\r\n\t"}]})"},
};

class TSeeds {
 public:
  explicit TSeeds(const std::string& aFolder)
      : fJson(Made(aFolder, "json")), fBinary(Made(aFolder, "binary")), fLarge(Made(aFolder, "large")) {}

  /// A document in both forms.
  void Write(const std::string& aName, TBareLabel& aDocument) {
    WriteFileAtomically(CombinePath(fJson, aName + ".json"), aDocument.GetJsonString(true));
    WritePayload(aName, aDocument.SaveToBytes(lfBin).substr(FrameSize));
  }
  /// The document, and one with its first item of each kind.
  void WriteBoth(const std::string& aName, std::string_view aText) {
    TBareLabel document;
    document.LoadFromBytes(aText);
    Write(aName, document);
    std::set<TZORItemType> kinds;
    for (TKDXBaseItem* item : document.fItems) {
      if (!kinds.insert(item->fItemType).second) document.AddToSelection(*item, false);
    }
    document.DeleteSelection();
    Write(aName + "-short", document);
  }
  void WriteHostile() {
    for (const THostile& hostile : HostileDocuments)
      WriteFileAtomically(CombinePath(fJson, std::string(hostile.name) + ".json"), hostile.json);
    WriteHostileCounts();
    WriteLarge("deep-arrays.json", "{\"Version\":3200,\"Items\":" + std::string(DeepNesting, '['));
    std::string objects;
    for (std::size_t i = 0; i < DeepNesting; ++i) objects += R"({"Items":)";
    WriteLarge("deep-objects.json", objects);
    TBareLabel document;
    document.NewPolyLine(TZORPtoA(ManyPoints, TZORPto{1000, 1000}), ManyPoints - 1);
    WriteLarge("many-points.json", document.GetJsonString(true));
    WriteLarge("many-points.bin", document.SaveToBytes(lfBin));
  }

 private:
  static std::string Made(const std::string& aFolder, const std::string& aName) {
    ::mkdir(aFolder.c_str(), 0777);
    const std::string folder = CombinePath(aFolder, aName);
    ::mkdir(folder.c_str(), 0777);
    return folder;
  }
  void WritePayload(const std::string& aName, std::string_view aPayload) {
    WriteFileAtomically(CombinePath(fBinary, aName + ".payload"), aPayload);
  }
  void WriteLarge(const std::string& aName, std::string_view aBytes) {
    WriteFileAtomically(CombinePath(fLarge, aName), aBytes);
  }

  /// Each list of the file announces two billion entries; then items of unknown type and with as many points.
  void WriteHostileCounts() {
    TBareLabel document;
    std::string base;
    TBinaryWriter writer(base);
    document.WriteBaseData(writer);
    std::string counts;
    TBinaryWriter hostile(counts);
    hostile.WriteInt32(HostileCount);
    WritePayload("count-of-layers", base + counts);
    const std::string whole = document.SaveToBytes(lfBin).substr(FrameSize);
    const std::string noItems = whole.substr(0, whole.size() - 4);
    WritePayload("count-of-symbols", noItems.substr(0, noItems.size() - 4) + counts);
    WritePayload("count-of-items", noItems + counts);
    WritePayload("unknown-type", noItems + std::string("\1\0\0\0\x63\0\0\0", 8) + std::string(64, '\0'));
    document.NewPolyLine({{0, 0}, {1, 1}}, 1);
    std::string points = document.SaveToBytes(lfBin).substr(FrameSize);
    WritePayload("two-points", points);
    TKDXBaseFlow* node = document.NewFlow(0, 0, 9000, 9000, ftData);
    node->SetText("node");
    node->aTxtPoints = {{1, 4, 0, 0}};
    WritePayload("node", document.SaveToBytes(lfBin).substr(FrameSize));
    WritePayload("all-ones", std::string("\x80\x0C\0\0", 4) + std::string(512, '\xFF'));
  }

  std::string fJson, fBinary, fLarge;
};

}  // namespace

}  // namespace Zor

int main(int aCount, char** aArguments) {
  const std::vector<std::string> arguments(aArguments + 1, aArguments + aCount);
  if (arguments.empty()) return 2;
  Zor::TSeeds seeds(arguments.front());
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    const std::string name = arguments[i].substr(arguments[i].find_last_of('/') + 1);
    seeds.WriteBoth(name.substr(0, name.find_last_of('.')), Zor::ReadFile(arguments[i]));
  }
  seeds.WriteHostile();
}
