#include "desktop/forms/editor_page.h"

#include <utility>

#include <QApplication>
#include <QClipboard>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/forms/pictures.h"
#include "desktop/look/headings.h"
#include "desktop/look/shown_text.h"

namespace tarvok::desktop {

EditorPage::EditorPage(DesktopParts& parts, const Editor& editor, const FormContext& frame, PaneHost& host)
    : parts_(parts), host_(host), questions_(parts, this) {
  setObjectName(QString::fromStdString(std::string(editor.name.form)));
  setAccessibleName(Words(editor.name.title));
  MakeForm(editor, frame);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 12, 16, 12);
  auto* head = new QHBoxLayout;
  head->addWidget(MakeHeading(new QLabel(Words(editor.name.title)), 1.4));
  head->addStretch();
  head->addWidget(MakeMuted(new QLabel(QStringLiteral("Changed:"))));
  changed_ = MakeMuted(new QLabel);
  changed_->setObjectName(QStringLiteral("lblDataChanged"));
  head->addWidget(changed_);
  column->addLayout(head);
  if (form_->table() != nullptr) column->addWidget(MakeToolRow());
  view_ = new FormView(
      *form_, {.page = PageOf(parts_.settings),
               .make_picture = [this](const std::string& name,
                                      FormControls& form) { return MakePicture(name, form, parts_); },
               .make_table = [this] { return MakeTable(); },
               .refresh_table = [this] { RefreshTable(); }});
  column->addWidget(view_, 3);
  MakeCallPath();
  if (path_ != nullptr) {
    column->addWidget(path_, 1);
  }
  note_ = new QLabel;
  note_->setObjectName(QStringLiteral("Refused"));
  note_->setWordWrap(true);
  note_->setTextFormat(Qt::PlainText);  // it quotes pasted text
  note_->hide();
  column->addWidget(note_);
  MakeTableActions();
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), this), &QShortcut::activated, this, [this] {
    if (!form_->closed()) ClickControl("cmdOK");
  });
  if (table_ != nullptr) setFocusProxy(table_);
  Acted();
}

EditorPage::~EditorPage() {
  if (table_ != nullptr) table_->KeepColumns(parts_.settings, std::string(form_->name().form));
  delete view_;
}

void EditorPage::MakeForm(const Editor& editor, const FormContext& frame) {
  form_ = OpenEditor(editor, {.store = parts_.store,
                              .state = parts_.state,
                              .questions = questions_,
                              .system_file = parts_.system_file,
                              .keep =
                                  [this](std::string_view reason) {
                                    if (parts_.keep) parts_.keep(parts_.state.project_file, reason);
                                  },
                              .end_program = frame.exit_program});
  // The form is still inside the handler that closed it: delete it afterwards.
  form_->on_closed = [this, closed = frame.closed] {
    setEnabled(false);
    PutOff(closed);
  };
}

void EditorPage::PutOff(std::function<void()> work) {
  if (put_off_ != nullptr) QTimer::singleShot(0, put_off_.get(), std::move(work));
}

QWidget* EditorPage::MakeTable() {
  model_ = new TableModel(*form_->table(), PageOf(parts_.settings), this);
  table_ = new TableView(
      *model_, [this] { Acted(); }, [this] { ShowCallPath(); });
  table_->setAccessibleName(Words(form_->title()) + QStringLiteral(" table"));
  table_->RestoreColumns(parts_.settings, std::string(form_->name().form));
  return table_;
}

/** Called after every user action in the table. */
void EditorPage::Acted() {
  form_->FocusTable();
  if (form_->table() != nullptr) ShowNote();
  form_->Settle();
}

void EditorPage::RefreshTable() {
  if (table_ != nullptr) {
    table_->Refresh();
    ShowRowCount();
  }
  if (path_ != nullptr && parts_.state.data_changed) {
    path_project_ = form_->AsEdited();
    path_row_ = -1;
  }
  ShowCallPath();
  changed_->setText(parts_.state.data_changed ? QStringLiteral("True") : QStringLiteral("False"));
}

