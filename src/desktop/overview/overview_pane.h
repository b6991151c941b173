#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>

#include "desktop/overview/rack_view.h"
#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "project/place.h"

namespace tarvok::desktop {

/** The pane of an open project while no editor is shown: the rack, totals, connection, last transfer, and the
 * findings of the check. */
class OverviewPane : public QScrollArea {
 public:
  struct Commands {
    std::function<void()> open_transfer;
    std::function<void()> use_practice;
    std::function<bool(const Place&)> is_offered;  // whether a form shows the place
    std::function<void(const Place&)> go;
  };

  /** A count with its title. */
  struct Tile {
    QLabel* number = nullptr;
    QLabel* after = nullptr;

    void Show(int count, const QString& text) {
      number->setText(QString::number(count));
      after->setText(text);
    }
  };

  OverviewPane(DesktopParts& parts, Commands commands);

  /** Reads the open project again and shows it; shows a problem if its file is gone. */
  void ShowProject();

 private:
  QWidget* MakeTiles();
  QWidget* MakeLegend();
  QWidget* MakeConnection();
  QWidget* MakeFindings();
  void ShowConnection(const IniText& project);
  void ShowCounts(const IniText& project);
  void ShowFindings(const std::shared_ptr<const IniText>& project);
  void GoToFinding(const QListWidgetItem* item);

  DesktopParts& parts_;
  Commands commands_;
  std::shared_ptr<const IniText> shown_;  // the state of the project that the counts and findings belong to
  std::vector<Place> places_;             // of the findings
  QLabel* name_ = nullptr;
  QLabel* folder_ = nullptr;
  QLabel* problem_ = nullptr;
  QLabel* rack_hint_ = nullptr;
  RackView* rack_ = nullptr;
  Tile ports_;
  Tile numbers_;
  Tile trunks_;
  Tile groups_;
  QLabel* connection_ = nullptr;
  QLabel* last_transfer_ = nullptr;
  QLabel* findings_text_ = nullptr;
  QListWidget* findings_ = nullptr;
};

}  // namespace tarvok::desktop
