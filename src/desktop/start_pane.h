#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace tarvok {

/** The pane while no project is open: the projects opened last, New and Open. */
class StartPane : public QScrollArea {
 public:
  struct Commands {
    std::function<void()> create;
    std::function<void()> open;
    std::function<void(int)> open_recent;  // entry from 1
  };

  explicit StartPane(Commands commands);

  void ShowRecentFiles(const std::vector<std::string>& paths);

 private:
  Commands commands_;
  QLabel* none_ = nullptr;
  QWidget* recent_ = nullptr;
};

}  // namespace tarvok
