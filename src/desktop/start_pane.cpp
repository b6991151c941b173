#include "desktop/start_pane.h"

#include <utility>

#include <QCommandLinkButton>
#include <QFileInfo>
#include <QStyle>

#include "desktop/headings.h"
#include "desktop/shown_text.h"

namespace tarvok {
namespace {

constexpr int kMargin = 32;
constexpr int kColumn = 560;  // wider lines are hard to read

QCommandLinkButton* MakeButton(const QString& text, const QString& description, QStyle::StandardPixmap icon) {
  auto* button = new QCommandLinkButton(text, description);
  button->setIcon(button->style()->standardIcon(icon));
  button->setAccessibleDescription(description);
  return button;
}

}  // namespace

StartPane::StartPane(Commands commands) : commands_(std::move(commands)) {
  setObjectName(QStringLiteral("Start"));
  setAccessibleName(QStringLiteral("Start"));
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Set up a telephone exchange")), 1.7));
  layout->addWidget(
      MakeMuted(new QLabel(QStringLiteral("A project holds the whole configuration of one exchange."))));
  layout->addSpacing(12);
  auto* create = MakeButton(QStringLiteral("New project"),
                            QStringLiteral("Starts from the supplied defaults"), QStyle::SP_FileIcon);
  auto* open = MakeButton(QStringLiteral("Open project"), QStringLiteral("A PBX config file (*.tvk)"),
                          QStyle::SP_DialogOpenButton);
  create->setObjectName(QStringLiteral("StartNew"));
  open->setObjectName(QStringLiteral("StartOpen"));
  connect(create, &QCommandLinkButton::clicked, this, [this] { commands_.create(); });
  connect(open, &QCommandLinkButton::clicked, this, [this] { commands_.open(); });
  for (QCommandLinkButton* button : {create, open}) {
    button->setMaximumWidth(kColumn);
    layout->addWidget(button);
  }
  layout->addSpacing(20);
  layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Opened last")), 1.2));
  none_ = MakeMuted(new QLabel(QStringLiteral("Projects that you open are listed here.")));
  layout->addWidget(none_);
  recent_ = new QWidget;
  recent_->setMaximumWidth(kColumn);
  layout->addWidget(recent_);
  layout->addStretch();
  setWidget(page);
}

void StartPane::ShowRecentFiles(const std::vector<std::string>& paths) {
  none_->setVisible(paths.empty());
  // A click on an entry rebuilds the list while that entry's own signal is still on its way.
  for (QCommandLinkButton* old : recent_->findChildren<QCommandLinkButton*>()) {
    old->setObjectName({});
    old->hide();
    old->deleteLater();
  }
  delete recent_->layout();
  auto* list = new QVBoxLayout(recent_);
  list->setContentsMargins(0, 0, 0, 0);
  list->setSpacing(0);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const QFileInfo info(PathText(paths[i]));
    const QString folder =
        fontMetrics().elidedText(FolderText(info.absolutePath()), Qt::ElideMiddle, kColumn - 80);
    const QString name = info.fileName();
    auto* button = MakeButton(QString(name).replace(QLatin1Char('&'), QStringLiteral("&&")), folder,
                              QStyle::SP_FileIcon);
    button->setObjectName(QStringLiteral("Recent%1").arg(i + 1));
    button->setToolTip(info.absoluteFilePath());
    const int entry = static_cast<int>(i) + 1;
    connect(button, &QCommandLinkButton::clicked, this, [this, entry] { commands_.open_recent(entry); });
    list->addWidget(button);
  }
}

}  // namespace tarvok
