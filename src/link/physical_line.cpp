#include "link/physical_line.h"

#include <algorithm>
#include <utility>

namespace tarvok::link {

void PhysicalLine::PhysicalSend(std::span<const std::uint8_t> bytes) {
  if (!IsOpen()) {
    const Transport& transport = TransportOf(mode_);
    if (UsesSocket(mode_) && transport.wire != Wire::kServer) log_.DebugLine("cann't send, winsock not open");
    if (transport.port == PortKind::kModem) log_.DebugLine("cann't send, comport not open");
    return;
  }
  if (TransportOf(mode_).port == PortKind::kSerial) {
    SendInPieces(bytes);
  } else {
    // If the port accepts nothing, the reply does not come and the message layer retries.
    [[maybe_unused]] const bool taken = port_->Send(bytes);
  }
  if (log_.debug()) log_.Line(HexDump(bytes));
}

void PhysicalLine::SendInPieces(std::span<const std::uint8_t> bytes) {
  const std::size_t size = chunk_size_ <= 0 ? bytes.size() : static_cast<std::size_t>(chunk_size_);
  while (!bytes.empty()) {
    const std::size_t piece = std::min(size, bytes.size());
    if (!port_->Send(bytes.first(piece))) return;
    bytes = bytes.subspan(piece);
  }
}

void PhysicalLine::Take(std::unique_ptr<Port> port) {
  Close();
  port_ = std::move(port);
}

void PhysicalLine::Close() {
  if (port_ == nullptr) return;
  const std::unique_ptr<Port> closing = std::exchange(port_, nullptr);
  closing->set_on_bytes({});
  closing->set_on_closed({});
  closing->Close();
}

}  // namespace tarvok::link
