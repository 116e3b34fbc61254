// Charts reduced to nodes: pie, Sankey, packet, quadrants, XY, radar, Venn.
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"

#include <algorithm>
#include <array>
#include <charconv>

#include "kaldrix/diagrams/MermaidLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using Mermaid::ForEachLine;
using Mermaid::ReadCleanTitle;

constinit const TRegex PieLine("^pie(?:\\s+showData)?(?:\\s+title\\s+(.+))?$", rcIgnore);
constinit const TRegex PieSlice("^\"([^\"]+)\"\\s*:\\s*([0-9]+(?:[.,][0-9]+)?)$");
constinit const TRegex PacketField("^(\\+\\d+|\\d+(?:\\s*-\\s*\\d+)?)\\s*:\\s*\"([^\"]+)\"");
constinit const TRegex QuadrantName("^quadrant-([1-4])\\s+(.+)$", rcIgnore);
constinit const TRegex QuadrantPoint(
    "^(.+?):\\s*\\[\\s*([0-9]+(?:\\.[0-9]+)?)\\s*,\\s*([0-9]+(?:\\.[0-9]+)?)\\s*\\]$");
constinit const TRegex AxisLine("^(x-axis|y-axis)\\s+(.+)$", rcIgnore);
constinit const TRegex XYSeries("^(bar|line)\\s*(?:\"([^\"]+)\"\\s*)?\\[([^\\]]+)\\]$", rcIgnore);
constinit const TRegex RadarAxes("^axis\\s+(.+)$", rcIgnore);
constinit const TRegex NamedLabel("^([\\w.-]+)(?:\\[\"([^\"]+)\"\\])?$");
constinit const TRegex RadarCurve("^curve\\s+([\\w.-]+)(?:\\[\"([^\"]+)\"\\])?\\s*\\{([^}]+)\\}$", rcIgnore);
constinit const TRegex RadarLimit("^(min|max)\\s+(.+)$", rcIgnore);
constinit const TRegex VennSet("^set\\s+([\\w.-]+)(?:\\[\"([^\"]+)\"\\])?$", rcIgnore);
constinit const TRegex VennUnion("^union\\s+([\\w.-]+(?:\\s*,\\s*[\\w.-]+)+)(?:\\[\"([^\"]+)\"\\])?$",
                                 rcIgnore);

std::string Joined(std::string_view aFirst, std::string_view aSecond) {
  std::string text(aFirst);
  return text.append(aSecond);
}

/// "[text]" or "{text}".
std::string Enclosed(char aOpening, std::string_view aText, char aClosing) {
  return (aOpening + std::string(aText)) + aClosing;
}

/// A label in quotes, or the name where there is none.
std::string LabelOr(const TMatch& aMatch, std::size_t aLabel, std::string_view aName) {
  return aMatch.Has(aLabel) ? CleanDiagramText(aMatch[aLabel]) : std::string(aName);
}

/// A chart whose nodes all hang under one, which shows the title and is added when it is needed first.
class TRootedChart {
 public:
  TRootedChart(TKDXDiagramModel& aModel, std::string_view aRoot, std::string_view aTitle)
      : fModel(aModel), fRoot(aRoot), fRootText(aTitle) {}

 protected:
  /// A title that comes after the first node is not shown by the root any more.
  bool ReadRootTitle(std::string_view aText) {
    if (!ReadCleanTitle(aText, fModel)) return false;
    fRootText = fModel.fTitle;
    return true;
  }
  void AddRoot() { fModel.AddNode(fRoot, fRootText, ftEllipse, true); }
  void AddPart(std::string_view aID, std::string_view aText, TZORFlowType aShape) {
    AddRoot();
    fModel.AddNode(aID, aText, aShape, true);
  }

  TKDXDiagramModel& fModel;
  const std::string_view fRoot;
  std::string fRootText;
};

// --- Pie -------------------------------------------------------------------------------------------------

class TPie : private TRootedChart {
 public:
  explicit TPie(TKDXDiagramModel& aModel) : TRootedChart(aModel, "pie_root", DefaultTitle) {}

  void Read(std::string_view aText) {
    TMatch match;
    if (PieLine.Match(aText, match)) {
      ReadHeader(match);
    } else if (ReadRootTitle(aText)) {
      AddRoot();
    } else if (PieSlice.Match(aText, match)) {
      const std::string id = NumberedID("pie_slice_", ++fCount);
      AddPart(id, TwoLines(CleanDiagramText(match[1]), match[2]), ftPreparation);
      AddPlainEdge(fModel, fRoot, id, match[2]);
    }
  }

 private:
  static constexpr std::string_view DefaultTitle = "Pie chart";

