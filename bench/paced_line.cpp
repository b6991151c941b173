// A serial line between two programs: two pseudo terminals; every byte takes ten bits at the given speed and
// arrives after the given delay. Neither end does the pacing, so all runs use the same line at both ends.
//
//   paced_line BPS DELAY_US LINK_A END_B LOG
//
// Creates LINK_A. END_B is the existing device of a program, or else a link that is created like LINK_A.
// Prints "ready", runs until its input ends, and then writes the log: a line "TIME_US DIRECTION COUNT HEX"
// for each piece received, and "TIME_US direction COUNT" for each piece delivered at the other end; A and a
// are from A to B.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <deque>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <termios.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

std::int64_t Now_ns() {
  timespec now = {};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

struct Event {
  std::int64_t time_ns;
  char direction;
  Bytes bytes;        // of what came in
  std::size_t count;  // of either
};

/** Opens a terminal that passes every byte through unchanged. */
int OpenRaw(const char* device) {
  const int terminal = ::open(device, O_RDWR | O_NOCTTY | O_NONBLOCK);
  termios settings = {};
  if (terminal < 0 || ::tcgetattr(terminal, &settings) != 0) std::exit(1);
  ::cfmakeraw(&settings);
  ::tcsetattr(terminal, TCSANOW, &settings);
  return terminal;
}

/** Creates a pseudo terminal with a link to its device; returns our end. */
int MakeTerminal(const char* link) {
  const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
  if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0) std::exit(1);
  const char* device = ::ptsname(master);
  OpenRaw(device);  // never closed, so that programs may come and go
  ::unlink(link);
  if (::symlink(device, link) != 0) std::exit(1);
  return master;
}

/** One direction. A byte is due when the line has carried it and the delay has passed. */
class Lane {
 public:
  Lane(int from, int to, char name, std::int64_t byte_ns, std::int64_t delay_ns, std::vector<Event>& log)
      : from_(from), to_(to), name_(name), byte_ns_(byte_ns), delay_ns_(delay_ns), log_(log) {}

  void TakeIn() {
    std::array<std::uint8_t, 4096> block = {};
    const ssize_t got = ::read(from_, block.data(), block.size());
    if (got <= 0) return;
    const std::int64_t now = Now_ns();
    const Bytes bytes(block.begin(), block.begin() + got);
    log_.push_back({now, name_, bytes, bytes.size()});
    for (const std::uint8_t byte : bytes) {
      free_ns_ = std::max(free_ns_, now) + byte_ns_;
      on_the_way_.emplace_back(free_ns_ + delay_ns_, byte);
    }
  }

  void GiveDue() {
    const std::int64_t now = Now_ns();
    Bytes due;
    while (!on_the_way_.empty() && on_the_way_.front().first <= now) {
      due.push_back(on_the_way_.front().second);
      on_the_way_.pop_front();
    }
    if (due.empty()) return;
    if (::write(to_, due.data(), due.size()) != static_cast<ssize_t>(due.size())) std::exit(1);
    log_.push_back({Now_ns(), static_cast<char>(name_ - 'A' + 'a'), {}, due.size()});
  }

  /** Nanoseconds until the next byte; -1 if none is on its way. */
  std::int64_t Wait_ns() const {
    if (on_the_way_.empty()) return -1;
    return std::max<std::int64_t>(on_the_way_.front().first - Now_ns(), 0);
  }

  int from() const { return from_; }

 private:
  int from_;
  int to_;
  char name_;
  std::int64_t byte_ns_;
  std::int64_t delay_ns_;
  std::vector<Event>& log_;
  std::int64_t free_ns_ = 0;
  std::deque<std::pair<std::int64_t, std::uint8_t>> on_the_way_;
};

void WriteLog(const char* path, const std::vector<Event>& log) {
  std::FILE* file = std::fopen(path, "w");
  if (file == nullptr) std::exit(1);
  for (const Event& event : log) {
    std::fprintf(file, "%lld %c %zu ", static_cast<long long>(event.time_ns / 1000), event.direction,
                 event.count);
    for (const std::uint8_t byte : event.bytes) std::fprintf(file, "%02x", byte);
    std::fputc('\n', file);
  }
  std::fclose(file);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) return 2;
  const std::int64_t byte_ns = 10'000'000'000LL / std::atoll(argv[1]);
  const std::int64_t delay_ns = std::atoll(argv[2]) * 1000;
  const int a = MakeTerminal(argv[3]);
  const int b = ::access(argv[4], F_OK) == 0 ? OpenRaw(argv[4]) : MakeTerminal(argv[4]);
  std::vector<Event> log;
  log.reserve(200'000);
  std::array<Lane, 2> lanes = {Lane(a, b, 'A', byte_ns, delay_ns, log),
                               Lane(b, a, 'B', byte_ns, delay_ns, log)};
  std::puts("ready");
  std::fflush(stdout);
  while (true) {
    std::int64_t wait_ns = -1;
    for (const Lane& lane : lanes) {
      const std::int64_t next = lane.Wait_ns();
      if (next >= 0 && (wait_ns < 0 || next < wait_ns)) wait_ns = next;
    }
    std::array<pollfd, 3> ready = {pollfd{lanes[0].from(), POLLIN, 0}, pollfd{lanes[1].from(), POLLIN, 0},
                                   pollfd{STDIN_FILENO, POLLIN, 0}};
    const timespec timeout = {static_cast<time_t>(wait_ns / 1'000'000'000), wait_ns % 1'000'000'000};
    ::ppoll(ready.data(), ready.size(), wait_ns < 0 ? nullptr : &timeout, nullptr);
    if (ready[2].revents != 0) break;
    for (std::size_t i = 0; i < lanes.size(); ++i) {
      if ((ready[i].revents & POLLIN) != 0) lanes[i].TakeIn();
      lanes[i].GiveDue();
    }
  }
  WriteLog(argv[5], log);
  return 0;
}
