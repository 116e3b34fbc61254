#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TAppendFile.hpp"
#include "kaldrix/platform/TTemporaryFile.hpp"

namespace Zor {
namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
 protected:
  FilesTest() : fFolder(CombinePath(testing::TempDir(), "kaldrix-files-" + std::to_string(::getpid()))) {
    fs::create_directory(fFolder);
  }
  ~FilesTest() override { fs::remove_all(fFolder); }

  std::string In(const std::string& aName) const { return CombinePath(fFolder, aName); }
  auto EntryCount() const { return std::distance(fs::directory_iterator(fFolder), fs::directory_iterator()); }

  std::string fFolder;
};

std::string MessageOf(auto aAction) {
  try {
    aAction();
  } catch (const EStreamError& error) {
    return error.what();
  }
  return "nothing was raised";
}

TEST_F(FilesTest, WritesWholeFilesAndLeavesNothingBeside) {
  std::string bytes(200'001, '\0');
  bytes.back() = '\xFF';
  WriteFileAtomically(In("a"), "old content");
  WriteFileAtomically(In("a"), bytes);
  EXPECT_EQ(ReadFile(In("a")), bytes);
  CopyFile(In("a"), In("b"));
  EXPECT_EQ(ReadFile(In("b")), bytes);
  EXPECT_EQ(EntryCount(), 2);
}

TEST_F(FilesTest, OnlyWhatAKillLeftOfItsTargetsIsRemoved) {
  const std::vector<std::string> stays{"a.pdf",          "a.pdf.tmp",        "a.pdf.4-.tmp", "a.pdf.-1.tmp",
                                       "a.pdf.4-1.tmpx", "b.pdf.4711-0.tmp", ".4-1.tmp"};
  for (const std::string& name : stays) WriteFileAtomically(In(name), "");
  for (const char* name : {"a.pdf.4711-0.tmp", "a.pdf.1-22.tmp"}) WriteFileAtomically(In(name), "");
  RemoveLeftTemporaryFiles(fFolder, [](const std::string& target) { return target == "a.pdf"; });
  for (const std::string& name : stays) EXPECT_TRUE(FileExists(In(name))) << name;
  EXPECT_EQ(EntryCount(), static_cast<int>(stays.size()));
}

TEST_F(FilesTest, AJournalIsInOneHandOnly) {
  auto journal = std::make_unique<TAppendFile>(In("journal"));
  journal->Append("one\ntwo\n");
  EXPECT_NE(MessageOf([&] { TAppendFile(In("journal")); }).find("another session"), std::string::npos);
  journal->Cut(4);
  journal->Append("three\n");
  journal.reset();
  TAppendFile again(In("journal"));
  EXPECT_EQ(ReadFile(In("journal")), "one\nthree\n");
  again.Remove();
  EXPECT_EQ(EntryCount(), 0);
}

TEST_F(FilesTest, KeepsPermissionsAndLinks) {
  WriteFileAtomically(In("target"), "1");
  ::chmod(In("target").c_str(), 0640);
  fs::create_symlink("target", In("link"));
  WriteFileAtomically(In("link"), "2");
  EXPECT_TRUE(fs::is_symlink(In("link")));
  EXPECT_EQ(ReadFile(In("target")), "2");
  struct stat info {};
  ::stat(In("target").c_str(), &info);
  EXPECT_EQ(info.st_mode & 0777U, 0640U);
}

TEST_F(FilesTest, DevicesAreWrittenToAndNotReplaced) {
  WriteFileAtomically("/dev/null", "x");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FilesTest, FailuresNameFileAndReason) {
  EXPECT_EQ(MessageOf([&] { ReadFile(In("none")); }), "File not found: " + In("none"));
  EXPECT_THROW(ReadFile(In("none")), EFileNotFoundException);
  EXPECT_EQ(MessageOf([&] { ReadFile(fFolder); }), "Cannot read " + fFolder + ": Is a directory");
  EXPECT_EQ(MessageOf([&] { WriteFileAtomically(fFolder, "x"); }),
            "Cannot write " + fFolder + ": Is a directory");
  EXPECT_EQ(MessageOf([&] { WriteFileAtomically(In("no/file"), "x"); }),
            "Cannot write " + In("no/file") + ": No such file or directory");
  EXPECT_EQ(MessageOf([&] { ReadFile("/dev/zero", 1000); }), "Cannot read /dev/zero: larger than 1000 bytes");
  EXPECT_EQ(EntryCount(), 0);
}

TEST_F(FilesTest, KnowsFilesFromFolders) {
  WriteFileAtomically(In("a"), "");
  EXPECT_TRUE(FileExists(In("a")));
  EXPECT_FALSE(FileExists(fFolder));
  EXPECT_FALSE(FileExists(""));
  EXPECT_TRUE(DirectoryExists(fFolder));
  EXPECT_FALSE(DirectoryExists(In("a")));
  DeleteFile(In("a"));
  DeleteFile(In("a"));
  EXPECT_FALSE(FileExists(In("a")));
}

TEST(FileNames, PartsOfNames) {
  struct TCase {
    std::string Name, Dir, File, Ext, Changed;
  };
  const TCase cases[] = {
      {"/a/b.x/c.tar.gz", "/a/b.x", "c.tar.gz", ".gz", "/a/b.x/c.tar.svg"},
      {"/a/b.x/c", "/a/b.x", "c", "", "/a/b.x/c.svg"},
      {".hidden", "", ".hidden", "", ".hidden.svg"},
      {"/c.png", "/", "c.png", ".png", "/c.svg"},
      {"..", "", "..", "", "...svg"},
      {"", "", "", "", ".svg"},
  };
  for (const TCase& c : cases) {
    EXPECT_EQ(ExtractFileDir(c.Name), c.Dir);
    EXPECT_EQ(ExtractFileName(c.Name), c.File);
    EXPECT_EQ(ExtractFileExt(c.Name), c.Ext);
    EXPECT_EQ(ChangeFileExt(c.Name, ".svg"), c.Changed);
  }
}

TEST(FileNames, RelativeAndAbsolute) {
  EXPECT_EQ(CombinePath("/a", "b"), "/a/b");
  EXPECT_EQ(CombinePath("/a/", "/b"), "/b");
  EXPECT_EQ(CombinePath("", "b"), "b");
  EXPECT_EQ(ExpandFileName("/a/./b/../c/"), "/a/c");
  EXPECT_FALSE(IsRelativePath(ExpandFileName("x")));
  EXPECT_EQ(ExtractRelativePath("/a/b", "/a/images/c.png"), "../images/c.png");
  EXPECT_EQ(ExtractRelativePath("/a/b/", "/a/b/c.png"), "c.png");
}

}  // namespace
}  // namespace Zor
