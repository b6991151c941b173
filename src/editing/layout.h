#pragma once

#include <string>
#include <utility>
#include <vector>

#include "editing/control.h"
#include "editing/uses.h"

namespace tarvok::editing {

/**
 * How a form is laid out, without saying with what: a tree that a view draws. Labels, units and notes of a
 * form stand here and nowhere else.
 */
struct FormLayout {
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
  std::vector<FormLayout> parts;
};

namespace layout {

inline FormLayout Row(std::vector<FormLayout> parts) {
  return {.kind = FormLayout::Kind::kRow, .parts = std::move(parts)};
}
inline FormLayout Column(std::vector<FormLayout> parts) {
  return {.kind = FormLayout::Kind::kColumn, .parts = std::move(parts)};
}
inline FormLayout Group(std::string title, std::vector<FormLayout> parts) {
  return {.kind = FormLayout::Kind::kGroup, .text = std::move(title), .parts = std::move(parts)};
}
inline FormLayout Grid(int columns, std::vector<FormLayout> parts) {
  return {.kind = FormLayout::Kind::kGrid, .columns = columns, .parts = std::move(parts)};
}
inline FormLayout Field(std::string label, Control& control, std::string unit = {}) {
  return {.kind = FormLayout::Kind::kField,
          .text = std::move(label),
          .unit = std::move(unit),
          .control = &control};
}
inline FormLayout Field(std::string label, Control& control, Control& unit) {
  return {
      .kind = FormLayout::Kind::kField, .text = std::move(label), .control = &control, .unit_control = &unit};
}
inline FormLayout Of(Control& control) {
  return {.kind = FormLayout::Kind::kControl, .control = &control};
}
inline FormLayout Table() {
  return {.kind = FormLayout::Kind::kTable};
}
inline FormLayout Note(std::string text) {
  return {.kind = FormLayout::Kind::kNote, .text = std::move(text)};
}
inline FormLayout Stretch() {
  return {.kind = FormLayout::Kind::kStretch};
}
inline FormLayout Picture(std::string name) {
  return {.kind = FormLayout::Kind::kPicture, .text = std::move(name)};
}

}  // namespace layout
}  // namespace tarvok::editing
