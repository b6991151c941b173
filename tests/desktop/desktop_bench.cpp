#include "tests/desktop/desktop_bench.h"

#include <utility>

#include <QFileDialog>
#include <QLineEdit>

#include "tests/floors.h"
#include "tests/simulation/virtual_line.h"

namespace tarvok::test {
namespace {

constexpr int kStep_ms = 5;
constexpr int kMostTries = 2000;

/** A form that only records the places it is sent to. */
class ShownForm : public PaneForm {
 public:
  ShownForm(PaneHost& host, std::vector<Place>& gone_to)
      : PaneForm(host, "frmGroupOfHunt", new QWidget), gone_to_(gone_to) {}
  void GoTo(const Place& place) override { gone_to_.push_back(place); }

 private:
  std::vector<Place>& gone_to_;
};

/** A usable control of the modal window with this name; nullptr while there is none. */
template <typename Widget>
Widget* ControlOf(const char* modal, const char* name) {
  QWidget* window = Modal(modal);
  auto* control = window == nullptr ? nullptr : window->findChild<Widget*>(QString::fromLatin1(name));
  return control != nullptr && control->isEnabled() ? control : nullptr;
}

/** Bytes of the log-in, the first section sent, and some of its packs that are read back. */
constexpr int kAnswersUntilReading = 16;

LineConditions ConditionsOf(DesktopBench::Line line) {
  if (line != DesktopBench::Line::kLostInReading) return {};
  return {.faults = FaultPlan{.silent_after = kAnswersUntilReading}};
}

}  // namespace

Script::Script(std::vector<Step> steps) : steps_(std::move(steps)) {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Run(); });
  timer_.start(kStep_ms);
}

void Script::Run() {
  if (failed_) {
    if (auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget())) modal->done(0);
    return;
  }
  if (in_step_ || (finished() && QApplication::activeModalWidget() == nullptr)) return;
  if (++tries_ > kMostTries) {
    ADD_FAILURE() << "step " << next_ << " never came about, or nothing closed the window behind the last";
    failed_ = true;
    return;
  }
  if (finished()) return;
  in_step_ = true;
  const bool done = steps_[next_]();
  in_step_ = false;
  if (!done) return;
  ++next_;
  tries_ = 0;
}

DesktopBench::DesktopBench(Line line, const std::string& password)
    : project((folder / "hotel.tvk").string()),
      parts{.events = events,
            .ports = *this,
            .store = store,
            .settings = settings,
            .state = state,
            .system_file = TARVOK_SOURCE_DIR "/data/system.tvs",
            .temp_folder = folder.string(),
            .open_log = [this] { return [this](std::string_view text) { log += text; }; },
            .history = history,
            .copies = copies,
            .keep = [this](const std::string& path, std::string_view reason) { keeper.Keep(path, reason); },
            .practice_program = QApplication::applicationDirPath().toStdString() + "/tarvok-exchange",
            .practice_folder = (folder / "practice").string(),
            .system_file_line = [] { return std::string("System file: none"); }},
      exchange(events, memory, ConditionsOf(line), [](auto&&...) {}),
      listener([this](std::unique_ptr<Port> port) { exchange.Accept(std::move(port), Wire::kLan); }),
      line_(line) {
  std::filesystem::copy_file(TARVOK_SOURCE_DIR "/examples/hotel.tvk", project);
  LevelPasswords passwords;
  if (const auto packed = PackPassword(password)) passwords.Set(1, *packed);
  memory.AddPasswords(passwords);
  EXPECT_TRUE(listener.Listen("127.0.0.1", 0).ok());
  EXPECT_TRUE(store.SetIniValue(project, "Chk_Tarvok", "IPPort", std::to_string(listener.port())).ok());
  window = std::make_unique<MainWindow>(parts);
  std::vector<Command> commands = RealCommands();
  std::ranges::find(commands, "groupofhunt", &Command::key)->make = [this](const FormContext&) {
    return std::make_unique<ShownForm>(*window, gone_to);
  };
  StartFrame(std::move(commands));
  window->show();
  QApplication::setActiveWindow(window.get());
}

bool DesktopBench::MakeFolder(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  return !error;
}

DesktopBench::~DesktopBench() {
  frame.reset();
  window.reset();
}

std::unique_ptr<Port> DesktopBench::OpenSerial(int, const LineSettings&) {
  return std::make_unique<VirtualPort>(events);  // a line with nothing at its other end
}

