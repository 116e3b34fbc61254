#include <gtest/gtest.h>

#include "kaldrix/platform/TIniFile.hpp"

namespace Zor {
namespace {

TEST(TIniFile, ReadsWhatPeopleWrite) {
  const TIniFile ini = TIniFile::FromText(
      "\xEF\xBB\xBF"
      "stray=1\r\n[ First ]\r\n; comment=1\n# too=1\n key = a=b \nnoequals\n=nokey\n\n[broken\n"
      "Other=x\r[second]\nkey=2\n[FIRST]\nlast=\xFF");
  EXPECT_EQ(ini.Sections().size(), 2U);
  const TIniFile::TLines expected{{"key", "a=b"}, {"Other", "x"}, {"last", "\xEF\xBF\xBD"}};
  EXPECT_EQ(ini.Lines("first"), expected);
  EXPECT_EQ(ini.ReadString("SECOND", "KEY", ""), "2");
  EXPECT_EQ(ini.ReadString("none", "key", "default"), "default");
}

TEST(TIniFile, WritesWhatItReadsBack) {
  TIniFile ini;
  ini.WriteString("One", "b", "1");
  ini.WriteString("Two", "x", "line\r\nbreak");
  ini.WriteString("one", "a", "2");
  ini.WriteString("ONE", "B", "3");
  EXPECT_EQ(ini.ToText(), "[One]\nb=3\na=2\n\n[Two]\nx=line  break\n");
  EXPECT_EQ(TIniFile::FromText(ini.ToText()).ToText(), ini.ToText());
}

}  // namespace
}  // namespace Zor
