#pragma once

#include <array>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QStackedWidget>

#include "desktop/transfer/connection_keys.h"
#include "desktop/transfer/serial_port_choice.h"
#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"

namespace tarvok::desktop {

/** `frmSetting`, "Setting Program": how the open project reaches its exchange. */
class SettingDialog : public QDialog {
 public:
  SettingDialog(DesktopParts& parts, QWidget* parent);

 private:
  static constexpr int kWays = 5;

  QWidget* MakeWays();
  QWidget* MakeWayFrames();
  QWidget* MakeSerialFrame();
  QWidget* MakeModemFrame();
  QWidget* MakeServerFrame();
  QWidget* MakeLink();
  QWidget* MakeButtons();
  void Fill();
  void SetFilters();
  void ShowDependent();
  void Apply();

  DesktopParts& parts_;
  ConnectionKeys keys_;
  std::array<QRadioButton*, kWays> Option1_{};
  std::array<QRadioButton*, 2> Option2_{};
  QStackedWidget* frames_ = nullptr;
  QWidget* fraInputID_ = nullptr;
  SerialPortChoice* serial_ = nullptr;
  SerialPortChoice* modem_ = nullptr;
  QComboBox* speed_ = nullptr;
  QComboBox* cmbPBX_ = nullptr;
  QComboBox* cmbCard_ = nullptr;
  QCheckBox* chkSpecial_ = nullptr;
  QLineEdit* txtTel_ = nullptr;
  QLineEdit* txtHost_ = nullptr;
  QLineEdit* txtPort_ = nullptr;
};

}  // namespace tarvok::desktop
