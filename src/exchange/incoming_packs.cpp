#include "exchange/incoming_packs.h"

#include <algorithm>
#include <utility>

#include "link/message.h"

namespace tarvok::exchange {

int IncomingPacks::NumberOf(std::span<const std::uint8_t> first_pack) {
  return WordAt(first_pack, kNumberAt);
}
int IncomingPacks::SizeOf(std::span<const std::uint8_t> first_pack) {
  return WordAt(first_pack, kSizeAt);
}

bool IncomingPacks::IsRepeat(std::span<const std::uint8_t> pack) const {
  return !last_pack_.empty() && std::equal(pack.begin(), pack.end(), last_pack_.begin(), last_pack_.end());
}

IncomingPacks::Outcome IncomingPacks::TakeFirst(std::span<const std::uint8_t> pack) {
  Interrupt();
  if (pack[kSequenceAt] != 0) {
    return {"a first pack with sequence " + std::to_string(pack[kSequenceAt]) + ", not 0"};
  }
  data_ = {pack[kCodeAt], NumberOf(pack), {}};
  size_ = static_cast<std::size_t>(SizeOf(pack));
  under_way_ = true;
  due_ = 0;
  return Add(pack, kFirstPackHeader);
}

IncomingPacks::Outcome IncomingPacks::TakeNext(std::span<const std::uint8_t> pack) {
  if (!under_way_) return {"a next pack without a first"};
  if (pack[kSequenceAt] != due_) {
    return {"a pack with sequence " + std::to_string(pack[kSequenceAt]) + ", not " + std::to_string(due_)};
  }
  return Add(pack, kSequencedHeader);
}

IncomingPacks::Outcome IncomingPacks::Add(std::span<const std::uint8_t> pack, std::size_t header) {
  const std::span<const std::uint8_t> payload = pack.subspan(header);
  const std::size_t wanted = std::min(size_ - data_.bytes.size(), kMaxMessage - header);
  if (payload.size() != wanted) {
    Interrupt();
    return {"a pack with " + std::to_string(payload.size()) + " bytes of data, not " +
            std::to_string(wanted)};
  }
  data_.bytes.insert(data_.bytes.end(), payload.begin(), payload.end());
  last_pack_.assign(pack.begin(), pack.end());
  ++due_;
  if (data_.bytes.size() < size_) return {};
  under_way_ = false;
  due_ = 0;
  return {"", std::move(data_)};
}

void IncomingPacks::Interrupt() {
  under_way_ = false;
  due_ = 0;
  last_pack_.clear();
}

int IncomingPacks::PayloadOf(std::uint8_t sequence) const {
  if (under_way_ && sequence == due_) {
    return static_cast<int>(std::min<std::size_t>(size_ - data_.bytes.size(), kSequencedPayload));
  }
  const bool last = !last_pack_.empty() && last_pack_[kCodeAt] == command::kNextPack;
  if (last && sequence == last_pack_[kSequenceAt])
    return static_cast<int>(last_pack_.size()) - kSequencedHeader;
  return -1;
}

}  // namespace tarvok::exchange
