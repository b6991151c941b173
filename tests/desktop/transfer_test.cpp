#include <QPlainTextEdit>
#include <QProgressBar>

#include "desktop/transfer/transfer_dialog.h"
#include "tests/desktop/desktop_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

std::string LogOf(const char* form) {
  const QWidget* window = Modal(form);
  return window == nullptr ? "" : window->findChild<QPlainTextEdit*>("Text1")->toPlainText().toStdString();
}

/** A step: waits until the log window contains the text. */
Script::Step LogHas(const char* form, const char* text) {
  return [=] { return LogOf(form).find(text) != std::string::npos; };
}

TEST(Transfer, SendsAndLoadsByClicksAndKeys) {
  OpenedBench bench(DesktopBench::Line::kExchange, "1234");
  std::vector<std::string> boxes;
  std::vector<std::string> enabled;
  std::string log;
  int bar = 0;
  const auto look_while_busy = [&](QWidget&) {
    EXPECT_EQ(bench.Find<QDialog>("frmConnect")->focusWidget()->objectName(), "Text1");
    for (const auto* button : bench.Find<QDialog>("frmConnect")->findChildren<QPushButton*>()) {
      if (button->parentWidget()->objectName() == "frmConnect" && button->isEnabled()) {
        enabled.push_back(button->objectName().toStdString());
      }
    }
  };
  const auto password_is_gone = [] {
    const QWidget* dialog = Modal("frmPassword2");
    return dialog != nullptr && dialog->findChild<QLineEdit*>("Text1")->text().isEmpty();
  };
  bench.Do("connect",
           {ClickIn("frmConnect", "cmdWrite"), AnswerBox(QMessageBox::Yes, &boxes),
            In("frmPassword2", look_while_busy),
            TypeIn("frmPassword2", "Text1", "1a2 34\r"),  // letters and blanks are dropped, Enter is OK
            AnswerBox(QMessageBox::Ok, &boxes),
            [&] {
              log = LogOf("frmConnect");
              bar = Modal("frmConnect")->findChild<QProgressBar*>()->value();
              return true;
            },
            ClickIn("frmConnect", "cmdLoad"), AnswerBox(QMessageBox::Yes, &boxes),
            ClickIn("frmPassword2", "Command1"), AnswerBox(QMessageBox::Ok, &boxes),  // nothing typed
            TypeIn("frmPassword2", "Text1", "99999999\r"),                            // the sixth is the last
            AnswerBox(QMessageBox::Ok, &boxes), password_is_gone, TypeIn("frmPassword2", "Text1", "1234"),
            ClickIn("frmPassword2", "Command1"), AnswerBox(QMessageBox::Yes, &boxes),
            ClickIn("frmConnect", "cmdCancel")});
  EXPECT_THAT(boxes,
              ElementsAre("Do you want to send data config?", "Send All Data Config Finished",
                          "Do you want to load data config?", "Please enter password", "Password incorrect",
                          "Get All Config Finished.\nDo you want to replace current file?"));
  EXPECT_THAT(enabled, IsEmpty());
  EXPECT_THAT(log, HasSubstr("Sending All Data Config Finished !!!"));
  EXPECT_EQ(bar, 46);
  EXPECT_EQ(bench.memory.mode(), ExchangeMode::kNormal);
  EXPECT_EQ(bench.Value("Chk"), "tarvok");
  EXPECT_EQ(bench.state.active_form_name, "");
  EXPECT_THAT(bench.log, testing::StartsWith("Send Config History...\r\n"));
}

