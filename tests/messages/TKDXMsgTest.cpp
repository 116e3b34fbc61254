#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

#include "kaldrix/messages/BuiltInTexts.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TIniFile.hpp"

namespace Zor {
namespace {

/// Each test has a file of its own and leaves the catalogue in English.
class TKDXMsgTest : public testing::Test {
 protected:
  ~TKDXMsgTest() override {
    RemoveFile(fFile);
    TKDXMsg::LoadResources("");
  }
  void Load(std::string_view aText) {
    WriteFileAtomically(fFile, aText);
    TKDXMsg::LoadResources(fFile);
  }
  /// The whole catalogue as SaveToIniFile writes it.
  std::string Saved() {
    TKDXMsg::SaveToIniFile(fFile);
    return ReadFile(fFile);
  }

  std::string fFile =
      CombinePath(testing::TempDir(), "kaldrix-language-" + std::to_string(::getpid()) + ".ini");
};

TEST_F(TKDXMsgTest, AccessorsFindTheirGroup) {
  EXPECT_EQ(TKDXMsg::GetErrorValue("RepeatID"), "The ID must be unique");
  EXPECT_EQ(TKDXMsg::GetErrorValue("errRepeatID"), "not found");
  EXPECT_EQ(TKDXMsg::GetErrorValue("repeatid"), "not found");
  EXPECT_EQ(TKDXMsg::GetInfoValue("NewLayer"), "New Layer");
  EXPECT_EQ(TKDXMsg::GetPropValue("LabelName"), "Label name");
  EXPECT_EQ(TKDXMsg::GetPropValue("NumLabs"), "Nº labels");
  EXPECT_EQ(TKDXMsg::GetPropValue("ScaleX"), "Scale X");
  EXPECT_EQ(TKDXMsg::GetListValue("QR"), "QR");
  EXPECT_EQ(TKDXMsg::GetDialogsValue("FilterJson"), "JSON file|*.json");
  EXPECT_EQ(TKDXMsg::GetEditorValue("LeftRuler"), "Left Ruler");
  EXPECT_EQ(TKDXMsg::GetActionsValue("DrawPDF417"), "Draw PDF417");
  EXPECT_EQ(TKDXMsg::GetCommandValue("Any"), "not found");
}

TEST_F(TKDXMsgTest, NoBuiltInKeyStandsTwice) {
  std::set<std::string_view> keys;
  for (const auto& [key, text] : BuiltInTexts) {
    EXPECT_TRUE(keys.insert(key).second) << key;
    EXPECT_FALSE(text.empty()) << key;
  }
}

TEST_F(TKDXMsgTest, LanguageFileOverlaysWhatItNames) {
  Load(
      "[language]\nname=other\nerrNoFile=not read\n[List]\nerrRepeatID=a=b\n[Error]\nerrRepeatID=first\n"
      "[Commands]\ncmdSave=Guardar\nproNew=Nuevo\n[Foreign]\nerrEmptyID=not read\n");
  EXPECT_EQ(TKDXMsg::GetErrorValue("RepeatID"), "a=b") << "the section that is read last wins";
  EXPECT_EQ(TKDXMsg::GetCommandValue("Save"), "Guardar");
  EXPECT_EQ(TKDXMsg::GetPropValue("New"), "Nuevo");
  EXPECT_EQ(TKDXMsg::GetErrorValue("NoFile"), "File does not exist");
  EXPECT_EQ(TKDXMsg::GetErrorValue("EmptyID"), "The ID cannot be empty");
  TKDXMsg::LoadResources("");
  EXPECT_EQ(TKDXMsg::GetErrorValue("RepeatID"), "The ID must be unique");
  EXPECT_EQ(TKDXMsg::GetCommandValue("Save"), "not found");
}

TEST_F(TKDXMsgTest, TemplateHoldsEveryTextAndReadsBackTheSame) {
  const std::string saved = Saved();
  EXPECT_TRUE(saved.starts_with("[language]\nname=english\n\n[Error]\nerrDelDefStyle="))
      << saved.substr(0, 80);
  const TIniFile file = TIniFile::FromText(saved);
  std::size_t lines = 0;
  for (const auto& section : file.Sections()) lines += section.Lines.size();
  EXPECT_EQ(lines, std::size(BuiltInTexts) + 1);
  EXPECT_EQ(file.Lines("Properties").size(), 166U);

  Load("[Commands]\ncmdX=1=2\nxyzUnknown=dropped\n[Error]\nerrNoFile=No hay archivo\n");
  const std::string changed = Saved();
  EXPECT_EQ(changed.find("xyzUnknown"), std::string::npos);
  TKDXMsg::LoadResources(fFile);
  EXPECT_EQ(Saved(), changed);
  EXPECT_EQ(TKDXMsg::GetCommandValue("X"), "1=2");
}

TEST_F(TKDXMsgTest, UnusableFilesLeaveEnglish) {
  TKDXMsg::LoadResources("/no/such/file.ini");
  TKDXMsg::LoadResources(testing::TempDir());
  EXPECT_THROW(TKDXMsg::LoadResources("/dev/zero"), EStreamError);
  Load(std::string("\0\xFF[[[\n]=\n[Error\n=\nerrNoFile", 27));
  EXPECT_EQ(TKDXMsg::GetErrorValue("NoFile"), "File does not exist");
}

}  // namespace
}  // namespace Zor
