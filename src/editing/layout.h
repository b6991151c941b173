#pragma once

#include <string>
#include <utility>
#include <vector>

#include "editing/control.h"
#include "editing/uses.h"

namespace tarvok::editing {

/**
 * The layout of a form as a tree that any view can draw. It alone holds the labels, units and notes of a
 * form.
 */
struct FormLayout {
  enum class Kind {
    kRow,      // parts side by side
    kColumn,   // parts below each other
    kGroup,    // a frame with a title around parts below each other
    kGrid,     // parts in `columns` columns
    kField,    // a label, a control and its unit
    kControl,  // a control that has its own caption
    kTable,    // the form's table
    kNote,     // a line of text
    kStretch,  // stretching space
    kPicture,  // a drawing of the same controls, known to the view by name
  };

  Kind kind = Kind::kColumn;
  std::string text;                 // title, label or note; name of a picture
  std::string unit;                 // after a field's control
  Control* control = nullptr;       // owned by the form
  Control* unit_control = nullptr;  // a label with the unit, if the unit changes
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
