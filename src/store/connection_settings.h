#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "store/project_store.h"
#include "store/transport.h"

namespace tarvok::store {

/** Serial ports are numbered from 1. */
inline constexpr int kSerialPorts = 8;

/**
 * How a project reaches its exchange: the texts of its connection keys, without blanks around them, and what
 * they mean.
 */
struct ConnectionSettings {
  std::string port;
  std::string bps;  // a bare speed; the default is a full settings text, with which no port opens
  std::string port_modem;
  std::string tel;
  std::string by;
  std::string dcpu;
  std::string pbx_id;
  std::string card_id;
  std::string ip_host;
  std::string ip_port;
  std::string cut;
  std::string compare;

  LinkMode Mode() const;
  const Transport& transport() const { return TransportOf(Mode()); }
  /** Serial port of the line and of the modem: 1 if the key is empty, otherwise any number. */
  int SerialPort() const;
  int ModemPort() const;
  /** 0 is direct to the CPU card, anything else through a link; but only 1 is shown as a link. */
  int Dcpu() const;
  bool IsDirect() const { return Dcpu() == 0; }
  /** 0 to 15; 15 without a link. */
  int PbxId() const;
  int CardId() const;
  /** Bytes per serial write, up to 255; 0 writes whole blocks. */
  int ChunkSize() const;
  bool Compares() const { return compare == "1"; }
};

/** A connection key of the header section. */
struct ConnectionKey {
  std::string_view name;
  std::string ConnectionSettings::*text;
  int lowest = 0;
  int highest = -1;  // below `lowest` if the key takes any text
};

/** All of them, in the order in which the settings dialog writes them. */
inline constexpr std::array<ConnectionKey, 12> kConnectionKeys = {
    {{"Port", &ConnectionSettings::port, 1, kSerialPorts},
     {"BPS", &ConnectionSettings::bps},
     {"PortM", &ConnectionSettings::port_modem, 1, kSerialPorts},
     {"Tel", &ConnectionSettings::tel},
     {"By", &ConnectionSettings::by, 0, static_cast<int>(kTransports.size()) - 1},
     {"DCPU", &ConnectionSettings::dcpu, 0, 1},
     {"PID", &ConnectionSettings::pbx_id, 0, 15},
     {"CID", &ConnectionSettings::card_id, 0, 15},
     {"IPHost", &ConnectionSettings::ip_host},
     {"IPPort", &ConnectionSettings::ip_port, 1, 65535},
     {"CUT", &ConnectionSettings::cut, 0, 255},
     {"compare", &ConnectionSettings::compare, 0, 1}}};

/** The name of a key: "By" for `&ConnectionSettings::by`. */
std::string_view KeyName(std::string ConnectionSettings::*text);

/** The forms that read the settings. They complete them differently. */
enum class ConnectionForm {
  kTransfer,  // an empty speed becomes "9600,n,8,1", a negative card id on a link 0; both are written back
  kBilling,   // the same, but an empty speed becomes "9600,n,81", which is not written back
  kSetting,   // an empty speed becomes "9600,n,8,1"; empty ports become 1, which is written back
};

/** Reads the settings as the form completes them. Writes nothing. */
ConnectionSettings ReadConnection(const IniText& project, ConnectionForm form);

/**
 * Reads the settings and writes back what the form completes, in a single write. If that write fails, its
 * error is returned; `settings` is valid all the same.
 */
Status ReadConnection(ProjectStore& store, const std::string& project, ConnectionForm form,
                      ConnectionSettings& settings);

/** Writes all keys as they are: the settings dialog. */
void WriteConnection(IniEdit& project, const ConnectionSettings& settings);
/** Writes what the keys mean to a project that a load created. */
void WriteLoadedConnection(IniEdit& project, const ConnectionSettings& settings);

/**
 * The lines that a transfer form shows: the kind of connection, the ids if on a link, and the port or
 * address.
 */
std::vector<std::string> SummaryLines(const ConnectionSettings& settings);

}  // namespace tarvok::store
