#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "exchange/level_passwords.h"
#include "exchange/uses.h"
#include "link/frame.h"
#include "link/message.h"
#include "sections/registry.h"
#include "sections/system/mini_bar.h"

namespace tarvok::exchange {

/** Maximum size of a billing sector in bytes. */
inline constexpr int kMostSectorBytes = 512;

/** nullopt if the mode does not exist. */
std::optional<ExchangeMode> ModeOfNumber(int number);

/** The bytes of a billing table and the offset of its last sector. */
struct BillingTable {
  Bytes bytes;
  std::size_t last_sector_start = 0;
  int sectors = 0;  // received since the program started
};

/** A part of the memory that is kept in a file of its own. */
struct MemoryPart {
  enum class Kind { kSection, kMiniBar, kBilling, kMode, kClock, kPasswords };
  Kind kind;
  int number = 0;  // of the section or table

  bool operator<(const MemoryPart& other) const {
    return kind != other.kind ? kind < other.kind : number < other.number;
  }
};

/**
 * What an exchange of a given version stores. It accepts only data that exists in that version: the Refuse
 * functions return a text that says what is wrong, or "".
 */
class ExchangeMemory {
 public:
  /** `version` in hundredths. */
  explicit ExchangeMemory(int version) : version_(version) {}

  int version() const { return version_; }
  /** Called after each change. */
  void set_on_change(std::function<void(MemoryPart)> handler) { on_change_ = std::move(handler); }

  std::string RefuseSection(int number, int size) const;
  std::string RefuseRead(int number) const;
  std::string RefuseMiniBar(int record, int size) const;
  std::string RefuseSector(int table, int sector, int size) const;

  /** Sections 29 to 31 set a level's password. The size must be right. */
  void SetSection(int number, Bytes image);
  /**
   * The section in the version's layout, as a load receives it. A section that was never sent reads as that
   * of an empty project.
   */
  Bytes SectionForLoad(int number) const;
  void SetMiniBar(int record, std::span<const std::uint8_t> bytes);
  std::span<const std::uint8_t> MiniBar(int record) const;
  /** Sector 0 starts the table anew; a repeated sector replaces itself. */
  void SetSector(int table, int sector, const Bytes& bytes);

  ExchangeMode mode() const { return mode_; }
  void set_mode(ExchangeMode mode);
  const std::optional<Bytes>& clock() const { return clock_; }
  void set_clock(Bytes clock);
  const LevelPasswords& passwords() const { return passwords_; }
  /** Sets the passwords of the levels that have one in `passwords`, and leaves the others unchanged. */
  void AddPasswords(const LevelPasswords& passwords);

  /** The images as received, for the files. */
  std::map<int, Bytes>& sections() { return sections_; }
  Bytes& mini_bar() { return mini_bar_; }
  std::map<int, BillingTable>& billing() { return billing_; }

 private:
  void Changed(MemoryPart::Kind kind, int number = 0) {
    if (on_change_) on_change_({kind, number});
  }

  int version_;
  std::map<int, Bytes> sections_;
  Bytes mini_bar_ = Bytes(static_cast<std::size_t>(kMiniBarRows) * kMiniBarRecordSize, 0);
  std::map<int, BillingTable> billing_;
  ExchangeMode mode_ = ExchangeMode::kNormal;
  std::optional<Bytes> clock_;
  LevelPasswords passwords_;
  std::function<void(MemoryPart)> on_change_;
};

}  // namespace tarvok::exchange
