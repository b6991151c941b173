// tarvok-exchange: the practice exchange. Plays an exchange on all five transports, so that the whole tool
// can be learned, shown and tested without one.

#include <csignal>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include <CLI/CLI.hpp>
#include <QCoreApplication>

#include "exchange/exchange_store.h"
#include "exchange/practice_exchange.h"
#include "io/pty_port.h"
#include "io/qt_event_server.h"
#include "io/stop_signals.h"
#include "io/tcp_listener.h"
#include "platform/instance_lock.h"
#include "platform/posix_file_system.h"
#include "programs/given_text.h"
#include "programs/uses.h"

namespace tarvok::programs {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kBadCommandLine = 2;

constexpr const char* kAbout =
    "The practice exchange: plays an exchange for Tarvok Setup, so that everything can be tried without "
    "one.\n";

constexpr const char* kFooter = R"(
Start one of these and let the tool connect to it:
  tarvok-exchange --version 110 --store ~/practice --lan 4001       the tool's "LAN" to 127.0.0.1, port 4001
  tarvok-exchange --version 110 --store ~/practice --serial ~/pbx   a serial port with the device ~/pbx

When everything listens, one line is printed: "ready" and the addresses, such as
  ready lan=127.0.0.1:4001 serial=~/pbx
What the exchange refuses is answered by an error reply, and one line on standard error says why.
SIGTERM or Ctrl+C ends it; the store is written, exit status 0. Exit status 1: a port, link or file failed.
Exit status 2: the command line is wrong.

The store is a folder, made if it is missing: 01.bin to 46.bin hold the sections as they came, minibar.bin 512 records
of 32 bytes, billing/N.bin the sectors of table N, mode the mode's number, clock the six bytes of the last time in
hexadecimal, passwords a line "LEVEL BYTES" for each level. A section that never came loads as that of an empty project.

Passwords: level 1 opens everything, level 2 the billing tables and the mini bar, level 3 the mini bar alone. Without
any password, given or stored, every password passes.

Faults, a comma list. A unit is a frame of the link, a message of a LAN, a packet of a server; P runs from 0 to 1:
  drop=P  flip=P  dup=P   a unit is lost, has one bit turned over, comes twice, in either direction
  error-reply=P           a command is answered by an error and not carried out
  delay=MS                what the exchange sends leaves so much later
  silent-after=N          behind N units of the tool the line is dead
  hangup-after=N          behind N units of the tool the exchange hangs up
Each connection begins anew with the same --seed, and the same units then suffer the same.)";

struct Options {
  int version = 0;
  std::string store;
  std::vector<std::string> passwords;
  std::optional<int> lan;
  std::optional<int> lan_serial;
  std::optional<int> server;
  std::string listen = "127.0.0.1";
  std::string serial;
  std::string modem;
  std::string faults;
  LineConditions conditions;
};

void DescribeOptions(CLI::App& app, Options& options) {
  app.footer(kFooter);
  app.add_option("--version", options.version, "The exchange's version in hundredths: 110 is 1.10")
      ->required()
      ->check(CLI::Range(1, 65535));
  app.add_option("--store", options.store, "Folder of what the exchange holds")->required()->check(IsGiven);
  app.add_option("--password", options.passwords, "Passwords of level 1, 2 and 3, up to six digits each")
      ->expected(1, kPasswordLevels);
  const CLI::Range ports(0, 65535);
  app.add_option("--lan", options.lan, "TCP port for \"LAN\"; 0 takes a free one")->check(ports);
  app.add_option("--lan-serial", options.lan_serial, "TCP port for \"LAN to Serial\"")->check(ports);
  app.add_option("--server", options.server, "TCP port for \"Server\"")->check(ports);
  app.add_option("--listen", options.listen, "Address to listen on")->check(IsGiven)->capture_default_str();
  app.add_option("--serial", options.serial, "Link to a pseudo terminal for \"Serial\"")->check(IsGiven);
  app.add_option("--modem", options.modem, "Link to a pseudo terminal with a modem for \"Modem\"")
      ->check(IsGiven);
  app.add_option("--faults", options.faults, "Damages the traffic, see below")->check(IsGiven);
  app.add_option("--seed", options.conditions.seed, "Which damage the faults do")->capture_default_str();
  app.add_option("--bps", options.conditions.speed_bps, "Paces the bytes as a line of so many bit/s would")
      ->check(CLI::Range(50, 4'000'000));
}

/** "" if the texts among the options are good, else what is wrong; fills what is made of them. */
std::string Interpret(Options& options, LevelPasswords& passwords) {
  int level = 0;
  for (const std::string& digits : options.passwords) {
    const std::optional<PackedPassword> packed = PackPassword(digits);
    if (!packed) return "--password: one to six digits are wanted";
    if (++level > kPasswordLevels) return "--password: there are only three levels";
    passwords.Set(level, *packed);
  }
  if (!options.faults.empty()) {
    const Result<FaultPlan> plan = ParseFaultPlan(options.faults);
    if (!plan.ok()) return "--faults: " + plan.status().message();
    options.conditions.faults = plan.value();
  }
  const bool listens = options.lan || options.lan_serial || options.server;
  if (!listens && options.serial.empty() && options.modem.empty()) {
    return "nothing to listen on: give one of --lan, --lan-serial, --server, --serial, --modem";
  }
  return "";
}

