// The tools around a table: its commands, the tool row above it, clipboard, find and replace, CSV files.

#include <optional>
#include <utility>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>

#include "desktop/forms/editor_page.h"
#include "desktop/forms/replace_dialog.h"
#include "desktop/look/headings.h"
#include "desktop/look/shown_text.h"
#include "editing/table_csv.h"
#include "editors/field_table_editor.h"
#include "store/whole_write.h"

namespace tarvok::desktop {
namespace {

constexpr std::string_view kCut = "mnu_cut";
constexpr std::string_view kCopy = "mnu_copy";
constexpr std::string_view kPaste = "mnu_paste";
const QString kCsvFiles = QStringLiteral("Comma-separated text (*.csv)");

std::string RowsText(int count) {
  return std::to_string(count) + (count == 1 ? " row" : " rows");
}

}  // namespace

QAction* EditorPage::AddAction(const QString& name, const QString& text, const QList<QKeySequence>& keys,
                               std::function<void()> run) {
  auto* action = new QAction(text, this);
  action->setObjectName(name);
  action->setShortcuts(keys);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(action, &QAction::triggered, this, std::move(run));
  addAction(action);
  return action;
}

void EditorPage::AddSeparator() {
  auto* separator = new QAction(this);
  separator->setSeparator(true);
  addAction(separator);
}

QAction* EditorPage::AddMenuEntry(std::string_view control, const QString& text,
                                  const QList<QKeySequence>& keys) {
  if (form_->Find({std::string(control)}) == nullptr) return nullptr;
  return AddAction(Words(control), text, keys, [this, control] {
    if (control == kPaste) TakeClipboard();
    ClickControl(control);
    if (control == kCut || control == kCopy)
      QApplication::clipboard()->setText(PageOf(parts_.settings).ToLetters(form_->table()->clipboard));
  });
}

void EditorPage::TakeClipboard() {
  CodePage::Taken taken = PageOf(parts_.settings).Take(QApplication::clipboard()->text());
  form_->table()->clipboard = std::move(taken.bytes);
  lacking_ = std::move(taken.lacking);
}

/** Makes the actions of the page, which are the window's Table menu while the page is in the pane. */
void EditorPage::MakeTableActions() {
  if (table_ == nullptr) return;
  // Not all desktops have a shortcut for every standard command.
  const QList<QKeySequence> redo = {QKeySequence(Qt::CTRL | Qt::Key_Y),
                                    QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)};
  AddMenuEntry("mnu_undo", QStringLiteral("&Undo"), {QKeySequence(Qt::CTRL | Qt::Key_Z)});
  AddMenuEntry("mnu_redo", QStringLiteral("&Redo"), redo);
  AddSeparator();
  AddMenuEntry(kCut, QStringLiteral("Cu&t"), {QKeySequence(Qt::CTRL | Qt::Key_X)});
  AddMenuEntry(kCopy, QStringLiteral("&Copy"), {QKeySequence(Qt::CTRL | Qt::Key_C)});
  AddMenuEntry(kPaste, QStringLiteral("&Paste"), {QKeySequence(Qt::CTRL | Qt::Key_V)});
  AddMenuEntry("mnu_delete", QStringLiteral("&Delete..."), {});
  AddMenuEntry("mnu_fill", QStringLiteral("&Fill Down"), {QKeySequence(Qt::CTRL | Qt::Key_D)});
  AddSeparator();
  AddMenuEntry("mnu_AddRow", QStringLiteral("&Add Row"), {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A)});
  AddMenuEntry("mnu_insert_row", QStringLiteral("&Insert Row"), {QKeySequence(Qt::CTRL | Qt::Key_Plus)});
  AddMenuEntry("mnu_del_row", QStringLiteral("De&lete Row"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)});
  AddSeparator();
  AddMenuEntry("mnu_Sort_AZ", QStringLiteral("Sort A to &Z"), {});
  AddMenuEntry("mnu_Sort_ZA", QStringLiteral("Sort Z to A (desce&nding)"), {});
  AddSeparator();
  AddAction(QStringLiteral("mnu_find"), QStringLiteral("Find and Replac&e..."),
            {QKeySequence(Qt::CTRL | Qt::Key_H)}, [this] { FindAndReplace(); });
  AddAction(QStringLiteral("mnu_filter"), QStringLiteral("Filter Ro&ws"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)},
            [this] { filter_->setFocus(Qt::ShortcutFocusReason); });
  AddSeparator();
  if (dynamic_cast<FieldTableEditor*>(form_.get()) != nullptr) {
    AddAction(QStringLiteral("mnu_used_by"), QStringLiteral("Used &by..."),
              {QKeySequence(Qt::CTRL | Qt::Key_U)}, [this] { ShowUsedBy(); });
    AddSeparator();
  }
  AddAction(QStringLiteral("mnu_import"), QStringLiteral("I&mport CSV..."), {}, [this] { ImportFile(); });
  AddAction(QStringLiteral("mnu_export"), QStringLiteral("E&xport CSV..."), {}, [this] { ExportFile(); });
  if (table_ != nullptr) table_->addActions(actions());
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
  row_count_ = MakeMuted(new QLabel);
  row_count_->setObjectName(QStringLiteral("RowsShown"));
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
    table_->FilterRows(text);
    RefreshTable();
  });
  layout->addWidget(filter_);
  layout->addWidget(row_count_);
  layout->addStretch();
  return row;
}

