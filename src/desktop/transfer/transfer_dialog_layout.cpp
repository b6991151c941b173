// The layout of a transfer form.

#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/look/headings.h"
#include "desktop/look/shown_text.h"
#include "desktop/transfer/transfer_dialog.h"
#include "desktop/window/help.h"
#include "store/header_keys.h"

namespace tarvok::desktop {
namespace {

constexpr int kButtonColumn = 190;
constexpr const char* kNoFolderYet = "C:\\";

}  // namespace

TransferDialog::TransferDialog(DesktopParts& parts, const TransferKind& kind, const FormContext& context,
                               QWidget* window)
    : QDialog(window),
      parts_(parts),
      kind_(kind),
      dialogs_(parts.settings),
      log_(parts.open_log ? parts.open_log() : SendLog::Sink()) {
  log_.Line(kind_.log_head);
  setObjectName(Words(kind_.name));
  setWindowTitle(Words(kind_.title));
  auto* body = new QHBoxLayout;
  body->setSpacing(16);
  body->addLayout(MakeButtons());
  body->addLayout(MakeLogColumn(), 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addLayout(MakeHead());
  if (kind_.has_folder) layout->addLayout(MakeFolder());
  layout->addLayout(body, 1);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { ShowHelp(this, kind_.name); });
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this), &QShortcut::activated, this,
          context.exit_program);
  resize(760, 520);
  OpenTransfer();
  idle_controls_.front()->setFocus();
}

QPushButton* TransferDialog::MakeButton(std::string_view control, std::string_view text,
                                        std::string_view tip) {
  auto* button = new QPushButton(Words(text));
  button->setObjectName(Words(control));
  button->setToolTip(Words(tip));
  button->setAutoDefault(false);
  button->setMinimumWidth(kButtonColumn);
  button->installEventFilter(this);
  idle_controls_.push_back(button);
  return button;
}

QLayout* TransferDialog::MakeHead() {
  summary_ = new QLabel;
  summary_->setObjectName(QStringLiteral("Summary"));
  summary_->setAccessibleName(QStringLiteral("Connection"));
  summary_->setTextFormat(Qt::PlainText);
  direction_ = new DirectionView;
  auto* row = new QHBoxLayout;
  row->addWidget(summary_, 1);
  row->addWidget(direction_, 0, Qt::AlignRight | Qt::AlignTop);
  return row;
}

QLayout* TransferDialog::MakeButtons() {
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  for (const TransferAction& action : kind_.actions) {
    QPushButton* button = MakeButton(action.control, action.text, action.tip);
    connect(button, &QPushButton::clicked, this, [this, &action] { Run(action); });
    column->addWidget(button);
  }
  column->addStretch();
  QPushButton* settings = MakeButton("cmdSetting", "S&ettings...", "How this project reaches its exchange");
  connect(settings, &QPushButton::clicked, this, [this] { OpenSettings(); });
  QPushButton* close = MakeButton("cmdCancel", "&Close", "Closes this window");
  connect(close, &QPushButton::clicked, this, [this] { Leave(); });
  column->addWidget(settings);
  column->addWidget(close);
  return column;
}

QLayout* TransferDialog::MakeLogColumn() {
  log_window_ = new QPlainTextEdit;
  log_window_->setObjectName(QStringLiteral("Text1"));
  log_window_->setAccessibleName(QStringLiteral("Log of the transfer"));
  log_window_->setReadOnly(true);
  log_window_->setTabChangesFocus(true);
  log_window_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  log_window_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  log_window_->setPlaceholderText(QStringLiteral("The log of a transfer appears here."));
  bar_ = new QProgressBar;
  bar_->setAccessibleName(QStringLiteral("Progress"));
  bar_->setRange(0, 1);
  bar_->setValue(0);
  elapsed_ = new QLabel;
  elapsed_->setObjectName(QStringLiteral("lblTime"));
  elapsed_->setAccessibleName(QStringLiteral("Elapsed time"));
  elapsed_->setMinimumWidth(elapsed_->fontMetrics().horizontalAdvance(QStringLiteral("000:00")));
  elapsed_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  elapsed_->setToolTip(QStringLiteral("Minutes and seconds since the start"));
  TransferDialog::Elapsed(0);
  advice_ = new QLabel;
  advice_->setObjectName(QStringLiteral("Advice"));
  advice_->setAccessibleName(QStringLiteral("Advice"));
  advice_->setWordWrap(true);
  advice_->setTextFormat(Qt::PlainText);
  advice_->hide();
  pace_ = MakeMuted(new QLabel);
  pace_->setObjectName(QStringLiteral("Pace"));
  pace_->setAccessibleName(QStringLiteral("Speed and time left"));
  pace_->setWordWrap(true);
  pace_->setTextFormat(Qt::PlainText);
  pace_->hide();
  auto* progress = new QHBoxLayout;
  progress->addWidget(bar_, 1);
  progress->addWidget(elapsed_);
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  column->addWidget(log_window_, 1);
  column->addWidget(advice_);
  column->addLayout(progress);
  column->addWidget(pace_);
  return column;
}

QLayout* TransferDialog::MakeFolder() {
  const std::string kept = parts_.store.GetIniValue(parts_.state.project_file, kHeaderSection, kLastBilling);
  folder_ = new QLineEdit(kept.empty() ? QString::fromLatin1(kNoFolderYet) : PathText(kept));
  folder_->setObjectName(QStringLiteral("txtFolder"));
  auto* label = new QLabel(QStringLiteral("&Folder"));
  label->setBuddy(folder_);
  QPushButton* browse = MakeButton("cmdBrowse", "B&rowse...", "Chooses the folder of the billing files");
  browse->setMinimumWidth(0);
  connect(browse, &QPushButton::clicked, this, [this] { Browse(); });
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(folder_, 1);
  row->addWidget(browse);
  idle_controls_.push_back(folder_);
  return row;
}

}  // namespace tarvok::desktop
