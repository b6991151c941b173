#include "programs/ctl/places.h"

#include <cstdlib>
#include <string_view>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "store/new_project.h"

namespace tarvok::ctl {
namespace {

constexpr std::string_view kLogName = "send.log";
constexpr std::string_view kTemporaryName = "outcfg.tvk";

std::string Bytes(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

}  // namespace

std::string SystemFile() {
  return InFolder(Bytes(QCoreApplication::applicationDirPath()), kSystemFileName);
}

std::string TemporaryProject() {
  return InFolder(Bytes(QDir::tempPath()), kTemporaryName);
}

std::string DefaultLog() {
  const QString folder = QCoreApplication::applicationDirPath();
  if (QFileInfo(folder).isWritable()) return InFolder(Bytes(folder), kLogName);
  const char* configured = std::getenv("XDG_STATE_HOME");
  const QString state = configured != nullptr && *configured == '/' ? QFile::decodeName(configured)
                                                                    : QDir::homePath() + "/.local/state";
  const QString own = state + "/Tarvok config";
  // Where the folder can't be made the log can't be opened either, and the session runs without one.
  [[maybe_unused]] const bool made = QDir().mkpath(own);
  return InFolder(Bytes(own), kLogName);
}

}  // namespace tarvok::ctl
