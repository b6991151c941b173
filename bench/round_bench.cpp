// A round trip on loopback TCP: a command and its reply. Ours goes through the message layer and Qt's loop,
// the peer sends the same bytes with blocking calls; both take turns with the same answering thread.

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <chrono>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "io/qt_event_server.h"
#include "io/qt_tcp_port.h"
#include "link/exchange_line.h"
#include "tests/floors.h"

namespace tarvok::bench {
namespace {

constexpr std::array<std::uint8_t, 6> kVersionReply = {kFromExchange, 0, 0, reply::kVersion, 110, 0};
constexpr std::array<std::uint8_t, 4> kGetVersion = {kFromTool, 0xFF, 0, command::kGetVersion};

void SetNoDelay(int socket) {
  const int on = 1;
  ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

/** Answers every read of every connection with a version. */
class Answerer {
 public:
  explicit Answerer(std::size_t connections) : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(socket_, reinterpret_cast<const sockaddr*>(&address), size);
    ::listen(socket_, 4);
    ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    for (std::size_t i = 0; i < connections; ++i) threads_.emplace_back([this] { AnswerOne(); });
  }
  ~Answerer() {
    for (std::thread& thread : threads_) thread.join();
    ::close(socket_);
  }

  std::uint16_t port() const { return port_; }

 private:
  void AnswerOne() const {
    const int connection = ::accept(socket_, nullptr, nullptr);
    SetNoDelay(connection);
    std::array<std::uint8_t, 256> block = {};
    while (::read(connection, block.data(), block.size()) > 0) {
      if (::write(connection, kVersionReply.data(), kVersionReply.size()) < 0) break;
    }
    ::close(connection);
  }

  int socket_;
  std::uint16_t port_ = 0;
  std::vector<std::thread> threads_;
};

int Connect(std::uint16_t port) {
  const int connection = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  ::connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  SetNoDelay(connection);
  return connection;
}

bool BlockingRound(int connection) {
  std::array<std::uint8_t, 256> block = {};
  return ::write(connection, kGetVersion.data(), kGetVersion.size()) ==
             static_cast<ssize_t>(kGetVersion.size()) &&
         ::read(connection, block.data(), block.size()) == static_cast<ssize_t>(kVersionReply.size());
}

double Median(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void Round(benchmark::State& state) {
  const Answerer answerer(2);
  const int blocking = Connect(answerer.port());
  QtEventServer events;
  Waits waits(events);
  SendLog log{SendLog::Sink()};
  ExchangeLine line({.mode = LinkMode::kLan}, waits, log, [] { return false; });
  auto port = std::make_unique<QtTcpPort>("127.0.0.1", std::to_string(answerer.port()));
  Port& connecting = *port;
  waits.Until([&] { return connecting.state() != PortState::kConnecting; }, 5000);
  line.Take(std::move(port));

  std::vector<double> ours_us;
  std::vector<double> floor_us;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    const bool answered = line.messages().GetVersion();
    const auto middle = std::chrono::steady_clock::now();
    if (!answered || !BlockingRound(blocking)) {
      state.SkipWithError("no answer");
      break;
    }
    const auto end = std::chrono::steady_clock::now();
    ours_us.push_back(std::chrono::duration<double, std::micro>(middle - start).count());
    floor_us.push_back(std::chrono::duration<double, std::micro>(end - middle).count());
  }
  state.counters["ours_us"] = Median(ours_us);
  state.counters["floor_us"] = Median(floor_us);
  line.Close();
  ::close(blocking);
}

BENCHMARK(Round)->Name("round/loopback")->Iterations(5000);

}  // namespace
}  // namespace tarvok::bench