  void ReadHeader(const TMatch& aMatch) {
    fModel.fTitle = CleanDiagramText(aMatch[1]);
    if (fModel.fTitle.empty()) fModel.fTitle = DefaultTitle;
    fRootText = fModel.fTitle;
    if (aMatch.Has(1)) AddRoot();
  }

  int fCount = 0;
};

// --- Sankey ----------------------------------------------------------------------------------------------

/// The columns of a line, cut at commas outside double quotes; the quotes are not kept.
std::vector<std::string> Columns(std::string_view aText) {
  std::vector<std::string> columns(1);
  bool quoted = false;
  for (const char c : aText) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      columns.emplace_back();
    } else {
      columns.back() += c;
    }
  }
  for (std::string& column : columns) column = CleanDiagramText(column);
  return columns;
}

void ReadFlow(std::string_view aText, TKDXDiagramModel& aModel) {
  const std::vector<std::string> columns = Columns(aText);
  if (columns.size() != 3 || columns[0].empty() || columns[1].empty()) return;
  const std::string from = "sankey_" + columns[0];
  const std::string to = "sankey_" + columns[1];
  aModel.AddNode(from, columns[0], ftProcess, true);
  aModel.AddNode(to, columns[1], ftProcess, true);
  aModel.AddEdge(from, to, columns[2]);
}

// --- Packet ----------------------------------------------------------------------------------------------

class TPacket {
 public:
  explicit TPacket(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText) {
    TMatch match;
    if (ReadCleanTitle(aText, fModel) || !PacketField.Match(aText, match)) return;
    const std::string id = NumberedID("packet_field_", ++fCount);
    fModel.AddNode(id, TwoLines(ReplacedAll(match[1], ' ', {}), CleanDiagramText(match[2])), ftData, true);
    AddPlainEdge(fModel, fBefore, id);
    fBefore = id;
  }

 private:
  TKDXDiagramModel& fModel;
  std::string fBefore;
  int fCount = 0;
};

// --- Quadrants -------------------------------------------------------------------------------------------

bool ReadNumber(std::string_view aText, double& aValue) {
  const auto [end, error] = std::from_chars(aText.data(), aText.data() + aText.size(), aValue);
  return error == std::errc() && end == aText.data() + aText.size();
}

/// Counted from the upper right one against the clock; the middle lines belong to the upper right.
char QuadrantOf(double aX, double aY) {
  constexpr double middle = 0.5;
  if (aY >= middle) return aX >= middle ? '1' : '2';
  return aX < middle ? '3' : '4';
}

std::string QuadrantID(char aDigit) { return std::string("quadrant_") + aDigit; }

class TQuadrants {
 public:
  explicit TQuadrants(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText) {
    TMatch match;
    if (ReadCleanTitle(aText, fModel)) return;
    if (QuadrantName.Match(aText, match)) {
      fModel.AddNode(QuadrantID(match[1].front()), CleanDiagramText(match[2]), ftPredefined, true);
    } else if (AxisLine.Match(aText, match)) {
      fModel.AddNode("quadrant_" + LowerCase(match[1]), CleanDiagramText(match[2]), ftData, true);
    } else if (QuadrantPoint.Match(aText, match)) {
      AddPoint(CleanDiagramText(match[1]), match[2], match[3]);
    }
  }

  /// Labels the quadrants that points lie in and nobody named.
  void Finish() {
    for (const char digit : {'1', '2', '3', '4'}) {
      const std::string id = QuadrantID(digit);
      if (fModel.NodeIndexOf(id) >= 0)
        fModel.AddNode(id, std::string("Quadrant ") + digit, ftPredefined, true);
    }
  }

 private:
  void AddPoint(std::string_view aName, std::string_view aX, std::string_view aY) {
    double x = 0;
    double y = 0;
    if (!ReadNumber(aX, x) || !ReadNumber(aY, y)) return;
    const std::string quadrant = QuadrantID(QuadrantOf(x, y));
    fModel.AddNode(quadrant);
    const std::string id = NumberedID("quadrant_point_", ++fCount);
    const std::string place = Joined(aX, ", ") + std::string(aY);
    fModel.AddNode(id, TwoLines(aName, Enclosed('[', place, ']')), ftEllipse, true);
    AddPlainEdge(fModel, quadrant, id);
  }

  TKDXDiagramModel& fModel;
  int fCount = 0;
};

// --- XY chart --------------------------------------------------------------------------------------------

class TXYChart : private TRootedChart {
 public:
  explicit TXYChart(TKDXDiagramModel& aModel) : TRootedChart(aModel, "xy_root", "XY chart") {}

