#include "desktop/forms/control_widget.h"

#include <algorithm>

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabBar>

#include "desktop/forms/rule_filter.h"
#include "desktop/look/line_delegate.h"
#include "desktop/look/wheel_needs_focus.h"

namespace tarvok::desktop {
namespace {

/** Moves the Alt letter of a caption to its next letter if a menu of the main window uses it. */
QString AvoidMenuLetters(QString caption) {
  constexpr QStringView kMenuLetters = u"PEVHT";
  const qsizetype at = caption.indexOf(QLatin1Char('&'));
  const auto is_free = [&](qsizetype i) {
    return caption[i].isLetter() && !kMenuLetters.contains(caption[i], Qt::CaseInsensitive);
  };
  if (at < 0 || at + 1 == caption.size() || is_free(at + 1)) return caption;
  caption.remove(at, 1);
  for (qsizetype i = at; i < caption.size(); ++i) {
    if (is_free(i)) return caption.insert(i, QLatin1Char('&'));
  }
  return caption;
}

/** The base of all widgets of controls. */
template <typename Kind, typename Made>
class Bound : public ControlWidget {
 public:
  Bound(FormControls& form, Kind& control, const CodePage& page)
      : form_(form), control_(control), page_(page), made_(new Made) {
    made_->setObjectName(ControlName(control.id));
  }
  QWidget* widget() override { return made_; }
  void Refresh() override {
    const QSignalBlocker quiet(made_);
    made_->setEnabled(control_.enabled);
    // A widget without a parent would be shown as a window.
    if (made_->parentWidget() != nullptr || !control_.visible) made_->setVisible(control_.visible);
    Show();
  }

 protected:
  virtual void Show() = 0;
  QString Letters(std::string_view bytes) const { return page_.ToLetters(bytes); }
  /** Replaces the entries of the widget, if it has some and they changed. */
  void ShowEntries() {
    if (shown_ == control_.entries) return;
    shown_ = control_.entries;
    made_->clear();
    for (const std::string& entry : shown_) made_->addItem(Letters(entry));
  }

  FormControls& form_;
  Kind& control_;
  const CodePage& page_;
  Made* made_;

 private:
  std::vector<std::string> shown_;
};

class ButtonWidget : public Bound<Button, QPushButton> {
 public:
  ButtonWidget(FormControls& form, Button& control, const CodePage& page) : Bound(form, control, page) {
    made_->setAutoDefault(false);
    QObject::connect(made_, &QPushButton::clicked, made_, [this] { form_.Click(control_); });
  }

 protected:
  void Show() override {
    const QString caption = AvoidMenuLetters(Letters(control_.caption));
    if (caption != made_->text()) made_->setText(caption);
  }
};

/** A check box or an option. The form's rules make options exclusive, not Qt. */
template <typename Made>
class SwitchWidget : public Bound<Switch, Made> {
 public:
  SwitchWidget(FormControls& form, Switch& control, const CodePage& page)
      : Bound<Switch, Made>(form, control, page) {
    this->made_->setAutoExclusive(false);
    this->made_->setText(this->Letters(control.caption));
    QObject::connect(this->made_, &Made::clicked, this->made_,
                     [this](bool on) { this->form_.Turn(this->control_, on); });
  }

 protected:
  void Show() override { this->made_->setChecked(this->control_.on); }
};

/** A text field. The control's rule checks every key, after the form's own handler. */
class KeyedLine : public QLineEdit {
 public:
  std::function<bool(QKeyEvent*)> key;
  std::function<void()> entered;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!key || !key(event)) QLineEdit::keyPressEvent(event);
  }
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    if (entered && event->reason() != Qt::PopupFocusReason) entered();
  }
};

class BoxWidget : public Bound<TextBox, KeyedLine> {
 public:
  BoxWidget(FormControls& form, TextBox& control, const CodePage& page) : Bound(form, control, page) {
    made_->setText(Letters(control.text));
    made_->setValidator(new RuleFilter(control.rule, page, made_->text(), made_));
    made_->key = [this](QKeyEvent* event) { return TakesKey(event); };
    made_->entered = [this] {
      form_.Focus(control_);
      if (control_.selected) made_->selectAll();
    };
    QObject::connect(made_, &QLineEdit::textEdited, made_, [this](const QString& text) {
      if (!form_.EditText(control_, page_.ToBytes(text))) form_.ShortenText(control_, page_.ToBytes(text));
    });
    if (control.rule.most > 0) {
      const int width =
          made_->fontMetrics().horizontalAdvance(QLatin1Char('0')) * (control.rule.most + 2) + 16;
      made_->setMaximumWidth(std::max(width, 64));
    }
  }

 protected:
  void Show() override {
    const QString text = Letters(control_.text);
    if (made_->text() != text) made_->setText(text);
    if (form_.focus() == &control_ && !made_->hasFocus() && made_->window()->isActiveWindow())
      made_->setFocus();
  }

 private:
  bool TakesKey(QKeyEvent* event) {
    if (!control_.key) return false;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const std::string bytes = page_.ToBytes(event->text());
    if (!enter && bytes.size() != 1) return false;
    if (!control_.key(enter ? Key{KeyCode::kReturn} : Key::Of(bytes.front()))) return false;
    form_.Settle();
    return true;
  }
};

