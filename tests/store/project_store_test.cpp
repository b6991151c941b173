#include "store/project_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "store/history.h"
#include "store/new_project.h"
#include "store/recent_files.h"
#include "tests/desktop/memory_settings.h"
#include "tests/floors.h"
#include "tests/matchers.h"
#include "tests/store/memory_files.h"

namespace tarvok::test {
namespace {

constexpr const char* kHotel = "/p/hotel.tvk";

TEST(ProjectStore, SeesChangesByOthersAndParsesOnce) {
  MemoryFiles files;
  ProjectStore store(files);
  EXPECT_EQ(store.GetIniValue(kHotel, "a", "k"), "");
  files.Put(kHotel, "[a]\nk=1\n");
  EXPECT_EQ(store.GetIniValue(kHotel, "a", "k"), "1");
  const int reads = files.reads;
  EXPECT_EQ(store.GetIniValue(kHotel, "a", "k"), "1");
  EXPECT_EQ(files.reads, reads);
  const auto text = store.Snapshot(kHotel);
  ++files.files[kHotel].modified;
  EXPECT_EQ(store.Snapshot(kHotel), text) << "a file that was only touched is still the same text";
  EXPECT_EQ(files.reads, reads + 1);
  files.Put(kHotel, "[a]\nk=2\n");
  EXPECT_EQ(store.GetIniValue(kHotel, "a", "k"), "2");
  EXPECT_TRUE(store.SetIniValue(kHotel, "a", "j", "3").ok());
  EXPECT_EQ(files.Bytes(kHotel), "[a]\nk=2\nj=3\n");
  files.files.erase(kHotel);
  EXPECT_EQ(store.GetIniValue(kHotel, "a", "k"), "");
}

TEST(ProjectStore, DeletingInAMissingFileCreatesNothing) {
  MemoryFiles files;
  ProjectStore store(files);
  EXPECT_TRUE(store.DeleteIniKey(kHotel, "a", "k").ok());
  EXPECT_TRUE(store.DeleteIniSection(kHotel, "a").ok());
  EXPECT_TRUE(files.files.empty());
  EXPECT_TRUE(store.SetIniValue(kHotel, "a", "k", "").ok());
  EXPECT_EQ(files.Bytes(kHotel), "[a]\r\nk=\r\n");
}

TEST(ProjectStore, InterruptedSaveLeavesOldOrNewProject) {
  const std::string before = "[a]\nk=1\n";
  const std::string after = "[a]\nk=2\nj=3\n";
  const auto save = [](ProjectStore& store) {
    return store.Update(kHotel, [](IniEdit& edit) { edit.Set("a", "k", "2"), edit.Set("a", "j", "3"); });
  };
  for (const bool for_good : {false, true}) {
    int failures = 0;
    for (int call = 1; call <= 12; ++call) {
      MemoryFiles files;
      files.Put(kHotel, before);
      files.fail_at = call;
      files.fail_for_good = for_good;
      ProjectStore store(files);
      const bool saved = save(store).ok();
      failures += saved ? 0 : 1;
      const std::string bytes = files.Bytes(kHotel);
      EXPECT_TRUE(bytes == before || bytes == after) << call << ": " << bytes;
      EXPECT_EQ(saved, bytes == after) << call;

      // Whatever was left behind, the next save succeeds.
      files.fail_at = 0;
      EXPECT_TRUE(save(store).ok()) << call;
      EXPECT_EQ(files.Bytes(kHotel), after);
      EXPECT_EQ(files.files.size(), 1U);
    }
    EXPECT_GE(failures, 4);  // lock, read, write, rename
  }
}

TEST(ProjectStore, WritesInPlaceIfFolderAcceptsNoNewFile) {
  MemoryFiles files;
  files.Put(kHotel, "[a]\nk=1\n");
  files.read_only_folder = true;
  ProjectStore store(files);
  EXPECT_TRUE(store.SetIniValue(kHotel, "a", "k", "2").ok());
  EXPECT_EQ(files.Bytes(kHotel), "[a]\nk=2\n");
  EXPECT_FALSE(store.SetIniValue("/p/other.tvk", "a", "k", "2").ok());
}

TEST(NewDefault, KeepsOldFileUnlessCopyIsComplete) {
  const std::string good = "[Chk_Tarvok]\r\nChk=Tarvok\r\n";
  const std::tuple<const char*, std::string, int> cases[] = {
      {"write fails", good, 3},
      {"cannot be read", good, 1},
      {"empty", "", 0},
      {"no tag", "[Chk_Tarvok]\r\n", 0},
      {"foreign",
       "\x7f"
       "ELF\x02\x01",
       0},
  };
  for (const auto& [name, system, fail_at] : cases) {
    MemoryFiles files;
    files.Put(kHotel, "old");
    files.Put("/s/system.tvs", system);
    ProjectStore store(files);
    files.fail_at = fail_at;
    const Status made = NewDefault(store, "/s/system.tvs", kHotel);
    EXPECT_TRUE(made.message().starts_with(std::string(kNoSystemFile) + "\r\n")) << name << made.message();
    EXPECT_EQ(files.Bytes(kHotel), "old") << name;
  }
}

TEST(RecentFiles, ListsLatestFirst) {
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

constexpr std::int64_t kNoon_s = 1'700'000'000;
const std::string kProject = "/home/me/hotel.tvk";

class HistoryTest : public testing::Test {
 protected:
  Status Keep(const std::string& bytes, std::string_view reason, std::int64_t time_s = kNoon_s) {
    files.Put(kProject, bytes);
    return history.Keep(kProject, reason, time_s);
  }
  std::vector<std::string> Kept() {
    std::vector<std::string> all;
    const Result<std::vector<KeptVersion>> versions = history.Versions(kProject);
    for (const KeptVersion& version : versions.value()) {
      const Result<std::string> bytes = history.Read(kProject, version);
      all.push_back(version.reason + "@" + std::to_string(version.time_s - kNoon_s) + ":" +
                    (bytes.ok() ? bytes.value() : bytes.status().message()));
    }
    return all;
  }

  MemoryFiles files;
  bool can_make = true;
  History history{files, "/data/history", [this](const std::string&) { return can_make; }};
};

TEST_F(HistoryTest, ListsNewestFirstAndStoresEqualContentsOnce) {
  EXPECT_TRUE(history.Keep(kProject, kBeforeLoad, kNoon_s).ok());  // no project, so nothing to keep
  EXPECT_THAT(Kept(), ElementsAre());
  ASSERT_TRUE(Keep("a", "Before saving Setup Port", kNoon_s).ok());
  ASSERT_TRUE(Keep("b", "100 % ../\xE4", kNoon_s - 90'000).ok());  // the clock was set back meanwhile
  EXPECT_THAT(Kept(), ElementsAre("100 % ../\xE4@-90000:b", "Before saving Setup Port@0:a"));
  const std::string folder = "/data/history/" + ProjectIdentity(files, kProject);
  EXPECT_THAT(files.List(folder).value(), testing::Contains(testing::EndsWith(" 100 %25 ..%2F%E4.tvk")));
  ASSERT_TRUE(Keep("a", kBeforeLoad, kNoon_s + 60).ok());
  EXPECT_THAT(Kept(), ElementsAre("Before a load@60:a", "100 % ../\xE4@-90000:b"));
  for (int i = 0; i < 60; ++i) ASSERT_TRUE(Keep("n" + std::to_string(i), "Before").ok());
  EXPECT_EQ(Kept().size(), History::kMostVersions);
  EXPECT_EQ(Kept().front(), "Before@0:n59");
  EXPECT_EQ(Kept().back(), "Before@0:n10");
  files.Put("/home/me/other/hotel.tvk", "x");
  ASSERT_TRUE(history.Keep("/home/me/other/hotel.tvk", "Before", kNoon_s).ok());
  EXPECT_EQ(Kept().size(), History::kMostVersions);  // a project of the same name elsewhere has its own
}

TEST_F(HistoryTest, BringingBackKeepsPresentStateFirst) {
  ASSERT_TRUE(Keep("oldest", "Before").ok());
  const KeptVersion oldest = history.Versions(kProject).value().front();
  for (int i = 1; i < 50; ++i) ASSERT_TRUE(Keep("n" + std::to_string(i), "Before").ok());
  files.Put(kProject, "now");
  ASSERT_TRUE(
      history.BringBack(kProject, oldest, kNoon_s).ok());  // keeping the present state drops this version
  EXPECT_EQ(files.Bytes(kProject), "oldest");
  EXPECT_EQ(Kept().front(), std::string(kBeforeBringBack) + "@0:now");
}

TEST_F(HistoryTest, DamageCostsAtMostOneVersion) {
  ASSERT_TRUE(Keep("a", "Before").ok());
  ASSERT_TRUE(Keep("b", "Before").ok());
  const KeptVersion b = history.Versions(kProject).value().front();
  const std::string folder = "/data/history/" + ProjectIdentity(files, kProject) + "/";
  files.Put(folder + b.file, "");
  for (const char* name : {"notes.txt", ".tvk", " .tvk", "1 2 3.tvk", "000009 20261399T000000Z 0 x.tvk",
                           "000007 20260101T000000Z 0123456789abcdef x.tvk.tmp"}) {
    files.Put(folder + name, "rubbish");
  }
  files.Put(kProject, "now");
  EXPECT_EQ(history.BringBack(kProject, b, kNoon_s).kind(), ErrorKind::kBadData);
  EXPECT_EQ(files.Bytes(kProject), "now");
  ASSERT_TRUE(Keep("b", "Before").ok());  // a damaged version does not count as stored
  EXPECT_THAT(Kept(), ElementsAre("Before@0:b", testing::HasSubstr("damaged"), "Before@0:a"));
}

TEST_F(HistoryTest, FailuresAreReportedAndLeaveProjectIntact) {
  can_make = false;
  EXPECT_FALSE(Keep("a", "Before").ok());
  can_make = true;
  ASSERT_TRUE(Keep("a", "Before").ok());
  const KeptVersion a = history.Versions(kProject).value().front();
  int failures = 0;
  for (int call = 1; call < 20; ++call) {
    for (const bool for_good : {false, true}) {
      files.Put(kProject, "now" + std::to_string(call) + (for_good ? "d" : "e"));
      const std::string now = files.Bytes(kProject);
      files.calls = 0;
      files.fail_at = call;
      files.fail_for_good = for_good;
      const bool done = history.BringBack(kProject, a, kNoon_s).ok();
      files.fail_at = 0;
      if (!done) ++failures;
      const std::string after = files.Bytes(kProject);
      EXPECT_TRUE(after == "a" || (!done && after == now)) << call << after;
      const std::vector<std::string> kept = Kept();
      const auto holds_now = testing::Contains(testing::EndsWith(":" + now));
      EXPECT_TRUE(after != "a" || testing::Matches(holds_now)(kept)) << call;
    }
  }
  EXPECT_GE(failures, 10);
}

}  // namespace
}  // namespace tarvok::test