void EditorPage::FindAndReplace() {
  Commit();
  ReplaceDialog dialog(
      *form_->table(), PageOf(parts_.settings), [this] { Acted(); }, this);
  dialog.exec();
}

void EditorPage::ExportFile() {
  Commit();
  QFileDialog dialog(this, QStringLiteral("Export"), {}, kCsvFiles);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("csv"));
  dialog.selectFile(Words(form_->title()) + QStringLiteral(".csv"));
  if (dialog.exec() != QDialog::Accepted) return;
  const QString path = dialog.selectedFiles().constFirst();
  const QString letters = PageOf(parts_.settings).ToLetters(ExportCsv(*form_->table()));
  const Status written = WriteWhole(parts_.store.files(), PathBytes(path), letters.toStdString());
  if (!written.ok()) questions_.Box(written.message(), true);
}

/** Names the columns that an import changes; "" for all. */
std::string EditorPage::ColumnsText(const std::vector<int>& columns) const {
  const TableEditor& table = *form_->table();
  if (static_cast<int>(columns.size()) == table.columns()) return {};
  std::string text = ", in ";
  for (const int column : columns)
    text.append(column == columns.front() ? "" : ", ").append(table.column(column).title);
  return text + " alone; the other columns stay";
}

void EditorPage::ImportFile() {
  Commit();
  const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Import"), {}, kCsvFiles);
  if (path.isEmpty()) return;
  const Result<std::string> bytes = parts_.store.files().Read(PathBytes(path));
  if (!bytes.ok()) return questions_.Box(bytes.status().message(), true);
  const CodePage& page = PageOf(parts_.settings);
  // Not every spreadsheet writes UTF-8.
  const std::string text = MessageText(bytes.value(), page).toStdString();
  const Status taken = ImportCsv(
      *form_->table(), text,
      {.convert = [&page](const std::string& cell, std::string& why) -> std::optional<std::string> {
         CodePage::Taken letters = page.Take(Words(cell));
         if (letters.lacking.isEmpty()) return std::move(letters.bytes);
         why = "can't be kept: " + page.WhyLacking(letters.lacking).toStdString();
         return std::nullopt;
       },
       .may_replace =
           [this](int rows, int by, const std::vector<int>& columns) {
             return questions_.Ask("This replaces " + RowsText(rows) + " by " + RowsText(by) +
                                   " of the file" + ColumnsText(columns) + ".\nDo you want to import them?");
           }});
  if (!taken.ok()) questions_.Box("Nothing was imported: " + taken.message(), true);
  Acted();
}

}  // namespace tarvok::desktop
