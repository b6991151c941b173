// The project is the old or the new one, whole, whatever happens to the process that saves it.

#include <cerrno>
#include <csignal>
#include <random>
#include <set>
#include <sys/wait.h>

#include "tests/end_to_end/project_folder.h"

namespace tarvok::test {
namespace {

class WholeProject : public ProjectFolder {
 protected:
  /** Makes the change with one stop in it, and judges what is left. The calls that counted; -1 where it can't be
   * watched. */
  int Stopped(const Change& change, const Stop& stop, const std::string& after) {
    Prepare(change.size);
    const auto ended = RunStopped([&] { return (this->*change.make)(); }, stop);
    if (!ended) return -1;
    const std::string bytes = Read(Path("p.tvk"));
    const std::string where = std::string(change.name) + ", " + Told(stop);
    EXPECT_TRUE(bytes == before_ || bytes == after) << where;
    if (ended->status >= 0) {
      EXPECT_EQ(ended->status == 0, bytes == after) << where << " ended " << ended->status;
    }
    // Whatever was left behind, the next save works and leaves nothing beside.
    EXPECT_EQ(Save(), 0) << where;
    EXPECT_FALSE(fs::exists(Path("p.tvk.tmp"))) << where;
    return ended->calls;
  }

  /** Stops the change at its first call, at its second, and so on. How many there are; -1 as above. */
  int StoppedAtEach(const Change& change, Stop stop) {
    const std::string after = After(change);
    for (stop.call = 1; !HasFailure(); ++stop.call) {
      const int calls = Stopped(change, stop, after);
      if (calls < stop.call) return calls < 0 ? -1 : stop.call - 1;
    }
    return stop.call;
  }

  /** The bytes behind an undisturbed change. */
  std::string After(const Change& change) {
    Prepare(change.size);
    const auto ended = RunStopped([&] { return (this->*change.make)(); }, {});
    EXPECT_TRUE(!ended || ended->status == 0) << change.name;
    return Read(Path("p.tvk"));
  }
};

TEST_F(WholeProject, KilledAtEverySystemCall) {
  for (const Change& change : kChanges) {
    for (const Fate fate : {Fate::kKilledBefore, Fate::kKilledHalfway, Fate::kKilledBehind}) {
      const int calls = StoppedAtEach(change, {.fate = fate, .calls = change.killed_at});
      if (calls < 0) GTEST_SKIP() << "processes can't be watched here";
      EXPECT_GE(calls, 6) << change.name;
    }
  }
}

TEST_F(WholeProject, EveryCallFailing) {
  for (const Change& change : kChanges) {
    for (const Fate fate : {Fate::kFails, Fate::kFailsForGood}) {
      for (const bool no_new_files : {false, true}) {
        // Written in place because the folder takes no new file, old bytes can't be put back on a disk that is gone.
        if (no_new_files && fate == Fate::kFailsForGood) continue;
        for (const int error : {ENOSPC, EACCES, EIO}) {
          const int calls = StoppedAtEach(
              change, {.fate = fate, .error = error, .calls = change.failing, .no_new_files = no_new_files});
          if (calls < 0) GTEST_SKIP() << "processes can't be watched here";
          EXPECT_GE(calls, 4) << change.name;
        }
      }
    }
  }
}

TEST_F(WholeProject, KilledAtRandomMoments) {
  const char* asked = std::getenv("TARVOK_KILLS");
  const int kills = asked == nullptr ? 100 : std::atoi(asked);
  std::mt19937 random(1);
  Prepare(kLarge);
  std::set<std::string> whole;
  for (const char* mark : {"before", "a", "b"}) {
    const IniText text(before_);
    IniEdit marked(text);
    Mark(marked, mark);
    whole.insert(marked.Bytes());
  }
  for (int kill = 0; kill < kills; ++kill) {
    const pid_t pid = ::fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
      PosixFileSystem files;
      ProjectStore store(files);
      for (int i = 0;; ++i) {
        const bool saved =
            store.Update(Path("p.tvk"), [&](IniEdit& edit) { Mark(edit, i % 2 == 0 ? "a" : "b"); }).ok();
        if (!saved) ::_exit(1);
      }
    }
    ::usleep(static_cast<useconds_t>(random() % 30'000));
    ::kill(pid, SIGKILL);
    int status = 0;
    ::waitpid(pid, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << kill;  // no save failed
    ASSERT_TRUE(whole.contains(Read(Path("p.tvk")))) << kill;
  }
}

TEST_F(WholeProject, WritersAtOnceLoseNoKey) {
  constexpr int kWriters = 4;
  constexpr int kKeys = 25;
  Write(Path("p.tvk"), "");
  for (int writer = 0; writer < kWriters; ++writer) {
    if (::fork() != 0) continue;
    PosixFileSystem files;
    ProjectStore store(files);
    for (int key = 0; key < kKeys; ++key) {
      const std::string name = std::to_string(writer) + "." + std::to_string(key);
      while (!store.SetIniValue(Path("p.tvk"), "a", name, "1").ok()) {
      }
    }
    ::_exit(0);
  }
  while (::wait(nullptr) > 0) {
  }
  EXPECT_EQ(IniText(Read(Path("p.tvk"))).Keys("a").size(), static_cast<std::size_t>(kWriters * kKeys));
}

}  // namespace
}  // namespace tarvok::test
