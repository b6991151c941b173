#pragma once

#include <functional>

#include <QElapsedTimer>
#include <QTreeWidget>

#include "desktop/uses.h"
#include "project/commands.h"

namespace tarvok::desktop {

/** The command tree: the root alone, or the root with the 33 commands below it. A command that is not offered
 * is shown and can't be chosen. */
class CommandTree : public QTreeWidget {
 public:
  using NodeHandler = std::function<void(int node)>;
  using IsOffered = std::function<bool(const Command&)>;

  /** `on_node`: a click, or Enter or Space on a node. */
  explicit CommandTree(NodeHandler on_node);

  /** UpdateTree; without commands only the root. What is shown already stays as it is. */
  void ShowCommands(bool shown, const IsOffered& is_offered);
  void Highlight(int node, bool on);
  /** The keys go on from there. */
  void SetCurrent(int node) { setCurrentItem(ItemOf(node)); }
  /** Digits find the command with that number, other characters the text, as everywhere. */
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
  QString digits_;  // typed one behind the other
  QElapsedTimer since_digit_;
};

}  // namespace tarvok::desktop
