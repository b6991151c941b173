// A project must stay whole whatever happens to the process that saves it, to its system calls, or to the
// disk.

#include <cerrno>
#include <csignal>
#include <functional>
#include <iterator>
#include <optional>
#include <random>
#include <sched.h>
#include <set>
#include <sys/mount.h>
#include <sys/wait.h>
#include <vector>

#include "store/history.h"
#include "tests/end_to_end/project_folder.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

class WholeProject : public ProjectFolder {
 protected:
  /**
   * Makes the change, stopped once, and checks what is left. Returns the number of calls that counted, or -1
   * if it cannot be traced.
   */
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
    // Whatever was left behind, the next save succeeds and leaves no other file.
    EXPECT_EQ(Save(), 0) << where;
    EXPECT_FALSE(fs::exists(Path("p.tvk.tmp"))) << where;
    return ended->calls;
  }

  int StoppedAtEachCallOf(const Change& change, const Stop& stop) {
    const std::string after = After(change);
    return StoppedAtEach(stop, [&](const Stop& at) { return Stopped(change, at, after); });
  }

  /** The bytes after an undisturbed change. */
  std::string After(const Change& change) {
    Prepare(change.size);
    const auto ended = RunStopped([&] { return (this->*change.make)(); }, {});
    EXPECT_TRUE(!ended || ended->status == 0) << change.name;
    return Read(Path("p.tvk"));
  }
};

/** Each way to change a project is a test of its own, so that they run side by side. */
class EveryChange : public WholeProject, public testing::WithParamInterface<std::size_t> {
 protected:
  const Change& change() const { return kChanges[GetParam()]; }
};
INSTANTIATE_TEST_SUITE_P(WholeProject, EveryChange,
                         testing::Range<std::size_t>(0, EveryChange::kChangeCount));

TEST_P(EveryChange, SurvivesKillAtEverySystemCall) {
  for (const Fate fate : {Fate::kKilledBefore, Fate::kKilledHalfway, Fate::kKilledAfter}) {
    const int calls = StoppedAtEachCallOf(change(), {.fate = fate, .calls = change().killed_at});
    if (calls < 0) GTEST_SKIP() << "processes cannot be traced here";
    EXPECT_GE(calls, 6) << change().name;
  }
}

TEST_P(EveryChange, SurvivesFailureOfEveryCall) {
  for (const Fate fate : {Fate::kFails, Fate::kFailsForGood}) {
    for (const bool no_new_files : {false, true}) {
      // If the folder accepts no new file, the project is written in place; then the old bytes cannot be restored on a
      // failed disk.
      if (no_new_files && fate == Fate::kFailsForGood) continue;
      for (const int error : {ENOSPC, EACCES, EIO}) {
        const int calls = StoppedAtEachCallOf(
            change(),
            {.fate = fate, .error = error, .calls = change().failing, .no_new_files = no_new_files});
        if (calls < 0) GTEST_SKIP() << "processes cannot be traced here";
        EXPECT_GE(calls, 4) << change().name;
      }
    }
  }
}

