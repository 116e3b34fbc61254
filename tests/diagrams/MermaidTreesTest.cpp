#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

void ExpectDumps(std::initializer_list<TDumpCase> aCases) {
  for (const TDumpCase& c : aCases) EXPECT_EQ(DumpOfMermaid(c.text), c.dump) << c.text;
}

TEST(MermaidMindMap, NodesHangByIndentation) {
  ExpectDumps({
      {"mindmap\nroot((Fair))\n  A\n    a1\n\ta2\n  B[\"b &amp; c\"]\n    b{{x}}",
       "mindmap LR\nmind_1 [Fair] Ellipse\nmind_2 [A] Process\nmind_3 [a1] Process\nmind_4 [a2] Process\n"
       "mind_5 [b & c] Process\nmind_6 [x] Preparation\nmind_1 -- mind_2\nmind_2 -- mind_3\nmind_1 -- "
       "mind_4\n"
       "mind_1 -- mind_5\nmind_5 -- mind_6\n"},
      {"mindmap\ntitle: T\none\n::icon(x)\n%% no\ntwo",
       "mindmap LR 'T'\nmind_1 [one] Ellipse\nmind_2 [two] Ellipse\n"},
  });
}

TEST(MermaidMindMap, ClassesAreTakenOff) {
  const struct {
    const char* line;
    const char* node;
  } cases[] = {
      {"a :::big", "[a] Ellipse"},          {"a b:::big red", "[a b:::big red] Ellipse"},
      {"a:::x:::y", "[a] Ellipse"},         {"a :::", "[a :::] Ellipse"},
      {"a   :::b  ", "[a] Ellipse"},        {"x[a]::big", "[a] Ellipse"},
      {"x[a] more", "[x[a] more] Ellipse"}, {"\"q\"", "[q] Ellipse"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(DumpOfMermaid(std::string("mindmap\n") + c.line),
              "mindmap LR\nmind_1 " + std::string(c.node) + "\n")
        << c.line;
  }
}

TEST(MermaidTreemap, ValuesStandBelowNames) {
  ExpectDumps({
      {"treemap-beta\n\"All\"\n  \"A\": 12\n  \"B\" : 3.5 :::c\n\t\"C\"\n    \"D\":4\nnone",
       "mindmap LR\ntreemap_1 [All] Predefined\ntreemap_2 [A/12] Process\ntreemap_3 [B/3.5] Process\n"
       "treemap_4 [C] Process\ntreemap_5 [D/4] Process\ntreemap_1 -- treemap_2\ntreemap_1 -- treemap_3\n"
       "treemap_1 -- treemap_4\ntreemap_4 -- treemap_5\n"},
      // Without a value the class itself reads as one.
      {"treemap\n\"A\":::c\n\"B\":", "mindmap LR\ntreemap_1 [A/::c] Predefined\n"},
  });
}

TEST(MermaidTreeView, DrawnLinesAreIndentation) {
  ExpectDumps({
      {"treeView-beta\ntitle My files\nsrc/\n├── a.c\n├── lib/\n│   └── b.c\n└── \n  ─ ─ \nend//",
       "mindmap LR 'My files'\ntreeview_1 [src] Predefined\ntreeview_2 [a.c] Document\n"
       "treeview_3 [lib] Predefined\ntreeview_4 [b.c] Document\ntreeview_5 [end] Predefined\n"
       "treeview_1 -- treeview_2\ntreeview_1 -- treeview_3\ntreeview_3 -- treeview_4\n"},
  });
}

TEST(MermaidIshikawa, CausesAlternateBetweenTheSides) {
  ExpectDumps({
      {"ishikawa-beta\ntitle  Why\n Head:\n  A\n  B :\n    b1\n      b2\n  C\n    c1\nOut",
       "ishikawa LR 'Why'\nishikawa_1 [Head] Decision\nishikawa_2 [A] Process left\n"
       "ishikawa_3 [B] Process right\nishikawa_4 [b1] Process right\nishikawa_5 [b2] Process right\n"
       "ishikawa_6 [C] Process left\nishikawa_7 [c1] Process left\nishikawa_8 [Out] Process right\n"
       "ishikawa_1 -- ishikawa_2\nishikawa_1 -- ishikawa_3\nishikawa_3 -- ishikawa_4\n"
       "ishikawa_4 -- ishikawa_5\nishikawa_1 -- ishikawa_6\nishikawa_6 -- ishikawa_7\n"
       "ishikawa_1 -- ishikawa_8\n"},
  });
}

TEST(MermaidKanban, ColumnsAndCards) {
  ExpectDumps({
      {"kanban\n  todo[To do]\n    a[Paint]@{ who: 'I', prio: 1 }\n    [Nameless]\n  Done\n    b\n  bad line",
       "flowchart LR\ntodo [To do] Predefined\na [Paint/who: 'I'/ prio: 1] Process\n"
       "kanban_3 [Nameless] Process\nDone [Done] Predefined\nb [b] Process\n"
       "todo -- a\ntodo -- kanban_3\nDone -- b\n"},
      {"kanban\n[A]@{}\n[B]@{x}\n c@{ y }",
       "flowchart LR\nkanban_1 [A] Predefined\nkanban_2 [B/x] Predefined\n"
       "c [c/y] Process\nkanban_2 -- c\n"},
  });
}

}  // namespace
}  // namespace Zor
