#pragma once

#include <optional>

#include <QListWidget>
#include <QWidget>

#include "desktop/look/shown_text.h"
#include "desktop/uses.h"
#include "desktop/window/boxes.h"
#include "desktop/window/desktop_parts.h"
#include "desktop/window/difference_list.h"
#include "editing/editor_form.h"

namespace tarvok::desktop {

/** Shows the boxes and questions of a form in front of its window. */
class WindowQuestions : public Questions {
 public:
  WindowQuestions(DesktopParts& parts, QWidget* form) : parts_(parts), form_(form) {}

  void Box(std::string_view text, bool critical) override {
    ShowBox(form_->window(), critical ? QMessageBox::Critical : QMessageBox::Information,
            MessageText(text, PageOf(parts_.settings)));
  }
  bool Ask(std::string_view question) override {
    return AskYesNo(form_->window(), MessageText(question, PageOf(parts_.settings)));
  }
  OnLeaving AskToSave(std::string_view question) override {
    const std::optional<bool> save =
        AskYesNoOrNeither(form_->window(), MessageText(question, PageOf(parts_.settings)));
    return !save ? OnLeaving::kStayOpen : *save ? OnLeaving::kSave : OnLeaving::kDrop;
  }
  bool AskToOverwrite(std::string_view question, const IniText& loaded) override {
    const auto show_changes = [&](QWidget* box) {
      auto* list = new DifferenceList(
          PageOf(parts_.settings), {.first = "project as it was", .second = "file as it is now"},
          QStringLiteral("No form shows a difference: the files differ only in blanks, comments or order."));
      list->ShowDifferences(CompareProjects(loaded, *parts_.store.Snapshot(parts_.state.project_file)));
      ShowInDialog(list, QStringLiteral("WhatChanged"), QStringLiteral("What Changed"), box);
    };
    return AskToOverwriteChanges(form_->window(), MessageText(question, PageOf(parts_.settings)),
                                 show_changes);
  }
  bool AskToClear(std::string_view question, const std::vector<std::string>& places) override {
    QStringList lines;
    for (const std::string& place : places) lines.append(PageOf(parts_.settings).ToLetters(place));
    const auto show_places = [lines](QWidget* box) {
      auto* list = new QListWidget;
      list->addItems(lines);
      list->setAccessibleName(QStringLiteral("What becomes not set"));
      ShowInDialog(list, QStringLiteral("WhatIsCleared"), QStringLiteral("What Becomes Not Set"), box);
    };
    return AskToClearReferences(form_->window(), MessageText(question, PageOf(parts_.settings)), show_places);
  }

 private:
  DesktopParts& parts_;
  QWidget* form_;
};

}  // namespace tarvok::desktop
