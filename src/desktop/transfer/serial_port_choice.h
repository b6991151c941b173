#pragma once

#include <QComboBox>
#include <QLabel>
#include <QWidget>

#include "desktop/uses.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

/** A serial port of a project, Com1 to Com8, and beside it the device that stands behind it on this computer:
 * one of those present, or a typed path. Says why a device can't be opened. */
class SerialPortChoice : public QWidget {
 public:
  /** `combo_name` is the name of the port's list (`cmbPort`). */
  SerialPortChoice(const QString& combo_name, SettingsStore& settings);

  /** Selects the port of a project's key; one outside of 1 to 8 selects none. */
  void Select(const std::string& port);
  /** The port's number; `stored` while none is selected. */
  std::string Selected(const std::string& stored) const;
  /** Keeps the device behind the selected port, if it was changed. */
  void KeepDevice();

 private:
  void FillDevices();
  void ShowDevice();
  void ExplainDevice();
  QString DevicePath() const;

  SettingsStore& settings_;
  QComboBox* port_ = nullptr;
  QComboBox* device_ = nullptr;
  std::string shown_device_;  // as it was before the user changed it
  QLabel* hint_ = nullptr;
};

}  // namespace tarvok::desktop
