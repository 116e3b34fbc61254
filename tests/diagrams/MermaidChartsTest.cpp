#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

void ExpectDumps(std::initializer_list<TDumpCase> aCases) {
  for (const TDumpCase& c : aCases) EXPECT_EQ(DumpOfMermaid(c.text), c.dump) << c.text;
}

TEST(MermaidPie, SlicesHangUnderTheTitle) {
  ExpectDumps({
      {"pie showData title Pets\n\"Dogs\" : 3.5\n\"Cats\":2,5\n\"Fish\" : many",
       "flowchart LR 'Pets'\npie_root [Pets] Ellipse\npie_slice_1 [Dogs/3.5] Preparation\n"
       "pie_slice_2 [Cats/2,5] Preparation\npie_root -- pie_slice_1: 3.5\npie_root -- pie_slice_2: 2,5\n"},
      {"pie\n\"A\": 1",
       "flowchart LR 'Pie chart'\npie_root [Pie chart] Ellipse\npie_slice_1 [A/1] Preparation\n"
       "pie_root -- pie_slice_1: 1\n"},
      {"Pie\ntitle T", "flowchart LR 'T'\npie_root [T] Ellipse\n"},
      {"pie showData", "flowchart LR 'Pie chart'\n"},
  });
}

TEST(MermaidSankey, ThreeColumns) {
  ExpectDumps({
      {"sankey-beta\nA,B,10\n\"B, x\",\"C\"\"D\", 2 \nA,B\n,B,1\nA,B,C,D",
       "flowchart LR\nsankey_A [A] Process\nsankey_B [B] Process\nsankey_B, x [B, x] Process\n"
       "sankey_CD [CD] Process\nsankey_A --> sankey_B: 10\nsankey_B, x --> sankey_CD: 2\n"},
  });
}

TEST(MermaidPacket, FieldsFollowEachOther) {
  ExpectDumps({
      {"packet\ntitle UDP\n0 - 15: \"Source\"\n+16 : \"Target\"\n32: \"x\" rest\nno",
       "flowchart LR 'UDP'\npacket_field_1 [0-15/Source] Data\npacket_field_2 [+16/Target] Data\n"
       "packet_field_3 [32/x] Data\npacket_field_1 -- packet_field_2\npacket_field_2 -- packet_field_3\n"},
  });
}

TEST(MermaidQuadrant, PointsLieInQuadrants) {
  ExpectDumps({
      {"quadrantChart\ntitle Q\nX-axis low --> high\nquadrant-2 Named\nA: [0.5, 0.5]\nB :[0.49,0.5]\n"
       "C: [ 0.4 , 0.4 ]\nD:::k: [1,0]\nE: [2, .5]\nF: [0.9, 0.9] radius: 5",
       "flowchart LR 'Q'\nquadrant_x-axis [low --> high] Data\nquadrant_2 [Named] Predefined\n"
       "quadrant_1 [Quadrant 1] Predefined\nquadrant_point_1 [A/[0.5, 0.5]] Ellipse\n"
       "quadrant_point_2 [B/[0.49, 0.5]] Ellipse\nquadrant_3 [Quadrant 3] Predefined\n"
       "quadrant_point_3 [C/[0.4, 0.4]] Ellipse\nquadrant_4 [Quadrant 4] Predefined\n"
       "quadrant_point_4 [D:::k/[1, 0]] Ellipse\nquadrant_1 -- quadrant_point_1\n"
       "quadrant_2 -- quadrant_point_2\nquadrant_3 -- quadrant_point_3\nquadrant_4 -- quadrant_point_4\n"},
      {"quadrantChart\nA: [1, 1]\nquadrant-1 Late",
       "flowchart LR\nquadrant_1 [Late] Predefined\nquadrant_point_1 [A/[1, 1]] Ellipse\n"
       "quadrant_1 -- quadrant_point_1\n"},
  });
}

TEST(MermaidXYChart, SeriesAndAxes) {
  ExpectDumps({
      {"xychart-beta  horizontal\nx-axis [a, b]\ntitle \"Late\"\nBar [ 1, 2 ]\nline \"L\" [3]\nline x",
       "flowchart LR 'Late'\nxy_root [XY chart] Ellipse\nxy_x-axis [x-axis/[a, b]] Data\n"
       "xy_series_1 [bar/[1, 2]] Process\nxy_series_2 [L/[3]] Process\nxy_root -- xy_x-axis\n"
       "xy_root --> xy_series_1: bar\nxy_root --> xy_series_2: line\n"},
      {"xychart\ntitle T\nbar[1]",
       "flowchart LR 'T'\nxy_root [T] Ellipse\nxy_series_1 [bar/[1]] Process\n"
       "xy_root --> xy_series_1: bar\n"},
      {"xychart\ntitle T", "flowchart LR 'T'\n"},
  });
}

TEST(MermaidRadar, AxesCurvesAndLimits) {
  ExpectDumps({
      {"radar-beta\naxis a[\"Alpha\"], b , c d\ncurve k[\"K\"]{ 1, 2 }\ncurve m{3}\nMax 5\nmin  0\nticks 3",
       "flowchart LR\nradar_root [Radar chart] Ellipse\nradar_axis_a [Alpha] Data\nradar_axis_b [b] Data\n"
       "radar_curve_k [K/{1, 2}] Preparation\nradar_curve_m [m/{3}] Preparation\n"
       "radar_limit_1 [max: 5] Predefined\nradar_limit_2 [min: 0] Predefined\nradar_root -- radar_axis_a\n"
       "radar_root -- radar_axis_b\nradar_root --> radar_curve_k: curve\nradar_root --> radar_curve_m: "
       "curve\n"
       "radar_root .. radar_limit_1\nradar_root .. radar_limit_2\n"},
  });
}

TEST(MermaidVenn, UnionsJoinSets) {
  ExpectDumps({
      {"venn-beta\ntitle V\nset A[\"Alpha\"]\nunion A, B\nunion A,B[\"Both\"]\nunion A\nset C",
       "flowchart LR 'V'\nvenn_set_A [Alpha] Ellipse\nvenn_union_1 [Union A, B] Preparation\n"
       "venn_set_B [B] Ellipse\nvenn_union_2 [Both] Preparation\nvenn_set_C [C] Ellipse\n"
       "venn_set_A -- venn_union_1\nvenn_set_B -- venn_union_1\nvenn_set_A -- venn_union_2\n"
       "venn_set_B -- venn_union_2\n"},
  });
}

}  // namespace
}  // namespace Zor
