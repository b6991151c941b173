#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>

#include "desktop/transfer/transfer_kind.h"
#include "desktop/window/main_window.h"
#include "desktop/window/project_keeper.h"
#include "exchange/practice_exchange.h"
#include "io/qt_event_server.h"
#include "io/qt_port_maker.h"
#include "io/tcp_listener.h"
#include "platform/posix_file_system.h"
#include "tests/desktop/memory_settings.h"
#include "tests/floors.h"
#include "tests/temp_folder.h"

namespace tarvok::test {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/** Qt's loop with a clock that runs faster, so that waits of seconds are over at once. */
class FastEvents : public QtEventServer {
 public:
  static constexpr int kTimes = 40;

  std::int64_t Tick_ms() override { return QtEventServer::Tick_ms() * kTimes; }
  TimerId StartTimer(int interval_ms, std::function<void()> handler) override {
    return QtEventServer::StartTimer(interval_ms / kTimes, std::move(handler));
  }
  TimerId CallLater(int delay_ms, std::function<void()> handler) override {
    return QtEventServer::CallLater(delay_ms / kTimes, std::move(handler));
  }
};

/** What a user does while the program waits inside a modal loop: each step is tried again and again until it
 * says that it is done. A step that never is fails the test and closes everything. */
class Script {
 public:
  using Step = std::function<bool()>;

  explicit Script(std::vector<Step> steps);
  bool finished() const { return next_ == steps_.size(); }

 private:
  void Run();

  std::vector<Step> steps_;
  std::size_t next_ = 0;
  int tries_ = 0;
  bool in_step_ = false;
  bool failed_ = false;
  QTimer timer_;
};

/** The program's window on the example hotel, with a practice exchange on loopback or a line that leads
 * nowhere. Its serial ports are open, and nobody is there. */
class DesktopBench : public PortMaker {
 public:
  enum class Line {
    kExchange,
    kSilent,
    kConnecting,
    kModem,          // as the project is set: a serial port with nobody there
    kLostInReading,  // nothing comes any more in the middle of a section that is read back
  };
  /** What the test's own form of "1 - Setup Number" was asked to show. */
  std::vector<Place> gone_to;

  explicit DesktopBench(Line line = Line::kExchange, const std::string& password = {});
  ~DesktopBench() override;

  std::unique_ptr<Port> OpenSerial(int number, const LineSettings& settings) override;
  std::unique_ptr<Port> ConnectTcp(const std::string& host, const std::string& port) override;

  std::string Value(std::string_view key) { return store.GetIniValue(project, "Chk_Tarvok", key); }
  void Put(std::string_view key, std::string_view value) {
    EXPECT_TRUE(store.SetIniValue(project, "Chk_Tarvok", key, value).ok());
  }
  void ClickCommand(std::string_view key);
  /** Opens a modal form by its command and does the steps in it; they must leave it. */
  void Do(std::string_view command, std::vector<std::function<bool()>> steps);
  /** A key with Ctrl, wherever the focus is. */
  void Press(Qt::Key key);
  template <typename Widget>
  Widget* Find(const char* name) {
    return window->findChild<Widget*>(QString::fromLatin1(name));
  }

  const TempFolder in;
  const std::filesystem::path folder = in.path();
  std::string project;
  MemorySettings settings;
  PosixFileSystem files;
  ProjectStore store{files};
  FastEvents events;
  QtPortMaker real_ports{settings};
  SharedState state;
  RecentFiles recent{settings};
  std::string log;
  static bool MakeFolder(const std::string& path);
  History history{files, (folder / "data/history").string(), MakeFolder};
  ExchangedCopies copies{files, (folder / "data/exchanges").string(), MakeFolder};
  std::vector<std::string> told;  // what the keeper could not keep
  ProjectKeeper keeper{history, [this](const std::string& text) { told.push_back(text); }};
  DesktopParts parts;
  ExchangeMemory memory{110};
  PracticeExchange exchange;
  TcpListener listener;
  std::unique_ptr<MainWindow> window;
  std::unique_ptr<MainFrame> frame;

 private:
  Line line_;
  std::vector<std::unique_ptr<Port>> silent_;
};

/** The same with the project open. */
class OpenedBench : public DesktopBench {
 public:
  explicit OpenedBench(Line line = Line::kExchange, const std::string& password = {})
      : DesktopBench(line, password) {
    frame->OpenProject(project);
  }
};

/** The modal window in front, if it has that name; a message box without one is "box". */
QWidget* Modal(const char* name);
/** A step: waits for that modal window and clicks a control of it by name. */
Script::Step ClickIn(const char* modal, const char* control);
/** A step: waits for a message box, notes its text, and presses one of its buttons. */
Script::Step AnswerBox(QMessageBox::StandardButton button, std::vector<std::string>* texts = nullptr);
/** A step: waits for that modal window and types into what has its focus. */
Script::Step TypeIn(const char* modal, const char* control, const char* keys);

/** A step: waits for a file dialog, which begins without a name, types one and presses Enter. */
Script::Step ChooseFile(QString name);

}  // namespace tarvok::test
