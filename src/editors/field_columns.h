#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/table_editor.h"
#include "editors/uses.h"
#include "sections/table.h"
#include "store/ini_text.h"

namespace tarvok::editors {

/** Names of rows by number: what a reference to a row shows, and how the row is found again. */
class RowNames {
 public:
  /** A row that is not `offered` is still shown where a field refers to it, and still found by its name. */
  void Add(int number, std::string name, bool offered = true);
  /** "" if the number has no name. */
  std::string NameOf(std::string_view stored) const;
  /** The number with this name, in `width` digits; "F" for a blank and for an unknown name, so that no later
   * field moves up. Several rows may share a name: if it is still the name of `before`, the row that the
   * field held, the field keeps that row. */
  std::string Stored(std::string_view name, int width, std::string_view before) const;
  /** The offered names in the order of their numbers, without blanks. */
  std::vector<std::string> Names() const;

 private:
  struct Row {
    int number;
    std::string name;
    bool offered;
  };
  std::vector<Row> names_;
};

/** How a reference is shown and stored. */
struct NamedRows {
  const RowNames* names = nullptr;
  int width = 0;
  bool kept = true;  // a reference that the cell cannot show stays until the cell is edited
};

/** A column of a table editor for a field of its rows, with the conversion between stored value and cell
 * text. By default a cell shows the field as it is, and "F" as blank. */
struct FieldColumn {
  int field;  // from 1; 0 for a column that is not a field of the row
  Column column;
  std::function<std::string(std::string_view stored)> shown = {};
  std::function<std::string(std::string_view cell)> stored = {};
  /** The rows that the field can refer to in a row with these cells; `names` is nullptr if it is not a
   * reference. A cell that `stored` does not convert to a named value is stored as the number of its row. */
  std::function<NamedRows(const std::vector<std::string>& cells)> names = {};
};

/** The type of a directory number that belongs to a port. */
inline constexpr std::string_view kPortType = "0";
/** Digits of the number of a port or a number row where another section refers to it. */
inline constexpr int kRowWidth = 3;

inline const Field& StatementOf(const Table& table, int field) {
  return table.fields[static_cast<std::size_t>(field) - 1];
}

/** A field as a cell shows it: "F" and a missing field are blank. */
std::string CellText(std::string_view stored);
/** A cell as it is stored: blank is "F". */
std::string FieldText(std::string_view cell);

/** A column of a field's named values, in the order of its statement. Unnamed values are shown as blank, and
 * blank is stored as "F". */
FieldColumn ChoiceColumn(int field, std::string title, const Field& statement,
                         std::string overlay = "cmbMask");
/** A column whose text is stored as typed. */
FieldColumn TypedColumn(int field, std::string title, EntryRule rule);
/** The one column of a table of numbers of at most `most` digits. A blank cell is stored as an empty
 * value. */
FieldColumn NumberColumn(int most);

/** A column of numbers with a list of the named ones. A number above the statement's highest is stored as the
 * highest, a blank as the statement's text for "not set". */
FieldColumn LimitedColumn(int field, std::string title, const Field& statement, EntryRule rule,
                          std::string overlay = "txtMask");

/** A column that shows a reference by the name of its row; the list starts with the field's named values. An
 * unknown name is stored as "F". `names` must outlive the column; the form sets `list_of` to offer the
 * names. */
FieldColumn ReferenceColumn(int field, std::string title, const Field& statement, const RowNames& names,
                            std::string overlay = "cmbMask");
/** The rows of a table, named by its label and their number: "List 1", "List 2", ... */
RowNames LabelledRows(const Table& table);

/** The directory numbers by number row, without unused rows. */
RowNames AssignNumbers(const IniText& project);
/** The directory numbers of ports by port row; "" for a port without a number. */
RowNames PortNumbers(const IniText& project);
/** Card and channel, joined by "/", by port row; only ports of `type` if it is given. "" for a port that
 * lacks one of the two. */
RowNames PortNames(const IniText& project, std::string_view type = {});

}  // namespace tarvok::editors
