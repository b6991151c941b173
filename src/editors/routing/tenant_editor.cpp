#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "editing/editor_form.h"
#include "editors/editors.h"
#include "sections/routing/tenan.h"
#include "sections/rows.h"

namespace tarvok::editors {
namespace tenant_editor {

using namespace tenan;

/**
 * "Tenan" (`frmTenan`): which tenant may call which, by day and by night. Each cell of a page is a control,
 * `cell(row, column)` from 1. The buttons for rows and columns apply to a window of 16 by 16 cells; the two
 * scroll bars set its first row and column.
 */
class TenantEditor : public EditorForm {
 public:
  TenantEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;
  /** Describes a cell: "tenant 3 may call tenant 17 by day". Row and column from 1. */
  std::string Words(int row, int column) const;

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static constexpr int kWindow = 16;
  using Matrix = std::array<std::array<bool, kTenants>, kTenants>;  // by row, then column, from 0

  Matrix& page() { return matrix_[static_cast<std::size_t>(page_.current)]; }
  void AddCells();
  void AddButtons();
  void SetCell(int row, int column, bool on);
  void SetLine(bool is_row, int position);
  void SetAll(bool on);
  void Show();

  std::array<Matrix, 2> matrix_{};
  std::array<std::array<CheckBox*, kTenants>, kTenants> cells_{};
  std::array<std::array<Button*, kWindow>, 2> line_buttons_{};  // of columns, of rows
  std::array<std::array<bool, kWindow>, 2> line_clears_{};      // what the next click of each does
  TabBar& page_;
  Label& frame_;
  ScrollBar& across_;
  ScrollBar& down_;
};

constexpr std::string_view kPages[] = {"Day", "Night"};
constexpr std::string_view kPageWords[] = {"by day", "by night"};
/** By page: the tables of the lower and the upper columns. */
constexpr const Table* kHalves[][2] = {{&kDayTable, &kDayHighTable}, {&kNightTable, &kNightHighTable}};

TenantEditor::TenantEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name),
      page_(
          AddEntries<TabBar>({"tbsTenan"}, "Day or night", {std::string(kPages[0]), std::string(kPages[1])})),
      frame_(AddLabel({"Frame1"}, {})),
      across_(AddScrollBar({"HScroll1"}, "First column", kTenants - kWindow)),
      down_(AddScrollBar({"VScroll1"}, "First row", kTenants - kWindow)) {
  for (Control* control : std::initializer_list<Control*>{&page_, &across_, &down_})
    control->changed = [this] { Show(); };
  AddCells();
  AddButtons();
  Control& set_all = AddButton("cmdSetAll", "Set A&ll", [this] { SetAll(true); });
  Control& clear_all = AddButton("cmdClearAll", "Clea&r All", [this] { SetAll(false); });
  FormLayout buttons = OkAndCancel();
  buttons.parts.insert(buttons.parts.begin(), {layout::Of(set_all), layout::Of(clear_all)});
  SetLayout(layout::Column({layout::Of(page_), layout::Of(frame_),
                            layout::Row({layout::Picture("tenants"), layout::Of(down_)}), layout::Of(across_),
                            std::move(buttons)}));
}

void TenantEditor::AddCells() {
  for (int row = 1; row <= kTenants; ++row) {
    for (int column = 1; column <= kTenants; ++column) {
      CheckBox& cell = AddCheck({"cell", row, column}, {});
      cells_[static_cast<std::size_t>(row) - 1][static_cast<std::size_t>(column) - 1] = &cell;
      cell.changed = [this, row, column, &cell] { SetCell(row, column, cell.on); };
    }
  }
}

void TenantEditor::AddButtons() {
  for (const bool is_row : {false, true}) {
    for (int i = 0; i < kWindow; ++i) {
      Button& button = AddButton(is_row ? "cmdRow" : "cmdCol", {}, [this, is_row, i] { SetLine(is_row, i); });
      button.id.index = i;
      line_buttons_[is_row ? 1 : 0][static_cast<std::size_t>(i)] = &button;
    }
  }
}

void TenantEditor::SetCell(int row, int column, bool on) {
  const auto r = static_cast<std::size_t>(row) - 1;
  const auto c = static_cast<std::size_t>(column) - 1;
  page()[r][c] = on;
  cells_[r][c]->on = on;
  cells_[r][c]->caption = Words(row, column);
}

/** Switches the cells of a row or column in the window all on or all off, alternately. */
void TenantEditor::SetLine(bool is_row, int position) {
  bool& clears = line_clears_[is_row ? 1 : 0][static_cast<std::size_t>(position)];
  const bool on = !std::exchange(clears, !clears);
  for (int i = 0; i < kWindow; ++i)
    SetCell(down_.current + (is_row ? position : i) + 1, across_.current + (is_row ? i : position) + 1, on);
  MarkChanged();
}

void TenantEditor::SetAll(bool on) {
  for (auto& row : page()) row.fill(on);
  MarkChanged();
  Show();
}

void TenantEditor::Show() {
  page_.current = std::clamp(page_.current, 0, 1);
  frame_.text =
      std::string("Setup Tenan -- ( ").append(kPages[static_cast<std::size_t>(page_.current)]).append(" )");
  for (int row = 1; row <= kTenants; ++row) {
    for (int column = 1; column <= kTenants; ++column) {
      SetCell(row, column, page()[static_cast<std::size_t>(row) - 1][static_cast<std::size_t>(column) - 1]);
    }
  }
  for (int i = 0; i < kWindow; ++i) {
    line_buttons_[0][static_cast<std::size_t>(i)]->caption = std::to_string(across_.current + i + 1);
    line_buttons_[1][static_cast<std::size_t>(i)]->caption = std::to_string(down_.current + i + 1);
  }
}

std::string TenantEditor::Words(int row, int column) const {
  const auto page = static_cast<std::size_t>(page_.current);
  const bool may = matrix_[page][static_cast<std::size_t>(row) - 1][static_cast<std::size_t>(column) - 1];
  return std::string("tenant ")
      .append(std::to_string(row))
      .append(may ? " may call tenant " : " may not call tenant ")
      .append(std::to_string(column))
      .append(" ")
      .append(kPageWords[page]);
}

/** The last character of a value is the lowest column of its range, even if the value is too short or too
 * long. */
void TenantEditor::Load(const IniText& project) {
  for (std::size_t page = 0; page < matrix_.size(); ++page) {
    for (std::size_t row = 0; row < kTenants; ++row) {
      auto& cells = matrix_[page][row];
      cells.fill(false);
      for (const Table* half : kHalves[page]) {
        const std::string_view columns = RowValue(project, *half, half->rows.first + static_cast<int>(row));
        const auto low = static_cast<std::size_t>(half->fields[0].low) - 1;
        const auto count = std::min(columns.size(), static_cast<std::size_t>(half->fields[0].high));
        for (std::size_t i = 0; i < count; ++i) cells[low + i] = columns[columns.size() - 1 - i] == '1';
      }
    }
  }
  Show();
}

void TenantEditor::Write(IniEdit& project) {
  for (std::size_t page = 0; page < matrix_.size(); ++page) {
    for (std::size_t row = 0; row < kTenants; ++row) {
      for (const Table* half : kHalves[page]) {
        std::string columns;
        const auto low = static_cast<std::size_t>(half->fields[0].low) - 1;
        for (int i = half->fields[0].high; i > 0; --i)
          columns += matrix_[page][row][low + static_cast<std::size_t>(i) - 1] ? '1' : '0';
        project.Set(half->section, KeyOf(*half, half->rows.first + static_cast<int>(row)), columns);
      }
    }
  }
}

bool TenantEditor::ShowPlace(std::string_view section, int row, int /*field*/) {
  if (!SameName(section, kDayTable.section)) return false;
  for (std::size_t page = 0; page < matrix_.size(); ++page) {
    for (const Table* half : kHalves[page]) {
      if (row < half->rows.first || row > half->rows.last) continue;
      ChooseEntry(page_, static_cast<int>(page));
      ChooseEntry(down_, std::min(row - half->rows.first, down_.high));
      ChooseEntry(across_, half->fields[0].low > kWindow ? across_.high : 0);
      return true;
    }
  }
  return false;
}

}  // namespace tenant_editor

extern const Editor kTenantEditor{
    "12 - Tenan", "tenan", {"frmTenan", "Tenan"}, Make<tenant_editor::TenantEditor>};

}  // namespace tarvok::editors
