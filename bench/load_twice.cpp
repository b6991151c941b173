// Loads the configuration twice over one connection, as a user does who presses Load again, then the mini bar
// list, and prints the milliseconds of each.
//
//   load_twice PROJECT
//
// The project says where the exchange is; its password is 1234.

#include <chrono>
#include <cstdio>
#include <filesystem>

#include <QCoreApplication>

#include "io/qt_event_server.h"
#include "io/qt_port_maker.h"
#include "io/qt_settings.h"
#include "platform/posix_file_system.h"
#include "sessions/load_config.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/password_form.h"
#include "tests/floors.h"

namespace tarvok::bench {
namespace {

/** Shows nothing, answers Yes, and knows the password. */
class SilentView : public SessionView {
 public:
  void Log(std::string_view) override {}
  void Progress(int, int) override {}
  void Elapsed(int) override {}
  void Box(BoxKind, std::string_view) override {}
  bool Ask(std::string_view) override { return true; }
  bool AskWithCompare(std::string_view, bool&) override { return true; }
  std::optional<std::string> AskSaveName() override { return std::nullopt; }
  void ShowPassword(PasswordForm& form) override {
    form.password = "1234";
    form.Ok();
    if (form.open()) form.Cancel();
  }
  void SetBusy(bool) override {}
};

int Run(const std::string& project) {
  PosixFileSystem files;
  ProjectStore store(files);
  QtEventServer events;
  QtSettings settings;
  QtPortMaker ports(settings);
  SilentView view;
  SendLog log{SendLog::Sink()};
  const auto timed = [&](const char* name, TransferForm form, int times, bool (*session)(Transfer&)) {
    Transfer transfer({.events = events,
                       .ports = ports,
                       .store = store,
                       .view = view,
                       .log = log,
                       .project_file = project,
                       .load_target = project + ".loaded",
                       .temp_folder = std::filesystem::temp_directory_path()},
                      form);
    for (int i = 0; i < times; ++i) {
      const auto start = std::chrono::steady_clock::now();
      if (!session(transfer)) return false;
      const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
      std::printf("%s %.1f\n", name, took.count());
    }
    transfer.Unload();
    return true;
  };
  return timed("load", TransferForm::kConnect, 2, LoadConfiguration) &&
                 timed("minibar", TransferForm::kMiniBar, 1, LoadMiniBarList)
             ? 0
             : 1;
}

}  // namespace
}  // namespace tarvok::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return argc == 2 ? tarvok::bench::Run(argv[1]) : 2;
}
