#include "desktop/forms/form_view.h"

#include <algorithm>
#include <utility>

#include <QFormLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "desktop/look/group_frame.h"
#include "desktop/look/headings.h"
#include "desktop/look/shown_text.h"

namespace tarvok::desktop {
namespace {

/** True if the part grows with the window. A spacer does not make its surroundings grow. */
bool Grows(const FormLayout& part) {
  switch (part.kind) {
    case FormLayout::Kind::kTable:
    case FormLayout::Kind::kPicture:
      return true;
    case FormLayout::Kind::kStretch:
      return false;
    case FormLayout::Kind::kControl:
    case FormLayout::Kind::kField:
      return std::holds_alternative<ListBox*>(part.control->Any());
    default:
      return std::any_of(part.parts.begin(), part.parts.end(), Grows);
  }
}

bool IsSmallField(const FormLayout& part) {
  return part.kind == FormLayout::Kind::kField && !Grows(part);
}

/** True for a list of short entries or a frame around one, which needs no more width than the entries. */
bool IsNarrow(const FormLayout& part) {
  if (part.kind == FormLayout::Kind::kStretch) return true;
  if (part.kind == FormLayout::Kind::kControl && std::holds_alternative<Button*>(part.control->Any()))
    return true;
  if (part.kind == FormLayout::Kind::kGroup || part.kind == FormLayout::Kind::kColumn)
    return !part.parts.empty() && std::all_of(part.parts.begin(), part.parts.end(), IsNarrow);
  if (part.kind == FormLayout::Kind::kNote) return true;
  if (part.control == nullptr || !std::holds_alternative<ListBox*>(part.control->Any())) return false;
  const auto& list = static_cast<const ListBox&>(*part.control);
  constexpr std::size_t kShort = 16;
  return !list.many &&
         std::ranges::all_of(list.entries, [](const auto& entry) { return entry.size() <= kShort; });
}

/** A dialog that is closed by its form, not by its window. */
class FormDialog : public QDialog {
 public:
  FormDialog(FormControls& form, QWidget* parent) : QDialog(parent), form_(form) {}
  void reject() override {
    if (Control* cancel = form_.Find({"cmdCancel"}); cancel != nullptr) form_.Click(*cancel);
  }

 protected:
  /** Return means OK unless the focus is on another button. */
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QDialog::keyPressEvent(event);
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (button == nullptr) button = findChild<QPushButton*>(QStringLiteral("cmdOK"));
    if (button != nullptr) button->click();
  }

 private:
  FormControls& form_;
};

}  // namespace

FormView::FormView(FormControls& form, Parts parts, QWidget* parent)
    : QWidget(parent), form_(form), parts_(std::move(parts)) {
  QLayout* layout = MakeColumn(form_.layout());
  setLayout(layout);
  form_.shown_changed = [this] { Refresh(); };
}

FormView::~FormView() {
  if (!form_gone_) form_.shown_changed = nullptr;
  delete dialog_;
}

void FormView::Refresh() {
  for (const auto& control : controls_) control->Refresh();
  for (const auto& picture : pictures_) {
    if (picture != nullptr) picture->Refresh();
  }
  if (parts_.refresh_table) parts_.refresh_table();
  FollowDialog();
}

QWidget* FormView::MakeControl(Control& control, const QString& label) {
  controls_.push_back(MakeControlWidget(form_, control, parts_.page, label));
  return controls_.back()->widget();
}