void Tell(std::string_view line) {
  std::cerr << "tarvok-exchange: " << line << std::endl;
}

/** The lines of one exchange: what listens, and what the "ready" line says of it. */
class Lines {
 public:
  explicit Lines(PracticeExchange& exchange) : exchange_(exchange) {}

  Status Listen(std::string_view name, Wire wire, const std::string& address, std::optional<int> port) {
    if (!port) return {};
    auto listener = std::make_unique<TcpListener>(
        [this, wire](std::unique_ptr<Port> connection) { exchange_.Accept(std::move(connection), wire); });
    if (Status listening = listener->Listen(address, *port); !listening.ok()) return listening;
    const bool long_address = address.find(':') != std::string::npos;
    Ready(name, (long_address ? '[' + address + ']' : address) + ':' + std::to_string(listener->port()));
    listeners_.push_back(std::move(listener));
    return {};
  }

  Status OpenSerial(const std::string& link) {
    if (link.empty()) return {};
    auto terminal = std::make_unique<PtyPort>(link);
    if (terminal->state() != PortState::kOpen) return {ErrorKind::kInputOutput, terminal->error()};
    // An exchange that hung up for practice must be there for the next try.
    exchange_.Accept(std::move(terminal), Wire::kLink, [this, link] {
      if (const Status again = OpenSerial(link); !again.ok()) Tell(again.message());
    });
    return {};
  }

  Status OpenModem(const std::string& link) {
    if (link.empty()) return {};
    auto terminal = std::make_unique<PtyPort>(link);
    if (terminal->state() != PortState::kOpen) return {ErrorKind::kInputOutput, terminal->error()};
    PtyPort& line = *terminal;
    Modem& modem = exchange_.AcceptModem(std::move(terminal));
    line.set_on_released([&modem] { modem.LoseControlLines(); });
    return {};
  }

  Status Open(const Options& options) {
    for (const auto& [name, wire, port] : {std::tuple("lan", Wire::kLan, options.lan),
                                           std::tuple("lan-serial", Wire::kLink, options.lan_serial),
                                           std::tuple("server", Wire::kServer, options.server)}) {
      if (Status opened = Listen(name, wire, options.listen, port); !opened.ok()) return opened;
    }
    if (Status opened = OpenSerial(options.serial); !opened.ok()) return opened;
    if (Status opened = OpenModem(options.modem); !opened.ok()) return opened;
    if (!options.serial.empty()) Ready("serial", options.serial);
    if (!options.modem.empty()) Ready("modem", options.modem);
    return {};
  }

  const std::string& ready() const { return ready_; }

 private:
  void Ready(std::string_view name, const std::string& where) {
    ready_ += ' ' + std::string(name) + '=' + where;
  }

  PracticeExchange& exchange_;
  std::vector<std::unique_ptr<TcpListener>> listeners_;
  std::string ready_ = "ready";
};

int Run(const Options& options, const LevelPasswords& passwords) {
  std::error_code failed;
  std::filesystem::create_directories(options.store + "/billing", failed);
  if (failed) {
    Tell(options.store + ": " + failed.message());
    return kFailed;
  }
  const InstanceLock lock(options.store + "/.lock");
  if (lock.held_elsewhere()) {
    Tell(options.store + ": another practice exchange works with this folder");
    return kFailed;
  }
  QtEventServer events;
  bool stop = false;
  const StopSignals signals([&stop] { stop = true; });
  PosixFileSystem files;
  ExchangeMemory memory(options.version);
  ExchangeStore store(events, files, options.store, memory, Tell);
  if (const Status loaded = store.Load(); !loaded.ok()) {
    Tell(loaded.message());
    return kFailed;
  }
  memory.AddPasswords(passwords);
  PracticeExchange exchange(events, memory, options.conditions, Tell);
  Lines lines(exchange);
  if (const Status opened = lines.Open(options); !opened.ok()) {
    Tell(opened.message());
    return kFailed;
  }
  if (!(std::cout << lines.ready() << std::endl)) {  // somebody waits for it
    Tell("standard output could not be written");
    return kFailed;
  }
  events.ServeUntil([&stop] { return stop; }, EventServer::kForever);
  if (const Status written = store.Flush(); !written.ok()) {
    Tell(written.message());
    return kFailed;
  }
  return kDone;
}

int Main(int argc, char** argv) {
  CLI::App app(kAbout, "tarvok-exchange");
  Options options;
  DescribeOptions(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kBadCommandLine;
  }
  LevelPasswords passwords;
  if (const std::string wrong = Interpret(options, passwords); !wrong.empty()) {
    Tell(wrong);
    return kBadCommandLine;
  }
  const QCoreApplication application(argc, argv);
  return Run(options, passwords);
}

}  // namespace
}  // namespace tarvok::programs

int main(int argc, char** argv) {
  // A reader of our output that goes away is no reason to die with the store unwritten.
  std::signal(SIGPIPE, SIG_IGN);
  return tarvok::programs::Main(argc, argv);
}
