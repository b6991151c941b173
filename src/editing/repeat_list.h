#pragma once

#include <string>
#include <utility>
#include <vector>

#include "editing/layout.h"
#include "editing/table_form.h"
#include "editing/uses.h"

namespace tarvok::editing {

/** Shows the values that occur more than once in a table editor. */
class RepeatList {
 public:
  /** Both controls belong to the form. */
  RepeatList(Label& label, ListBox& list) : label_(label), list_(list) { list_.visible = false; }

  /** Lists the texts that occur more than once under the heading `some`, or shows `none`. True if there are
   * any. */
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
  Label& label_;
  ListBox& list_;
};

}  // namespace tarvok::editing
