#include "programs/ctl/places.h"

#include <cstdlib>
#include <string_view>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

#include "programs/uses.h"
#include "store/new_project.h"

namespace tarvok::ctl {
namespace {

constexpr std::string_view kLogName = "send.log";

std::string Bytes(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

std::string BesideProgram(std::string_view name) {
  return InFolder(Bytes(QCoreApplication::applicationDirPath()), name);
}

}  // namespace

std::string SystemFile() {
  const QString program = QCoreApplication::applicationDirPath();
  QStringList folders = {program};
  for (const QString& data : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
    folders += data + QStringLiteral("/tarvok");
  folders += QDir::cleanPath(program + QStringLiteral("/../share/tarvok"));
  for (const QString& folder : folders) {
    std::string path = InFolder(Bytes(folder), kSystemFileName);
    if (QFileInfo::exists(QFile::decodeName(path.c_str()))) return path;
  }
  return BesideProgram(kSystemFileName);
}

std::string SystemFileLine() {
  const std::string path = SystemFile();
  const bool found = QFileInfo::exists(QFile::decodeName(path.c_str()));
  return "System file: " + path + (found ? "" : " (not found)");
}

std::string TemporaryFolder() {
  return Bytes(QDir::tempPath());
}

std::string DefaultLog() {
  const QString folder = QCoreApplication::applicationDirPath();
  const bool whole_program_here = SystemFile() == BesideProgram(kSystemFileName);
  if (whole_program_here && QFileInfo(folder).isWritable()) return BesideProgram(kLogName);
  const char* configured = std::getenv("XDG_STATE_HOME");
  const QString state = configured != nullptr && *configured == '/' ? QFile::decodeName(configured)
                                                                    : QDir::homePath() + "/.local/state";
  const QString own = state + "/Tarvok config";
  // If the folder cannot be created, the log cannot be opened either, and the session runs without one.
  [[maybe_unused]] const bool made = QDir().mkpath(own);
  return InFolder(Bytes(own), kLogName);
}

std::string DataFolder(std::string_view name) {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return InFolder(Bytes(data + QStringLiteral("/Tarvok config")), name);
}

bool MakeFolder(const std::string& folder) {
  return QDir().mkpath(QFile::decodeName(folder.c_str()));
}

}  // namespace tarvok::ctl
