#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
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
  CopyFileAtomically(In("a"), In("b"));
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

TEST_F(FilesTest, WhatALinkPointsAtIsMade) {
  fs::create_directory(In("folder"));
  fs::create_symlink("folder/second", In("first"));
  fs::create_symlink("target", In("folder/second"));
  WriteFileAtomically(In("first"), "1");
  EXPECT_TRUE(fs::is_symlink(In("first")) && fs::is_symlink(In("folder/second")));
  EXPECT_EQ(ReadFile(In("folder/target")), "1");
  fs::create_symlink("ring", In("ring"));
  EXPECT_EQ(MessageOf([&] { WriteFileAtomically(In("ring"), "x"); }),
            "Cannot write " + In("ring") + ": Too many levels of symbolic links");
}

TEST_F(FilesTest, OfSeveralNamesOnlyTheWrittenOneChanges) {
  WriteFileAtomically(In("one"), "old");
  fs::create_hard_link(In("one"), In("two"));
  WriteFileAtomically(In("one"), "new");
  EXPECT_EQ(ReadFile(In("one")) + ReadFile(In("two")), "newold");
}

/// Someone without rights of their own, as far as the test may become one; the superuser may do all.
class TNobody {
 public:
  TNobody() : fIsNobody(::geteuid() != 0 || (::setegid(Id) == 0 && ::seteuid(Id) == 0)) {}
  ~TNobody() {
    if (::getuid() == 0 && (::seteuid(0) != 0 || ::setegid(0) != 0)) std::abort();
  }
  bool fIsNobody;

 private:
  static constexpr unsigned Id = 65534;
};

TEST_F(FilesTest, WhatMayNotBeWrittenIsRefused) {
  ::chmod(fFolder.c_str(), 0777);
  fs::create_directory(In("closed"));
  for (const char* name : {"mine", "closed/file"}) WriteFileAtomically(In(name), "old");
  ::chmod(In("mine").c_str(), 0444);
  ::chmod(In("closed/file").c_str(), 0666);
  ::chmod(In("closed").c_str(), 0555);
  {
    const TNobody nobody;
    ASSERT_TRUE(nobody.fIsNobody);
    EXPECT_EQ(MessageOf([&] { WriteFileAtomically(In("mine"), "x"); }),
              "Cannot write " + In("mine") + ": the file is read-only");
    EXPECT_EQ(MessageOf([&] { WriteFileAtomically(In("closed/file"), "x"); }),
              "Cannot write " + In("closed/file") + ": its folder takes no new file: Permission denied");
  }
  ::chmod(In("closed").c_str(), 0755);
  EXPECT_EQ(ReadFile(In("mine")) + ReadFile(In("closed/file")), "oldold");
}

TEST_F(FilesTest, OwnerAndGroupAreKeptWhereTheyMayBeGiven) {
  const bool gives = ::geteuid() == 0;  // Only the superuser gives files away.
  const uid_t owner = gives ? 1234 : ::geteuid();
  const gid_t group = gives ? 4321 : ::getegid();
  WriteFileAtomically(In("theirs"), "old");
  ASSERT_EQ(::chown(In("theirs").c_str(), owner, group), 0);
  ::chmod(In("theirs").c_str(), 04750);
  WriteFileAtomically(In("theirs"), "new");
  struct stat info {};
  ::stat(In("theirs").c_str(), &info);
  EXPECT_EQ(info.st_uid, owner);
  EXPECT_EQ(info.st_gid, group);
  EXPECT_EQ(info.st_mode & 07777U, 04750U);
}

TEST_F(FilesTest, TheLongestNamesAreWritten) {
  for (const std::size_t size : {222U, 223U, 224U, 250U, 255U}) {
    WriteFileAtomically(In(std::string(size, 'n')), "x");
    EXPECT_EQ(ReadFile(In(std::string(size, 'n'))), "x");
  }
  EXPECT_EQ(EntryCount(), 5);
  EXPECT_NE(MessageOf([&] { WriteFileAtomically(In(std::string(256, 'n')), "x"); }).find("too long"),
            std::string::npos);
}

