#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QCommandLinkButton>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** The pane while no project is open: recent projects, New and Open. Its widgets are created when it is first
 * shown, so that a start with a project does not need them. */
class StartPane : public QScrollArea {
 public:
  struct Commands {
    std::function<void()> create;
    std::function<void()> open;
    std::function<void(int)> open_recent;  // entry from 1
    std::function<void()> start_practice;
  };

  explicit StartPane(Commands commands);

  /** Shows the state of the practice exchange, and whether it can be started. */
  void ShowPractice(const QString& text, bool can_start);

  void ShowRecentFiles(const std::vector<std::string>& paths);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Make();
  void ShowPractice();
  void ListRecentFiles();

  Commands commands_;
  QString practice_state_;
  bool can_start_practice_ = true;
  std::vector<std::string> paths_;
  QCommandLinkButton* practice_ = nullptr;
  QLabel* practice_text_ = nullptr;
  QLabel* none_ = nullptr;
  QWidget* recent_ = nullptr;
};

}  // namespace tarvok::desktop
