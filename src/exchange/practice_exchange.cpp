#include "exchange/practice_exchange.h"

#include <algorithm>

#include "exchange/conversation.h"
#include "exchange/faulty_port.h"
#include "exchange/link_end.h"
#include "exchange/paced_port.h"
#include "exchange/stream_end.h"

namespace tarvok::exchange {
namespace {

UnitCutter CutterOf(Wire wire) {
  switch (wire) {
    case Wire::kLink:
      return LinkUnit;
    case Wire::kServer:
      return ServerUnit;
    case Wire::kLan:
      break;
  }
  return LanUnit;
}

std::string_view NameOf(Wire wire) {
  switch (wire) {
    case Wire::kLink:
      return "link: ";
    case Wire::kServer:
      return "server: ";
    case Wire::kLan:
      break;
  }
  return "lan: ";
}

}  // namespace

/** A connected tool. The end and the conversation refer to each other; the port outlives both. */
struct PracticeExchange::Call {
  std::unique_ptr<Port> port;
  std::unique_ptr<MessageEnd> end;
  std::unique_ptr<Conversation> conversation;
  std::function<void()> on_end;
  EventServer::TimerId end_timer = 0;
};

PracticeExchange::PracticeExchange(EventServer& events, ExchangeMemory& memory,
                                   const LineConditions& conditions, Complain complain)
    : events_(events),
      memory_(memory),
      conditions_(conditions),
      complain_(std::move(complain)),
      error_chances_(conditions_.seed) {}

PracticeExchange::~PracticeExchange() {
  for (const auto& call : calls_) events_.StopTimer(call->end_timer);
  calls_.clear();
}

std::unique_ptr<Port> PracticeExchange::Paced(std::unique_ptr<Port> port) {
  if (!conditions_.speed_bps) return port;
  return std::make_unique<PacedPort>(events_, std::move(port), *conditions_.speed_bps);
}

void PracticeExchange::Accept(std::unique_ptr<Port> port, Wire wire, std::function<void()> on_end) {
  Serve(Paced(std::move(port)), wire, std::move(on_end));
}

Modem& PracticeExchange::AcceptModem(std::unique_ptr<Port> line) {
  modems_.push_back(std::make_unique<Modem>(
      events_, Paced(std::move(line)),
      [this](std::unique_ptr<Port> call) { Serve(std::move(call), Wire::kLink, {}); }));
  return *modems_.back();
}

void PracticeExchange::Serve(std::unique_ptr<Port> port, Wire wire, std::function<void()> on_end) {
  calls_.push_back(std::make_unique<Call>());
  Call& call = *calls_.back();
  call.on_end = std::move(on_end);
  call.port = std::move(port);
  if (conditions_.faults) {
    call.port = std::make_unique<FaultyPort>(events_, std::move(call.port), *conditions_.faults,
                                             conditions_.seed, CutterOf(wire));
  }
  const Complain complain = [this, name = NameOf(wire)](std::string_view line) {
    if (complain_) complain_(std::string(name) + std::string(line));
  };
  MakeEnd(call, wire, complain);
  call.conversation = std::make_unique<Conversation>(events_, *call.end, memory_, complain);
  call.end->set_on_message(
      [&call](std::span<const std::uint8_t> message) { call.conversation->Take(message); });
  if (conditions_.faults && conditions_.faults->error_reply > 0) {
    call.conversation->set_error_wish(
        [this] { return error_chances_.Happens(conditions_.faults->error_reply); });
  }
  // The port reports its end from its own code, so the call is removed from the event loop.
  call.port->set_on_closed([this, &call](std::string_view) {
    call.end_timer = events_.CallLater(0, [this, &call] { End(call); });
  });
}

void PracticeExchange::MakeEnd(Call& call, Wire wire, const Complain& complain) {
  const auto join = [&call](auto end) {
    call.port->set_on_bytes([end = end.get()](std::span<const std::uint8_t> bytes) { end->Take(bytes); });
    call.end = std::move(end);
  };
  if (wire == Wire::kLink) {
    join(std::make_unique<LinkEnd>(events_, *call.port, complain));
  } else if (wire == Wire::kServer) {
    join(std::make_unique<ServerEnd>(events_, *call.port, complain));
  } else {
    auto lan = std::make_unique<LanEnd>(events_, *call.port, complain);
    lan->set_pack_payload(
        [&call](std::uint8_t sequence) { return call.conversation->packs().PayloadOf(sequence); });
    join(std::move(lan));
  }
}

void PracticeExchange::End(Call& call) {
  const std::function<void()> on_end = std::move(call.on_end);
  std::erase_if(calls_, [&](const std::unique_ptr<Call>& held) { return held.get() == &call; });
  if (on_end) on_end();
}

}  // namespace tarvok::exchange
