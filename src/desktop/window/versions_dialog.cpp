#include "desktop/window/versions_dialog.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLocale>
#include <QSplitter>
#include <QVBoxLayout>

#include "desktop/look/headings.h"
#include "desktop/look/shown_text.h"
#include "desktop/window/boxes.h"

namespace tarvok::desktop {
namespace {

constexpr SideNames kVersionSides = {"earlier version", "current project"};

QString TimeText(std::int64_t time_s) {
  return QLocale().toString(QDateTime::fromSecsSinceEpoch(time_s), QLocale::ShortFormat);
}

}  // namespace

VersionsDialog::VersionsDialog(DesktopParts& parts, QWidget* parent) : QDialog(parent), parts_(parts) {
  setObjectName(QStringLiteral("EarlierVersions"));
  setWindowTitle(QStringLiteral("Earlier Versions"));
  list_ = new QTreeWidget;
  list_->setObjectName(QStringLiteral("Versions"));
  list_->setAccessibleName(QStringLiteral("Earlier versions"));
  list_->setHeaderLabels({QStringLiteral("Kept"), QStringLiteral("Why")});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  difference_ = new DifferenceList(PageOf(parts_.settings), kVersionSides,
                                   QStringLiteral("This version is the same as the current project."));
  auto* below = new QWidget;
  auto* below_layout = new QVBoxLayout(below);
  below_layout->setContentsMargins(0, 8, 0, 0);
  below_layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Changes since then")), 1.1));
  below_layout->addWidget(difference_, 1);
  auto* halves = new QSplitter(Qt::Vertical);
  halves->setChildrenCollapsible(false);
  halves->addWidget(list_);
  halves->addWidget(below);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  bring_back_ = buttons->addButton(QStringLiteral("&Bring Back"), QDialogButtonBox::ActionRole);
  bring_back_->setObjectName(QStringLiteral("cmdBringBack"));
  bring_back_->setToolTip(
      QStringLiteral("Replaces the project by this version; the current one is kept first"));
  connect(bring_back_, &QPushButton::clicked, this, [this] { BringBack(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QTreeWidget::currentItemChanged, this, [this] { ShowDifference(); });
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  auto* intro = MakeMuted(new QLabel(QStringLiteral("The project is kept before every save of a form and "
                                                    "before a load replaces it; the last %1 versions remain.")
                                         .arg(History::kMostVersions)));
  intro->setWordWrap(true);
  layout->addWidget(intro);
  layout->addWidget(halves, 1);
  layout->addWidget(buttons);
  resize(760, 560);
  Fill();
}

void VersionsDialog::Fill() {
  Result<std::vector<KeptVersion>> versions = parts_.history.Versions(parts_.state.project_file);
  bring_back_->setEnabled(false);
  if (!versions.ok()) {
    difference_->ShowText(MessageText(versions.status().message(), PageOf(parts_.settings)));
    return;
  }
  versions_ = std::move(versions).value();
  for (const KeptVersion& version : versions_) {
    auto* item = new QTreeWidgetItem(list_);
    item->setText(0, TimeText(version.time_s));
    item->setText(1, Words(version.reason));
  }
  if (versions_.empty()) {
    difference_->ShowText(QStringLiteral("There are no earlier versions of this project yet."));
  } else {
    list_->setCurrentItem(list_->topLevelItem(0));
    list_->setFocus();
  }
}

void VersionsDialog::ShowDifference() {
  const int row = list_->indexOfTopLevelItem(list_->currentItem());
  bring_back_->setEnabled(false);
  if (row < 0) return;
  const std::string& project = parts_.state.project_file;
  const Result<std::string> bytes = parts_.history.Read(project, versions_[static_cast<std::size_t>(row)]);
  if (!bytes.ok()) {
    difference_->ShowText(MessageText(bytes.status().message(), PageOf(parts_.settings)));
    return;
  }
  const std::shared_ptr<const IniText> now = parts_.store.Snapshot(project);
  difference_->ShowDifferences(CompareProjects(IniText(bytes.value()), *now));
  bring_back_->setEnabled(now->bytes() != bytes.value());
}

void VersionsDialog::BringBack() {
  const int row = list_->indexOfTopLevelItem(list_->currentItem());
  if (row < 0) return;
  const Status done =
      parts_.history.BringBack(parts_.state.project_file, versions_[static_cast<std::size_t>(row)],
                               QDateTime::currentSecsSinceEpoch());
  if (done.ok()) {
    accept();
    return;
  }
  ShowBox(this, QMessageBox::Critical, MessageText(done.message(), PageOf(parts_.settings)));
}

}  // namespace tarvok::desktop
