#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "exchange/practice_exchange.h"
#include "sessions/password_form.h"
#include "sessions/transfer.h"
#include "tests/floors.h"
#include "tests/simulation/virtual_events.h"
#include "tests/simulation/virtual_line.h"
#include "tests/store/memory_files.h"

namespace tarvok::test {

using Boxes = std::vector<std::string>;

/** A view that keeps what it is told and answers as it was told. */
class RecordingView : public SessionView {
 public:
  std::string log;
  Boxes boxes;
  std::string log_before_box;  // what the log window held when the last box came
  std::vector<std::string> questions;
  std::vector<std::string> advice;
  std::string pace;  // the last one that was shown
  std::vector<int> bars;
  std::vector<bool> answers;  // to questions in order; Yes behind the last
  std::vector<std::string> save_names;
  std::vector<std::string> passwords = {"1234"};  // of the tries in order, the last one again; "" cancels
  std::function<void(PasswordForm&)> fill_form;   // what a user does beside typing the password
  bool compare = false;
  bool busy = false;

  void Log(std::string_view text) override { log += text; }
  void Progress(int value, int) override { bars.push_back(value); }
  void Elapsed(int) override {}
  void Box(BoxKind, std::string_view text) override {
    boxes.emplace_back(text);
    log_before_box = log;
  }
  bool Ask(std::string_view question) override;
  bool AskWithCompare(std::string_view question, bool& compare_box) override;
  std::optional<std::string> AskSaveName() override;
  void ShowPassword(PasswordForm& form) override;
  void Advise(std::string_view text) override { advice.emplace_back(text); }
  void ShowPace(std::string_view text) override { pace = text; }
  void SetBusy(bool now_busy) override { busy = now_busy; }
};

/**
 * A tool and a practice exchange in one process and one virtual clock, joined by whatever line the project
 * names. What crosses the line can be watched and damaged; a run repeats exactly.
 */
class SessionBench : public PortMaker {
 public:
  static constexpr const char* kProject = "/p/hotel.tvk";
  /** The temporary project of the first load. */
  static constexpr const char* kTemp = "/t/1/outcfg.tvk";

  /** `by` is the project's key "By"; the project is the example hotel. */
  explicit SessionBench(int by, int version = 110, LineConditions conditions = {});
  ~SessionBench() override;

  /** Opens a form, runs the session on it, and closes the form. What a form may not leave behind fails the test. */
  bool Run(const std::function<bool(Transfer&)>& session, TransferForm form = TransferForm::kConnect);
  /** The project's text, and single values of it. */
  std::string Project() { return files.Bytes(kProject); }
  std::string Value(const char* section, const char* key) {
    return store.GetIniValue(kProject, section, key);
  }
  bool Set(const char* section, const char* key, std::string_view value) {
    return store.SetIniValue(kProject, section, key, value).ok();
  }

  std::unique_ptr<Port> OpenSerial(int number, const LineSettings& settings) override;
  std::unique_ptr<Port> ConnectTcp(const std::string& host, const std::string& port) override;

  VirtualEvents events;
  MemoryFiles files;
  ProjectStore store{files};
  RecordingView view;
  std::string send_log;
  SendLog log{[this](std::string_view text) { send_log += text; }};
  ExchangeMemory memory;
  std::vector<std::string> complaints;
  PracticeExchange exchange;
  std::vector<LineSettings> opened;                                  // serial ports asked for
  PortState port_state = PortState::kOpen;                           // what the next port is like
  std::function<std::unique_ptr<Port>(std::unique_ptr<Port>)> wrap;  // puts a port in front of the tool's
  Transfer* transfer = nullptr;                                      // the open form's
  int by;
};

/** What a project's "By" speaks. */
Wire WireOf(int by);

/** The example hotel's file. */
const std::string& HotelText();

}  // namespace tarvok::test
