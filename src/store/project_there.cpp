#include "store/project_there.h"

#include "store/header_keys.h"

namespace tarvok::store {

std::string WhyNoProject(ProjectStore& store, const std::string& file) {
  if (IsProject(*store.Snapshot(file))) return {};
  if (store.files().Identify(file).exists) return file + "\n" + std::string(kNotAProject);
  return "The project " + file + " is missing.\nPut it back in its place and try again.";
}

}  // namespace tarvok::store
