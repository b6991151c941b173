#include "desktop/window/command_tree.h"

#include <utility>

#include <QApplication>
#include <QKeyEvent>

#include "desktop/look/colours.h"
#include "desktop/look/line_delegate.h"
#include "desktop/look/shown_text.h"

namespace tarvok::desktop {
namespace {

constexpr int kNodeRole = Qt::UserRole;
constexpr int kHighlightRole = Qt::UserRole + 1;

}  // namespace

CommandTree::CommandTree(NodeHandler on_node) : on_node_(std::move(on_node)) {
  setObjectName(QStringLiteral("CommandTree"));
  setAccessibleName(QStringLiteral("Commands"));
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setExpandsOnDoubleClick(false);
  setIndentation(14);
  setItemDelegate(new LineDelegate(this));
  constexpr int kAir = 6;
  row_height_ = fontMetrics().height() + kAir;
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { on_node_(NodeOf(item)); });
}

void CommandTree::ShowCommands(std::span<const Command> commands) {
  if (topLevelItemCount() == 1 && topLevelItem(0)->childCount() == static_cast<int>(commands.size())) return;
  clear();
  auto* root = new QTreeWidgetItem(this, {Words(kRootText)});
  root->setData(0, kNodeRole, kRootNode);
  root->setSizeHint(0, {0, row_height_});
  for (const Command& command : commands) {
    auto* item = new QTreeWidgetItem(root, {Words(command.text)});
    item->setData(0, kNodeRole, root->indexOfChild(item) + kFirstCommandNode);
    item->setSizeHint(0, {0, row_height_});
  }
  root->setExpanded(true);
  setCurrentItem(root);
}

QTreeWidgetItem* CommandTree::ItemOf(int node) const {
  QTreeWidgetItem* root = topLevelItem(0);
  return root == nullptr || node == kRootNode ? root : root->child(node - kFirstCommandNode);
}

int CommandTree::NodeOf(const QTreeWidgetItem* item) const {
  return item == nullptr ? 0 : item->data(0, kNodeRole).toInt();
}

void CommandTree::Highlight(int node, bool on) {
  if (QTreeWidgetItem* item = ItemOf(node)) Paint(item, on);
}

void CommandTree::Paint(QTreeWidgetItem* item, bool on) {
  item->setData(0, kHighlightRole, on);
  QFont bold = font();
  bold.setBold(on);
  item->setFont(0, bold);
  const QColor mark = Mix(palette().color(QPalette::Highlight), palette().color(QPalette::Base), 25);
  item->setBackground(0, on ? QBrush(mark) : QBrush());
}

void CommandTree::keyboardSearch(const QString& search) {
  const bool is_digit = search.size() == 1 && search[0] >= QLatin1Char('0') && search[0] <= QLatin1Char('9');
  if (!is_digit) {
    digits_.clear();
    return QTreeWidget::keyboardSearch(search);
  }
  if (!since_digit_.isValid() || since_digit_.elapsed() > QApplication::keyboardInputInterval())
    digits_.clear();
  since_digit_.start();
  digits_ += search;
  const int number = digits_.toInt();
  if (number < 1) return;
  if (QTreeWidgetItem* item = ItemOf(number + kRootNode)) setCurrentItem(item);
}

void CommandTree::keyPressEvent(QKeyEvent* event) {
  const bool chosen =
      event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
  if (!chosen || event->modifiers() != Qt::NoModifier) {
    QTreeWidget::keyPressEvent(event);
    return;
  }
  event->accept();
  if (currentItem() != nullptr) on_node_(NodeOf(currentItem()));
}

void CommandTree::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  PaintCurrent();
}

void CommandTree::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  PaintCurrent();
}

/** Repaints the current line, the only one that shows the focus. Qt's tree would repaint all lines. */
void CommandTree::PaintCurrent() {
  const QRect line = visualRect(currentIndex());
  viewport()->update(0, line.top(), viewport()->width(), line.height());
}

void CommandTree::changeEvent(QEvent* event) {
  QTreeWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || topLevelItem(0) == nullptr) return;
  for (int node = kFirstCommandNode; QTreeWidgetItem* item = ItemOf(node); ++node) {
    if (item->data(0, kHighlightRole).toBool()) Paint(item, true);
  }
}

}  // namespace tarvok::desktop
