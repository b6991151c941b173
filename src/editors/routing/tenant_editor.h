#pragma once

#include <array>
#include <string>
#include <string_view>

#include "editing/editor_form.h"
#include "editors/uses.h"
#include "sections/routing/tenan.h"

namespace tarvok::editors {

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
  std::array<std::array<Control*, kTenants>, kTenants> cells_{};
  std::array<std::array<Control*, kWindow>, 2> line_buttons_{};  // of columns, of rows
  std::array<std::array<bool, kWindow>, 2> line_clears_{};       // what the next click of each does
  Control& page_;
  Control& frame_;
  Control& across_;
  Control& down_;
};

}  // namespace tarvok::editors
