// The simplest program that can talk over a serial line: it writes recorded bytes, and uses blocking reads to
// wait for as many bytes as had arrived at that point of the recording.
//
//   blocking_peer DEVICE SCRIPT
//
// A script's lines are "HEX COUNT": bytes to write, then the number of bytes to wait for before the next
// line. "- COUNT" writes nothing. Exit status 1 if the line stays silent for ten seconds.

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <string>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kSilence_ms = 10'000;

struct Round {
  std::vector<std::uint8_t> out;
  long in = 0;
};

std::vector<Round> ReadScript(const char* path) {
  std::ifstream file(path);
  std::vector<Round> rounds;
  std::string hex;
  for (long count = 0; file >> hex >> count;) {
    Round round;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
      round.out.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    round.in = count;
    rounds.push_back(round);
  }
  return rounds;
}

bool Play(int line, const Round& round, long& ahead) {
  if (!round.out.empty() &&
      ::write(line, round.out.data(), round.out.size()) != static_cast<ssize_t>(round.out.size()))
    return false;
  // Bytes that arrived too early for one round count for the next.
  for (ahead -= round.in; ahead < 0;) {
    pollfd ready = {line, POLLIN, 0};
    std::array<std::uint8_t, 4096> block = {};
    if (::poll(&ready, 1, kSilence_ms) <= 0) return false;
    const ssize_t got = ::read(line, block.data(), block.size());
    if (got <= 0) return false;
    ahead += got;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const int line = ::open(argv[1], O_RDWR | O_NOCTTY);
  termios settings = {};
  if (line < 0 || ::tcgetattr(line, &settings) != 0) return 1;
  ::cfmakeraw(&settings);
  ::tcsetattr(line, TCSANOW, &settings);
  long ahead = 0;
  for (const Round& round : ReadScript(argv[2])) {
    if (!Play(line, round, ahead)) {
      std::fputs("the line is silent\n", stderr);
      return 1;
    }
  }
  return 0;
}
