// A version of the history is kept whole or not at all, and the versions before it stay.

#include <cerrno>

#include "store/history.h"
#include "tests/end_to_end/project_folder.h"

namespace tarvok::test {
namespace {

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
  /** A project with one version kept, that was changed since. */
  void PrepareKept() {
    Prepare(kSmall);
    Write(Path("p.tvk"), kOlder);
    ASSERT_TRUE(Keep().ok());
    Write(Path("p.tvk"), before_);
  }
  /** Keeps the changed project with one stop in it, and judges what is left. The calls that counted; -1 where it can't
   * be watched. */
  int Stopped(const Stop& stop) {
    PrepareKept();
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
      EXPECT_EQ(versions.value().size(), 2U) << where << ": said that it was kept";
    }
    // The next one is kept, and takes away what was left half written.
    EXPECT_TRUE(Keep().ok()) << where;
    for (const auto& entry : fs::recursive_directory_iterator(Path("history"))) {
      EXPECT_FALSE(entry.path().string().ends_with(".tmp")) << where;
    }
    return ended->calls;
  }
  void StoppedAtEach(Stop stop) {
    int calls = 0;
    for (stop.call = 1; !HasFailure(); ++stop.call) {
      calls = Stopped(stop);
      if (calls < stop.call) break;
    }
    if (calls < 0) GTEST_SKIP() << "processes can't be watched here";
    EXPECT_GE(calls, 4);
  }
};

TEST_F(KeptVersions, AreWholeWhereverTheirWriteIsKilled) {
  for (const Fate fate : {Fate::kKilledBefore, Fate::kKilledHalfway, Fate::kKilledBehind})
    StoppedAtEach({.fate = fate, .calls = Calls::kThatChange});
}

TEST_F(KeptVersions, AreWholeWhicheverCallFails) {
  for (const Fate fate : {Fate::kFails, Fate::kFailsForGood}) {
    for (const int error : {ENOSPC, EACCES, EIO}) {
      StoppedAtEach({.fate = fate, .error = error, .calls = Calls::kOfFiles});
    }
  }
}

}  // namespace
}  // namespace tarvok::test
