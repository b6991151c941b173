#pragma once

#include <array>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QStackedWidget>

#include "desktop/transfer/serial_port_choice.h"
#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "store/connection_settings.h"

namespace tarvok::desktop {

/** `frmSetting`, "Setting Program": how the open project reaches its exchange. */
class SettingDialog : public QDialog {
 public:
  SettingDialog(DesktopParts& parts, QWidget* parent);

 private:
  QWidget* MakeTransports();
  QWidget* MakeTransportFrames();
  QWidget* MakeSerialFrame();
  QWidget* MakeModemFrame();
  QWidget* MakeServerFrame();
  QWidget* MakeLink();
  QWidget* MakeButtons();
  void Fill();
  void SetFilters();
  std::size_t ChosenTransport() const;
  void ShowDependent();
  void Apply();

  DesktopParts& parts_;
  ConnectionSettings stored_;
  std::array<QRadioButton*, kTransports.size()> transports_{};  // by LinkMode
  std::array<QRadioButton*, 2> links_{};
  QStackedWidget* frames_ = nullptr;
  QWidget* ids_ = nullptr;
  SerialPortChoice* serial_ = nullptr;
  SerialPortChoice* modem_ = nullptr;
  QComboBox* speed_ = nullptr;
  QComboBox* pbx_id_ = nullptr;
  QComboBox* card_id_ = nullptr;
  QCheckBox* slowly_ = nullptr;
  QLineEdit* telephone_ = nullptr;
  QLineEdit* host_ = nullptr;
  QLineEdit* ip_port_ = nullptr;
};

}  // namespace tarvok::desktop
