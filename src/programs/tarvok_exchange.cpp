// tarvok-exchange: the practice exchange. Simulates an exchange on all five transports, so that the tool can
// be learned, demonstrated and tested without a real one.

#include <csignal>
#include <filesystem>
#include <iostream>
#include <map>
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
    "The practice exchange: simulates an exchange for Tarvok Setup, so that everything can be tried without "
    "a real one.\n";

constexpr const char* kFooter = R"(
Start it in one of these ways and connect the tool to it:
  tarvok-exchange --version 110 --store ~/practice --lan 4001       the tool's "LAN" to 127.0.0.1, port 4001
  tarvok-exchange --version 110 --store ~/practice --serial ~/pbx   a serial port with the device ~/pbx

When it is ready, it prints one line: "ready" and the addresses, such as
  ready lan=127.0.0.1:4001 serial=~/pbx
A message that the exchange refuses gets an error reply, and one line on standard error says why.
SIGTERM or Ctrl+C ends the program: it writes the store and exits with status 0.
Exit status 1: a port, link or file failed. Exit status 2: the command line is wrong.

The store is a folder, which is created if necessary. It contains 01.bin to 46.bin (the sections as received),
minibar.bin (512 records of 32 bytes), billing/N.bin (the sectors of table N), mode (the number of the mode),
clock (the six bytes of the last time, in hexadecimal) and passwords (a line "LEVEL BYTES" for each level).
A section that was never sent loads as that of an empty project.

Passwords: level 1 permits everything, level 2 the billing tables and the mini bar, level 3 only the mini bar.
If no password is given or stored, every password is accepted.

Faults are a comma-separated list. A unit is a frame of the link, a message of a LAN or a packet of a server;
P is a probability from 0 to 1:
  drop=P  flip=P  dup=P   a unit is lost, has one bit inverted, or is duplicated, in either direction
  error-reply=P           a command gets an error reply and is not carried out
  delay=MS                everything that the exchange sends is delayed by MS milliseconds
  silent-after=N          the line goes dead after N units from the tool
  hangup-after=N          the exchange hangs up after N units from the tool
Each connection starts again with the same --seed, so that the same units are damaged in the same way.)";

struct Options {
  int version = 0;
  std::string store;
  std::vector<std::string> passwords;
  // Where each transport is served: a TCP port, or a link to a pseudo terminal.
  std::map<LinkMode, std::optional<int>> tcp_ports;
  std::map<LinkMode, std::string> terminals;
  std::string listen = "127.0.0.1";
  std::string faults;
  LineConditions conditions;
};

/** The transports in the order of their options and of the "ready" line: networks before terminals. */
std::vector<Transport> Served() {
  std::vector<Transport> served;
  for (const Transport& transport : kTransports) {
    served.insert(UsesSocket(transport.mode) ? served.begin() : served.end(), transport);
  }
  return served;
}

std::string OptionOf(const Transport& transport) {
  return "--" + std::string(transport.option);
}

void DescribeOptions(CLI::App& app, Options& options) {
  app.footer(kFooter);
  app.add_option("--version", options.version, "Version of the exchange in hundredths: 110 is 1.10")
      ->required()
      ->check(CLI::Range(1, 65535));
  app.add_option("--store", options.store, "Folder for the data of the exchange")->required()->check(IsGiven);
  app.add_option("--password", options.passwords, "Passwords of level 1, 2 and 3, up to six digits each")
      ->expected(1, kPasswordLevels);
  for (const Transport& transport : Served()) {
    if (!UsesSocket(transport.mode)) continue;
    const std::string about = "TCP port for \"" + std::string(transport.name) + "\"";
    app.add_option(OptionOf(transport), options.tcp_ports[transport.mode],
                   transport.mode == LinkMode::kLan ? about + "; 0 picks a free one" : about)
        ->check(CLI::Range(0, 65535));
  }
  app.add_option("--listen", options.listen, "Address to listen on")->check(IsGiven)->capture_default_str();
  for (const Transport& transport : Served()) {
    if (UsesSocket(transport.mode)) continue;
    const std::string modem = transport.port == PortKind::kModem ? "with a modem " : "";
    app.add_option(OptionOf(transport), options.terminals[transport.mode],
                   "Link to a pseudo terminal " + modem + "for \"" + std::string(transport.name) + "\"")
        ->check(IsGiven);
  }
  app.add_option("--faults", options.faults, "Damage the traffic, see below")->check(IsGiven);
  app.add_option("--seed", options.conditions.seed, "Seed of the random faults")->capture_default_str();
  app.add_option("--bps", options.conditions.speed_bps, "Pace the bytes like a line of this speed in bit/s")
      ->check(CLI::Range(50, 4'000'000));
}

