#include "exchange/conversation.h"

#include <utility>

#include "link/send_log.h"

namespace tarvok::exchange {
namespace {

constexpr std::size_t kAddressAt = 1;
constexpr std::size_t kSecondAt = 2;
constexpr std::uint8_t kDirect = 0xFF;

bool IsAnswer(std::uint8_t code) {
  return code == reply::kOk || code == reply::kSequence;
}
bool IsFirstPack(std::uint8_t code) {
  const MessageKind* kind = FindMessage(kFromTool, code);
  return kind != nullptr && kind->length == Length::kFirstPack;
}

std::string Bytes64(std::span<const std::uint8_t> message) {
  return HexDump(message.first(std::min<std::size_t>(message.size(), kMaxMessage)));
}

}  // namespace

Conversation::Conversation(EventServer& events, MessageEnd& end, ExchangeMemory& memory, Complain complain)
    : end_(end), memory_(memory), complain_(complain), outgoing_(events, end, std::move(complain)) {}

void Conversation::Take(Message message) {
  std::string refusal = RefuseShape(message);
  const std::uint8_t code = message.size() > kCodeAt ? message[kCodeAt] : 0;
  if (refusal.empty() && IsAnswer(code)) {
    TakeAnswer(message);
    return;
  }
  if (refusal.empty() && code != command::kEnquiry && error_wish_ && error_wish_()) {
    refusal = "refused for practice";
  }
  if (refusal.empty()) refusal = Handle(message);
  if (refusal.empty()) return;
  const MessageKind* kind = FindMessage(kFromTool, code);
  complain_((kind != nullptr ? std::string(kind->name) + ": " : std::string()) + refusal + " [" +
            Bytes64(message) + "]");
  // Never answer an answer: two sides that refuse each other's refusals would not stop.
  if (!IsAnswer(code)) Answer(reply::kError);
}

Conversation::Refusal Conversation::RefuseShape(Message message) {
  const std::string size = std::to_string(message.size()) + " bytes";
  if (message.size() < kHeader) return "a message of " + size + " is too short";
  if (message.size() > kMaxMessage) return "a message of " + size + " is too long";
  if (message[0] != kFromTool) return "a message that does not begin with 12H";
  const std::uint8_t code = message[kCodeAt];
  const MessageKind* kind = FindMessage(kFromTool, code);
  if (kind == nullptr) return "a message with an unknown code";
  // A directly connected tool also marks the second byte of its answers.
  const bool second_may_be_set = IsAnswer(code) && message[kAddressAt] == kDirect;
  if (message[kSecondAt] != 0 && !(second_may_be_set && message[kSecondAt] == kDirect))
    return "byte 2 is not 0";
  const auto least = static_cast<std::size_t>(kind->least);
  if (kind->length == Length::kFixed) {
    if (message.size() != least) return "the message has " + size + ", not " + std::to_string(least);
  } else if (message.size() < least) {
    return "a pack of " + size + " is too short";
  }
  return "";
}

Conversation::Refusal Conversation::Handle(Message message) {
  const std::uint8_t code = message[kCodeAt];
  if (code == command::kEnquiry) {
    const std::uint8_t due = packs_.due();
    Answer(reply::kSequence, {&due, 1});
    return "";
  }
  outgoing_.Stop();
  if (IsFirstPack(code) || code == command::kNextPack) return TakePack(message);
  packs_.Interrupt();
  switch (code) {
    case command::kSetMode:
      return SetMode(message[kHeader]);
    case command::kCheckPassword:
      return CheckPassword(message.subspan(kHeader));
    case command::kTime:
      return SetTime(message.subspan(kHeader));
    case command::kGetConfig:
      return GetSection(WordAt(message, kHeader));
    case command::kGetMiniBar:
      return GetMiniBar(WordAt(message, kHeader));
    case command::kGetVersion: {
      const std::array<std::uint8_t, 2> version = {LowByte(memory_.version()), HighByte(memory_.version())};
      Answer(reply::kVersion, version);
      return "";
    }
    default:
      return Ok();  // idle
  }
}

ExchangeMode Conversation::ModeFor(std::uint8_t code) {
  if (code == command::kBillingTable) return ExchangeMode::kBilling;
  if (code == command::kMiniBar || code == command::kGetMiniBar) return ExchangeMode::kMiniBar;
  return ExchangeMode::kConfiguration;
}

Conversation::Refusal Conversation::RefuseMode(ExchangeMode needed) const {
  if (memory_.mode() != needed) {
    return "needs mode " + std::to_string(static_cast<int>(needed)) + ", not " +
           std::to_string(static_cast<int>(memory_.mode()));
  }
  return allowed_ == needed ? "" : "no password was given for this mode";
}

Conversation::Refusal Conversation::TakePack(Message message) {
  if (packs_.IsRepeat(message)) return Ok();
  const bool first = message[kCodeAt] != command::kNextPack;
  if (first) {
    if (Refusal wrong = RefuseData(message); !wrong.empty()) {
      packs_.Interrupt();
      return wrong;
    }
  }
  IncomingPacks::Outcome outcome = first ? packs_.TakeFirst(message) : packs_.TakeNext(message);
  if (!outcome.refusal.empty()) return std::move(outcome.refusal);
  if (outcome.whole) Store(*outcome.whole);
  return Ok();
}

Conversation::Refusal Conversation::RefuseData(Message first_pack) const {
  const std::uint8_t code = first_pack[kCodeAt];
  if (Refusal wrong = RefuseMode(ModeFor(code)); !wrong.empty()) return wrong;
  const int number = IncomingPacks::NumberOf(first_pack);
  const int size = IncomingPacks::SizeOf(first_pack);
  if (code == command::kBillingTable) return memory_.RefuseSector(number % 256, number / 256, size);
  if (code == command::kMiniBar) return memory_.RefuseMiniBar(number, size);
  return memory_.RefuseSection(number, size);
}

void Conversation::Store(const IncomingData& data) {
  if (data.code == command::kBillingTable) {
    memory_.SetSector(data.number % 256, data.number / 256, data.bytes);
  } else if (data.code == command::kMiniBar) {
    memory_.SetMiniBar(data.number, data.bytes);
  } else {
    memory_.SetSection(data.number, data.bytes);
  }
}

Conversation::Refusal Conversation::SetMode(int number) {
  const std::optional<ExchangeMode> mode = ModeOfNumber(number);
  if (!mode) return "there is no mode " + std::to_string(number);
  if (allowed_ != *mode) allowed_.reset();
  memory_.set_mode(*mode);
  return Ok();
}

Conversation::Refusal Conversation::CheckPassword(Message password) {
  if (memory_.mode() == ExchangeMode::kNormal) return "a password before a mode was set";
  allowed_.reset();
  if (!memory_.passwords().Permits(password, memory_.mode())) {
    return "wrong password, or not for mode " + std::to_string(static_cast<int>(memory_.mode()));
  }
  allowed_ = memory_.mode();
  return Ok();
}

Conversation::Refusal Conversation::SetTime(Message time) {
  if (Refusal wrong = RefuseMode(ExchangeMode::kConfiguration); !wrong.empty()) return wrong;
  // Hour, minute, weekday (Sunday 0), day, month, year: two decimal digits each, except for the weekday.
  constexpr std::array<std::uint8_t, kTimeSize> kLeast = {0, 0, 0, 1, 1, 0};
  constexpr std::array<std::uint8_t, kTimeSize> kMost = {0x23, 0x59, 6, 0x31, 0x12, 0x99};
  for (std::size_t i = 0; i < kTimeSize; ++i) {
    if (time[i] < kLeast[i] || time[i] > kMost[i] || time[i] % 16 > 9) {
      return "byte " + std::to_string(i) + " of the time is out of range";
    }
  }
  memory_.set_clock({time.begin(), time.end()});
  return Ok();
}

Conversation::Refusal Conversation::GetSection(int number) {
  if (Refusal wrong = RefuseMode(ExchangeMode::kConfiguration); !wrong.empty()) return wrong;
  if (Refusal wrong = memory_.RefuseRead(number); !wrong.empty()) return wrong;
  outgoing_.Start(number, memory_.SectionForLoad(number));
  return "";
}

Conversation::Refusal Conversation::GetMiniBar(int number) {
  if (Refusal wrong = RefuseMode(ExchangeMode::kMiniBar); !wrong.empty()) return wrong;
  if (Refusal wrong = memory_.RefuseMiniBar(number, kMiniBarRecordSize); !wrong.empty()) return wrong;
  // An unused byte, the number, then the part of the record that a load uses.
  Bytes payload = {0, LowByte(number), HighByte(number)};
  const std::span<const std::uint8_t> record = memory_.MiniBar(number).first(kMiniBarLoaded);
  payload.insert(payload.end(), record.begin(), record.end());
  Answer(reply::kMiniBarRecord, payload);
  return "";
}

void Conversation::TakeAnswer(Message message) {
  if (message[kCodeAt] == reply::kOk) {
    outgoing_.TakeOk();
  } else {
    outgoing_.TakeSequence(message[kSequenceAt]);
  }
}

void Conversation::Answer(std::uint8_t code, std::span<const std::uint8_t> payload) {
  Bytes message = {kFromExchange, 0, 0, code};
  message.insert(message.end(), payload.begin(), payload.end());
  end_.Send(message);
}

}  // namespace tarvok::exchange
