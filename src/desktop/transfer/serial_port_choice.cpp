#include "desktop/transfer/serial_port_choice.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QLineEdit>
#include <QSerialPortInfo>
#include <QSignalBlocker>

#include "desktop/look/shown_text.h"
#include "desktop/look/wheel_needs_focus.h"
#include "io/qt_port_maker.h"

namespace tarvok::desktop {

SerialPortChoice::SerialPortChoice(const QString& combo_name, SettingsStore& settings) : settings_(settings) {
  port_ = new QComboBox;
  port_->setObjectName(combo_name);
  port_->setAccessibleName(QStringLiteral("Port"));
  for (int number = 1; number <= kSerialPorts; ++number) port_->addItem(Words(SerialDeviceKey(number)));
  device_ = new QComboBox;
  device_->setObjectName(combo_name + QStringLiteral("Device"));
  device_->setAccessibleName(QStringLiteral("Device of this port on this computer"));
  device_->setToolTip(device_->accessibleName());
  device_->setEditable(true);
  device_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  device_->setMinimumContentsLength(26);
  for (QComboBox* list : {port_, device_}) WheelNeedsFocus::Set(list);
  hint_ = new QLabel;
  hint_->setWordWrap(true);
  hint_->setTextFormat(Qt::PlainText);
  hint_->setForegroundRole(QPalette::PlaceholderText);
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(port_, 0, 0);
  layout->addWidget(device_, 0, 1);
  layout->addWidget(hint_, 1, 0, 1, 2);
  layout->setColumnStretch(1, 1);
  FillDevices();
  connect(port_, &QComboBox::currentIndexChanged, this, [this] { ShowDevice(); });
  connect(device_, &QComboBox::editTextChanged, this, [this] { ExplainDevice(); });
  ShowDevice();
}

void SerialPortChoice::FillDevices() {
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    const QString about = info.description().isEmpty() ? info.manufacturer() : info.description();
    device_->addItem(about.isEmpty() ? info.systemLocation()
                                     : QStringLiteral("%1  (%2)").arg(info.systemLocation(), about),
                     info.systemLocation());
  }
}

void SerialPortChoice::Select(const std::string& port) {
  bool is_number = false;
  const int number = Words(port).toInt(&is_number);
  port_->setCurrentIndex(is_number && number >= 1 && number <= kSerialPorts ? number - 1 : -1);
  ShowDevice();
}

std::string SerialPortChoice::Selected(const std::string& stored) const {
  return port_->currentIndex() < 0 ? stored : std::to_string(port_->currentIndex() + 1);
}

QString SerialPortChoice::DevicePath() const {
  const int item = device_->findText(device_->currentText());
  return item < 0 ? device_->currentText().trimmed() : device_->itemData(item).toString();
}

void SerialPortChoice::ShowDevice() {
  device_->setEnabled(port_->currentIndex() >= 0);
  if (!device_->isEnabled()) {
    device_->setEditText({});
    return;
  }
  shown_device_ = SerialDevice(settings_, port_->currentIndex() + 1);
  const QString path = PathText(shown_device_);
  const int item = device_->findData(path);
  if (item >= 0) {
    device_->setCurrentIndex(item);
  } else {
    device_->setEditText(path);
  }
  device_->lineEdit()->setCursorPosition(0);
  ExplainDevice();
}

void SerialPortChoice::ExplainDevice() {
  const QFileInfo device(DevicePath());
  QString hint;
  if (port_->currentIndex() < 0) {
    hint = QStringLiteral("The project uses a port that does not exist; choose one.");
  } else if (!device.exists()) {
    hint = QStringLiteral("This device is not present on this computer.");
  } else if (!device.isReadable() || !device.isWritable()) {
    hint =
        QStringLiteral("To open this device, join its group \"%1\": ask the administrator, and log in again.")
            .arg(device.group().isEmpty() ? QStringLiteral("dialout") : device.group());
  }
  hint_->setText(hint);
  device_->setAccessibleDescription(hint);
}

void SerialPortChoice::KeepDevice() {
  if (port_->currentIndex() < 0) return;
  const int number = port_->currentIndex() + 1;
  const std::string path = PathBytes(DevicePath());
  if (path != shown_device_) settings_.Set(kSerialPortsGroup, SerialDeviceKey(number), path);
}

}  // namespace tarvok::desktop
