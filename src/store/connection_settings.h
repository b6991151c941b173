#pragma once

#include <string>
#include <vector>

#include "store/project_store.h"

namespace tarvok::store {

/** How a project reaches its exchange: the connection keys of the header section. */
struct ConnectionSettings {
  int by = 0;  // 1 serial, 2 modem, 3 LAN to serial, 4 LAN, anything else server
  int port = 1;
  int port_modem = 1;
  std::string tel;
  std::string bps;  // a bare speed; an empty key yields a full settings text, with which no port opens
  std::string ip_host;
  std::string ip_port;
  int dcpu = 0;      // 0 direct to the CPU card, otherwise through a link
  int pbx_id = 15;   // 0 to 15; 15 without a link
  int card_id = 15;  // 0 to 15; 15 without a link
  int cut = 0;       // bytes per serial write; 0 writes whole blocks
  bool compare = false;

  bool direct() const { return dcpu == 0; }
};

/** The connection keys of `Chk_Tarvok`. */
namespace connection_key {
inline constexpr std::string_view kBy = "By";
inline constexpr std::string_view kPort = "Port";
inline constexpr std::string_view kPortModem = "PortM";
inline constexpr std::string_view kTel = "Tel";
inline constexpr std::string_view kBps = "BPS";
inline constexpr std::string_view kIpHost = "IPHost";
inline constexpr std::string_view kIpPort = "IPPort";
inline constexpr std::string_view kDcpu = "DCPU";
inline constexpr std::string_view kPbxId = "PID";
inline constexpr std::string_view kCardId = "CID";
inline constexpr std::string_view kCut = "CUT";
inline constexpr std::string_view kCompare = "compare";
}  // namespace connection_key

/** The speed of a project that has none: a full settings text, with which no port opens. */
inline constexpr std::string_view kDefaultBps = "9600,n,8,1";

/** What a form does with a project that has no speed. */
enum class EmptySpeed {
  kWrittenBack,  // uses "9600,n,8,1" and writes it to the project
  kShownOnly,    // uses "9600,n,81" and writes nothing: the billing form
};

/** Reads the keys with the defaults of a transfer form. Writes nothing. */
ConnectionSettings ReadConnection(const IniText& project, EmptySpeed empty_speed);

/**
 * Reads the keys as a transfer form does when it loads: empty ports become 1, an empty speed "9600,n,8,1",
 * ids outside 0 to 15 become 15, and a negative card id 0. The speed and the card id are written back in a
 * single write. If that write fails, its error is returned; `settings` is valid all the same.
 */
Status ReadConnection(ProjectStore& store, const std::string& project, EmptySpeed empty_speed,
                      ConnectionSettings& settings);

/** Writes the keys that a load stores in the project it created. */
void WriteConnection(IniEdit& project, const ConnectionSettings& settings);

/**
 * The lines that a transfer form shows: the kind of connection, the ids if on a link, and the port or
 * address.
 */
std::vector<std::string> SummaryLines(const ConnectionSettings& settings);

}  // namespace tarvok::store
