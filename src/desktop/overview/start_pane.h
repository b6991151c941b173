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

/** The pane while no project is open: the projects opened last, New and Open. It is made when it is first seen, which
 * a start with a project never does. */
class StartPane : public QScrollArea {
 public:
  struct Commands {
    std::function<void()> create;
    std::function<void()> open;
    std::function<void(int)> open_recent;  // entry from 1
    std::function<void()> start_practice;
  };

  explicit StartPane(Commands commands);

  /** What is to be said of the practice exchange; whether it can be started. */
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
