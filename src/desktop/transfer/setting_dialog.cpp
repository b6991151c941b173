#include "desktop/transfer/setting_dialog.h"

#include <algorithm>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/look/group_frame.h"
#include "desktop/look/shown_text.h"
#include "desktop/look/wheel_needs_focus.h"
#include "desktop/transfer/character_filter.h"
#include "desktop/window/boxes.h"
#include "desktop/window/help.h"
#include "store/number_text.h"
#include "store/project_there.h"

namespace tarvok::desktop {
namespace {

constexpr const char* kLinkTexts[] = {"Direct to CPU Card", "Link PBX"};
constexpr const char* kSpeeds[] = {"9600", "19200", "38400", "57600", "115200"};
constexpr int kLastId = 14;
constexpr std::string_view kOn = "1";

bool IsDigit(QChar c) {
  return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

QComboBox* MakeIdList(const QString& name) {
  auto* list = new QComboBox;
  list->setObjectName(name);
  WheelNeedsFocus::Set(list);
  for (int id = 0; id <= kLastId; ++id) list->addItem(QString::number(id));
  list->setPlaceholderText(QStringLiteral("not set"));
  return list;
}

/** Selects an id. One that is not in the list (15, or none) selects nothing and stays as it is stored. */
void SelectId(QComboBox* list, const std::string& stored) {
  list->setCurrentIndex(stored.empty() ? -1 : list->findText(QString::number(Val(stored))));
}
std::string SelectedId(const QComboBox* list, const std::string& stored) {
  return list->currentIndex() < 0 ? stored : std::to_string(list->currentIndex());
}

}  // namespace

SettingDialog::SettingDialog(DesktopParts& parts, QWidget* parent) : QDialog(parent), parts_(parts) {
  setObjectName(QStringLiteral("frmSetting"));
  setWindowTitle(QStringLiteral("Setting Program"));
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->addWidget(MakeTransports());
  layout->addWidget(MakeTransportFrames());
  layout->addWidget(MakeLink());
  layout->addStretch();
  layout->addWidget(MakeButtons());
  // Only a button that is in its dialog can become the default button.
  findChild<QPushButton*>(QStringLiteral("cmdCancel"))->setAutoDefault(false);
  findChild<QPushButton*>(QStringLiteral("cmdApply"))->setDefault(true);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { ShowHelp(this, "frmSetting"); });

