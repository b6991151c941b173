// Every path that writes, on a disk of 64 KB with no room for what it writes: it refuses, and the old file stays.

#include <functional>
#include <iterator>
#include <optional>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <vector>

#include "tests/end_to_end/project_folder.h"

namespace tarvok::test {
namespace {

class FullDisk : public ProjectFolder {
 protected:
  /** A process of its own with the small disk mounted on the folder; what `work` returns, or nothing where the system
   * mounts none. */
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

  int Run(const std::vector<std::string>& arguments) const {
    std::string line = TARVOK_BIN_DIR "/tarvokctl";
    for (const std::string& argument : arguments) line += " '" + argument + "'";
    const int status = std::system((line + " 2>/dev/null").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : 98;
  }

  /** Fills the disk to its last page. */
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

TEST_F(FullDisk, EveryPathThatWritesRefusesAndKeepsTheOldFile) {
  constexpr std::size_t kProject = 14'000;
  const std::string images = fs::temp_directory_path() / ("tarvok-images-" + std::to_string(::getpid()));
  const std::string hotel = TARVOK_SOURCE_DIR "/examples/hotel.tvk";
  ASSERT_EQ(Run({"encode", hotel, "--all", "--version", "110", "-o", images}), 0);
  const std::pair<const char*, std::function<bool()>> paths[] = {
      {"a save", [&] { return Save() != 0; }},
      {"a new project", [&] { return New() != 0; }},
      {"a load's replacement", [&] { return ReplaceByLoaded() != 0; }},
      {"a save in place",
       [&] {
         PosixFileSystem files;
         return !files.Overwrite(Path("p.tvk"), before_ + std::string(kProject, 'y')).ok();
       }},
      {"the command line's set",
       [&] {
         return Run({"set", Path("p.tvk"), "End", "Mark", "new"}) == 1;
       }},
      {"its new",
       [&] {
         return Run({"new", "--force", Path("p.tvk")}) == 1;
       }},
      {"its decoding",
       [&] {
         return Run({"decode", images, "--all", "--version", "110", "--into", Path("p.tvk")}) == 1;
       }},
      {"its encoding",
       [&] {
         return Run({"encode", hotel, "--section", "4", "--version", "110", "-o", Path("p.tvk")}) == 1;
       }},
  };
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
    EXPECT_EQ(*failed, 0) << name
                          << " (1: said that it wrote, 2: changed the file, 3: left something beside)";
  }
  fs::remove_all(images);
}

}  // namespace
}  // namespace tarvok::test