TEST(Transfer, NewPasswordsAreSentWithTheLogIn) {
  OpenedBench bench(DesktopBench::Line::kExchange, "1234");
  std::vector<std::string> boxes;
  bench.Do("connect", {ClickIn("frmConnect", "cmdSendIP"), AnswerBox(QMessageBox::Yes),
                       ClickIn("frmPassword2", "chkPSW"), ClickIn("frmPassword2", "chkLV(1)"),
                       TypeIn("frmPassword2", "Text1", "1234\r"),  // goes to the new password
                       TypeIn("frmPassword2", "txtPSW(1,0)", "111111"), ClickIn("frmPassword2", "Command1"),
                       AnswerBox(QMessageBox::Ok, &boxes), TypeIn("frmPassword2", "txtPSW(1,1)", "111111\r"),
                       AnswerBox(QMessageBox::Ok, &boxes), ClickIn("frmConnect", "cmdCancel")});
  EXPECT_THAT(boxes, ElementsAre("New password doesn't match", "Send Data Finished"));
  EXPECT_EQ(bench.memory.passwords().Get(1), PackPassword("111111"));
}

TEST(Transfer, ClosingAbortsOnlySessionsThatMayBeAborted) {
  using Line = DesktopBench::Line;
  // The end of the log window when the form is closed, and whether that aborts the session or is ignored.
  const std::tuple<Line, const char*, const char*, const char*, bool> cases[] = {
      {Line::kConnecting, "frmConnect", "cmdWrite", "### Send Data Config by LAN ###", true},
      {Line::kConnecting, "frmConnect", "cmdIdle", "PING?", true},
      {Line::kConnecting, "frmMiniBarCon", "cmdLoad", "### Load MiniBar by LAN ###", true},
      {Line::kSilent, "frmConnect", "cmdLoad", "Send set mode...", true},
      {Line::kSilent, "frmMiniBarCon", "cmdLoad", "Send set mode...", true},
      {Line::kSilent, "frmConnect", "cmdWrite", "Send set mode...", false},
      {Line::kSilent, "frmConnect", "cmdSendRoute", "Send set mode...", false},
      {Line::kModem, "frmConnect", "cmdWrite", "Send Data Config by Modem", true},
  };
  for (const auto& [line, form, button, in_wait, goes] : cases) {
    SCOPED_TRACE(std::string(form) + " " + button + " " + in_wait);
    OpenedBench bench(line);
    const char* command = std::string(form) == "frmConnect" ? "connect" : "minibarconnect";
    if (line == Line::kModem) bench.Put("By", "2"), bench.Put("Tel", "5551234");
    std::vector<std::string> boxes;
    std::vector<Script::Step> steps = {ClickIn(form, button)};
    if (std::string(button) != "cmdIdle") steps.push_back(AnswerBox(QMessageBox::Yes));
    steps.insert(steps.end(), {LogHas(form, in_wait), CloseWindow(form)});
    if (!goes) steps.insert(steps.end(), {AnswerBox(QMessageBox::Ok, &boxes), ClickIn(form, "cmdCancel")});
    bench.Do(command, steps);
    EXPECT_EQ(boxes,
              goes ? std::vector<std::string>() : std::vector<std::string>{"Change to set mode failed (RE)"});
    EXPECT_EQ(bench.state.active_form_name, "");
    bench.Do(command, {ClickIn(form, "cmdCancel")});  // the next form works at once
  }
}

TEST(Transfer, ClosingDuringACompareClosesTheForm) {
  OpenedBench bench(DesktopBench::Line::kLostInReading);
  bench.Put("compare", "1");
  bench.Do("connect", {ClickIn("frmConnect", "cmdWrite"), AnswerBox(QMessageBox::Yes),
                       TypeIn("frmPassword2", "Text1", "1\r"), LogHas("frmConnect", "for compare..."),
                       CloseWindow("frmConnect")});
  EXPECT_EQ(bench.state.active_form_name, "");
  const ConnectionSettings exchange =
      ReadConnection(*bench.store.Snapshot(bench.project), ConnectionForm::kBilling);
  EXPECT_FALSE(bench.copies.Find(exchange).ok());  // its contents are unknown now
}

