#include "desktop/look/shown_text.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>

namespace tarvok::desktop {

QString PathText(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string PathBytes(const QString& text) {
  return QFile::encodeName(text).toStdString();
}

QString FolderText(const QString& folder) {
  const QString home = QDir::homePath();
  const bool inside = folder == home || folder.startsWith(home + QLatin1Char('/'));
  return inside && home != QDir::rootPath() ? QLatin1Char('~') + folder.mid(home.size()) : folder;
}

QString Words(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString MessageText(std::string_view text, const CodePage& page) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
  QString shown = utf8(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  if (utf8.hasError()) shown = page.ToLetters(text);
  return shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

}  // namespace tarvok::desktop
