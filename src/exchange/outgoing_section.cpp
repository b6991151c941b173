#include "exchange/outgoing_section.h"

#include <algorithm>
#include <array>

#include "link/message.h"

namespace tarvok::exchange {
namespace {

/**
 * Longer than the tool waits for a first pack before it asks again: recovering a lost first pack is up to the
 * tool.
 */
constexpr int kReplyPatience_ms = 4000;
constexpr int kMostEnquiries = 3;
constexpr int kMostBegins = 3;

}  // namespace

void OutgoingSection::Start(int number, Bytes image) {
  number_ = number;
  image_ = std::move(image);
  begins_ = 0;
  Begin();
}

void OutgoingSection::Stop() {
  under_way_ = false;
  events_.StopTimer(patience_);
}

void OutgoingSection::Begin() {
  under_way_ = true;
  ++begins_;
  sequence_ = 0;
  const int size = static_cast<int>(image_.size());
  pack_ = {
      kFromExchange, 0, 0, reply::kSection, sequence_, LowByte(number_), HighByte(number_), LowByte(size),
      HighByte(size)};
  offset_ = 0;
  SendPack();
}

void OutgoingSection::SendPack() {
  const std::size_t count = std::min(image_.size() - offset_, kMaxMessage - pack_.size());
  const auto from = image_.begin() + static_cast<std::ptrdiff_t>(offset_);
  pack_.insert(pack_.end(), from, from + static_cast<std::ptrdiff_t>(count));
  offset_ += count;
  enquiries_ = 0;
  SendAgain();
}

void OutgoingSection::SendAgain() {
  enquiring_ = false;
  end_.Send(pack_);
  Wait();
}

void OutgoingSection::Wait() {
  events_.StopTimer(patience_);
  patience_ = events_.CallLater(kReplyPatience_ms, [this] { OnPatienceEnded(); });
}

void OutgoingSection::TakeOk() {
  if (!under_way_) return;
  if (offset_ == image_.size()) {
    Stop();
    return;
  }
  ++sequence_;
  pack_ = {kFromExchange, 0, 0, reply::kNextPack, sequence_};
  SendPack();
}

void OutgoingSection::TakeSequence(std::uint8_t sequence) {
  if (!under_way_ || !enquiring_) return;
  if (sequence == sequence_) {
    TakeOk();
  } else {
    SendAgain();
  }
}

void OutgoingSection::OnPatienceEnded() {
  const std::string section = "section " + std::to_string(number_);
  if (++enquiries_ <= kMostEnquiries) {
    complain_("no OK to sequence " + std::to_string(sequence_) + " of " + section + ", enquiring");
    enquiring_ = true;
    const std::array<std::uint8_t, 4> enquiry = {kFromExchange, 0, 0, command::kEnquiry};
    end_.Send(enquiry);
    Wait();
  } else if (begins_ < kMostBegins) {
    complain_("no answer to enquiries, sending " + section + " from its start");
    Begin();
  } else {
    complain_("no answer, giving up " + section);
    Stop();
  }
}

}  // namespace tarvok::exchange
