#include "desktop/io/qt_settings.h"

#include <QStringList>
#include <QVariant>

namespace tarvok {
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
  // A comma in a value that a person wrote without quotes makes a list of it.
  if (value.typeId() == QMetaType::QStringList)
    return value.toStringList().join(QLatin1Char(',')).toStdString();
  return value.toString().toStdString();
}

void QtSettings::Set(std::string_view group, std::string_view key, std::string_view value) {
  const QByteArray bytes(value.data(), static_cast<qsizetype>(value.size()));
  const QString text = QString::fromUtf8(bytes);
  // Only text that gives the same bytes again is kept as text.
  settings_.setValue(PathOf(group, key), text.toUtf8() == bytes ? QVariant(text) : QVariant(bytes));
  settings_.sync();
}

}  // namespace tarvok
