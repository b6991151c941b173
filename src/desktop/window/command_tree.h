#pragma once

#include <functional>

#include <QElapsedTimer>
#include <QTreeWidget>

#include "desktop/uses.h"
#include "project/commands.h"

namespace tarvok::desktop {

/** The command tree: the root alone, or the root with the 33 commands below it. A command that is not offered
 * is shown disabled. */
class CommandTree : public QTreeWidget {
 public:
  using NodeHandler = std::function<void(int node)>;
  using IsOffered = std::function<bool(const Command&)>;

  /** `on_node` is called after a click, or Enter or Space, on a node. */
  explicit CommandTree(NodeHandler on_node);

  /** Shows the root with or without the commands. Does nothing if that is what the tree shows already. */
  void ShowCommands(bool shown, const IsOffered& is_offered);
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
