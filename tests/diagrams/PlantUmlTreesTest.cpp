#include "diagrams/PlantUmlDump.hpp"
#include "kaldrix/utils/Colors.hpp"

namespace Zor {
namespace {

TEST(PlantUmlMindMap, EachSideHasItsChain) {
  ExpectPlantUML({
      {"+ R\n++ a\n-- b\n+++ c\n--- d\n++ e\n+++ f",
       "mindmap LR\nmind_1 [R] Ellipse\nmind_2 [a] Process right\nmind_3 [b] Process left\n"
       "mind_4 [c] Process right\nmind_5 [d] Process left\nmind_6 [e] Process right\n"
       "mind_7 [f] Process right\nmind_1 -- mind_2\nmind_1 -- mind_3\nmind_2 -- mind_4\nmind_3 -- mind_5\n"
       "mind_1 -- mind_6\nmind_6 -- mind_7\n"},
      // A level may be left out; a second root takes over, but for what is deeper on the same side.
      {"** orphan\n* R\n*** a\n** b\n* S\n*** c\n** d",
       "mindmap LR\nmind_1 [orphan] Process right\nmind_2 [R] Ellipse\nmind_3 [a] Process right\n"
       "mind_4 [b] Process right\nmind_5 [S] Ellipse\nmind_6 [c] Process right\nmind_7 [d] Process right\n"
       "mind_1 -- mind_3\nmind_2 -- mind_4\nmind_4 -- mind_6\nmind_5 -- mind_7\n"},
  });
}

TEST(PlantUmlMindMap, TextsLoseTheirMarks) {
  const std::pair<const char*, const char*> cases[] = {
      {"*_ x", "x"},
      {"*x", "x"},
      {"* <&star> x", "x"},
      {"* a<br>b", "a/b"},
      {"* <b>x</B> <i>y", "x y"},
      {"* x <<later>> ", "x"},
      {"* x <<a>> <<c>>", "x <<a>>"},
      {"* x <<s>>", "x <>"},
      {"* x <<>>", "x <<>>"},
      {"* x <<a>>>", "x <<a>>>"},
      {"* x <<a<<c>>", "x"},
      {"* 1 << 2", "1 << 2"},
      {"*[ x", "[ x"},
      {"**", "*"},
  };
  for (const auto& [text, label] : cases) {
    EXPECT_EQ(DumpOfPlantUML(
                  std::string("@startmindmap\n* <b></b>\nleft side\n* any direction\n* <<later>>\n") + text),
              "mindmap LR\nmind_1 [" + std::string(label) + "] Ellipse\n")
        << text;
  }
}

TEST(PlantUmlMindMap, ColoursComeFromTheLineOrTheStyle) {
  TKDXDiagramModel model;
  TKDXPlantUMLParser::Parse(
      "@startmindmap\n* root\n**[#00FF00] green\n**[nocolour] by depth\n***[blue] blue\n**** "
      "default\n<STYLE>\n"
      "BackgroundColor red\nmindmapDiagram {\nnode {\nBackgroundColor #112233\nBackgroundColor none\n}\n"
      "BackgroundColor red\n:depth(1) {\nbackgroundcolor #445566\n* no branch\n}\n"
      ":depth(99999999999) {\nBackgroundColor red\n}\n}\n</style>\n* last",
      model);
  const TAlphaColor expected[] = {0xFF112233, 0xFF00FF00, 0xFF445566, 0xFF0000FF, 0xFF112233, 0xFF112233};
  ASSERT_EQ(model.GetNodes().size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_TRUE(model.GetNodes()[i].HasBackColor) << i;
    EXPECT_EQ(model.GetNodes()[i].BackColor, expected[i]) << model.GetNodes()[i].Text;
  }
  model.Clear();
  TKDXPlantUMLParser::Parse("* a", model);
  EXPECT_FALSE(model.GetNodes().at(0).HasBackColor);
}

TEST(PlantUmlData, NestingFollowsIndentation) {
  ExpectPlantUML({
      {"@startjson\n{\n  \"a\": \"x, y\",\n  \"b\": {\n    \"c\": 1,\n\t\"d\": [\n      \"e\",\n      2\n    "
       "]\n"
       "  },\n  \"f\": {},\n  \"g\": \"http://h\"\n}\n@endjson",
       "mindmap LR\ndata_root [Data] Database\ndata_1 [a/x, y] Process\ndata_2 [b] Predefined\n"
       "data_3 [c/1] Process\ndata_4 [d] Predefined\ndata_5 [\"e\"] Predefined\ndata_6 [2] Predefined\n"
       "data_7 [f] Process\ndata_8 [g/http://h] Process\ndata_root -- data_1\ndata_root -- data_2\n"
       // One tab counts as two blanks, so "d" stands beside "b".
       "data_2 -- data_3\ndata_root -- data_4\ndata_4 -- data_5\ndata_4 -- data_6\ndata_root -- data_7\n"
       "data_root -- data_8\n"},
      {"@startyaml\nfruit:\n  - name: Apple\n    size = 3\n  - Pear\nlast: 'x'",
       "mindmap LR\ndata_root [Data] Database\ndata_1 [fruit] Predefined\ndata_2 [name/Apple] Process\n"
       "data_3 [size/3] Process\ndata_4 [Pear] Predefined\ndata_5 [last/x] Process\ndata_root -- data_1\n"
       "data_1 -- data_2\ndata_1 -- data_3\ndata_1 -- data_4\ndata_root -- data_5\n"},
      // Without a start tag the first line tells it, and indentation counts all the same.
      {"{\n \"a\": {\n  \"b\": 1\n",
       "mindmap LR\ndata_root [Data] Database\ndata_1 [a] Predefined\ndata_2 [b/1] Process\n"
       "data_root -- data_1\ndata_1 -- data_2\n"},
  });
}

TEST(PlantUmlFiles, PathsShareTheirFolders) {
  ExpectPlantUML({
      {"@startfiles\n/a/b.txt\n/a/<color:red>c</color>\n/a/b.txt\n/d/\n//a//d<x>/\n/a\nno/path\n/x<>y/ <i> "
       "/z",
       "mindmap LR\nfiles_root [/] Predefined\nfiles_root/a/ [a] Predefined\n"
       "files_root/a//b.txt [b.txt] Document\nfiles_root/a//c [c] Document\nfiles_root/d/ [d] Predefined\n"
       "files_root/a//d/ [d] Predefined\nfiles_root/a [a] Document\nfiles_root/x<>y/ [x<>y] Predefined\n"
       "files_root/x<>y//z [z] Document\nfiles_root -- files_root/a/\nfiles_root/a/ -- files_root/a//b.txt\n"
       "files_root/a/ -- files_root/a//c\nfiles_root -- files_root/d/\nfiles_root/a/ -- files_root/a//d/\n"
       "files_root -- files_root/a\nfiles_root -- files_root/x<>y/\n"
       "files_root/x<>y/ -- files_root/x<>y//z\n"},
  });
}

}  // namespace
}  // namespace Zor
