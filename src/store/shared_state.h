#pragma once

#include <string>

namespace tarvok::store {

/**
 * State shared by the frame and the editors, one instance per program. InitGlobals resets it to the start.
 */
struct SharedState {
  std::string project_file;      // full path of the open project; empty if none is open
  std::string active_form_name;  // recorded by the open editor when it loads; empty if none
  bool data_changed = false;     // the open editor has changes that Save_File has not written yet
  bool form_loading = false;     // the open editor is filling its controls
  int clicked_node = 0;          // index of the last clicked tree node; the root is 1, command n is n + 1
  int previous_node = 0;         // index of the highlighted node; 0 if none

  void InitGlobals() { *this = SharedState(); }
};

}  // namespace tarvok::store