  const Status written_back =
      ReadConnection(parts_.store, parts_.state.project_file, ConnectionForm::kSetting, stored_);
  Fill();
  SetFilters();
  ShowDependent();
  transports_[static_cast<std::size_t>(stored_.Mode())]->setFocus();
  if (!written_back.ok()) {
    ShowBox(parent, QMessageBox::Critical, MessageText(written_back.message(), PageOf(parts_.settings)));
  }
}

QWidget* SettingDialog::MakeTransports() {
  auto* group = new GroupFrame(QStringLiteral("Connection"));
  auto* layout = new QVBoxLayout(group);
  for (std::size_t i = 1; i <= kTransports.size(); ++i) {
    const std::size_t number = i % kTransports.size();  // the server, number 0, comes last
    auto* option = new QRadioButton(Words(kTransports[number].choice));
    option->setObjectName(QStringLiteral("Option1(%1)").arg(number));
    connect(option, &QRadioButton::toggled, this, [this] { ShowDependent(); });
    transports_[number] = option;
    layout->addWidget(option);
  }
  return group;
}

QWidget* SettingDialog::MakeTransportFrames() {
  frames_ = new QStackedWidget;
  // In the order of PortKind.
  for (QWidget* frame : {MakeSerialFrame(), MakeModemFrame(), MakeServerFrame()}) frames_->addWidget(frame);
  return frames_;
}

QWidget* SettingDialog::MakeSerialFrame() {
  auto* frame = new GroupFrame(QStringLiteral("Serial"));
  frame->setObjectName(QStringLiteral("fraSettingSerial"));
  serial_ = new SerialPortChoice(QStringLiteral("cmbPort"), parts_.settings);
  speed_ = new QComboBox;
  speed_->setObjectName(QStringLiteral("cmbSpeed"));
  speed_->setEditable(true);
  WheelNeedsFocus::Set(speed_);
  for (const char* speed : kSpeeds) speed_->addItem(QString::fromLatin1(speed));
  slowly_ = new QCheckBox(QStringLiteral("Send data slow"));
  slowly_->setObjectName(QStringLiteral("chkSpecial"));
  auto* layout = new QFormLayout(frame);
  layout->addRow(QStringLiteral("&Port"), serial_);
  layout->addRow(QStringLiteral("&Speed"), speed_);
  layout->addRow(QString(), slowly_);
  return frame;
}

QWidget* SettingDialog::MakeModemFrame() {
  auto* frame = new GroupFrame(QStringLiteral("Modem"));
  frame->setObjectName(QStringLiteral("fraSettingModem"));
  modem_ = new SerialPortChoice(QStringLiteral("cmbPortModem"), parts_.settings);
  telephone_ = new QLineEdit;
  telephone_->setObjectName(QStringLiteral("txtTel"));
  telephone_->setToolTip(QStringLiteral("Digits; a comma waits for a second tone"));
  auto* layout = new QFormLayout(frame);
  layout->addRow(QStringLiteral("&Port"), modem_);
  layout->addRow(QStringLiteral("&Telephone"), telephone_);
  return frame;
}

QWidget* SettingDialog::MakeServerFrame() {
  auto* frame = new GroupFrame(QStringLiteral("Network"));
  frame->setObjectName(QStringLiteral("fraSettingServer"));
  host_ = new QLineEdit;
  host_->setObjectName(QStringLiteral("txtHost"));
  host_->setPlaceholderText(QStringLiteral("192.168.1.10"));
  ip_port_ = new QLineEdit;
  ip_port_->setObjectName(QStringLiteral("txtPort"));
  auto* layout = new QFormLayout(frame);
  layout->addRow(QStringLiteral("IP &address"), host_);
  layout->addRow(QStringLiteral("&Port"), ip_port_);
  return frame;
}

QWidget* SettingDialog::MakeLink() {
  auto* group = new GroupFrame(QStringLiteral("Exchange"));
  auto* layout = new QHBoxLayout(group);
  auto* options = new QVBoxLayout;
  for (std::size_t i = 0; i < links_.size(); ++i) {
    links_[i] = new QRadioButton(QString::fromLatin1(kLinkTexts[i]));
    links_[i]->setObjectName(QStringLiteral("Option2(%1)").arg(i));
    connect(links_[i], &QRadioButton::toggled, this, [this] { ShowDependent(); });
    options->addWidget(links_[i]);
  }
  options->addStretch();
  ids_ = new QWidget;
  ids_->setObjectName(QStringLiteral("fraInputID"));
  QSizePolicy keeps_place = ids_->sizePolicy();
  keeps_place.setRetainSizeWhenHidden(true);
  ids_->setSizePolicy(keeps_place);
  pbx_id_ = MakeIdList(QStringLiteral("cmbPBX"));
  card_id_ = MakeIdList(QStringLiteral("cmbCard"));
  auto* ids = new QFormLayout(ids_);
  ids->setContentsMargins(24, 0, 0, 0);
  ids->addRow(QStringLiteral("PBX &ID"), pbx_id_);
  ids->addRow(QStringLiteral("&Card ID"), card_id_);
  layout->addLayout(options);
  layout->addWidget(ids_, 1);
  return group;
}

QWidget* SettingDialog::MakeButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Apply | QDialogButtonBox::Cancel);
  QPushButton* apply = buttons->button(QDialogButtonBox::Apply);
  apply->setObjectName(QStringLiteral("cmdApply"));
  buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
  connect(apply, &QPushButton::clicked, this, [this] { Apply(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  return buttons;
}

void SettingDialog::Fill() {
  const CodePage& page = PageOf(parts_.settings);
  transports_[static_cast<std::size_t>(stored_.Mode())]->setChecked(true);
  links_[stored_.IsDirect() ? 0 : 1]->setChecked(true);
  serial_->Select(stored_.port);
  modem_->Select(stored_.port_modem);
  speed_->setCurrentText(page.ToLetters(stored_.bps));
  slowly_->setChecked(stored_.cut == kOn);
  telephone_->setText(page.ToLetters(stored_.tel));
  host_->setText(page.ToLetters(stored_.ip_host));
  ip_port_->setText(page.ToLetters(stored_.ip_port));
  SelectId(pbx_id_, stored_.pbx_id);
  SelectId(card_id_, stored_.card_id);
}

void SettingDialog::SetFilters() {
  CharacterFilter::Set(telephone_, [](QChar c) { return IsDigit(c) || c == QLatin1Char(','); });
  CharacterFilter::Set(host_, [](QChar c) { return IsDigit(c) || c == QLatin1Char('.'); });
  CharacterFilter::Set(ip_port_, IsDigit);
}

std::size_t SettingDialog::ChosenTransport() const {
  const auto is_checked = [](const QRadioButton* option) { return option->isChecked(); };
  const auto chosen = std::find_if(transports_.begin(), transports_.end(), is_checked);
  return chosen == transports_.end() ? 0 : static_cast<std::size_t>(chosen - transports_.begin());
}

void SettingDialog::ShowDependent() {
  if (ids_ == nullptr) return;  // the dialog is being built
  frames_->setCurrentIndex(static_cast<int>(kTransports[ChosenTransport()].port));
  ids_->setVisible(links_[1]->isChecked());
}

void SettingDialog::Apply() {
  const CodePage& page = PageOf(parts_.settings);
  const std::string problem = WhyNoProject(parts_.store, parts_.state.project_file);
  if (!problem.empty()) return ShowBox(this, QMessageBox::Critical, MessageText(problem, page));
  const std::size_t transport = ChosenTransport();
  if (kTransports[transport].mode != stored_.Mode() || stored_.by.empty()) {
    stored_.by = std::to_string(transport);
  }
  const bool linked = links_[1]->isChecked();
  if (linked == stored_.IsDirect() || stored_.dcpu.empty()) stored_.dcpu = linked ? "1" : "0";
  stored_.port = serial_->Selected(stored_.port);
  stored_.port_modem = modem_->Selected(stored_.port_modem);
  stored_.bps = page.ToBytes(speed_->currentText().trimmed());
  // A chunk size that was entered by hand stays unless the user changes the box.
  if (slowly_->isChecked() != (stored_.cut == kOn) || stored_.cut.empty()) {
    stored_.cut = slowly_->isChecked() ? kOn : "0";
  }
  stored_.tel = page.ToBytes(telephone_->text());
  stored_.ip_host = page.ToBytes(host_->text());
  stored_.ip_port = page.ToBytes(ip_port_->text());
  stored_.pbx_id = SelectedId(pbx_id_, stored_.pbx_id);
  stored_.card_id = SelectedId(card_id_, stored_.card_id);
  const Status written =
      parts_.store.Update(parts_.state.project_file, [&](IniEdit& edit) { WriteConnection(edit, stored_); });
  if (!written.ok()) {
    ShowBox(this, QMessageBox::Critical, MessageText(written.message(), page));
    return;  // the dialog stays open with what was entered
  }
  serial_->KeepDevice();
  modem_->KeepDevice();
  accept();
}

}  // namespace tarvok::desktop