std::unique_ptr<Port> DesktopBench::Connect(const ConnectionSettings& connection) {
  if (line_ == Line::kConnecting) {
    auto never_open = std::make_unique<VirtualPort>(events);
    never_open->set_state(PortState::kConnecting);
    return never_open;
  }
  if (line_ == Line::kExchange || line_ == Line::kLostInReading) return real_ports.Connect(connection);
  auto nobody =
      std::make_unique<TcpListener>([this](std::unique_ptr<Port> end) { silent_.push_back(std::move(end)); });
  EXPECT_TRUE(nobody->Listen("127.0.0.1", 0).ok());
  ConnectionSettings silent = connection;
  silent.ip_port = std::to_string(nobody->port());
  auto open = real_ports.Connect(silent);
  events.ServeUntil([&] { return open->state() == PortState::kOpen && !silent_.empty(); },
                    EventServer::kForever);
  return open;
}

std::vector<Command> DesktopBench::RealCommands() {
  return Commands(parts, *window);
}

void DesktopBench::StartFrame(std::vector<Command> commands) {
  frame = std::make_unique<MainFrame>(
      MainFrame::Parts{store, recent, state, *window, parts.system_file, std::move(commands)});
  window->Attach(*frame);
  frame->Start(false);
}

void DesktopBench::ClickCommand(std::string_view key) {
  auto* tree = Find<CommandTree>("CommandTree");
  const QTreeWidgetItem* node = tree->topLevelItem(0)->child(frame->NodeOf(key) - kFirstCommandNode);
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(node).center());
}

void DesktopBench::Do(std::string_view command, std::vector<Script::Step> steps) {
  const Script script(std::move(steps));
  ClickCommand(command);
  EXPECT_TRUE(script.finished());
}

void DesktopBench::Press(Qt::Key key) {
  QApplication::setActiveWindow(window.get());  // offscreen nothing gives the focus back after a modal window
  QTest::keyClick(window.get(), key, Qt::ControlModifier);
}

QWidget* Modal(const char* name) {
  QWidget* modal = QApplication::activeModalWidget();
  if (modal == nullptr) return nullptr;
  const bool is_box = modal->objectName().isEmpty() && qobject_cast<QMessageBox*>(modal) != nullptr;
  const QString wanted = QString::fromLatin1(name);
  return (is_box ? wanted == QStringLiteral("box") : modal->objectName() == wanted) ? modal : nullptr;
}

Script::Step In(const char* modal, std::function<void(QWidget&)> act) {
  return [modal, act = std::move(act)] {
    QWidget* window = Modal(modal);
    if (window != nullptr) act(*window);
    return window != nullptr;
  };
}

Script::Step CloseWindow(const char* modal) {
  return In(modal, [](QWidget& window) { window.close(); });
}

Script::Step ClickIn(const char* modal, const char* control) {
  return [=] {
    auto* button = ControlOf<QAbstractButton>(modal, control);
    if (button == nullptr) return false;
    // What a click starts may take long: the script continues meanwhile.
    QTimer::singleShot(0, button, [button] {
      QTest::mouseClick(button, Qt::LeftButton, {}, {8, button->height() / 2});
    });
    return true;
  };
}

Script::Step AnswerBox(QMessageBox::StandardButton button, std::vector<std::string>* texts) {
  return [=] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || box->button(button) == nullptr) return false;
    if (texts != nullptr) texts->push_back(box->text().toStdString());
    QTest::mouseClick(box->button(button), Qt::LeftButton);
    return true;
  };
}

Script::Step TypeIn(const char* modal, const char* control, const char* keys) {
  return [=] {
    auto* field = ControlOf<QWidget>(modal, control);
    if (field == nullptr) return false;
    QTimer::singleShot(0, field, [field, keys] {
      field->setFocus();
      QTest::keyClicks(field, QString::fromLatin1(keys));
    });
    return true;
  };
}

Script::Step ChooseFile(QString name) {
  return [name = std::move(name)] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return false;
    auto* field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    EXPECT_EQ(field->text(), QString());
    field->setCompleter(nullptr);  // its list would swallow the keys
    QTest::keyClicks(field, name);
    QTest::keyClick(field, Qt::Key_Return);
    return true;
  };
}

}  // namespace tarvok::test
