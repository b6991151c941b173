#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <string>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/posix_file_system.h"
#include "sessions/store_loaded.h"
#include "store/new_project.h"
#include "tests/end_to_end/stopped_process.h"
#include "tests/floors.h"
#include "tests/simulation/session_bench.h"
#include "tests/temp_folder.h"

namespace tarvok::test {

namespace fs = std::filesystem;

/** A project of about `size` bytes with `mark` at both ends. */
inline std::string ProjectOf(std::size_t size, const std::string& mark) {
  std::string text = "[Chk_Tarvok]\r\nChk=tarvok\r\nMark=" + mark + "\r\n[Name]\r\n";
  for (int row = 0; text.size() < size; ++row) text += std::to_string(row) + "=A guest room of the hotel\r\n";
  return text + "[End]\r\nMark=" + mark + "\r\n";
}

inline void Mark(IniEdit& edit, const std::string& mark) {
  edit.Set("Chk_Tarvok", "Mark", mark);
  edit.Set("End", "Mark", mark);
}

/** The port maker of a session that opens no port. */
class NoPorts : public PortMaker {
  std::unique_ptr<Port> OpenSerial(int, const LineSettings&) override { return nullptr; }
  std::unique_ptr<Port> Connect(const ConnectionSettings&) override { return nullptr; }
};

/** A project store on the disk, created separately in each process. */
struct PosixStore : private PosixFileSystem, public ProjectStore {
  PosixStore() : ProjectStore(static_cast<PosixFileSystem&>(*this)) {}
};

/** A folder with a project in it, and every operation that changes a project's bytes. */
class ProjectFolder : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_ / name; }

  int Save() const {
    PosixStore store;
    return store.Update(Path("p.tvk"), [](IniEdit& edit) { Mark(edit, "new"); }).ok() ? 0 : 1;
  }
  int New() const {
    PosixStore store;
    return NewDefault(store, Path("system.tvs"), Path("p.tvk")).ok() ? 0 : 1;
  }
  int ReplaceByLoaded() const {
    PosixStore store;
    VirtualEvents events;
    RecordingView view;
    NoPorts ports;
    SendLog log;
    Transfer transfer({.events = events,
                       .ports = ports,
                       .store = store,
                       .view = view,
                       .log = log,
                       .project_file = Path("settings.tvk"),
                       .load_target = Path("p.tvk"),
                       .system_file = Path("system.tvs"),
                       .temp_folder = folder_.path().string()},
                      TransferForm::kConnect);
    if (!BeginTemporary(transfer)) return 1;
    if (std::rename(Path("loaded.tvk").c_str(), transfer.temporary->path().c_str()) != 0) return 1;
    return StoreLoaded(transfer) && view.boxes.empty() ? 0 : 1;
  }
  int SetByCommand() const {
    const std::string program = TARVOK_BIN_DIR "/tarvokctl";
    const int quiet = ::open("/dev/null", O_WRONLY);
    ::dup2(quiet, STDERR_FILENO);
    ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1);  // the leak check cannot run in a traced process
    ::execl(program.c_str(), program.c_str(), "set", Path("p.tvk").c_str(), "End", "Mark", "new", nullptr);
    return 99;
  }

  /**
   * Every operation that changes a project's bytes, with a size, and the calls at which it is worth stopping.
   */
  struct Change {
    const char* name;
    int (ProjectFolder::*make)() const;
    std::size_t size;
    Calls killed_at;
    Calls failing;
  };
  static constexpr std::size_t kSmall = 1'000;
  static constexpr std::size_t kLarge = 198'000;
  static constexpr Change kChanges[] = {
      {"a save", &ProjectFolder::Save, kSmall, Calls::kAll, Calls::kOfFiles},
      {"a large save", &ProjectFolder::Save, kLarge, Calls::kOfFiles, Calls::kThatChange},
      {"a new project", &ProjectFolder::New, kSmall, Calls::kThatChange, Calls::kOfFiles},
      {"a large new project", &ProjectFolder::New, kLarge, Calls::kThatChange, Calls::kThatChange},
      {"the replacement by a load", &ProjectFolder::ReplaceByLoaded, kLarge, Calls::kOfFiles,
       Calls::kThatChange},
      {"the command line's set", &ProjectFolder::SetByCommand, kLarge, Calls::kThatChange,
       Calls::kThatChange},
  };

 public:
  static constexpr std::size_t kChangeCount = std::size(kChanges);

 protected:
  /**
   * Stops at the first call, at the second, and so on. `stopped` makes one such run and returns the number of
   * calls that counted, or -1 if processes cannot be traced. Returns the last number.
   */
  template <typename Stopped>
  int StoppedAtEach(Stop stop, Stopped&& stopped) {
    for (stop.call = 1; !HasFailure(); ++stop.call) {
      const int calls = stopped(stop);
      if (calls < stop.call) return calls;
    }
    return stop.call;
  }

  void Prepare(std::size_t size) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_.path())) fs::remove_all(entry);
    before_ = ProjectOf(size, "before");
    Write(Path("p.tvk"), before_);
    Write(Path("system.tvs"), ProjectOf(size, "system"));
    Write(Path("loaded.tvk"), ProjectOf(size, "loaded"));
    Write(Path("settings.tvk"), "[Chk_Tarvok]\r\nBPS=9600\r\n");
  }

  TempFolder folder_;
  std::string before_;
};

}  // namespace tarvok::test