class ListWidget : public Bound<ListBox, QListWidget> {
 public:
  ListWidget(FormControls& form, ListBox& control, const CodePage& page) : Bound(form, control, page) {
    made_->setSelectionMode(control.many ? QAbstractItemView::ExtendedSelection
                                         : QAbstractItemView::SingleSelection);
    made_->setAlternatingRowColors(true);
    made_->setItemDelegate(new LineDelegate(made_));
    int widest = 0;
    for (const std::string& entry : control.entries)
      widest = std::max(widest, LineWidth(Letters(entry), made_->fontMetrics()));
    made_->setMinimumWidth(std::clamp(widest + 48, 120, 320));
    QObject::connect(made_, &QListWidget::itemSelectionChanged, made_, [this] { Chosen(); });
  }

 protected:
  void Show() override {
    ShowEntries();
    for (int row = 0; row < made_->count(); ++row) {
      const auto& chosen = control_.chosen;
      const bool on = control_.many ? std::find(chosen.begin(), chosen.end(), row) != chosen.end()
                                    : row == control_.current;
      if (made_->item(row)->isSelected() != on) made_->item(row)->setSelected(on);
    }
    if (control_.current != made_->currentRow()) {
      made_->setCurrentRow(control_.current, QItemSelectionModel::NoUpdate);
      if (made_->currentItem() != nullptr) made_->scrollToItem(made_->currentItem());
    }
  }

 private:
  void Chosen() {
    std::vector<int> rows;
    for (int row = 0; row < made_->count(); ++row) {
      if (made_->item(row)->isSelected()) rows.push_back(row);
    }
    if (control_.many) {
      form_.ChooseEntries(control_, std::move(rows));
    } else if (!rows.empty() && rows.front() != control_.current) {
      form_.ChooseEntry(control_, rows.front());
    }
  }
};

class ComboWidget : public Bound<ComboBox, QComboBox> {
 public:
  ComboWidget(FormControls& form, ComboBox& control, const CodePage& page) : Bound(form, control, page) {
    made_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    WheelNeedsFocus::Set(made_);
    QObject::connect(made_, &QComboBox::activated, made_,
                     [this](int entry) { form_.ChooseEntry(control_, entry); });
  }

 protected:
  void Show() override {
    ShowEntries();
    made_->setCurrentIndex(control_.current);
  }
};

class TabWidget : public Bound<TabBar, QTabBar> {
 public:
  TabWidget(FormControls& form, TabBar& control, const CodePage& page) : Bound(form, control, page) {
    for (const std::string& entry : control.entries) made_->addTab(Letters(entry));
    made_->setExpanding(false);
    QObject::connect(made_, &QTabBar::currentChanged, made_,
                     [this](int tab) { form_.ChooseEntry(control_, tab); });
  }

 protected:
  void Show() override { made_->setCurrentIndex(control_.current); }
};

class ScrollWidget : public Bound<ScrollBar, QScrollBar> {
 public:
  ScrollWidget(FormControls& form, ScrollBar& control, const CodePage& page) : Bound(form, control, page) {
    made_->setOrientation(control.id.name.starts_with('V') ? Qt::Vertical : Qt::Horizontal);
    made_->setRange(0, control.high);
    made_->setPageStep(std::max(1, control.high));
    QObject::connect(made_, &QScrollBar::valueChanged, made_,
                     [this](int value) { form_.ChooseEntry(control_, value); });
  }

 protected:
  void Show() override { made_->setValue(control_.current); }
};

class LabelWidget : public Bound<Label, QLabel> {
 public:
  LabelWidget(FormControls& form, Label& control, const CodePage& page) : Bound(form, control, page) {
    made_->setWordWrap(true);
  }

 protected:
  void Show() override {
    made_->setText(Letters(control_.text));
    if (control_.text.empty()) made_->hide();
  }
};

}  // namespace

QString ControlName(const ControlId& id) {
  QString name = QString::fromStdString(id.name);
  if (id.index == kNoIndex) return name;
  name += QStringLiteral("(%1").arg(id.index);
  if (id.column != kNoIndex) name += QStringLiteral(",%1").arg(id.column);
  return name + QLatin1Char(')');
}

std::unique_ptr<ControlWidget> MakeControlWidget(FormControls& form, Control& control, const CodePage& page,
                                                 const QString& label) {
  using Made = std::unique_ptr<ControlWidget>;
  Made made = std::visit(
      Overloaded{
          [&](Button* button) -> Made { return std::make_unique<ButtonWidget>(form, *button, page); },
          [&](Label* text) -> Made { return std::make_unique<LabelWidget>(form, *text, page); },
          [&](TextBox* box) -> Made { return std::make_unique<BoxWidget>(form, *box, page); },
          [&](CheckBox* box) -> Made { return std::make_unique<SwitchWidget<QCheckBox>>(form, *box, page); },
          [&](Option* box) -> Made { return std::make_unique<SwitchWidget<QRadioButton>>(form, *box, page); },
          [&](ListBox* list) -> Made { return std::make_unique<ListWidget>(form, *list, page); },
          [&](ComboBox* list) -> Made { return std::make_unique<ComboWidget>(form, *list, page); },
          [&](TabBar* tabs) -> Made { return std::make_unique<TabWidget>(form, *tabs, page); },
          [&](ScrollBar* bar) -> Made { return std::make_unique<ScrollWidget>(form, *bar, page); }},
      control.Any());
  QString name = label.isEmpty() ? page.ToLetters(control.caption) : label;
  made->widget()->setAccessibleName(name.remove(QLatin1Char('&')).remove(QStringLiteral(" :")));
  made->Refresh();
  return made;
}

}  // namespace tarvok::desktop
