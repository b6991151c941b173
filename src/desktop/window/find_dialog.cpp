#include "desktop/window/find_dialog.h"

#include <utility>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/shown_text.h"

namespace tarvok::desktop {
namespace {

constexpr std::size_t kMostShown = 300;  // nobody reads more; type more to narrow the search
constexpr int kRowColumn = 300;
constexpr int kFieldColumn = 140;
constexpr int kValueColumn = 170;

/** Maps upper and lower case letters of the page to the same byte. */
FoldTable FoldOf(const CodePage& page) {
  FoldTable fold{};
  for (std::size_t i = 0; i < fold.size(); ++i) {
    const std::string byte(1, static_cast<char>(i));
    const std::string small = page.ToBytes(page.ToLetters(byte).toLower());
    fold[i] = static_cast<unsigned char>(small.size() == 1 ? small[0] : byte[0]);
  }
  return fold;
}

}  // namespace

FindDialog::FindDialog(DesktopParts& parts, Commands commands, QWidget* parent)
    : QDialog(parent), parts_(parts), commands_(std::move(commands)) {
  setObjectName(QStringLiteral("Find"));
  setWindowTitle(QStringLiteral("Find Anywhere"));
  text_ = new QLineEdit;
  text_->setObjectName(QStringLiteral("FindText"));
  text_->setPlaceholderText(QStringLiteral("A number, a name, a port such as 3-4, or any text"));
  text_->setClearButtonEnabled(true);
  text_->installEventFilter(this);
  list_ = new QTreeWidget;
  list_->setObjectName(QStringLiteral("FindResults"));
  list_->setAccessibleName(QStringLiteral("Places"));
  list_->setHeaderLabels(
      {QStringLiteral("Row"), QStringLiteral("Field"), QStringLiteral("Value"), QStringLiteral("Form")});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setColumnWidth(0, kRowColumn);
  list_->setColumnWidth(1, kFieldColumn);
  list_->setColumnWidth(2, kValueColumn);
  count_ = new QLabel;
  count_->setObjectName(QStringLiteral("FindCount"));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  auto* go = buttons->addButton(QStringLiteral("&Go There"), QDialogButtonBox::ActionRole);
  go->setObjectName(QStringLiteral("cmdGo"));
  // Enter in the text or the list goes to the place; it must not press a button.
  for (QAbstractButton* button : buttons->buttons()) static_cast<QPushButton*>(button)->setAutoDefault(false);
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("&Find"), text_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addLayout(form);
  layout->addWidget(list_, 1);
  layout->addWidget(count_);
  layout->addWidget(buttons);
  connect(text_, &QLineEdit::textChanged, this, [this] { Search(); });
  connect(go, &QPushButton::clicked, this, [this] { Go(); });
  connect(text_, &QLineEdit::returnPressed, this, [this] { Go(); });
  connect(list_, &QTreeWidget::itemActivated, this, [this] { Go(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  resize(860, 480);
}

void FindDialog::Ask() {
  Search();  // the project may have changed since
  show();
  raise();
  activateWindow();
  text_->setFocus();
  text_->selectAll();
}

void FindDialog::Search() {
  const CodePage& page = PageOf(parts_.settings);
  const std::shared_ptr<const IniText> project = parts_.store.Snapshot(parts_.state.project_file);
  SearchResult result = SearchProject(*project, page.ToBytes(text_->text()), kMostShown, FoldOf(page));
  found_ = std::move(result.found);
  list_->clear();
  QList<QTreeWidgetItem*> items;
  for (const Found& found : found_) {
    const Command* command = commands_.find(found.place);
    auto* item = new QTreeWidgetItem({page.ToLetters(found.row), page.ToLetters(found.field),
                                      page.ToLetters(found.value),
                                      command == nullptr ? QString() : Words(command->text)});
    if (command == nullptr) item->setForeground(3, palette().brush(QPalette::PlaceholderText));
    items += item;
  }
  list_->addTopLevelItems(items);
  if (!items.isEmpty()) list_->setCurrentItem(items.front());
  ShowCount(result.more);
}

void FindDialog::ShowCount(bool more) {
  if (text_->text().trimmed().isEmpty()) {
    count_->setText(QStringLiteral("Type what you are looking for."));
  } else if (found_.empty()) {
    count_->setText(QStringLiteral("Nothing found in this project."));
  } else if (more) {
    count_->setText(
        QStringLiteral("The first %1 places; type more to narrow the search.").arg(found_.size()));
  } else {
    count_->setText(found_.size() == 1 ? QStringLiteral("1 place")
                                       : QStringLiteral("%1 places").arg(found_.size()));
  }
}

void FindDialog::Go() {
  const int row = list_->indexOfTopLevelItem(list_->currentItem());
  if (row < 0) return;
  const Place place = found_[static_cast<std::size_t>(row)].place;
  if (commands_.find(place) == nullptr) {
    count_->setText(QStringLiteral("No form of this program shows that place."));
    return;
  }
  hide();
  if (!commands_.go(place)) show();
}

/** The arrow keys move in the list while the text has the focus. */
bool FindDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == text_ && event->type() == QEvent::KeyPress) {
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        QCoreApplication::sendEvent(list_, event);
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace tarvok::desktop
