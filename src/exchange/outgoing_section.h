#pragma once

#include <functional>
#include <string>
#include <utility>

#include "exchange/message_end.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "link/frame.h"

namespace tarvok::exchange {

/**
 * Sends a section in packs, each after the tool's "OK" to the previous one. If no "OK" comes, the tool is
 * asked for the last sequence byte that it received, because it would store a repeated pack twice. If it does
 * not answer enquiries, the section is sent again from its first pack, which is always safe.
 */
class OutgoingSection {
 public:
  OutgoingSection(EventServer& events, MessageEnd& end, Complain complain)
      : events_(events), end_(end), complain_(std::move(complain)) {}
  ~OutgoingSection() { Stop(); }
  OutgoingSection(const OutgoingSection&) = delete;
  OutgoingSection& operator=(const OutgoingSection&) = delete;

  void Start(int number, Bytes image);
  void Stop();
  /** Takes the tool's "OK". */
  void TakeOk();
  /** Takes the tool's reply to an enquiry. */
  void TakeSequence(std::uint8_t sequence);

 private:
  void Begin();
  void SendPack();
  void SendAgain();
  void Wait();
  void OnPatienceEnded();

  EventServer& events_;
  MessageEnd& end_;
  Complain complain_;
  int number_ = 0;
  Bytes image_;
  std::size_t offset_ = 0;  // end of the last pack sent
  std::uint8_t sequence_ = 0;
  Bytes pack_;
  bool under_way_ = false;
  bool enquiring_ = false;
  int enquiries_ = 0;
  int begins_ = 0;
  EventServer::TimerId patience_ = 0;
};

}  // namespace tarvok::exchange
