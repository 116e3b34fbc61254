#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

void ExpectDumps(std::initializer_list<TDumpCase> aCases) {
  for (const TDumpCase& c : aCases) EXPECT_EQ(DumpOfMermaid(c.text), c.dump) << c.text;
}

TEST(MermaidGitGraph, BranchesAndMerges) {
  ExpectDumps({
      {"gitGraph\ntitle Repo\ncommit id: \"first one\"\nbranch dev\ncommit\ncheckout dev\ncommit id:x "
       "tag:\"t\"\n"
       "switch main\nmerge dev\nCOMMIT",
       "flowchart LR 'Repo'\ngit_commit_1 [first one] Process\ngit_commit_2 [Commit 2] Process\n"
       "git_commit_3 [x] Process\ngit_merge_4 [Merge dev] Predefined\ngit_commit_5 [Commit 5] Process\n"
       "git_commit_1 --> git_commit_2: main\ngit_commit_1 --> git_commit_3: dev\n"
       "git_commit_2 --> git_merge_4: main\ngit_commit_3 --> git_merge_4: dev\n"
       "git_merge_4 --> git_commit_5: main\n"},
      // Nothing to merge from: a node alone. An equal head makes no second edge.
      {"gitGraph TB:\nmerge x", "flowchart LR\ngit_merge_1 [Merge x] Predefined\n"},
      {"gitGraph\ncommit\nbranch b\nmerge b",
       "flowchart LR\ngit_commit_1 [Commit 1] Process\ngit_merge_2 [Merge b] Predefined\n"
       "git_commit_1 --> git_merge_2: main\n"},
      {"gitGraph\ncommit\ncheckout new\ncommit",
       "flowchart LR\ngit_commit_1 [Commit 1] Process\n"
       "git_commit_2 [Commit 2] Process\n"},
  });
}

TEST(MermaidTimeline, EventsFollowTheirSection) {
  ExpectDumps({
      {"timeline\ntitle Past\n1990 : a\n2000:b : c<br>d\nSection New\n2010 :\n : lost\n2020 : e\nplain",
       "flowchart LR 'Past'\ntimeline_event_1 [1990/a] Process\ntimeline_event_2 [2000/b : c/d] Process\n"
       "timeline_section_3 [New] Predefined\ntimeline_event_4 [2010] Process\ntimeline_event_5 [2020/e] "
       "Process\n"
       "timeline_event_1 --> timeline_event_2\ntimeline_section_3 --> timeline_event_4\n"
       "timeline_event_4 --> timeline_event_5\n"},
  });
}

TEST(MermaidJourney, TasksHaveScoreAndActors) {
  ExpectDumps({
      {"journey\ntitle Day\nsection Go\nWork: 5: Me, Cat\nRest: 3\n\"Nap\":\n: 1: x",
       "flowchart LR 'Day'\njourney_section_1 [Go] Predefined\njourney_task_2 [Work/Score: 5/Me, Cat] "
       "Process\n"
       "journey_task_3 [Rest/Score: 3] Process\njourney_task_4 [\"Nap\"] Process\n"
       "journey_section_1 --> journey_task_2\njourney_task_2 --> journey_task_3\n"
       "journey_task_3 --> journey_task_4\n"},
      {"A --> B\n journey \nC", "flowchart LR\n"},
  });
}

TEST(MermaidGantt, TasksSectionsAndDependencies) {
  ExpectDumps({
      {"gantt\ntitle Plan\ndateFormat YYYY\nexcludes: weekends\nA : done, a1, 2020-01-01, 3d\nsection S & "
       "\"T\"\n"
       "B :active,crit, b, after a1, 2d\nC: x: after later\nD :later, after b",
       "flowchart LR 'Plan'\ngantt_task_1 [A/done, a1, 2020-01-01, 3d] Process\n"
       "gantt_section_1 [S & \"T\"] Predefined\ngantt_task_2 [B/active,crit, b, after a1, 2d] Process\n"
       "gantt_task_3 [C/x: after later] Process\ngantt_task_4 [D/later, after b] Process\n"
       "gantt_section_1 -- gantt_task_2\ngantt_task_1 --> gantt_task_2: after\n"
       "gantt_section_1 -- gantt_task_3\ngantt_section_1 -- gantt_task_4\n"
       "gantt_task_2 --> gantt_task_4: after\n"},
      {"gantt\nno colon\nempty:\n:: x", "flowchart LR\ngantt_task_1 [:/x] Process\n"},
  });
}

}  // namespace
}  // namespace Zor
