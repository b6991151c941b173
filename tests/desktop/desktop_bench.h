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
#include "desktop/window/commands.h"
#include "desktop/window/project_keeper.h"
#include "exchange/practice_exchange.h"
#include "io/qt_event_server.h"
#include "io/qt_port_maker.h"
#include "io/tcp_listener.h"
#include "platform/posix_file_system.h"
#include "tests/desktop/memory_settings.h"
#include "tests/floors.h"
#include "tests/matchers.h"
#include "tests/temp_folder.h"

namespace tarvok::test {

/** Qt's event loop with a faster clock, so that waits of seconds end at once. */
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

/** What the user does while the program is inside a modal loop: each step is tried again until it returns
 * true. A step that never does fails the test and closes all windows. */
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

/** The program's window with the example hotel, and a practice exchange on loopback or a connection that does
 * not answer. Serial ports are open, with nothing connected. */
class DesktopBench : public PortMaker {
 public:
  enum class Line {
    kExchange,
    kSilent,
    kConnecting,
    kModem,          // the project's own settings: a serial port with nothing connected
    kLostInReading,  // the exchange goes silent while a section is read back
  };
  /** The places that the test's own form of "1 - Setup Number" was asked to show. */
  std::vector<Place> gone_to;

  explicit DesktopBench(Line line = Line::kExchange, const std::string& password = {});
  ~DesktopBench() override;

  std::unique_ptr<Port> OpenSerial(int number, const LineSettings& settings) override;
  std::unique_ptr<Port> Connect(const ConnectionSettings& connection) override;

  std::string Value(std::string_view key) { return store.GetIniValue(project, "Chk_Tarvok", key); }
  void Put(std::string_view key, std::string_view value) {
    EXPECT_TRUE(store.SetIniValue(project, "Chk_Tarvok", key, value).ok());
  }
  void ClickCommand(std::string_view key);
  /** Opens a modal form by its command and runs the steps in it; they must close it. */
  void Do(std::string_view command, std::vector<std::function<bool()>> steps);
  /** Presses Ctrl and a key, wherever the focus is. */
  void Press(Qt::Key key);
  /** The commands of the program. */
  std::vector<Command> RealCommands();
  /** Replaces the frame by one with these commands. */
  void StartFrame(std::vector<Command> commands);
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
  std::vector<std::string> warnings;  // warnings of the keeper
  ProjectKeeper keeper{history, [this](const std::string& text) { warnings.push_back(text); }};
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

/** The active modal window if it has this name; message boxes without a name are "box". */
QWidget* Modal(const char* name);
/** A step: waits for the modal window with this name and passes it on. */
Script::Step In(const char* modal, std::function<void(QWidget&)> act);
/** A step: closes the modal window with this name by its window button. */
Script::Step CloseWindow(const char* modal);
/** A step: waits for the modal window with this name and clicks a control by name. */
Script::Step ClickIn(const char* modal, const char* control);
/** A step: waits for a message box, records its text, and presses one of its buttons. */
Script::Step AnswerBox(QMessageBox::StandardButton button, std::vector<std::string>* texts = nullptr);
/** A step: waits for the modal window with this name and types into its focused widget. */
Script::Step TypeIn(const char* modal, const char* control, const char* keys);

/** A step: waits for a file dialog without a file name, types one and presses Enter. */
Script::Step ChooseFile(QString name);

}  // namespace tarvok::test
