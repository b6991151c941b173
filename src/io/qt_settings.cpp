#include "io/qt_settings.h"

#include <QStringList>
#include <QVariant>

namespace tarvok::io {
namespace {

QString PathOf(std::string_view group, std::string_view key) {
  return QString::fromUtf8(group.data(), static_cast<qsizetype>(group.size())) + QLatin1Char('/') +
         QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

}  // namespace

QtSettings::QtSettings()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarvok config"),
                QStringLiteral("Tarvok config")) {
  settings_.setFallbacksEnabled(false);
}

std::string QtSettings::Get(std::string_view group, std::string_view key) {
  const QVariant value = settings_.value(PathOf(group, key));
  if (value.typeId() == QMetaType::QByteArray) return value.toByteArray().toStdString();
  // A value with a comma that was written by hand without quotes is read as a list.
  if (value.typeId() == QMetaType::QStringList)
    return value.toStringList().join(QLatin1Char(',')).toStdString();
  return value.toString().toStdString();
}

void QtSettings::Set(std::string_view group, std::string_view key, std::string_view value) {
  const QByteArray bytes(value.data(), static_cast<qsizetype>(value.size()));
  const QString text = QString::fromUtf8(bytes);
  // Store as text only what yields the same bytes again.
  const QVariant kept = text.toUtf8() == bytes ? QVariant(text) : QVariant(bytes);
  const QString path = PathOf(group, key);
  // A write waits for the disk, so skip values that have not changed, as most have not (column widths, for
  // instance). Values set together are written together, in the next turn of the event loop or at the end.
  if (settings_.contains(path) && settings_.value(path) == kept) return;
  settings_.setValue(path, kept);
}

}  // namespace tarvok::io
