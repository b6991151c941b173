#include "exchange/exchange_memory.h"

#include <algorithm>

#include "exchange/blank_images.h"

namespace tarvok::exchange {
namespace {

/** Exchanges below this version lack the last billing table. */
constexpr int kAllTablesFrom = 110;
constexpr int kBillingTables = 14;

/** The level whose password the section sets; 0 for any other section. */
int PasswordLevelOf(int section) {
  const auto found = std::find(kPasswordSections.begin(), kPasswordSections.end(), section);
  return found == kPasswordSections.end() ? 0 : static_cast<int>(found - kPasswordSections.begin()) + 1;
}

std::string Number(std::string_view what, int number) {
  return std::string(what) + ' ' + std::to_string(number);
}

std::string WrongSize(std::string what, int size, int wanted) {
  return std::move(what) + " has " + std::to_string(size) + " bytes, not " + std::to_string(wanted);
}

}  // namespace

std::optional<ExchangeMode> ModeOfNumber(int number) {
  for (const ExchangeMode mode : {ExchangeMode::kNormal, ExchangeMode::kConfiguration, ExchangeMode::kBilling,
                                  ExchangeMode::kMiniBar}) {
    if (static_cast<int>(mode) == number) return mode;
  }
  return std::nullopt;
}

std::string ExchangeMemory::RefuseSection(int number, int size) const {
  int wanted = kPasswordSize;
  if (PasswordLevelOf(number) == 0) {
    const Section* section = FindSection(number);
    wanted = SizeAt(number, version_, Direction::kSend);
    // Sections with a session of their own have no first version for sends of the configuration.
    const bool known = section != nullptr && (section->send_from <= version_ || section->send_from == kNever);
    if (!known || wanted == 0) return Number("there is no section", number) + Number(" at version", version_);
  }
  return size == wanted ? "" : WrongSize(Number("section", number), size, wanted);
}

std::string ExchangeMemory::RefuseRead(int number) const {
  const Section* section = FindSection(number);
  if (section != nullptr && section->load_from <= version_) return "";
  return Number("there is no section", number) + Number(" to read at version", version_);
}

std::string ExchangeMemory::RefuseMiniBar(int record, int size) const {
  if (record >= kMiniBarRows) return Number("there is no mini bar record", record);
  return size == kMiniBarRecordSize ? ""
                                    : WrongSize(Number("mini bar record", record), size, kMiniBarRecordSize);
}

std::string ExchangeMemory::RefuseSector(int table, int sector, int size) const {
  if (table >= (version_ < kAllTablesFrom ? kBillingTables - 1 : kBillingTables)) {
    return Number("there is no billing table", table) + Number(" at version", version_);
  }
  const auto found = billing_.find(table);
  const int due = found == billing_.end() ? 0 : found->second.sectors;
  // The first sector is always allowed, and so is a repetition of the last one.
  if (sector != 0 && sector != due && sector != due - 1) {
    return Number("billing table", table) + Number(": sector", sector) + Number(" where sector", due) +
           " is due";
  }
  if (size < 1 || size > kMostSectorBytes) return Number("a billing sector of", size) + " bytes";
  return "";
}

void ExchangeMemory::SetSection(int number, Bytes image) {
  if (const int level = PasswordLevelOf(number); level > 0) {
    PackedPassword password = {};
    std::copy_n(image.begin(), password.size(), password.begin());
    passwords_.Set(level, password);
    Changed(MemoryPart::Kind::kPasswords);
    return;
  }
  sections_[number] = std::move(image);
  Changed(MemoryPart::Kind::kSection, number);
}

Bytes ExchangeMemory::SectionForLoad(int number) const {
  const int size = SizeAt(number, version_, Direction::kLoad);
  const auto found = sections_.find(number);
  if (found == sections_.end()) return BlankImage(number, version_);
  if (static_cast<int>(found->second.size()) == size) return found->second;
  return RouteMapForLoad(found->second, version_);
}

void ExchangeMemory::SetMiniBar(int record, std::span<const std::uint8_t> bytes) {
  std::copy(bytes.begin(), bytes.end(), mini_bar_.begin() + std::ptrdiff_t{record} * kMiniBarRecordSize);
  Changed(MemoryPart::Kind::kMiniBar);
}

std::span<const std::uint8_t> ExchangeMemory::MiniBar(int record) const {
  return std::span(mini_bar_).subspan(static_cast<std::size_t>(record) * kMiniBarRecordSize,
                                      kMiniBarRecordSize);
}

void ExchangeMemory::SetSector(int table, int sector, const Bytes& bytes) {
  BillingTable& held = billing_[table];
  if (sector == 0) {
    held = {};
  } else if (sector == held.sectors - 1) {
    held.bytes.resize(held.last_sector_start);
  }
  held.last_sector_start = held.bytes.size();
  held.bytes.insert(held.bytes.end(), bytes.begin(), bytes.end());
  held.sectors = sector + 1;
  Changed(MemoryPart::Kind::kBilling, table);
}

void ExchangeMemory::set_mode(ExchangeMode mode) {
  if (mode_ == mode) return;
  mode_ = mode;
  Changed(MemoryPart::Kind::kMode);
}

void ExchangeMemory::AddPasswords(const LevelPasswords& passwords) {
  for (int level = 1; level <= kPasswordLevels; ++level) {
    if (const auto& password = passwords.Get(level)) passwords_.Set(level, *password);
  }
}

void ExchangeMemory::set_clock(Bytes clock) {
  clock_ = std::move(clock);
  Changed(MemoryPart::Kind::kClock);
}

}  // namespace tarvok::exchange
