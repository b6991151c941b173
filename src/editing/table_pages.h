#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "editing/table_editor.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** Pages of rows that one table shows in turn, as a list beside the table chooses them. Pages count from 0. */
class TablePages {
 public:
  /** The table shows at least `rows` rows, filled up with blank ones; a longer page is shown whole. */
  TablePages(TableEditor& table, int rows) : table_(table), rows_(static_cast<std::size_t>(rows)) {}

  /** Pages anew, none of them shown. */
  void Fill(std::vector<std::vector<TableRow>> pages) {
    pages_ = std::move(pages);
    shown_ = -1;
  }
  int count() const { return static_cast<int>(pages_.size()); }
  int shown() const { return shown_; }
  std::vector<TableRow>& page(int page) { return pages_[static_cast<std::size_t>(page)]; }

  /** Takes the table's rows into the page that it shows, blank ones left out. */
  void Keep() {
    if (shown_ < 0) return;
    std::vector<TableRow> kept;
    for (int row = 1; row <= table_.rows(); ++row) {
      if (!table_.IsBlank(row)) kept.push_back(table_.row(row));
    }
    page(shown_) = std::move(kept);
  }
  /** Shows a page; what the table showed is gone unless it was kept. */
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
