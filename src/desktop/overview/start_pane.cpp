#include "desktop/overview/start_pane.h"

#include <utility>

#include <QFileInfo>

#include "desktop/look/headings.h"
#include "desktop/look/icons.h"
#include "desktop/look/shown_text.h"

namespace tarvok::desktop {
namespace {

constexpr int kColumn = 560;     // width of the column; wider lines are hard to read
constexpr int kTextIndent = 36;  // aligns texts with those of the buttons

QCommandLinkButton* MakeButton(const QString& text, const QString& description, Picture picture) {
  auto* button = new QCommandLinkButton(text, description);
  button->setIcon(IconOf(picture));
  button->setAccessibleDescription(description);
  return button;
}

}  // namespace

StartPane::StartPane(Commands commands) : commands_(std::move(commands)) {
  setObjectName(QStringLiteral("Start"));
  setAccessibleName(QStringLiteral("Start"));
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
}

void StartPane::showEvent(QShowEvent* event) {
  if (widget() == nullptr) Make();
  QScrollArea::showEvent(event);
}

void StartPane::Make() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(32, 32, 32, 32);
  layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Set up a telephone exchange")), 1.7));
  layout->addWidget(
      MakeMuted(new QLabel(QStringLiteral("A project holds the whole configuration of one exchange."))));
  layout->addSpacing(12);
  auto* create = MakeButton(QStringLiteral("New project"),
                            QStringLiteral("Starts from the supplied defaults"), Picture::kNewProject);
  auto* open = MakeButton(QStringLiteral("Open project"), QStringLiteral("A PBX config file (*.tvk)"),
                          Picture::kOpenProject);
  practice_ =
      MakeButton(QStringLiteral("Start a practice exchange"),
                 QStringLiteral("Try everything without a real exchange; it runs on this computer only"),
                 Picture::kComputer);
  practice_->setObjectName(QStringLiteral("StartPractice"));
  connect(practice_, &QCommandLinkButton::clicked, this, [this] { commands_.start_practice(); });
  create->setObjectName(QStringLiteral("StartNew"));
  open->setObjectName(QStringLiteral("StartOpen"));
  connect(create, &QCommandLinkButton::clicked, this, [this] { commands_.create(); });
  connect(open, &QCommandLinkButton::clicked, this, [this] { commands_.open(); });
  for (QCommandLinkButton* button : {create, open, practice_}) {
    button->setMaximumWidth(kColumn);
    layout->addWidget(button);
  }
  practice_text_ = new QLabel;
  practice_text_->setObjectName(QStringLiteral("PracticeText"));
  practice_text_->setTextFormat(Qt::PlainText);
  practice_text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  practice_text_->setWordWrap(true);
  practice_text_->setMaximumWidth(kColumn);
  practice_text_->setContentsMargins(kTextIndent, 0, 0, 0);
  layout->addWidget(practice_text_);
  layout->addSpacing(20);
  layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Recent projects")), 1.2));
  none_ = MakeMuted(new QLabel(QStringLiteral("Projects that you open are listed here.")));
  layout->addWidget(none_);
  recent_ = new QWidget;
  recent_->setMaximumWidth(kColumn);
  layout->addWidget(recent_);
  layout->addStretch();
  setWidget(page);
  ShowPractice();
  ListRecentFiles();
}

void StartPane::ShowPractice(const QString& text, bool can_start) {
  practice_state_ = text;
  can_start_practice_ = can_start;
  if (widget() != nullptr) ShowPractice();
}

void StartPane::ShowPractice() {
  practice_text_->setText(practice_state_);
  practice_text_->setVisible(!practice_state_.isEmpty());
  practice_->setEnabled(can_start_practice_);
}

void StartPane::ShowRecentFiles(const std::vector<std::string>& paths) {
  paths_ = paths;
  if (widget() != nullptr) ListRecentFiles();
}

void StartPane::ListRecentFiles() {
  none_->setVisible(paths_.empty());
  // A click on an entry rebuilds the list while the entry is still emitting its signal.
  for (QCommandLinkButton* old : recent_->findChildren<QCommandLinkButton*>()) {
    old->setObjectName({});
    old->hide();
    old->deleteLater();
  }
  delete recent_->layout();
  auto* list = new QVBoxLayout(recent_);
  list->setContentsMargins(0, 0, 0, 0);
  list->setSpacing(0);
  for (std::size_t i = 0; i < paths_.size(); ++i) {
    const QFileInfo info(PathText(paths_[i]));
    const QString folder =
        fontMetrics().elidedText(FolderText(info.absolutePath()), Qt::ElideMiddle, kColumn - 80);
    const QString name = info.fileName();
    auto* button = MakeButton(QString(name).replace(QLatin1Char('&'), QStringLiteral("&&")), folder,
                              Picture::kNewProject);
    button->setObjectName(QStringLiteral("Recent%1").arg(i + 1));
    button->setToolTip(info.absoluteFilePath());
    const int entry = static_cast<int>(i) + 1;
    connect(button, &QCommandLinkButton::clicked, this, [this, entry] { commands_.open_recent(entry); });
    list->addWidget(button);
  }
}

}  // namespace tarvok::desktop
