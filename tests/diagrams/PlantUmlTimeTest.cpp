#include "diagrams/PlantUmlDump.hpp"

namespace Zor {
namespace {

TEST(PlantUmlTiming, StatesOfASignalFollowEachOther) {
  ExpectPlantUML({
      {"robust \"Web page\" as W\nconcise U as V\n@0\nW is Idle\nX is {on}\n@+10\nW is \"Busy\"\nV is a b\n"
       "W is {Idle}\nX is",
       "flowchart LR\ntiming_1 [Web page/Idle] Process\ntiming_2 [X/on] Process\n"
       "timing_3 [Web page/Busy] Process\ntiming_4 [V/a b] Process\ntiming_5 [Web page/Idle] Process\n"
       "timing_1 --> timing_3: +10\ntiming_3 --> timing_5: +10\n"},
      {"binary \"A\"\nA is 1\nA is 0",
       "flowchart LR\ntiming_1 [A/1] Process\ntiming_2 [A/0] Process\n"
       "timing_1 --> timing_2\n"},
  });
}

TEST(PlantUmlChronology, EventsFollowEachOther) {
  ExpectPlantUML({
      {"[Start] happens on 2025-01-01\n[no] happened on 2\n[ \"The<br>end\" ]  HAPPENS  on  May",
       "flowchart LR\nchronology_1 [2025-01-01/Start] Predefined\nchronology_2 [May/The/end] Predefined\n"
       "chronology_1 --> chronology_2\n"},
  });
}

TEST(PlantUmlGantt, TasksSectionsAndProject) {
  ExpectPlantUML({
      {"@startgantt\n[A] lasts 2 days\n--  One --\n[B] starts at [A]'s end\n[C] starts after [D]'s START\n"
       "[B] lasts 3 days\n-- Two--\n[D] lasts 1 day\n[E]  is done\n[E] starts at [B]",
       "flowchart LR\npuml_gantt_task_1 [A/lasts 2 days] Process\npuml_gantt_section_1 [One] Predefined\n"
       "puml_gantt_task_2 [B/starts at [A]'s end] Process\n"
       "puml_gantt_task_3 [C/starts after [D]'s START] Process\npuml_gantt_task_4 [D] Process\n"
       "puml_gantt_section_2 [Two] Predefined\npuml_gantt_task_5 [E/is done] Process\n"
       "puml_gantt_section_1 -- puml_gantt_task_2\npuml_gantt_task_1 --> puml_gantt_task_2: end\n"
       "puml_gantt_section_1 -- puml_gantt_task_3\npuml_gantt_task_4 --> puml_gantt_task_3: START\n"
       "puml_gantt_section_2 -- puml_gantt_task_5\npuml_gantt_task_2 --> puml_gantt_task_5: dependency\n"},
      {"@startgantt\nProject Starts 2025\nproject ends 2026\n----\n-----\n[A] starts 2025",
       "flowchart LR\npuml_gantt_project [Project/starts 2025] Terminator\n"
       "puml_gantt_section_1 [-] Predefined\npuml_gantt_task_1 [A/starts 2025] Process\n"
       "puml_gantt_section_1 -- puml_gantt_task_1\n"},
  });
}

}  // namespace
}  // namespace Zor
