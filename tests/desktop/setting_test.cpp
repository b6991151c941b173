#include <grp.h>
#include <unistd.h>

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QStringDecoder>
#include <QWheelEvent>

#include "desktop/transfer/setting_dialog.h"
#include "io/code_page.h"
#include "tests/desktop/desktop_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

class Settings : public testing::Test {
 protected:
  void Open() {
    bench.state.project_file = bench.project;
    dialog = std::make_unique<SettingDialog>(bench.parts, nullptr);
    dialog->show();
  }
  template <typename Widget>
  Widget* Get(const char* name) {
    return dialog->findChild<Widget*>(QString::fromLatin1(name));
  }
  void Click(const char* name) { QTest::mouseClick(Get<QAbstractButton>(name), Qt::LeftButton, {}, {8, 8}); }

  DesktopBench bench;
  std::unique_ptr<SettingDialog> dialog;
};

TEST_F(Settings, FieldsDropCharactersThatTheyDoNotAccept) {
  bench.Put("IPHost", "box");
  Open();
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"txtTel", "0-12,x3#", "012,3"}, {"txtHost", "1 0.a7", "10.7"}, {"txtPort", "4x0.01", "4001"}};
  auto* host = Get<QLineEdit>("txtHost");
  QTest::keyClick(host, Qt::Key_Backspace);
  EXPECT_EQ(host->text(), QStringLiteral("bo"));  // a stored text can be edited
  dialog.reset();
  bench.Put("IPHost", "");
  Open();
  for (const auto& [name, typed, stands] : cases) {
    auto* field = Get<QLineEdit>(name);
    field->clear();
    QTest::keyClicks(field, QString::fromLatin1(typed));
    EXPECT_EQ(field->text().toStdString(), stands) << name;
    field->clear();
    field->insert(QString::fromLatin1(typed));  // as a paste does
    EXPECT_EQ(field->text().toStdString(), stands) << name;
  }
}

