#pragma once

#include <string>
#include <utility>
#include <vector>

#include "editing/layout.h"
#include "editing/table_form.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** The frame in which a table editor shows the values that stand in it more than once. */
class RepeatList {
 public:
  /** Both are controls of the form. */
  RepeatList(Control& label, Control& list) : label_(label), list_(list) { list_.visible = false; }

  /** Shows what stands more than once among the texts under `some`, or the text `none`; true if there are
   * repeats. */
  bool Show(std::vector<std::string> texts, std::string_view none, std::string_view some) {
    list_.entries = Repeats(std::move(texts));
    list_.current = kNoIndex;
    list_.chosen.clear();
    list_.visible = !list_.entries.empty();
    label_.text = list_.visible ? some : none;
    return list_.visible;
  }
  FormLayout Place() const { return layout::Column({layout::Of(label_), layout::Of(list_)}); }

 private:
  Control& label_;
  Control& list_;
};

}  // namespace tarvok::editing