TEST_F(FilesTest, WhatTheCallerOpenedIsWrittenWhereItStands) {
  WriteFileAtomically(In("log"), "");
  const int handle = ::open(In("log").c_str(), O_WRONLY | O_APPEND);
  ASSERT_EQ(::write(handle, "one\n", 4), 4);
  const std::string number = std::to_string(handle);
  fs::create_symlink("/proc/self/fd/" + number, In("link"));
  for (const std::string& name : {"/dev/fd/" + number, In("link")}) WriteFileAtomically(name, "two\n");
  ASSERT_EQ(::write(handle, "three\n", 6), 6);
  ::close(handle);
  EXPECT_EQ(ReadFile(In("log")), "one\ntwo\ntwo\nthree\n");
  EXPECT_NE(MessageOf([&] { WriteFileAtomically("/dev/fd/" + number, "x"); }).find("Bad file descriptor"),
            std::string::npos);
}

TEST_F(FilesTest, TheInputLimitHoldsForFilesAndPipes) {
  WriteFileAtomically(In("a"), std::string(1000, 'a'));
  const std::size_t former = InputLimit();
  SetInputLimit(999);
  EXPECT_EQ(MessageOf([&] { ReadFile(In("a")); }), "Cannot read " + In("a") + ": larger than 999 bytes");
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ASSERT_EQ(::write(ends[1], std::string(1000, 'a').data(), 1000), 1000);
  ::close(ends[1]);
  EXPECT_EQ(MessageOf([&] { ReadDescriptor(ends[0], "pipe"); }), "Cannot read pipe: larger than 999 bytes");
  ::close(ends[0]);
  SetInputLimit(1000);
  EXPECT_EQ(ReadFile(In("a")).size(), 1000U);
  SetInputLimit(former);
}

TEST_F(FilesTest, DevicesAreWrittenToAndNotReplaced) {
  WriteFileAtomically("/dev/null", "x");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FilesTest, AJournalKeepsNoHalfOfWhatDidNotFit) {
  rlimit old{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{15, old.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  TAppendFile journal(In("journal"));
  journal.Append("first line\n");
  EXPECT_NE(MessageOf([&] { journal.Append("second line\n"); }).find("Cannot write"), std::string::npos);
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(ReadFile(In("journal")), "first line\n");
}

TEST_F(FilesTest, FailuresNameFileAndReason) {
  EXPECT_EQ(MessageOf([&] { ReadFile(In("none")); }), "File not found: " + In("none"));
  EXPECT_THROW(ReadFile(In("none")), EFileNotFoundException);
  EXPECT_EQ(MessageOf([&] { ReadFile(fFolder); }), "Cannot read " + fFolder + ": Is a directory");
  EXPECT_EQ(MessageOf([&] { WriteFileAtomically(fFolder, "x"); }),
            "Cannot write " + fFolder + ": Is a directory");
  EXPECT_EQ(MessageOf([&] { WriteFileAtomically(In("no/file"), "x"); }),
            "Cannot write " + In("no/file") + ": No such file or directory");
  EXPECT_EQ(MessageOf([&] { ReadFile("/dev/zero"); }),
            "Cannot read /dev/zero: this is a device, and no file");
  EXPECT_EQ(ReadFile("/dev/null"), "");
  EXPECT_EQ(EntryCount(), 0);
}

TEST_F(FilesTest, KnowsFilesFromFolders) {
  WriteFileAtomically(In("a"), "");
  EXPECT_TRUE(FileExists(In("a")));
  EXPECT_FALSE(FileExists(fFolder));
  EXPECT_FALSE(FileExists(""));
  EXPECT_TRUE(DirectoryExists(fFolder));
  EXPECT_FALSE(DirectoryExists(In("a")));
  RemoveFile(In("a"));
  RemoveFile(In("a"));
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