TEST_F(Settings, TheWheelChangesOnlyTheFocusedWidget) {
  Open();
  Click("Option1(1)");
  Click("Option2(1)");
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  for (const char* name : {"cmbPort", "cmbSpeed", "cmbPBX"}) {
    auto* list = Get<QComboBox>(name);
    list->setCurrentIndex(1);
    for (const bool focus : {false, true}) {
      focus ? list->setFocus() : list->clearFocus();
      const QPointF at = list->rect().center();
      QWheelEvent wheel(at, list->mapToGlobal(at), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
      QApplication::sendEvent(list, &wheel);
      EXPECT_EQ(list->currentIndex() != 1, focus) << name;
    }
  }
}

TEST_F(Settings, OptionsShowTheirFrames) {
  Open();
  const std::pair<const char*, const char*> cases[] = {{"Option1(1)", "fraSettingSerial"},
                                                       {"Option1(2)", "fraSettingModem"},
                                                       {"Option1(3)", "fraSettingServer"},
                                                       {"Option1(4)", "fraSettingServer"},
                                                       {"Option1(0)", "fraSettingServer"}};
  for (const auto& [option, shown] : cases) {
    Click(option);
    for (const char* frame : {"fraSettingSerial", "fraSettingModem", "fraSettingServer"})
      EXPECT_EQ(Get<QWidget>(frame)->isVisible(), frame == std::string(shown)) << option;
  }
  EXPECT_FALSE(Get<QWidget>("fraInputID")->isVisible());
  Click("Option2(1)");
  EXPECT_TRUE(Get<QWidget>("fraInputID")->isVisible());
}

/** A character that a field does not accept may stay if it was there at first, but never more of it. */
TEST_F(Settings, AFieldKeepsAnInitialCharacterAndAcceptsNoMoreOfIt) {
  bench.Put("IPHost", "pbx.x");
  Open();
  Click("Option1(0)");
  auto* field = Get<QLineEdit>("txtHost");
  const auto type = [&](int at, const char* keys) {
    field->setCursorPosition(at);
    QTest::keyClicks(field, QString::fromLatin1(keys));
    return field->text().toStdString() + "@" + std::to_string(field->cursorPosition());
  };
  EXPECT_EQ(type(0, "x1p"), "1pbx.x@1");
  EXPECT_EQ(type(6, ".7b"), "1pbx.x.7@8");
  field->setCursorPosition(2);
  QTest::keyClick(field, Qt::Key_Backspace);
  EXPECT_EQ(type(7, "pp"), "1bx.x.7p@8");
  field->selectAll();
  QTest::keyClicks(field, QStringLiteral("bb9"));
  EXPECT_EQ(field->text().toStdString(), "b9");
}

TEST_F(Settings, ApplyWritesChangesAndKeepsTheRest) {
  const std::tuple<const char*, const char*, const char*> keys[] = {{"Port", "", "1"},
                                                                    {"PortM", "9", "9"},
                                                                    {"BPS", "9600,n,8,1", "9600,n,8,1"},
                                                                    {"By", "7", "7"},
                                                                    {"DCPU", "2", "2"},
                                                                    {"PID", "15", "15"},
                                                                    {"CID", "-1", "3"},
                                                                    {"CUT", "64", "64"},
                                                                    {"Tel", "", ""},
                                                                    {"compare", "1", "1"},
                                                                    {"IPHost", "1.2.3.4", "1.2.3.4"}};
  for (const auto& [key, before, after] : keys) bench.Put(key, before);
  Open();
  EXPECT_EQ(bench.Value("Port"), "1");  // written back at once
  EXPECT_TRUE(Get<QRadioButton>("Option1(0)")->isChecked());
  EXPECT_EQ(Get<QComboBox>("cmbPBX")->currentIndex(), -1);
  EXPECT_EQ(Get<QComboBox>("cmbSpeed")->currentText(), QStringLiteral("9600,n,8,1"));
  QTest::keyClick(Get<QComboBox>("cmbCard"), Qt::Key_3);
  QTest::keyClick(Get<QLineEdit>("txtPort"), Qt::Key_Return);  // Enter applies
  EXPECT_FALSE(dialog->isVisible());
  for (const auto& [key, before, after] : keys) EXPECT_EQ(bench.Value(key), after) << key;

  Open();
  Click("Option1(1)");
  Click("Option2(0)");
  Click("chkSpecial");
  QTest::keyClick(Get<QComboBox>("cmbPort"), Qt::Key_Down);
  auto* device = Get<QComboBox>("cmbPortDevice");
  device->setEditText(QStringLiteral("/dev/pbx"));
  Click("cmdCancel");
  EXPECT_EQ(bench.Value("By"), "7");
  EXPECT_EQ(bench.settings.values["Serial Ports/Com2"], "");
  Click("cmdApply");
  EXPECT_EQ(bench.Value("By"), "1");
  EXPECT_EQ(bench.Value("DCPU"), "0");
  EXPECT_EQ(bench.Value("CUT"), "1");
  EXPECT_EQ(bench.Value("Port"), "2");
  EXPECT_EQ(bench.settings.values["Serial Ports/Com2"], "/dev/pbx");

  // Serial line and modem both use Com2, and the hidden list of the modem still shows the old device.
  bench.Put("PortM", "2");
  Open();
  Get<QComboBox>("cmbPortDevice")->setEditText(QStringLiteral("/dev/other"));
  Click("cmdApply");
  EXPECT_EQ(bench.settings.values["Serial Ports/Com2"], "/dev/other");
}

/** Access is checked for the real user. A test that runs as root becomes the user nobody for that time. */
class SomebodyElse {
 public:
  SomebodyElse() { Become(kNobody); }
  ~SomebodyElse() { Become(0); }
  SomebodyElse(const SomebodyElse&) = delete;
  SomebodyElse& operator=(const SomebodyElse&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  static constexpr uid_t kAsItIs = static_cast<uid_t>(-1);
  static void Become(uid_t user) {
    EXPECT_TRUE(::geteuid() != 0 || ::setresuid(user, kAsItIs, kAsItIs) == 0);
  }
};

TEST_F(Settings, ADeviceWithoutPermissionIsExplained) {
  const std::string device = (bench.folder / "ttyUSB0").string();
  Write(device, "");
  std::filesystem::permissions(device, std::filesystem::perms::none);
  std::filesystem::permissions(bench.folder,
                               std::filesystem::perms{0755});  // else the device is not even visible
  const SomebodyElse user;
  Open();
  Click("Option1(1)");
  QTest::keyClick(Get<QComboBox>("cmbPort"), Qt::Key_Home);
  auto* field = Get<QComboBox>("cmbPortDevice");
  const auto explained = [&](const std::string& path) {
    field->lineEdit()->selectAll();
    QTest::keyClicks(field->lineEdit(), QString::fromStdString(path));
    QStringList shown;
    for (const auto* label : field->parentWidget()->findChildren<QLabel*>()) shown += label->text();
    EXPECT_EQ(shown.join(QString()), field->accessibleDescription());  // the same for screen readers
    return shown.join(QString()).toStdString();
  };
  const std::string group = ::getgrgid(::getegid())->gr_name;
  EXPECT_EQ(explained(device), "To open this device, join its group \"" + group +
                                   "\": ask the administrator, and log in again.");
  EXPECT_EQ(explained(device + "0"), "This device is not present on this computer.");
  EXPECT_EQ(explained("/dev/null"), "");
}

TEST(CodePage, ConvertsBothWaysLikeQt) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  for (const CodePage& page : CodePage::All()) {
    const QString letters = page.ToLetters(all);
    EXPECT_EQ(page.ToBytes(letters), all) << page.name();
    QStringDecoder qt(page.name().data());
    if (!qt.isValid()) continue;  // this Qt lacks the code page
    const QString theirs = qt(QByteArray::fromStdString(all));
    for (int i = 0; i < 256; ++i) {
      const bool open_byte =
          letters[i].category() == QChar::Other_Control || letters[i].category() == QChar::Other_PrivateUse;
      EXPECT_TRUE(open_byte || letters[i] == theirs[i]) << page.name() << ' ' << i;
    }
  }
  EXPECT_EQ(CodePage::Find("Windows-874").ToBytes(QStringLiteral("a\u0E01\u20AC\u4E2D")), "a\xA1\x80");
  EXPECT_EQ(CodePage::Find("Windows-874").Take(QStringLiteral("\u4E2D\U0001F600a\u4E2D")).lacking,
            QStringLiteral("\u4E2D\U0001F600"));
  EXPECT_EQ(CodePage::Find("no such page").name(), "Windows-1252");
}

}  // namespace
}  // namespace tarvok::test
