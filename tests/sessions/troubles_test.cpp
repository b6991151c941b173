// The exact messages of each session for each kind of trouble.

#include <gmock/gmock.h>

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

using Prepare = void (*)(SessionBench&);

void LoseNewPassword(SessionBench& bench) {
  bench.view.fill_form = [](PasswordForm& form) {
    form.changes_passwords = true;
    form.levels[0] = {true, "4321", "4321"};
  };
  bench.Watch(
      [](std::span<const std::uint8_t> bytes) { return bytes.size() <= 3 || bytes[3] != command::kConfig; });
}

/** Fails in the middle of the load. */
void LoseTemporary(SessionBench& bench) {
  bench.files.fail_at = bench.files.calls + 9;
}

struct Trouble {
  const char* what;
  bool (*session)(Transfer&);
  int by = 4;
  TransferForm form = TransferForm::kConnect;
  FaultPlan faults = {};
  Prepare prepare = [](SessionBench&) {};
  const char* log;  // the end of the log window's text
  Boxes boxes = {};
  Boxes advice = {};
  const char* reason = "";
};

const FaultPlan kHangUp = {.hangup_after = 60};

constexpr const char* kClosed = "The connection was closed (The other end closed the line.). ";

const Trouble kTroubles[] = {
    {.what = "a load",
     .session = LoadConfiguration,
     .faults = {.delay_ms = 10},
     .log = "Getting Record Number..........................OK\r\nGet All Config Finished\r\n"
            "Averate Recieved Rate : 9.207 KBps\r\n"},
    {.what = "a load in no time",
     .session = LoadInNoTime,
     .log = "Get All Config Finished\r\nAverate Recieved Rate : 0.000 KBps\r\n"},
    {.what = "closed, a load over a network",
     .session = LoadConfiguration,
     .by = 3,
     .faults = kHangUp,
     .log = "OK\r\nGetting Port.............................Failed Get Port failed\r\n",
     .boxes = {"Please checked your connection\r\nCannot connect to PBX"},
     .advice = {std::string(kClosed) + "The session ends by itself."},
     .reason = "Please checked your connection Cannot connect to PBX: The other end closed the line."},
    {.what = "closed, a load over a serial line, which may come back",
     .session = LoadConfiguration,
     .by = 1,
     .faults = kHangUp,
     .log = "OK\r\nGetting Port...",
     .advice = {std::string(kClosed) + "Give up and start again.",
                "Nothing received for 15 seconds. If this continues, the rest may be lost: give up and start "
                "again."}},
    {.what = "closed, a send over a serial line",
     .session = SendConfiguration,
     .by = 1,
     .faults = kHangUp,
     .log = "OK\r\nSending Port...................................Failed\r\n",
     .boxes = {"Send Port failed (RE)"},
     .advice = {std::string(kClosed) + "The session ends by itself."},
     .reason = "Send Port failed (RE)"},
    {.what = "a new password that is not accepted",
     .session = SendConfiguration,
     .prepare = LoseNewPassword,
     .log = "OK\r\nErr: Update New Password Error\r\nCheck your connection and try again.\r\n",
     .boxes = {"Update New Password Error"},
     .reason = "Update New Password Error"},
    {.what = "the same before billing files",
     .session = SendBilling,
     .form = TransferForm::kBilling,
     .prepare = LoseNewPassword,
     .log = "Connected [127.0.0.1]\r\nUpdate New Password Error. Try again\r\n",
     .boxes = {"Update New Password Error"},
     .reason = "Update New Password Error"},
    {.what = "a temporary project that cannot be written",
     .session = LoadConfiguration,
     .prepare = LoseTemporary,
     .log = "OK\r\nGetting PABX Mode..............................OK\r\n",
     .boxes = {"/t/1/outcfg.tvk: made to fail"},
     .reason = "/t/1/outcfg.tvk: made to fail"},
};

TEST(EverySession, ReportsItsTrouble) {
  for (const Trouble& trouble : kTroubles) {
    SCOPED_TRACE(trouble.what);
    SessionBench bench(trouble.by, 110, {.faults = trouble.faults});
    bench.files.Put("/b/tbl0.bil", "a");
    trouble.prepare(bench);
    bench.abort_after_ms = 60'000;  // the waits without a limit
    bench.Run(trouble.session, trouble.form);
    EXPECT_THAT(bench.view.log, testing::EndsWith(trouble.log));
    EXPECT_EQ(bench.view.boxes, trouble.boxes);
    EXPECT_EQ(bench.view.advice, trouble.advice);
    EXPECT_EQ(bench.reason, trouble.reason);
    EXPECT_EQ(bench.view.pace.empty(),
              trouble.session != LoadConfiguration || !trouble.boxes.empty() || !trouble.advice.empty());
  }
}

}  // namespace
}  // namespace tarvok::test
