#include "apps/kaldrix/InfoCommand.hpp"

#include <CLI/CLI.hpp>
#include <array>

#include "apps/kaldrix/DataInfo.hpp"
#include "apps/kaldrix/Documents.hpp"
#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/ShownName.hpp"

namespace Zor::Program {

namespace {

constexpr std::array<std::string_view, EnumCount<TZOREditorMode>> ModeNames{"labelling", "flowchart",
                                                                            "drawing", "interactive"};

std::vector<int> CountBy(const TKDXBaseLabel& aDocument, std::size_t aSize,
                         int (*aKey)(const TKDXBaseItem&)) {
  std::vector<int> counts(aSize);
  for (const TKDXBaseItem* item : aDocument.fItems) ++counts[static_cast<std::size_t>(aKey(*item))];
  return counts;
}

std::unique_ptr<TJsonObject> Describe(const TKDXLabel& aDocument) {
  const TKDXMeasure& measure = *aDocument.fMeasure;
  auto json = std::make_unique<TJsonObject>();
  json->PutString("name", measure.fLabelName);
  json->PutString("mode", ModeNames[aDocument.fEditorMode]);
  json->PutString("units", SymUnit(aDocument.fUnits, false));
  json->PutString("shape", measure.fLabelType == ltCircle ? "circle" : "rectangle");
  PutLength(*json, "widthMM", GetBaseValue(measure.fWidth));
  PutLength(*json, "heightMM", GetBaseValue(measure.fHeight));
  PutLength(*json, "paperWidthMM", GetBaseValue(measure.fPaperWidth));
  PutLength(*json, "paperHeightMM", GetBaseValue(measure.fPaperHeight));
  json->PutInt("rows", measure.fNuHor);
  json->PutInt("columns", measure.fNuVer);
  json->PutLong("scale", measure.fDrawScale);
  json->PutInt("items", aDocument.fItems.Count());

  TJsonObject& types = json->AddNewObject("types");
  const auto byType =
      CountBy(aDocument, ItemTable.size(), [](const TKDXBaseItem& item) { return int{item.fItemType}; });
  for (std::size_t i = 0; i < byType.size(); ++i) {
    if (byType[i] > 0) types.PutInt(ItemTable[i].name, byType[i]);
  }
  TJsonArray& layers = json->AddNewArray("layers");
  std::unordered_map<const TKDXLayer*, int> byLayer;
  for (const TKDXBaseItem* item : aDocument.fItems) ++byLayer[item->fLayer];
  for (const TKDXLayer* layer : aDocument.fLayers) {
    TJsonObject& entry = layers.AddObject();
    entry.PutString("name", layer->fName);
    entry.PutInt("items", byLayer[layer]);
    entry.PutBool("visible", layer->fOptions.Has(lopVisible));
    entry.PutBool("exported", layer->fOptions.Has(lopExport));
  }
  DescribeData(aDocument, *json);
  return json;
}

std::string AsText(TJsonObject& aInfo) {
  const auto field = [&aInfo](std::string_view aName) { return ShownName(aInfo.GetString(aName)); };
  std::string text = field("name") + ": " + field("mode") + ", " + field("shape") + " " + field("widthMM") +
                     " x " + field("heightMM") + " mm, units " + field("units");
  if (aInfo.GetLong("scale") != 1) text += ", 1:" + field("scale");
  text += "\n  paper " + field("paperWidthMM") + " x " + field("paperHeightMM") + " mm, " + field("rows") +
          " rows x " + field("columns") + " columns\n  " + field("items") + " items:";
  const TJsonObject& types = aInfo.GetObject("types");
  for (int i = 0; i < types.Count(); ++i)
    text += (i > 0 ? ", " : " ") + types.GetItem(i).GetString() + " " + types.GetName(i);
  const TJsonArray& layers = aInfo.GetArray("layers");
  for (int i = 0; i < layers.Count(); ++i) {
    const TJsonObject& layer = layers.GetObject(i);
    text +=
        "\n  layer \"" + ShownName(layer.GetString("name")) + "\": " + layer.GetString("items") + " items";
    if (!layer.GetBool("visible")) text += ", hidden";
    if (!layer.GetBool("exported")) text += ", not exported";
  }
  return text + DataText(aInfo) + "\n";
}

}  // namespace

InfoCommand::InfoCommand(CLI::App& aProgram) : Command(aProgram, "info", "Tell what a document holds") {
  Options()
      .add_option("input", fInput, "The document; - reads standard input")
      ->required()
      ->check(SomeFile());
  Options().add_flag("--json", fJson, "As a JSON object");
}

int InfoCommand::Run() const {
  TKDXLabel document;
  LoadDocument(document, fInput);
  for (TKDXCounter* counter : document.fCounters) counter->Reset();  // as a print finds them
  const std::unique_ptr<TJsonObject> info = Describe(document);
  WriteOutput("-", fJson ? info->ToJSON(false) + "\n" : AsText(*info));
  return 0;
}

}  // namespace Zor::Program
