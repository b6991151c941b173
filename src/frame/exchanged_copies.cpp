#include "frame/exchanged_copies.h"

#include "store/history_names.h"
#include "store/new_project.h"
#include "store/whole_write.h"

namespace tarvok::frame {
namespace {

/** Identifies a connection; leaves out what may change on it, such as the speed. */
std::string ConnectionName(const ConnectionSettings& connection) {
  std::string name = connection.ip_host + " " + connection.ip_port;
  if (connection.transport().port == PortKind::kSerial)
    name = "com" + std::to_string(connection.SerialPort());
  if (connection.transport().port == PortKind::kModem) name = "tel " + connection.tel;
  if (!connection.IsDirect()) {
    name += " pbx" + std::to_string(connection.PbxId()) + " card" + std::to_string(connection.CardId());
  }
  return name;
}

}  // namespace

std::string ExchangedCopies::PathOf(const ConnectionSettings& connection) const {
  const std::string name = ConnectionName(connection);
  return InFolder(folder_, NameWithHash(name, name) + ".tvk");
}

Status ExchangedCopies::Keep(const ConnectionSettings& connection, std::string_view project) {
  if (!make_folder_(folder_)) return {ErrorKind::kInputOutput, folder_ + ": the folder can't be made"};
  const std::string path = PathOf(connection);
  const Result<std::unique_ptr<FileLock>> lock = files_.Lock(path);
  return lock.ok() ? WriteWhole(files_, path, project) : lock.status();
}

Result<std::string> ExchangedCopies::Find(const ConnectionSettings& connection) {
  return files_.Read(PathOf(connection));
}

}  // namespace tarvok::frame