/** Parses the texts among the options; returns "" or what is wrong. */
std::string Interpret(Options& options, LevelPasswords& passwords) {
  int level = 0;
  for (const std::string& digits : options.passwords) {
    const std::optional<PackedPassword> packed = PackPassword(digits);
    if (!packed) return "--password: one to six digits are required";
    if (++level > kPasswordLevels) return "--password: there are only three levels";
    passwords.Set(level, *packed);
  }
  if (!options.faults.empty()) {
    const Result<FaultPlan> plan = ParseFaultPlan(options.faults);
    if (!plan.ok()) return "--faults: " + plan.status().message();
    options.conditions.faults = plan.value();
  }
  std::string all;
  for (const Transport& transport : Served()) {
    if (options.tcp_ports[transport.mode] || !options.terminals[transport.mode].empty()) return "";
    all += (all.empty() ? "" : ", ") + OptionOf(transport);
  }
  return "nothing to listen on: give one of " + all;
}

void Tell(std::string_view line) {
  std::cerr << "tarvok-exchange: " << line << std::endl;
}

/** The lines of an exchange: the open listeners and terminals, and the text of the "ready" line. */
class Lines {
 public:
  explicit Lines(PracticeExchange& exchange) : exchange_(exchange) {}

  /** Serves every transport that the options name. */
  Status Open(Options& options) {
    for (const Transport& transport : Served()) {
      const std::optional<int> port = options.tcp_ports[transport.mode];
      const std::string& link = options.terminals[transport.mode];
      if (port) {
        if (Status opened = Listen(transport, options.listen, *port); !opened.ok()) return opened;
      } else if (!link.empty()) {
        if (Status opened = OpenTerminal(transport, link); !opened.ok()) return opened;
        Ready(transport, link);
      }
    }
    return {};
  }

  const std::string& ready() const { return ready_; }

 private:
  Status Listen(const Transport& transport, const std::string& address, int port) {
    auto listener =
        std::make_unique<TcpListener>([this, wire = transport.wire](std::unique_ptr<Port> connection) {
          exchange_.Accept(std::move(connection), wire);
        });
    if (Status listening = listener->Listen(address, port); !listening.ok()) return listening;
    const bool long_address = address.find(':') != std::string::npos;
    Ready(transport, (long_address ? '[' + address + ']' : address) + ':' + std::to_string(listener->port()));
    listeners_.push_back(std::move(listener));
    return {};
  }

  Status OpenTerminal(const Transport& transport, const std::string& link) {
    auto terminal = std::make_unique<PtyPort>(link);
    if (terminal->state() != PortState::kOpen) return {ErrorKind::kInputOutput, terminal->error()};
    if (transport.port == PortKind::kModem) {
      PtyPort& line = *terminal;
      Modem& modem = exchange_.AcceptModem(std::move(terminal));
      line.set_on_released([&modem] { modem.LoseControlLines(); });
      return {};
    }
    // An exchange that hung up for practice must accept the next attempt.
    exchange_.Accept(std::move(terminal), transport.wire, [this, transport, link] {
      if (const Status again = OpenTerminal(transport, link); !again.ok()) Tell(again.message());
    });
    return {};
  }

  void Ready(const Transport& transport, const std::string& where) {
    ready_ += ' ' + std::string(transport.option) + '=' + where;
  }

  PracticeExchange& exchange_;
  std::vector<std::unique_ptr<TcpListener>> listeners_;
  std::string ready_ = "ready";
};

int Run(Options& options, const LevelPasswords& passwords) {
  std::error_code failed;
  std::filesystem::create_directories(options.store + "/billing", failed);
  if (failed) {
    Tell(options.store + ": " + failed.message());
    return kFailed;
  }
  const InstanceLock lock(options.store + "/.lock");
  if (lock.held_elsewhere()) {
    Tell(options.store + ": another practice exchange is using this folder");
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
  if (!(std::cout << lines.ready() << std::endl)) {  // somebody waits for this line
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
  // Do not die when the reader of our output goes away: the store must still be written.
  std::signal(SIGPIPE, SIG_IGN);
  return tarvok::programs::Main(argc, argv);
}
