// The exact messages of each session for each kind of trouble.

#include <gmock/gmock.h>

#include "exchange/port_on_port.h"
#include "sections/registry.h"
#include "sessions/billing_files.h"
#include "sessions/load_config.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/open_connection.h"
#include "sessions/send_config.h"
#include "sessions/store_loaded.h"
#include "tests/floors.h"
#include "tests/simulation/session_bench.h"

namespace tarvok::test {
namespace {

bool SendBilling(Transfer& transfer) {
  return SendBillingFiles(transfer, "/b");
}

/** The end of a load that takes no time at all. */
bool LoadInNoTime(Transfer& transfer) {
  transfer.Begin("Load Data Config");
  const bool ended = BeginTemporary(transfer) && OpenConnection(transfer) &&
                     EndLoading(transfer, "Get All Config Finished", transfer.parts().events.Tick_ms());
  transfer.CleanUp();
  return ended;
}

/** Drops every message with the given code. */
class Loses : public PortOnPort {
 public:
  Loses(std::unique_ptr<Port> inner, std::uint8_t code) : PortOnPort(std::move(inner)), code_(code) {}
  bool Send(std::span<const std::uint8_t> bytes) override {
    return (bytes.size() > 3 && bytes[3] == code_) || PortOnPort::Send(bytes);
  }

 private:
  std::uint8_t code_;
};

using Prepare = void (*)(SessionBench&);

void LoseNewPassword(SessionBench& bench) {
  bench.view.fill_form = [](PasswordForm& form) {
    form.changes_passwords = true;
    form.levels[0] = {true, "4321", "4321"};
  };
  bench.wrap = [](std::unique_ptr<Port> port) {
    return std::make_unique<Loses>(std::move(port), command::kConfig);
  };
}

/** Fails in the middle of the load. */
void LoseTemporary(SessionBench& bench) {
  bench.files.fail_at = bench.files.calls + 9;
}

struct Trouble {
  const char* what;
  bool (*session)(Transfer&);
  int by;
  TransferForm form;
  FaultPlan faults;
  Prepare prepare;
  const char* log;  // the end of the log window's text
  Boxes boxes;
  Boxes advice;
  const char* reason;
};

constexpr auto kConnect = TransferForm::kConnect;
constexpr auto kBilling = TransferForm::kBilling;
const FaultPlan kHangUp = {.hangup_after = 60};

constexpr const char* kClosed = "The connection was closed (The other end closed the line.). ";

const Trouble kTroubles[] = {
    {"a load",
     LoadConfiguration,
     4,
     kConnect,
     {.delay_ms = 10},
     nullptr,
     "Getting Record Number..........................OK\r\nGet All Config Finished\r\n"
     "Averate Recieved Rate : 9.207 KBps\r\n",
     {},
     {},
     ""},
    {"a load in no time",
     LoadInNoTime,
     4,
     kConnect,
     {},
     nullptr,
     "Get All Config Finished\r\nAverate Recieved Rate : 0.000 KBps\r\n",
     {},
     {},
     ""},
    {"closed, a load over a network",
     LoadConfiguration,
     4,
     kConnect,
     kHangUp,
     nullptr,
     "OK\r\nGetting Port.............................Failed Get Port failed\r\n",
     {"Please checked your connection\r\nCannot connect to PBX"},
     {std::string(kClosed) + "The session ends by itself."},
     "Please checked your connection Cannot connect to PBX: The other end closed the line."},
    {"closed, a load over a serial line, which may come back",
     LoadConfiguration,
     1,
     kConnect,
     kHangUp,
     nullptr,
     "OK\r\nGetting Port...",
     {},
     {std::string(kClosed) + "Give up and start again.",
      "Nothing received for 15 seconds. If this continues, the rest may be lost: give up and start again."},
     ""},
    {"closed, a send over a serial line",
     SendConfiguration,
     1,
     kConnect,
     kHangUp,
     nullptr,
     "OK\r\nSending Port...................................Failed\r\n",
     {"Send Port failed (RE)"},
     {std::string(kClosed) + "The session ends by itself."},
     "Send Port failed (RE)"},
    {"closed, a send over a network",
     SendConfiguration,
     4,
     kConnect,
     kHangUp,
     nullptr,
     "OK\r\nSending Port...................................Failed\r\n",
     {"Send Port failed (RE)"},
     {std::string(kClosed) + "The session ends by itself."},
     "Send Port failed (RE)"},
    {"a new password that is not accepted",
     SendConfiguration,
     4,
     kConnect,
     {},
     LoseNewPassword,
     "OK\r\nErr: Update New Password Error\r\nCheck your connection and try again.\r\n",
     {"Update New Password Error"},
     {},
     "Update New Password Error"},
    {"the same before billing files",
     SendBilling,
     4,
     kBilling,
     {},
     LoseNewPassword,
     "Connected [127.0.0.1]\r\nUpdate New Password Error. Try again\r\n",
     {"Update New Password Error"},
     {},
     "Update New Password Error"},
    {"a temporary project that cannot be written",
     LoadConfiguration,
     4,
     kConnect,
     {},
     LoseTemporary,
     "OK\r\nGetting PABX Mode..............................OK\r\n",
     {"/t/1/outcfg.tvk: made to fail"},
     {},
     "/t/1/outcfg.tvk: made to fail"},
};

TEST(EverySession, ReportsItsTrouble) {
  for (const Trouble& trouble : kTroubles) {
    SCOPED_TRACE(trouble.what);
    SessionBench bench(trouble.by, 110, {.faults = trouble.faults});
    bench.files.Put("/b/tbl0.bil", "a");
    if (trouble.prepare != nullptr) trouble.prepare(bench);
    // Waits without a time limit are aborted after a minute.
    const auto patience = bench.events.StartTimer(60'000, [&] {
      if (bench.transfer != nullptr) bench.transfer->Abort();
    });
    std::string reason;
    bench.Run(
        [&](Transfer& form) {
          const bool done = trouble.session(form);
          reason = form.report().reason();
          return done;
        },
        trouble.form);
    bench.events.StopTimer(patience);
    EXPECT_THAT(bench.view.log, testing::EndsWith(trouble.log));
    EXPECT_EQ(bench.view.boxes, trouble.boxes);
    EXPECT_EQ(bench.view.advice, trouble.advice);
    EXPECT_EQ(reason, trouble.reason);
    EXPECT_EQ(bench.view.pace.empty(),
              trouble.session != LoadConfiguration || !trouble.boxes.empty() || !trouble.advice.empty());
  }
}

}  // namespace
}  // namespace tarvok::test
