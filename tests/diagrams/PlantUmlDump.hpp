#pragma once

#include <gtest/gtest.h>

#include <initializer_list>

#include "diagrams/ModelDump.hpp"

namespace Zor {

inline std::string DumpOfPlantUML(std::string_view aText) {
  TKDXDiagramModel model;
  TKDXPlantUMLParser::Parse(aText, model);
  return DumpOf(model);
}

inline void ExpectPlantUML(std::initializer_list<TDumpCase> aCases) {
  for (const TDumpCase& c : aCases) EXPECT_EQ(DumpOfPlantUML(c.text), c.dump) << c.text;
}

}  // namespace Zor
