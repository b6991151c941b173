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
  std::string
      bps;  // a bare speed; the default of an empty key is a whole settings text, with which no port opens
  std::string ip_host;
  std::string ip_port;
  int dcpu = 0;      // 0 direct to the CPU card, else through a link
  int pbx_id = 15;   // 0 to 15; 15 unless on a link
  int card_id = 15;  // 0 to 15; 15 unless on a link
  int cut = 0;       // bytes a serial write, 0 for whole blocks
  bool compare = false;

  bool direct() const { return dcpu == 0; }
};

/** The keys of `Chk_Tarvok`, each named once. */
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

/** The speed of a project without one: a whole settings text, with which no port opens. */
inline constexpr std::string_view kDefaultBps = "9600,n,8,1";

/** What a form makes of a project without a speed. */
enum class EmptySpeed {
  kWrittenBack,  // "9600,n,8,1", which is written to the project
  kShownOnly,    // "9600,n,81", which is not: the billing form
};

/** The keys with the defaults that a transfer form reads them with; nothing is written. */
ConnectionSettings ReadConnection(const IniText& project, EmptySpeed empty_speed);

/**
 * Reads the keys as a transfer form does on loading: empty ports are 1, an empty speed is "9600,n,8,1", ids
 * outside of 0 to 15 are 15, a negative card id is 0. What the form writes back (the speed, the card id) is
 * written in one write; its failure is returned, the settings hold all the same.
 */
Status ReadConnection(ProjectStore& store, const std::string& project, EmptySpeed empty_speed,
                      ConnectionSettings& settings);

/** Writes the keys that a load puts into the project it made. */
void WriteConnection(IniEdit& project, const ConnectionSettings& settings);

/** The lines that a transfer form shows: the way, the ids on a link, and port or address. */
std::vector<std::string> SummaryLines(const ConnectionSettings& settings);

}  // namespace tarvok::store
