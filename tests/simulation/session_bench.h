#pragma once

#include <functional>
#include <memory>
#include <span>
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

/** A view that records what it is shown and gives prepared answers. */
class RecordingView : public SessionView {
 public:
  std::string log;
  Boxes boxes;
  std::string log_before_box;  // contents of the log window when the last box came
  std::vector<std::string> questions;
  std::vector<std::string> advice;
  std::string pace;  // the latest one shown
  std::vector<int> bars;
  std::vector<bool> answers;  // to the questions in order; Yes after the last
  std::vector<std::string> save_names;
  std::vector<std::string> passwords = {"1234"};  // by attempt, the last one repeated; "" cancels
  std::function<void(PasswordForm&)> fill_form;   // what the user does besides typing the password
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
 * A tool and a practice exchange in one process with one virtual clock, connected by the line that the
 * project specifies. The traffic can be recorded and damaged; a run repeats exactly.
 */
class SessionBench : public PortMaker {
 public:
  static constexpr const char* kProject = "/p/hotel.tvk";
  /** The temporary project of the first load. */
  static constexpr const char* kTemp = "/t/1/outcfg.tvk";

  /** `by` is the project's key "By"; the project is the example hotel. */
  explicit SessionBench(int by, int version = 110, LineConditions conditions = {});
  ~SessionBench() override;

  /**
   * Opens a form, runs the session on it and closes the form. The test fails if the form leaves anything
   * behind.
   */
  bool Run(const std::function<bool(Transfer&)>& session, TransferForm form = TransferForm::kConnect);
  /** Gives the exchange a mini bar list of which each record has its number as its count. */
  void FillMiniBar();
  /** Shows `passes` whatever the tool sends, which is lost if it returns false; and `lines` each new state of
   * DTR. */
  void Watch(std::function<bool(std::span<const std::uint8_t>)> passes, std::function<void(bool)> lines = {});
  /** The project's text, and single values of it. */
  std::string Project() { return files.Bytes(kProject); }
  std::string Value(const char* section, const char* key) {
    return store.GetIniValue(kProject, section, key);
  }
  bool Set(const char* section, const char* key, std::string_view value) {
    return store.SetIniValue(kProject, section, key, value).ok();
  }

  std::unique_ptr<Port> OpenSerial(int number, const LineSettings& settings) override;
  std::unique_ptr<Port> Connect(const ConnectionSettings& settings) override;

  VirtualEvents events;
  MemoryFiles files;
  ProjectStore store{files};
  RecordingView view;
  std::string send_log;
  SendLog log{[this](std::string_view text) { send_log += text; }};
  ExchangeMemory memory;
  std::vector<std::string> complaints;
  PracticeExchange exchange;
  std::vector<LineSettings> opened;                                  // serial ports that were requested
  PortState port_state = PortState::kOpen;                           // the state of the next port
  std::function<std::unique_ptr<Port>(std::unique_ptr<Port>)> wrap;  // wraps the tool's port
  Transfer* transfer = nullptr;                                      // that of the open form
  int by;
  int abort_after_ms = 0;  // when the user gives a session up; 0 for never
  std::string load_target = kProject;
  bool may_replace = true;
  std::string reason;  // why the last session failed
};

/** The wire that belongs to a project's "By". */
Wire WireOf(int by);

/** The text of the example hotel's file. */
const std::string& HotelText();

}  // namespace tarvok::test
