#pragma once

#include <QComboBox>
#include <QLabel>
#include <QWidget>

#include "desktop/uses.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

/** A serial port of a project, Com1 to Com8, and next to it the device of this port on this computer: one of
 * those present, or a typed path. Says why a device can't be opened. */
class SerialPortChoice : public QWidget {
 public:
  /** `combo_name` is the object name of the list of ports (`cmbPort`). */
  SerialPortChoice(const QString& combo_name, SettingsStore& settings);

  /** Selects the port with the number in a project's key; none if it is not 1 to 8. */
  void Select(const std::string& port);
  /** The number of the selected port; `stored` if none is selected. */
  std::string Selected(const std::string& stored) const;
  /** Stores the device of the selected port in the settings, if the user changed it. */
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
