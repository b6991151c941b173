#include "store/project_store.h"

#include <gtest/gtest.h>

#include "store/new_project.h"
#include "store/recent_files.h"
#include "tests/desktop/memory_settings.h"
#include "tests/store/memory_files.h"

namespace tarvok::test {
namespace {

constexpr const char* kFile = "/p/hotel.tvk";

TEST(ProjectStore, SeesEverybodysChangesAndParsesOnce) {
  MemoryFiles files;
  ProjectStore store(files);
  EXPECT_EQ(store.GetIniValue(kFile, "a", "k"), "");
  files.Put(kFile, "[a]\nk=1\n");
  EXPECT_EQ(store.GetIniValue(kFile, "a", "k"), "1");
  const int reads = files.reads;
  EXPECT_EQ(store.GetIniValue(kFile, "a", "k"), "1");
  EXPECT_EQ(files.reads, reads);
  files.Put(kFile, "[a]\nk=2\n");
  EXPECT_EQ(store.GetIniValue(kFile, "a", "k"), "2");
  EXPECT_TRUE(store.SetIniValue(kFile, "a", "j", "3").ok());
  EXPECT_EQ(files.Bytes(kFile), "[a]\nk=2\nj=3\n");
  files.files.erase(kFile);
  EXPECT_EQ(store.GetIniValue(kFile, "a", "k"), "");
}

TEST(ProjectStore, DeletingInAMissingFileCreatesNothing) {
  MemoryFiles files;
  ProjectStore store(files);
  EXPECT_TRUE(store.DeleteIniKey(kFile, "a", "k").ok());
  EXPECT_TRUE(store.DeleteIniSection(kFile, "a").ok());
  EXPECT_TRUE(files.files.empty());
  EXPECT_TRUE(store.SetIniValue(kFile, "a", "k", "").ok());
  EXPECT_EQ(files.Bytes(kFile), "[a]\r\nk=\r\n");
}

TEST(ProjectStore, ASaveStoppedAtAnyCallLeavesTheOldOrTheNewProject) {
  const std::string before = "[a]\nk=1\n";
  const std::string after = "[a]\nk=2\nj=3\n";
  const auto save = [](ProjectStore& store) {
    return store.Update(kFile, [](IniEdit& edit) { edit.Set("a", "k", "2"), edit.Set("a", "j", "3"); });
  };
  for (const bool for_good : {false, true}) {
    int failures = 0;
    for (int call = 1; call <= 12; ++call) {
      MemoryFiles files;
      files.Put(kFile, before);
      files.fail_at = call;
      files.fail_for_good = for_good;
      ProjectStore store(files);
      const bool saved = save(store).ok();
      failures += saved ? 0 : 1;
      const std::string bytes = files.Bytes(kFile);
      EXPECT_TRUE(bytes == before || bytes == after) << call << ": " << bytes;
      EXPECT_EQ(saved, bytes == after) << call;

      // Whatever was left behind, the next save works.
      files.fail_at = 0;
      EXPECT_TRUE(save(store).ok()) << call;
      EXPECT_EQ(files.Bytes(kFile), after);
      EXPECT_EQ(files.files.size(), 1U);
    }
    EXPECT_GE(failures, 4);  // lock, read, write, rename
  }
}

TEST(ProjectStore, AFileThatCantBeReadIsNotReplaced) {
  MemoryFiles files;
  files.Put(kFile, "[a]\nk=1\n");
  files.fail_at = 2;  // the read behind the lock
  files.fail_kind = ErrorKind::kInputOutput;
  ProjectStore store(files);
  EXPECT_FALSE(store.SetIniValue(kFile, "b", "j", "1").ok());
  EXPECT_EQ(files.Bytes(kFile), "[a]\nk=1\n");
}

TEST(ProjectStore, WritesInPlaceWhereTheFolderTakesNoNewFile) {
  MemoryFiles files;
  files.Put(kFile, "[a]\nk=1\n");
  files.read_only_folder = true;
  ProjectStore store(files);
  EXPECT_TRUE(store.SetIniValue(kFile, "a", "k", "2").ok());
  EXPECT_EQ(files.Bytes(kFile), "[a]\nk=2\n");
  EXPECT_FALSE(store.SetIniValue("/p/other.tvk", "a", "k", "2").ok());
}

TEST(IsProject, TestsTheTagAlone) {
  EXPECT_TRUE(IsProject(IniText("[chk_tarvok]\nchk=' Tarvok '\n")));
  EXPECT_FALSE(IsProject(IniText("[Chk_Tarvok]\nChk=TARVOK2\n")));
  EXPECT_FALSE(IsProject(IniText("[SystemConfig]\nChk=TARVOK\n")));
}

TEST(NewDefault, CopiesTheSystemFileWithoutItsCountries) {
  MemoryFiles files;
  files.Put("/s/system.tvs",
            "[Chk_Tarvok]\r\nChk=TARVOK\r\n[Country]\r\nCnt=2\r\n001=A\r\n[001]\r\nCnt=0\r\n[002]\r\nCnt="
            "0\r\n[003]\r\n"
            "x=1\r\n[2]\r\ny=1\r\n");
  ProjectStore store(files);
  EXPECT_TRUE(NewDefault(store, "/s/system.tvs", kFile).ok());
  EXPECT_EQ(files.Bytes(kFile), "[Chk_Tarvok]\r\nChk=TARVOK\r\n[003]\r\nx=1\r\n[2]\r\ny=1\r\n");
}

TEST(NewDefault, WithoutASystemFileDeletesNothing) {
  MemoryFiles files;
  files.Put(kFile, "old");
  ProjectStore store(files);
  EXPECT_EQ(NewDefault(store, "/s/system.tvs", kFile).message(), kNoSystemFile);
  EXPECT_EQ(files.Bytes(kFile), "old");
  files.Put("/s/system.tvs", "[Chk_Tarvok]\r\n");
  files.fail_at = files.calls + 3;  // the write
  EXPECT_TRUE(NewDefault(store, "/s/system.tvs", kFile).message().starts_with(kNoSystemFile));
  EXPECT_EQ(files.Bytes(kFile), "old");
}

TEST(RecentFiles, KeepsTheLatestFirst) {
  MemorySettings settings;
  RecentFiles recent(settings);
  recent.LoadRecentFiles();
  EXPECT_TRUE(recent.ShowRecentFiles().empty());
  for (const char* path : {"/A", "/B", "/C", "/x/../A", "/A"}) recent.AddRecentFile(path);
  EXPECT_EQ(recent.ShowRecentFiles(), (std::vector<std::string>{"/A", "/C", "/B"}));
  for (const char* path : {"/D", "/E", "/a"}) recent.AddRecentFile(path);
  RecentFiles again(settings);
  again.LoadRecentFiles();
  EXPECT_EQ(again.ShowRecentFiles(), (std::vector<std::string>{"/a", "/E", "/D", "/A", "/C"}));
  EXPECT_EQ(settings.values["Recent Files/Recent5"], "/C");
}

}  // namespace
}  // namespace tarvok::test