  void Read(std::string_view aText) {
    TMatch match;
    if (ReadRootTitle(aText)) return;
    if (AxisLine.Match(aText, match)) {
      const std::string axis = LowerCase(match[1]);
      const std::string id = "xy_" + axis;
      AddPart(id, TwoLines(axis, CleanDiagramText(match[2])), ftData);
      AddPlainEdge(fModel, fRoot, id);
    } else if (XYSeries.Match(aText, match)) {
      const std::string kind = LowerCase(match[1]);
      const std::string id = NumberedID("xy_series_", ++fCount);
      AddPart(id, TwoLines(LabelOr(match, 2, kind), Enclosed('[', Trim(match[3]), ']')), ftProcess);
      fModel.AddEdge(fRoot, id, kind);
    }
  }

 private:
  int fCount = 0;
};

// --- Radar -----------------------------------------------------------------------------------------------

class TRadar : private TRootedChart {
 public:
  explicit TRadar(TKDXDiagramModel& aModel) : TRootedChart(aModel, "radar_root", "Radar chart") {}

  void Read(std::string_view aText) {
    TMatch match;
    if (ReadRootTitle(aText)) return;
    if (RadarAxes.Match(aText, match)) {
      for (const std::string_view axis : SplitTrimmed(match[1], ',')) AddAxis(axis);
    } else if (RadarCurve.Match(aText, match)) {
      const std::string id = Joined("radar_curve_", match[1]);
      AddPart(id, TwoLines(LabelOr(match, 2, match[1]), Enclosed('{', Trim(match[3]), '}')), ftPreparation);
      fModel.AddEdge(fRoot, id, "curve");
    } else if (RadarLimit.Match(aText, match)) {
      const std::string id = NumberedID("radar_limit_", ++fCount);
      AddPart(id, LowerCase(match[1]) + ": " + std::string(Trim(match[2])), ftPredefined);
      AddPlainEdge(fModel, fRoot, id, {}, true);
    }
  }

 private:
  void AddAxis(std::string_view aText) {
    TMatch match;
    if (!NamedLabel.Match(aText, match)) return;
    const std::string id = Joined("radar_axis_", match[1]);
    AddPart(id, LabelOr(match, 2, match[1]), ftData);
    AddPlainEdge(fModel, fRoot, id);
  }

  int fCount = 0;
};

// --- Venn ------------------------------------------------------------------------------------------------

class TVenn {
 public:
  explicit TVenn(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText) {
    TMatch match;
    if (ReadCleanTitle(aText, fModel)) return;
    if (VennSet.Match(aText, match)) {
      AddSet(match[1], LabelOr(match, 2, match[1]));
    } else if (VennUnion.Match(aText, match)) {
      const std::string id = NumberedID("venn_union_", ++fCount);
      fModel.AddNode(id, LabelOr(match, 2, Joined("Union ", match[1])), ftPreparation, true);
      for (const std::string_view name : SplitTrimmed(match[1], ',')) {
        AddPlainEdge(fModel, AddSet(name, name), id);
      }
    }
  }

 private:
  std::string AddSet(std::string_view aName, std::string_view aText) {
    std::string id = Joined("venn_set_", aName);
    fModel.AddNode(id, aText, ftEllipse, true);
    return id;
  }

  TKDXDiagramModel& fModel;
  int fCount = 0;
};

template <class TChart>
TChart ReadChart(TDiagramLines aLines, const Mermaid::THeader& aHeader, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TChart chart(aModel);
  ForEachLine(aLines, aHeader, aModel, [&](std::string_view aText, std::string_view) { chart.Read(aText); });
  return chart;
}

}  // namespace

void TKDXMermaidParser::ParsePie(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  // The header is a line like others: it may hold the title.
  ReadChart<TPie>(aLines, {}, aModel);
}

void TKDXMermaidParser::ParseSankey(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  ForEachLine(aLines, Mermaid::SankeyHeader, aModel,
              [&](std::string_view aText, std::string_view) { ReadFlow(aText, aModel); });
}

void TKDXMermaidParser::ParsePacket(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  ReadChart<TPacket>(aLines, Mermaid::PacketHeader, aModel);
}

void TKDXMermaidParser::ParseQuadrant(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  ReadChart<TQuadrants>(aLines, Mermaid::QuadrantHeader, aModel).Finish();
}

void TKDXMermaidParser::ParseXYChart(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  ReadChart<TXYChart>(aLines, Mermaid::XYChartHeader, aModel);
}

void TKDXMermaidParser::ParseRadar(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  ReadChart<TRadar>(aLines, Mermaid::RadarHeader, aModel);
}

void TKDXMermaidParser::ParseVenn(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  ReadChart<TVenn>(aLines, Mermaid::VennHeader, aModel);
}

}  // namespace Zor::inline Diagramparsers
