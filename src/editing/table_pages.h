#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "editing/table_editor.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** Pages of rows that share one table; a list next to the table chooses the page. Pages count from 0. */
class TablePages {
 public:
  /** Pages shorter than `rows` rows are shown with blank rows added; longer ones are shown in full. */
  TablePages(TableEditor& table, int rows) : table_(table), rows_(static_cast<std::size_t>(rows)) {}

  /** Replaces all pages; none is shown. */
  void Fill(std::vector<std::vector<TableRow>> pages) {
    pages_ = std::move(pages);
    shown_ = -1;
  }
  int count() const { return static_cast<int>(pages_.size()); }
  int shown() const { return shown_; }
  std::vector<TableRow>& page(int page) { return pages_[static_cast<std::size_t>(page)]; }

  /** Stores the table's rows in the shown page, without blank ones. */
  void Keep() {
    if (shown_ < 0) return;
    std::vector<TableRow> kept;
    for (int row = 1; row <= table_.rows(); ++row) {
      if (!table_.IsBlank(row)) kept.push_back(table_.row(row));
    }
    page(shown_) = std::move(kept);
  }
  /** Shows a page. What the table showed before is lost unless it was kept. */
  void Show(int page) {
    shown_ = page;
    table_.Clear();
    for (const TableRow& row : this->page(page)) table_.Load(row);
    for (std::size_t row = this->page(page).size(); row < rows_; ++row) table_.Load({});
  }

 private:
  TableEditor& table_;
  std::size_t rows_;
  std::vector<std::vector<TableRow>> pages_;
  int shown_ = -1;
};

}  // namespace tarvok::editing
