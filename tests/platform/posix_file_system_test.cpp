#include "platform/posix_file_system.h"

#include <sys/stat.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/instance_lock.h"
#include "platform/log_file.h"
#include "store/project_store.h"
#include "store/whole_write.h"
#include "tests/floors.h"
#include "tests/temp_folder.h"

namespace tarvok::test {
namespace {

namespace fs = std::filesystem;

class Files : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_ / name; }
  static mode_t Mode(const std::string& path) {
    struct stat info {};
    ::stat(path.c_str(), &info);
    return info.st_mode & 07777;
  }

  TempFolder folder_;
  PosixFileSystem files_;
  ProjectStore store_{files_};
};

TEST_F(Files, SavingKeepsLinkAndPermissions) {
  Write(Path("real.tvk"), "[a]\nk=1\n");
  ::chmod(Path("real.tvk").c_str(), 0640);
  fs::create_symlink("real.tvk", Path("link.tvk"));
  EXPECT_TRUE(store_.SetIniValue(Path("link.tvk"), "a", "k", "2").ok());
  EXPECT_TRUE(fs::is_symlink(Path("link.tvk")));
  EXPECT_EQ(Read(Path("real.tvk")), "[a]\nk=2\n");
  EXPECT_EQ(Mode(Path("real.tvk")), 0640U);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()), 2);
}

TEST_F(Files, SeesChangeWithinTheClockGrain) {
  const std::string path = Path("p.tvk");
  for (int i = 0; i < 50; ++i) {
    const std::string value = std::to_string(i % 10);
    Write(path, "[a]\nk=" + value + "\n");  // same name, same size, within the clock's grain
    ASSERT_EQ(store_.GetIniValue(path, "a", "k"), value);
  }
}

TEST_F(Files, ErrorsNameTheReasonAndChangeNothing) {
  fs::create_directory(Path("folder.tvk"));
  EXPECT_FALSE(store_.SetIniValue(Path("folder.tvk"), "a", "k", "1").ok());
  EXPECT_TRUE(fs::is_directory(Path("folder.tvk")));
  const Status missing = store_.SetIniValue(Path("none/p.tvk"), "a", "k", "1");
  EXPECT_EQ(missing.kind(), ErrorKind::kNotFound);
  EXPECT_NE(missing.message().find("No such file"), std::string::npos);
  EXPECT_FALSE(files_.Read("/dev/zero").ok());
}

TEST_F(Files, ReplacesRegularFilesOnly) {
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  fs::create_symlink("pipe", Path("link"));
  for (const std::string& path : {Path("pipe"), Path("link"), std::string("/dev/null")}) {
    EXPECT_FALSE(WriteWhole(files_, path, "x").ok()) << path;
    EXPECT_FALSE(CanWriteWhole(files_, path).ok()) << path;
    EXPECT_FALSE(fs::is_regular_file(path)) << path;
  }
  // A link to a missing file is followed, from link to link.
  fs::create_directory(Path("folder"));
  fs::create_symlink("folder/second", Path("first"));
  fs::create_symlink("new", Path("folder/second"));
  EXPECT_TRUE(IsSameFile(files_, Path("first"), Path("folder/new")));
  EXPECT_TRUE(CanWriteWhole(files_, Path("first")).ok());
  EXPECT_TRUE(WriteWhole(files_, Path("first"), "x").ok());
  EXPECT_EQ(Read(Path("folder/new")), "x");
  EXPECT_TRUE(fs::is_symlink(Path("folder/second")));
  EXPECT_TRUE(IsSameFile(files_, Path("first"), Path("folder/new")));
  EXPECT_FALSE(IsSameFile(files_, Path("first"), Path("pipe")));
  EXPECT_FALSE(CanWriteWhole(files_, Path("none/new")).ok());
}

TEST_F(Files, PrivateFolderIsNewAndForItsUserOnly) {
  const auto first = files_.MakePrivateFolder(Path(""));
  const auto second = files_.MakePrivateFolder(Path(""));
  ASSERT_TRUE(first.ok() && second.ok());
  EXPECT_NE(first.value(), second.value());
  EXPECT_EQ(Mode(first.value()), 0700U);
  Write(first.value() + "/x", "");
  EXPECT_FALSE(files_.Remove(first.value()).ok());
  EXPECT_TRUE(files_.Remove(first.value() + "/x").ok() && files_.Remove(first.value()).ok());
  EXPECT_THAT(files_.MakePrivateFolder(Path("none")).status().message(),
              testing::StartsWith(Path("none") + ": "));
}

TEST_F(Files, LogKeepsItsFirstErrorAndLocksItsFile) {
  LogFile first;
  ASSERT_TRUE(first.Open(Path("send.log")).ok());
  first.Write("one");
  LogFile second;
  EXPECT_EQ(second.Open(Path("send.log")).kind(), ErrorKind::kExists);
  EXPECT_EQ(Read(Path("send.log")), "one");
  EXPECT_TRUE(first.status().ok());
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(second.Open(Path("pipe")).ok());
  const mode_t mode = Mode("/dev/full");
  ASSERT_TRUE(second.Open("/dev/full").ok());
  second.Write("x");
  EXPECT_THAT(second.status().message(), testing::HasSubstr("No space"));
  EXPECT_EQ(Mode("/dev/full"), mode);
}

TEST_F(Files, LogStartsEmptyAndPrivate) {
  Write(Path("send.log"), "old and longer");
  ::chmod(Path("send.log").c_str(), 0666);
  {
    LogFile log;
    ASSERT_TRUE(log.Open(Path("send.log")).ok());
    log.Write("new\r\n");
  }
  EXPECT_EQ(Read(Path("send.log")), "new\r\n");
  EXPECT_EQ(Mode(Path("send.log")), 0600U);
  LogFile none;
  EXPECT_FALSE(none.Open(Path("none/send.log")).ok());
  none.Write("goes nowhere");
}

TEST_F(Files, SecondInstanceDetectsTheFirst) {
  {
    const InstanceLock first(Path("program.lock"));
    EXPECT_FALSE(first.held_elsewhere());
    EXPECT_TRUE(InstanceLock(Path("program.lock")).held_elsewhere());
    EXPECT_TRUE(InstanceLock(Path("program.lock")).held_elsewhere());
  }
  EXPECT_FALSE(InstanceLock(Path("program.lock")).held_elsewhere());
  EXPECT_FALSE(InstanceLock(Path("none/program.lock")).held_elsewhere());
}

}  // namespace
}  // namespace tarvok::test