TEST_F(WholeProject, SurvivesKillAtRandomMoments) {
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
      PosixStore store;
      for (int i = 0;; ++i) {
        const char* mark = i % 2 == 0 ? "a" : "b";
        if (!store.Update(Path("p.tvk"), [&](IniEdit& edit) { Mark(edit, mark); }).ok()) ::_exit(1);
      }
    }
    ::usleep(static_cast<useconds_t>(random() % 30'000));
    ::kill(pid, SIGKILL);
    int status = 0;
    ::waitpid(pid, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << kill;  // no save has failed
    ASSERT_TRUE(whole.contains(Read(Path("p.tvk")))) << kill;
  }
}

TEST_F(WholeProject, ConcurrentWritersLoseNoKey) {
  constexpr int kWriters = 4;
  constexpr int kKeys = 25;
  Write(Path("p.tvk"), "");
  for (int writer = 0; writer < kWriters; ++writer) {
    if (::fork() != 0) continue;
    PosixStore store;
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

class KeptVersions : public ProjectFolder {
 protected:
  static constexpr const char* kOlder = "an older state";

  History Of(FileSystem& files) const {
    return {files, Path("history"), [](const std::string& folder) {
              std::error_code error;
              fs::create_directories(folder, error);
              return !error;
            }};
  }
  Status Keep() const {
    PosixFileSystem files;
    return Of(files).Keep(Path("p.tvk"), kBeforeLoad, 0);
  }
  /**
   * Keeps a project that was changed since its only version, stopped once, and checks what is left. Returns
   * the number of calls that counted, or -1 if it cannot be traced.
   */
  int Stopped(const Stop& stop) {
    Prepare(kSmall);
    Write(Path("p.tvk"), kOlder);
    EXPECT_TRUE(Keep().ok());
    Write(Path("p.tvk"), before_);
    const auto ended = RunStopped([this] { return Keep().ok() ? 0 : 1; }, stop);
    if (!ended) return -1;
    const std::string where = Told(stop);
    EXPECT_EQ(Read(Path("p.tvk")), before_) << where;
    PosixFileSystem files;
    History history = Of(files);
    const auto versions = history.Versions(Path("p.tvk"));
    EXPECT_TRUE(versions.ok() && !versions.value().empty()) << where;
    if (HasFailure()) return ended->calls;
    for (const KeptVersion& version : versions.value()) {
      const bool newer = version.number > 1;
      EXPECT_EQ(history.Read(Path("p.tvk"), version).value(), newer ? before_ : kOlder) << where;
    }
    if (ended->status == 0) {
      EXPECT_EQ(versions.value().size(), 2U) << where << ": reported as kept";
    }
    // The next one is kept and removes what was left half written.
    EXPECT_TRUE(Keep().ok()) << where;
    for (const auto& entry : fs::recursive_directory_iterator(Path("history")))
      EXPECT_FALSE(entry.path().string().ends_with(".tmp")) << where;
    return ended->calls;
  }
  void ExpectWholeAtEach(const Stop& stop) {
    const int calls = StoppedAtEach(stop, [this](const Stop& at) { return Stopped(at); });
    if (calls < 0) GTEST_SKIP() << "processes cannot be traced here";
    EXPECT_GE(calls, 4);
  }
};

TEST_F(KeptVersions, SurviveKillDuringTheirWrite) {
  for (const Fate fate : {Fate::kKilledBefore, Fate::kKilledHalfway, Fate::kKilledAfter})
    ExpectWholeAtEach({.fate = fate, .calls = Calls::kThatChange});
}

TEST_F(KeptVersions, SurviveFailureOfEveryCall) {
  for (const Fate fate : {Fate::kFails, Fate::kFailsForGood}) {
    for (const int error : {ENOSPC, EACCES, EIO})
      ExpectWholeAtEach({.fate = fate, .error = error, .calls = Calls::kOfFiles});
  }
}

class FullDisk : public ProjectFolder {
 protected:
  /**
   * Runs `work` in a process of its own with a small disk mounted on the folder. Returns its result, or
   * nullopt if no disk can be mounted.
   */
  std::optional<int> OnSmallDisk(const std::function<int()>& work) const {
    constexpr int kNotAllowed = 77;
    const pid_t pid = ::fork();
    if (pid == 0) {
      const bool apart = ::unshare(CLONE_NEWNS) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
      if (!apart || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
          ::mount("tmpfs", folder_.path().c_str(), "tmpfs", 0, "size=64k") != 0) {
        ::_exit(kNotAllowed);
      }
      ::_exit(work());
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) == kNotAllowed) return std::nullopt;
    return WEXITSTATUS(status);
  }

  int Run(const std::string& arguments) const {
    const int status = std::system((TARVOK_BIN_DIR "/tarvokctl " + arguments + " 2>/dev/null").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : 98;
  }

  /** Fills the disk to the last page. */
  void Fill() const {
    const std::string page(4096, 'x');
    const int fd = ::open(Path("filler").c_str(), O_WRONLY | O_CREAT, 0600);
    while (::write(fd, page.data(), page.size()) > 0) {
    }
    ::close(fd);
  }
  auto Entries() const {
    return std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator());
  }
};

TEST_F(FullDisk, WritersReportFailureAndKeepOldFile) {
  constexpr std::size_t kProject = 14'000;
  const std::string images = fs::temp_directory_path() / ("tarvok-images-" + std::to_string(::getpid()));
  const std::string hotel = TARVOK_SOURCE_DIR "/examples/hotel.tvk";
  ASSERT_EQ(Run("encode " + hotel + " --all --version 110 -o " + images), 0);
  const std::pair<const char*, std::function<bool()>> paths[] = {
      {"a save", [&] { return Save() != 0; }},
      {"a new project", [&] { return New() != 0; }},
      {"the replacement by a load", [&] { return ReplaceByLoaded() != 0; }},
      {"a save in place",
       [&] {
         return !PosixFileSystem().Overwrite(Path("p.tvk"), before_ + std::string(kProject, 'y')).ok();
       }},
      {"a new file",
       [&] {
         const Status full = PosixFileSystem().WriteNew(Path("n.tvk"), before_, {}, Flush::kNow);
         return full.message() == Path("n.tvk") + ": No space left on device";
       }},
      {"the command line's set", [&] { return Run("set " + Path("p.tvk") + " End Mark new") == 1; }},
      {"the command line's new", [&] { return Run("new --force " + Path("p.tvk")) == 1; }},
      {"the command line's decode",
       [&] { return Run("decode " + images + " --all --version 110 --into " + Path("p.tvk")) == 1; }},
      {"the command line's encode",
       [&] { return Run("encode " + hotel + " --section 4 --version 110 -o " + Path("p.tvk")) == 1; }}};
  for (const auto& [name, refused] : paths) {
    const auto failed = OnSmallDisk([&] {
      Prepare(kProject);
      Fill();
      const auto entries = Entries();
      if (!refused()) return 1;
      if (Read(Path("p.tvk")) != before_) return 2;
      return Entries() == entries ? 0 : 3;
    });
    if (!failed) GTEST_SKIP() << "no disk can be mounted here";
    EXPECT_EQ(*failed, 0) << name << " (1: reported success, 2: changed the file, 3: left another file)";
  }
  fs::remove_all(images);
}

}  // namespace
}  // namespace tarvok::test
