#pragma once

#include <functional>
#include <span>

#include <QElapsedTimer>
#include <QTreeWidget>

#include "desktop/uses.h"
#include "frame/command.h"

namespace tarvok::desktop {

/** The command tree: the root alone, or the root with the commands below it. */
class CommandTree : public QTreeWidget {
 public:
  using NodeHandler = std::function<void(int node)>;

  /** `on_node` is called after a click, or Enter or Space, on a node. */
  explicit CommandTree(NodeHandler on_node);

  /** Shows the root with these commands. Does nothing if the tree shows that many already. */
  void ShowCommands(std::span<const Command> commands);
  void Highlight(int node, bool on);
  /** Makes the node the current one, where the arrow keys continue. */
  void SetCurrent(int node) { setCurrentItem(ItemOf(node)); }
  /** Digits select the command with that number; other characters search the texts, as in any tree. */
  void keyboardSearch(const QString& search) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QTreeWidgetItem* ItemOf(int node) const;
  void Paint(QTreeWidgetItem* item, bool on);
  void PaintCurrent();
  int NodeOf(const QTreeWidgetItem* item) const;

  NodeHandler on_node_;
  int row_height_ = 0;
  QString digits_;  // typed in quick succession
  QElapsedTimer since_digit_;
};

}  // namespace tarvok::desktop
