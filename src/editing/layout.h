#pragma once

#include <string>
#include <utility>
#include <vector>

#include "editing/control.h"

namespace tarvok {

/**
 * How a form is laid out, without saying with what: a tree that a view draws. Labels, units and notes of a
 * form stand here and nowhere else.
 */
struct Layout {
  enum class Kind {
    kRow,      // parts side by side
    kColumn,   // parts below each other
    kGroup,    // a frame with a title around parts below each other
    kGrid,     // parts in `columns` columns
    kField,    // a label, a control, and what stands behind it
    kControl,  // a control by itself: its caption says what it is
    kTable,    // the form's table
    kNote,     // a text to read
    kStretch,  // room
    kPicture,  // a drawing that the view knows by its name, over the same controls
  };

  Kind kind = Kind::kColumn;
  std::string text;                 // title, label or note; name of a picture
  std::string unit;                 // behind a field's control
  Control* control = nullptr;       // owned by the form
  Control* unit_control = nullptr;  // a label that says the unit, where it changes
  int columns = 0;
  std::vector<Layout> parts;
};

namespace layout {

inline Layout Row(std::vector<Layout> parts) {
  return {.kind = Layout::Kind::kRow, .parts = std::move(parts)};
}
inline Layout Column(std::vector<Layout> parts) {
  return {.kind = Layout::Kind::kColumn, .parts = std::move(parts)};
}
inline Layout Group(std::string title, std::vector<Layout> parts) {
  return {.kind = Layout::Kind::kGroup, .text = std::move(title), .parts = std::move(parts)};
}
inline Layout Grid(int columns, std::vector<Layout> parts) {
  return {.kind = Layout::Kind::kGrid, .columns = columns, .parts = std::move(parts)};
}
inline Layout Field(std::string label, Control& control, std::string unit = {}) {
  return {
      .kind = Layout::Kind::kField, .text = std::move(label), .unit = std::move(unit), .control = &control};
}
inline Layout Field(std::string label, Control& control, Control& unit) {
  return {.kind = Layout::Kind::kField, .text = std::move(label), .control = &control, .unit_control = &unit};
}
inline Layout Of(Control& control) {
  return {.kind = Layout::Kind::kControl, .control = &control};
}
inline Layout Table() {
  return {.kind = Layout::Kind::kTable};
}
inline Layout Note(std::string text) {
  return {.kind = Layout::Kind::kNote, .text = std::move(text)};
}
inline Layout Stretch() {
  return {.kind = Layout::Kind::kStretch};
}
inline Layout Picture(std::string name) {
  return {.kind = Layout::Kind::kPicture, .text = std::move(name)};
}

}  // namespace layout
}  // namespace tarvok