TEST(Transfer, ClosingWithThePasswordFormOpenClosesBoth) {
  OpenedBench bench(DesktopBench::Line::kExchange, "1234");
  bench.Do("connect",
           {ClickIn("frmConnect", "cmdLoad"), AnswerBox(QMessageBox::Yes), In("frmPassword2", [&](QWidget&) {
              bench.Find<QDialog>("frmConnect")->close();  // as at a logout
            })});
  EXPECT_EQ(bench.state.active_form_name, "");
  EXPECT_EQ(bench.Value("Chk"), "TARVOK");
}

/** SIGTERM and a logout close the main window; the user presses Ctrl+Q. */
TEST(Transfer, TheProgramEndsWithAnIdleFormButNotDuringASession) {
  const auto exit = [](OpenedBench& bench, bool by_key) -> Script::Step {
    return [&bench, by_key] {
      QWidget* form = Modal("frmConnect");
      if (form == nullptr) form = Modal("frmSetting");
      if (form == nullptr || !form->isVisible()) return false;
      QApplication::setActiveWindow(form);  // shortcuts need an active window
      if (by_key) QTest::keyClick(form, Qt::Key_Q, Qt::ControlModifier);
      if (!by_key) bench.window->close();
      return true;
    };
  };
  for (const bool by_key : {true, false}) {
    OpenedBench idle;
    idle.Do("connect", {exit(idle, by_key)});
    EXPECT_FALSE(idle.window->isVisible());
    EXPECT_EQ(idle.state.active_form_name, "");

    OpenedBench busy(DesktopBench::Line::kSilent);
    QString advice;
    busy.Do("connect", {ClickIn("frmConnect", "cmdLoad"), AnswerBox(QMessageBox::Yes),
                        LogHas("frmConnect", "Send set mode..."), exit(busy, by_key),
                        [&] {
                          const auto* label = Modal("frmConnect")->findChild<QLabel*>("Advice");
                          advice = label->isVisible() ? label->text() : QString();
                          return true;
                        },
                        CloseWindow("frmConnect")});
    EXPECT_THAT(advice.toStdString(), HasSubstr("during a transfer"));
    EXPECT_TRUE(busy.window->isVisible());
  }
  OpenedBench bench;
  bench.Do("connect", {ClickIn("frmConnect", "cmdSetting"), exit(bench, false)});
  EXPECT_FALSE(bench.window->isVisible());
}

TEST(Transfer, TheDebugWordCountsOnlyInTheFirstNineKeys) {
  const std::pair<const char*, bool> cases[] = {
      {"TRACELY7", true}, {"tracely7", false}, {"xTRACELY7", false}};
  for (const auto& [typed, on] : cases) {
    OpenedBench bench;
    QString title;
    const auto type = [&title, keys = typed](const QWidget& form) {
      QTest::keyClicks(form.findChild<QPushButton*>("cmdLoad"), "TR");  // keys on another button
      QTest::keyClicks(form.findChild<QPushButton*>("cmdWrite"), keys);
      title = form.windowTitle();
    };
    bench.Do("minibarconnect", {In("frmMiniBarCon", type), ClickIn("frmMiniBarCon", "cmdCancel")});
    EXPECT_EQ(title.endsWith(QStringLiteral(" - Layer 2 debug on")), on) << typed;
  }
}

TEST(Transfer, BillingRemembersItsFolder) {
  OpenedBench bench;
  bench.Put("LastBil", "/here");
  std::vector<std::string> boxes;
  bench.Do("billing", {TypeIn("frmBilling", "txtFolder", "/nowhere"), ClickIn("frmBilling", "cmdWrite"),
                       AnswerBox(QMessageBox::Yes, &boxes), AnswerBox(QMessageBox::Ok, &boxes),
                       ClickIn("frmBilling", "cmdCancel")});
  EXPECT_THAT(boxes, ElementsAre("Do you want to send Billing File?", "No Billing Files"));
  EXPECT_EQ(bench.Value("LastBil"), "/here/nowhere");
  EXPECT_EQ(bench.log, "Send Billing History\r\n");
}

}  // namespace
}  // namespace tarvok::test