void EditorPage::ShowNote() {
  const std::vector<Refusal> refused = std::exchange(form_->table()->refused, {});
  const QString lacking = std::exchange(lacking_, QString());
  note_->setVisible(!refused.empty() || !lacking.isEmpty());
  const CodePage& page = PageOf(parts_.settings);
  QStringList lines;
  if (!lacking.isEmpty()) lines += QStringLiteral("pasted letters (%1)").arg(page.WhyLacking(lacking));
  for (const Refusal& each : refused) {
    lines += QStringLiteral("row %1, %2: \"%3\" %4")
                 .arg(each.row)
                 .arg(Words(form_->table()->column(each.column).title), page.ToLetters(each.text),
                      Words(each.why));
  }
  if (lines.isEmpty()) return;
  const qsizetype said = lacking.isEmpty() || refused.empty() ? 1 : 2;
  QString text = QStringLiteral("Left out: ") + lines.mid(0, said).join(QStringLiteral("; "));
  if (lines.size() > said) text += QStringLiteral(", and %1 more").arg(lines.size() - said);
  note_->setText(text);
  constexpr qsizetype kMostLines = 40;  // what a screen holds
  QString all = lines.mid(0, kMostLines).join(QLatin1Char('\n'));
  if (lines.size() > kMostLines) all += QStringLiteral("\nand %1 more").arg(lines.size() - kMostLines);
  note_->setToolTip(QStringLiteral("<pre>%1</pre>").arg(all.toHtmlEscaped()));
}

void EditorPage::ShowRowCount() {
  row_count_->setText(
      filter_->text().isEmpty()
          ? QString()
          : QStringLiteral("%1 of %2 rows").arg(table_->shown_rows()).arg(model_->rowCount()));
}

void EditorPage::Commit() {
  QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || !isAncestorOf(focus) || focus == table_) return;
  focus->clearFocus();
  (table_ != nullptr ? table_ : focus)->setFocus();
}

void EditorPage::GoTo(const Place& place) {
  if (!form_->ShowPlace(place.section, place.row, place.field)) return;
  // The place must be visible whatever the filter was.
  if (table_ != nullptr && !form_->table()->InSight(form_->table()->current_row())) filter_->clear();
  view_->Refresh();
}

void EditorPage::ClickControl(std::string_view control) {
  Commit();
  if (Control* found = form_->Find({std::string(control)}); found != nullptr) form_->Click(*found);
  if (form_->table() != nullptr) ShowNote();
}

namespace {

/** An editor as a form of the main frame. */
class EditorPaneForm : public Form {
 public:
  EditorPaneForm(PaneHost& host, EditorPage* page) : host_(host), page_(page) {}
  ~EditorPaneForm() override {
    if (page_ == nullptr) return;
    page_->GiveUp();
    host_.RemoveFromPane(page_);
  }
  EditorPaneForm(const EditorPaneForm&) = delete;
  EditorPaneForm& operator=(const EditorPaneForm&) = delete;

  std::string_view name() const override { return page_->form().name().recorded(); }
  void Show() override { host_.ShowInPane(page_); }
  bool SaveFile() override {
    page_->Commit();
    return page_->form().SaveFile();
  }
  bool Unload() override { return true; }
  void GoTo(const Place& place) override { page_->GoTo(place); }

 private:
  PaneHost& host_;
  QPointer<EditorPage> page_;
};

}  // namespace

Command EditorCommand(DesktopParts& parts, const Editor& editor, PaneHost& host) {
  return {.text = editor.text,
          .key = editor.key,
          .recorded = editor.name.recorded(),
          .compared = editor.compared,
          .make = [&parts, &editor, &host](const FormContext& frame) -> std::unique_ptr<Form> {
            return std::make_unique<EditorPaneForm>(host, new EditorPage(parts, editor, frame, host));
          },
          .keeps_highlight = editor.keeps_highlight,
          .needs_system_file = editor.needs_system_file};
}

}  // namespace tarvok::desktop
