// What surrounds a table: its menu, the row of tools above it, clipboard, find and replace, files.

#include <fstream>
#include <iterator>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QToolButton>

#include "desktop/forms/editor_page.h"
#include "desktop/forms/replace_dialog.h"
#include "desktop/headings.h"
#include "desktop/shown_text.h"
#include "sections/field_columns.h"
#include "shell/editor/table_csv.h"
#include "store/whole_write.h"

namespace tarvok {
namespace {

const QString kCsvFiles = QStringLiteral("Comma-separated text (*.csv)");

}  // namespace

QAction* EditorPage::AddAction(const QString& name, const QString& text, const QList<QKeySequence>& keys,
                               std::function<void()> run) {
  auto* action = new QAction(text, this);
  action->setObjectName(name);
  action->setShortcuts(keys);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(action, &QAction::triggered, this, std::move(run));
  addAction(action);
  edit_menu_->addAction(action);
  if (table_ != nullptr) table_->addAction(action);
  return action;
}

QAction* EditorPage::AddMenuEntry(const char* control, const QString& text, const QList<QKeySequence>& keys) {
  if (form_->Find({control}) == nullptr) return nullptr;
  return AddAction(QString::fromLatin1(control), text, keys, [this, control] {
    if (table_form_ != nullptr) TakeClipboard();
    ClickControl(control);
    if (table_form_ == nullptr) return;
    const QString letters = PageOf(parts_.settings).ToLetters(table_form_->clipboard);
    if (letters != QApplication::clipboard()->text()) QApplication::clipboard()->setText(letters);
  });
}

void EditorPage::TakeClipboard() {
  table_form_->clipboard = PageOf(parts_.settings).ToBytes(QApplication::clipboard()->text());
}

void EditorPage::MakeEditMenu() {
  if (table_form_ == nullptr) return;
  edit_menu_ = new QMenu(QStringLiteral("&Table"));
  edit_menu_->setObjectName(QStringLiteral("mnu_edit"));
  // Not all desktops have a key for every standard command.
  const QList<QKeySequence> redo = {QKeySequence(Qt::CTRL | Qt::Key_Y),
                                    QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)};
  AddMenuEntry("mnu_undo", QStringLiteral("&Undo"), {QKeySequence(Qt::CTRL | Qt::Key_Z)});
  AddMenuEntry("mnu_redo", QStringLiteral("&Redo"), redo);
  edit_menu_->addSeparator();
  AddMenuEntry("mnu_cut", QStringLiteral("Cu&t"), {QKeySequence(Qt::CTRL | Qt::Key_X)});
  AddMenuEntry("mnu_copy", QStringLiteral("&Copy"), {QKeySequence(Qt::CTRL | Qt::Key_C)});
  AddMenuEntry("mnu_paste", QStringLiteral("&Paste"), {QKeySequence(Qt::CTRL | Qt::Key_V)});
  AddMenuEntry("mnu_delete", QStringLiteral("&Delete..."), {});
  AddMenuEntry("mnu_fill", QStringLiteral("&Fill Down"), {QKeySequence(Qt::CTRL | Qt::Key_D)});
  edit_menu_->addSeparator();
  AddMenuEntry("mnu_AddRow", QStringLiteral("&Add Row"), {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A)});
  AddMenuEntry("mnu_insert_row", QStringLiteral("&Insert Row"), {QKeySequence(Qt::CTRL | Qt::Key_Plus)});
  AddMenuEntry("mnu_del_row", QStringLiteral("De&lete Row"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)});
  edit_menu_->addSeparator();
  AddMenuEntry("mnu_Sort_AZ", QStringLiteral("Sort A to &Z"), {});
  AddMenuEntry("mnu_Sort_ZA", QStringLiteral("Sort Z to A (&descending)"), {});
  edit_menu_->addSeparator();
  AddAction(QStringLiteral("mnu_find"), QStringLiteral("Find and Re&place..."),
            {QKeySequence(Qt::CTRL | Qt::Key_H)}, [this] { FindAndReplace(); });
  AddAction(QStringLiteral("mnu_filter"), QStringLiteral("Filter Ro&ws"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)},
            [this] { filter_->setFocus(Qt::ShortcutFocusReason); });
  edit_menu_->addSeparator();
  if (dynamic_cast<FieldTableForm*>(form_.get()) != nullptr) {
    AddAction(QStringLiteral("mnu_used_by"), QStringLiteral("&Used by..."),
              {QKeySequence(Qt::CTRL | Qt::Key_U)}, [this] { ShowUsedBy(); });
    edit_menu_->addSeparator();
  }
  AddAction(QStringLiteral("mnu_import"), QStringLiteral("I&mport CSV..."), {}, [this] { ImportFile(); });
  AddAction(QStringLiteral("mnu_export"), QStringLiteral("E&xport CSV..."), {}, [this] { ExportFile(); });
}

QWidget* EditorPage::MakeToolRow() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  filter_ = new QLineEdit;
  filter_->setObjectName(QStringLiteral("Filter"));
  filter_->setAccessibleName(QStringLiteral("Show only rows with this text"));
  filter_->setPlaceholderText(QStringLiteral("Show only rows with..."));
  filter_->setClearButtonEnabled(true);
  filter_->setMaximumWidth(260);
  auto* found = MakeMuted(new QLabel);
  found->setObjectName(QStringLiteral("RowsShown"));
  connect(filter_, &QLineEdit::textChanged, this, [this, found](const QString& text) {
    const int shown = table_->FilterRows(text);
    found->setText(text.isEmpty() ? QString()
                                  : QStringLiteral("%1 of %2 rows").arg(shown).arg(model_->rowCount()));
  });
  layout->addWidget(filter_);
  layout->addWidget(found);
  layout->addStretch();
  return row;
}

void EditorPage::FindAndReplace() {
  Commit();
  ReplaceDialog dialog(
      *table_form_, PageOf(parts_.settings), [this] { Acted(); }, this);
  dialog.exec();
}

void EditorPage::ExportFile() {
  Commit();
  const QString path = QFileDialog::getSaveFileName(
      this, QStringLiteral("Export"), Words(form_->title()) + QStringLiteral(".csv"), kCsvFiles);
  if (path.isEmpty()) return;
  const QString letters = PageOf(parts_.settings).ToLetters(ExportCsv(*form_->table()));
  const Status written = WriteWhole(parts_.store.files(), PathBytes(path), letters.toStdString());
  if (!written.ok()) questions_.Box(written.message(), true);
}

void EditorPage::ImportFile() {
  Commit();
  const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Import"), {}, kCsvFiles);
  if (path.isEmpty()) return;
  const Result<std::string> bytes = parts_.store.files().Read(PathBytes(path));
  if (!bytes.ok()) return questions_.Box(bytes.status().message(), true);
  const QString letters = QString::fromStdString(bytes.value());
  const Status taken = ImportCsv(*form_->table(), PageOf(parts_.settings).ToBytes(letters));
  if (!taken.ok()) questions_.Box("Nothing was imported: " + taken.message(), true);
  Acted();
}

}  // namespace tarvok
