#include "tests/simulation/session_bench.h"

#include <utility>

#include "exchange/port_on_port.h"
#include "sections/system/mini_bar.h"
#include "tests/floors.h"
#include "tests/source_file.h"

namespace tarvok::test {
namespace {

class WatchedPort : public PortOnPort {
 public:
  WatchedPort(std::unique_ptr<Port> inner, std::function<bool(std::span<const std::uint8_t>)> passes,
              std::function<void(bool)> lines)
      : PortOnPort(std::move(inner)), passes_(std::move(passes)), lines_(std::move(lines)) {}
  bool Send(std::span<const std::uint8_t> bytes) override {
    return !passes_(bytes) || PortOnPort::Send(bytes);
  }
  PortAnswer SetControlLines(bool dtr, bool rts) override {
    if (lines_) lines_(dtr);
    return PortOnPort::SetControlLines(dtr, rts);
  }

 private:
  std::function<bool(std::span<const std::uint8_t>)> passes_;
  std::function<void(bool)> lines_;
};

}  // namespace

const std::string& HotelText() {
  static const std::string text = SourceFile("/examples/hotel.tvk");
  return text;
}

Wire WireOf(int by) {
  return TransportOf(static_cast<LinkMode>(by)).wire;
}

bool RecordingView::Ask(std::string_view question) {
  questions.emplace_back(question);
  const std::size_t index = questions.size() - 1;
  return index >= answers.size() || answers[index];
}

bool RecordingView::AskWithCompare(std::string_view question, bool& compare_box) {
  compare_box = compare;
  return Ask(question);
}

std::optional<std::string> RecordingView::AskSaveName() {
  if (save_names.empty()) return std::nullopt;
  std::string name = save_names.front();
  save_names.erase(save_names.begin());
  return name;
}

void RecordingView::ShowPassword(PasswordForm& form) {
  if (fill_form) fill_form(form);
  for (std::size_t attempt = 0; form.open(); ++attempt) {
    const std::string& password = passwords[std::min(attempt, passwords.size() - 1)];
    if (password.empty()) {
      form.Cancel();
    } else {
      form.password = password;
      form.Ok();
    }
  }
}

SessionBench::SessionBench(int mode, int version, LineConditions conditions)
    : memory(version),
      exchange(events, memory, std::move(conditions),
               [this](std::string_view line) { complaints.emplace_back(line); }),
      by(mode) {
  files.Put(kProject, HotelText());
  const Status set = store.Update(kProject, [&](IniEdit& edit) {
    edit.Set("Chk_Tarvok", "By", std::to_string(mode));
    edit.Set("Chk_Tarvok", "Tel", "0123");
  });
  EXPECT_TRUE(set.ok());
}

SessionBench::~SessionBench() = default;

bool SessionBench::Run(const std::function<bool(Transfer&)>& session, TransferForm form) {
  Transfer open({.events = events,
                 .ports = *this,
                 .store = store,
                 .view = view,
                 .log = log,
                 .project_file = kProject,
                 .load_target = load_target,
                 .system_file = "/s/system.tvs",
                 .temp_folder = "/t",
                 .may_replace = may_replace},
                form);
  transfer = &open;
  const EventServer::TimerId abort =
      abort_after_ms == 0 ? 0 : events.CallLater(abort_after_ms, [&open] { open.Abort(); });
  const bool done = session(open);
  events.StopTimer(abort);
  reason = open.report().reason();
  EXPECT_FALSE(view.busy);
  open.Unload();
  EXPECT_FALSE(open.line().line().IsOpen());
  transfer = nullptr;
  events.Run(5000);
  return done;
}

void SessionBench::FillMiniBar() {
  for (int number = 0; number < kMiniBarRows; ++number) {
    Bytes record(kMiniBarRecordSize);
    record[0] = 'A';
    record[20] = static_cast<std::uint8_t>(number % 256);
    record[21] = static_cast<std::uint8_t>(number / 256);
    memory.SetMiniBar(number, record);
  }
}

void SessionBench::Watch(std::function<bool(std::span<const std::uint8_t>)> passes,
                         std::function<void(bool)> lines) {
  wrap = [=](std::unique_ptr<Port> port) {
    return std::make_unique<WatchedPort>(std::move(port), passes, lines);
  };
}

std::unique_ptr<Port> SessionBench::OpenSerial(int, const LineSettings& settings) {
  opened.push_back(settings);
  EXPECT_FALSE(transfer != nullptr && transfer->line().line().IsOpen()) << "a device can be opened only once";
  return Connect({});
}

std::unique_ptr<Port> SessionBench::Connect(const ConnectionSettings&) {
  VirtualLine line(events);
  line.tool->set_state(port_state, port_state == PortState::kOpen ? "" : "made to fail");
  if (port_state != PortState::kOpen) return std::move(line.tool);
  if (by == 2) {
    exchange.AcceptModem(std::move(line.exchange));
  } else {
    exchange.Accept(std::move(line.exchange), WireOf(by));
  }
  if (wrap) return wrap(std::move(line.tool));
  return std::move(line.tool);
}

}  // namespace tarvok::test
