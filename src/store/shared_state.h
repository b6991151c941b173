#pragma once

#include <string>

namespace tarvok::store {

/** What the frame and the editors share. One instance a program; InitGlobals is its start. */
struct SharedState {
  std::string project_file;      // full path of the open project, empty when none is open
  std::string active_form_name;  // what the open editor recorded on loading, empty when none
  bool data_changed = false;     // the open editor holds changes that its Save_File has not written
  bool form_loading = false;     // the open editor is filling its controls
  int clicked_node = 0;          // index of the tree node clicked last; the root is 1, command n is n + 1
  int previous_node = 0;         // index of the highlighted node, 0 for none

  void InitGlobals() { *this = SharedState(); }
};

}  // namespace tarvok::store
