#include "exchange/modem.h"

#include <algorithm>
#include <cctype>

namespace tarvok::exchange {
namespace {

constexpr int kDialling_ms = 500;
/** The silence required before and after a command during a call. */
constexpr int kGuard_ms = 1000;
/** The time within which such a command must be complete. */
constexpr int kHold_ms = 300;
constexpr std::size_t kMostCommand = 256;
constexpr std::string_view kHangUp = "ATH0";

std::string Upper(std::string_view text) {
  std::string upper;
  for (const char letter : text) {
    if (letter != ' ') upper += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  }
  return upper;
}

/** Removes the digits at the front of a text and returns them. */
std::string TakeDigits(std::string_view& text) {
  const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
  std::string digits(text.substr(0, count));
  text.remove_prefix(count);
  return digits;
}

}  // namespace

/** The exchange's side of a call. */
class ModemCall : public Port {
 public:
  explicit ModemCall(Modem& modem) : modem_(&modem) {}
  ~ModemCall() override { ModemCall::Close(); }

  PortState state() const override { return modem_ != nullptr ? PortState::kOpen : PortState::kClosed; }
  bool Send(std::span<const std::uint8_t> bytes) override {
    return modem_ != nullptr && modem_->line_->Send(bytes);
  }
  void Close() override {
    Modem* const modem = std::exchange(modem_, nullptr);
    if (modem == nullptr) return;
    modem->call_ = nullptr;
    modem->EndCall("");
    modem->Say("NO CARRIER");
  }

  void Give(std::span<const std::uint8_t> bytes) { GiveBytes(bytes); }
  void End(std::string_view reason) {
    modem_ = nullptr;
    GiveClosed(reason);
  }

 private:
  Modem* modem_;
};

Modem::Modem(EventServer& events, std::unique_ptr<Port> line, CallHandler on_call)
    : events_(events), line_(std::move(line)), on_call_(std::move(on_call)) {
  line_->set_on_bytes([this](std::span<const std::uint8_t> bytes) { Take(bytes); });
  line_->set_on_closed([this](std::string_view reason) { EndCall(reason); });
}

Modem::~Modem() {
  EndCall("the modem is gone");
}

void Modem::Take(std::span<const std::uint8_t> bytes) {
  // Dialling takes time: bytes that arrive meanwhile are lost.
  std::size_t at = 0;
  while (state_ == State::kCommand && at < bytes.size()) TakeCommandByte(bytes[at++]);
  if (state_ == State::kConnected && at < bytes.size()) TakeCallBytes(bytes.subspan(at));
}

void Modem::TakeCommandByte(std::uint8_t byte) {
  if (echo_) line_->Send({&byte, 1});
  if (byte == '\r') {
    const std::string line = Upper(std::exchange(command_, {}));
    if (!line.empty()) RunLine(line);
  } else if (byte == '\b') {
    if (!command_.empty()) command_.pop_back();
  } else if (byte >= ' ' && command_.size() < kMostCommand) {
    command_ += static_cast<char>(byte);
  }
}

void Modem::RunLine(std::string_view line) {
  const std::size_t start = line.find("AT");
  if (start == std::string_view::npos) return;
  line.remove_prefix(start);
  while (!line.empty()) {
    if (line.starts_with("AT")) {
      line.remove_prefix(2);
      continue;
    }
    const char command = line[0];
    line.remove_prefix(1);
    if (command == 'D') {
      Dial();
      return;
    }
    if (command == '&' && !line.empty()) line.remove_prefix(1);
    const std::string value = TakeDigits(line);
    if (command == 'E') echo_ = value == "1";
    if (command == 'Z' || command == '&') echo_ = true;
    if (command == 'S' && line.starts_with('=')) {
      line.remove_prefix(1);
      TakeDigits(line);
    }
    constexpr std::string_view kKnown = "EHILMQSVXZ&";
    if (kKnown.find(command) == std::string_view::npos) {
      Say("ERROR");
      return;
    }
  }
  Say("OK");
}

void Modem::Dial() {
  state_ = State::kDialling;
  events_.StopTimer(timer_);
  timer_ = events_.CallLater(kDialling_ms, [this] { Connect(); });
}

void Modem::Connect() {
  state_ = State::kConnected;
  held_.clear();
  last_byte_ms_ = events_.Tick_ms();
  Say("CONNECT 57600");
  auto call = std::make_unique<ModemCall>(*this);
  call_ = call.get();
  on_call_(std::move(call));
}

void Modem::TakeCallBytes(std::span<const std::uint8_t> bytes) {
  const std::int64_t now_ms = events_.Tick_ms();
  const bool after_silence = now_ms - last_byte_ms_ >= kGuard_ms;
  last_byte_ms_ = now_ms;
  if (held_.empty() && !after_silence) {
    if (call_ != nullptr) call_->Give(bytes);
    return;
  }
  held_.insert(held_.end(), bytes.begin(), bytes.end());
  const std::size_t compared = std::min(held_.size(), kHangUp.size());
  const bool may_be_command =
      std::equal(held_.begin(), held_.begin() + static_cast<std::ptrdiff_t>(compared), kHangUp.begin()) &&
      held_.size() <= kHangUp.size() + 1;
  events_.StopTimer(timer_);
  if (!may_be_command) {
    PassHeld();
  } else if (held_.size() < kHangUp.size()) {
    timer_ = events_.CallLater(kHold_ms, [this] { PassHeld(); });
  } else {
    EndCall("the tool hung up");
    Say("OK");
  }
}

void Modem::PassHeld() {
  const Bytes bytes = std::exchange(held_, {});
  if (call_ != nullptr) call_->Give(bytes);
}

void Modem::LoseControlLines() {
  EndCall("the tool's control lines dropped");
}

void Modem::EndCall(std::string_view reason) {
  events_.StopTimer(timer_);
  state_ = State::kCommand;
  command_.clear();
  held_.clear();
  if (ModemCall* const call = std::exchange(call_, nullptr)) call->End(reason);
}

void Modem::Say(std::string_view words) {
  const std::string text = "\r\n" + std::string(words) + "\r\n";
  line_->Send({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

}  // namespace tarvok::exchange
