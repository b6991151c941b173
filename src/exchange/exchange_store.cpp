#include "exchange/exchange_store.h"

#include <charconv>

#include "exchange/hex_text.h"
#include "sections/registry.h"
#include "store/whole_write.h"

namespace tarvok::exchange {
namespace {

using Kind = MemoryPart::Kind;

constexpr int kWriteDelay_ms = 100;
constexpr int kMostTables = 256;
constexpr int kMostSections = 100;

Bytes ToBytes(const std::string& text) {
  return {text.begin(), text.end()};
}
std::string ToText(std::span<const std::uint8_t> bytes) {
  return {bytes.begin(), bytes.end()};
}

/** Parses a mode; nullopt if the text is not one. */
std::optional<ExchangeMode> ModeOf(const std::string& text) {
  int number = -1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return ModeOfNumber(number);
}

}  // namespace

ExchangeStore::ExchangeStore(EventServer& events, FileSystem& files, std::string folder,
                             ExchangeMemory& memory, Complain complain)
    : events_(events),
      files_(files),
      folder_(std::move(folder)),
      memory_(memory),
      complain_(std::move(complain)) {
  memory_.set_on_change([this](MemoryPart part) { OnChange(part); });
}

ExchangeStore::~ExchangeStore() {
  memory_.set_on_change({});
  events_.StopTimer(write_timer_);
}

std::string ExchangeStore::PathOf(MemoryPart part) const {
  const std::string number = std::to_string(part.number);
  switch (part.kind) {
    case Kind::kSection:
      return folder_ + '/' + (part.number < 10 ? "0" : "") + number + ".bin";
    case Kind::kMiniBar:
      return folder_ + "/minibar.bin";
    case Kind::kBilling:
      return folder_ + "/billing/" + number + ".bin";
    case Kind::kMode:
      return folder_ + "/mode";
    case Kind::kClock:
      return folder_ + "/clock";
    case Kind::kPasswords:
      break;
  }
  return folder_ + "/passwords";
}

std::string ExchangeStore::BytesOf(MemoryPart part) const {
  switch (part.kind) {
    case Kind::kSection:
      return ToText(memory_.sections()[part.number]);
    case Kind::kMiniBar:
      return ToText(memory_.mini_bar());
    case Kind::kBilling:
      return ToText(memory_.billing()[part.number].bytes);
    case Kind::kMode:
      return std::to_string(static_cast<int>(memory_.mode())) + '\n';
    case Kind::kClock:
      return memory_.clock() ? HexText(*memory_.clock()) + '\n' : "";
    case Kind::kPasswords:
      break;
  }
  return memory_.passwords().Text();
}

Status ExchangeStore::Load() {
  std::vector<MemoryPart> parts = {{Kind::kMiniBar}, {Kind::kMode}, {Kind::kClock}, {Kind::kPasswords}};
  for (int number = 1; number < kMostSections; ++number) parts.push_back({Kind::kSection, number});
  for (int table = 0; table < kMostTables; ++table) parts.push_back({Kind::kBilling, table});
  for (const MemoryPart& part : parts) {
    if (Status loaded = LoadPart(part); !loaded.ok()) return loaded;
  }
  changed_.clear();
  return {};
}

Status ExchangeStore::LoadPart(MemoryPart part) {
  const std::string path = PathOf(part);
  const Result<std::string> bytes = files_.Read(path);
  if (bytes.status().kind() == ErrorKind::kNotFound) return {};
  if (!bytes.ok()) return bytes.status();
  const std::string wrong = Take(part, bytes.value());
  if (wrong.empty()) return {};
  return {ErrorKind::kBadData, path + ": " + wrong};
}

std::string ExchangeStore::Take(MemoryPart part, const std::string& bytes) {
  const int size = static_cast<int>(bytes.size());
  switch (part.kind) {
    case Kind::kSection: {
      std::string wrong = memory_.RefuseSection(part.number, size);
      if (wrong.empty()) memory_.SetSection(part.number, ToBytes(bytes));
      return wrong;
    }
    case Kind::kMiniBar:
      if (bytes.size() != memory_.mini_bar().size()) return "not 512 records of 32 bytes";
      memory_.mini_bar() = ToBytes(bytes);
      return "";
    case Kind::kBilling:
      memory_.billing()[part.number].bytes = ToBytes(bytes);
      return "";
    case Kind::kMode: {
      const std::optional<ExchangeMode> mode = ModeOf(bytes);
      if (mode) memory_.set_mode(*mode);
      return mode ? "" : "not a mode";
    }
    case Kind::kClock: {
      const std::optional<Bytes> clock = ParseHex(bytes);
      if (clock && clock->size() == kTimeSize) memory_.set_clock(*clock);
      return clock && (clock->empty() || clock->size() == kTimeSize) ? "" : "not a clock";
    }
    case Kind::kPasswords:
      break;
  }
  LevelPasswords passwords;
  if (!passwords.Read(bytes)) return "not passwords";
  memory_.AddPasswords(passwords);
  return "";
}

void ExchangeStore::OnChange(MemoryPart part) {
  if (changed_.empty()) {
    write_timer_ = events_.CallLater(kWriteDelay_ms, [this] {
      if (const Status written = WriteChanged(); !written.ok()) complain_("store: " + written.message());
    });
  }
  changed_.insert(part);
}

Status ExchangeStore::WriteChanged() {
  Status first;
  for (const MemoryPart& part : std::exchange(changed_, {})) {
    Status written = WriteWhole(files_, PathOf(part), BytesOf(part));
    if (!written.ok() && first.ok()) first = std::move(written);
  }
  return first;
}

Status ExchangeStore::Flush() {
  events_.StopTimer(write_timer_);
  changed_.insert({{Kind::kMiniBar}, {Kind::kMode}, {Kind::kClock}, {Kind::kPasswords}});
  return WriteChanged();
}

}  // namespace tarvok::exchange