QLayout* FormView::MakeColumn(const FormLayout& part) {
  const bool row = part.kind == FormLayout::Kind::kRow;
  auto* box = new QBoxLayout(row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  box->setContentsMargins(0, 0, 0, 0);
  const bool beside_table = std::any_of(part.parts.begin(), part.parts.end(), [](const FormLayout& other) {
    return other.kind == FormLayout::Kind::kTable;
  });
  bool grows = row;
  for (std::size_t at = 0; at < part.parts.size();) {
    const FormLayout& one = part.parts[at];
    grows = grows || Grows(one) || one.kind == FormLayout::Kind::kStretch;
    if (!row && IsSmallField(one)) {
      AddFields(box, part.parts, at);
      continue;
    }
    // Horizontally, all parts but the narrow ones share the space; vertically, those that grow, a table
    // before a list.
    const bool takes = row            ? one.control == nullptr && !IsNarrow(one)
                       : beside_table ? one.kind == FormLayout::Kind::kTable
                                      : Grows(one);
    AddPart(box, one, takes || (row && Grows(one) && !IsNarrow(one)) ? 1 : 0);
    ++at;
  }
  if (!grows) box->addStretch(1);
  return box;
}

/** Puts consecutive fields into one form layout, so that their labels line up. */
void FormView::AddFields(QBoxLayout* to, const std::vector<FormLayout>& parts, std::size_t& at) {
  auto* fields = new QFormLayout;
  fields->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  for (; at < parts.size() && IsSmallField(parts[at]); ++at) {
    const FormLayout& field = parts[at];
    QWidget* widget = MakeControl(*field.control, Words(field.text));
    if (field.unit.empty() && field.unit_control == nullptr) {
      fields->addRow(Words(field.text), widget);
      continue;
    }
    auto* row = new QHBoxLayout;
    row->addWidget(widget);
    row->addWidget(field.unit_control != nullptr ? MakeControl(*field.unit_control, {})
                                                 : new QLabel(parts_.page.ToLetters(field.unit)));
    row->addStretch();
    auto* label = new QLabel(Words(field.text));
    label->setBuddy(widget);
    fields->addRow(label, row);
  }
  to->addLayout(fields);
}

QWidget* FormView::MakeGroup(const FormLayout& part) {
  auto* group = new GroupFrame(Words(part.text));
  FormLayout column = part;
  column.kind = FormLayout::Kind::kColumn;
  auto* frame = new QVBoxLayout(group);
  frame->addLayout(MakeColumn(column));
  return group;
}

void FormView::AddPart(QBoxLayout* to, const FormLayout& part, int stretch) {
  switch (part.kind) {
    case FormLayout::Kind::kRow:
    case FormLayout::Kind::kColumn:
      to->addLayout(static_cast<QBoxLayout*>(MakeColumn(part)), stretch);
      break;
    case FormLayout::Kind::kGroup:
      to->addWidget(MakeGroup(part), stretch);
      break;
    case FormLayout::Kind::kGrid: {
      auto* grid = new QGridLayout;
      for (std::size_t i = 0; i < part.parts.size(); ++i) {
        auto* cell = new QVBoxLayout;
        FormLayout one{.parts = {part.parts[i]}};
        cell->addLayout(static_cast<QBoxLayout*>(MakeColumn(one)));
        const auto columns = static_cast<std::size_t>(std::max(part.columns, 1));
        grid->addLayout(cell, static_cast<int>(i / columns), static_cast<int>(i % columns));
      }
      to->addLayout(grid, stretch);
      break;
    }
    case FormLayout::Kind::kField: {
      auto* column = new QVBoxLayout;
      QWidget* widget = MakeControl(*part.control, Words(part.text));
      auto* label = new QLabel(Words(part.text));
      label->setBuddy(widget);
      const bool above = Grows(part);
      auto* box = above ? static_cast<QBoxLayout*>(column) : new QHBoxLayout;
      if (!above) delete column;
      box->addWidget(label);
      box->addWidget(widget, stretch);
      if (!part.unit.empty()) box->addWidget(new QLabel(parts_.page.ToLetters(part.unit)));
      to->addLayout(box, stretch);
      break;
    }
    case FormLayout::Kind::kControl:
      to->addWidget(MakeControl(*part.control, {}), stretch);
      break;
    case FormLayout::Kind::kTable:
      to->addWidget(parts_.make_table(), 1);
      break;
    case FormLayout::Kind::kNote: {
      auto* note = MakeMuted(new QLabel(Words(part.text)));
      note->setWordWrap(true);
      to->addWidget(note);
      break;
    }
    case FormLayout::Kind::kStretch:
      to->addStretch(1);
      break;
    case FormLayout::Kind::kPicture:
      if (Picture* picture = parts_.make_picture(part.text, form_); picture != nullptr) {
        pictures_.emplace_back(picture);
        to->addWidget(picture, 1);
      }
      break;
  }
}

void FormView::FollowDialog() {
  if (form_.dialog() == shown_dialog_) return;
  if (dialog_view_ != nullptr) dialog_view_->form_gone_ = true;
  delete dialog_;
  shown_dialog_ = form_.dialog();
  if (shown_dialog_ != nullptr) ShowDialog();
}

void FormView::ShowDialog() {
  dialog_ = new FormDialog(*shown_dialog_, window());
  dialog_->setWindowTitle(Words(shown_dialog_->title()));
  auto* view = new FormView(*shown_dialog_, parts_, dialog_);
  dialog_view_ = view;
  auto* layout = new QVBoxLayout(dialog_);
  layout->addWidget(view);
  // The dialog's form may have closed itself: delete the dialog after the event that it is still in.
  shown_dialog_->shown_changed = [this, view] {
    view->Refresh();
    QTimer::singleShot(0, this, [this] { form_.Settle(); });
  };
  if (const Control* focus = shown_dialog_->focus(); focus != nullptr)
    dialog_->findChild<QWidget*>(ControlName(focus->id))->setFocus();
  dialog_->open();
}

}  // namespace tarvok::desktop
