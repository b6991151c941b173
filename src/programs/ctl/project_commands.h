#pragma once

#include <memory>
#include <string>

#include "programs/uses.h"
#include "store/project_store.h"

namespace tarvok::ctl {

// The commands that work on a project file alone. Each returns the exit status. Arguments and output are UTF-8, the
// project's text is bytes of the user's code page.

/** `system_file` is the template. An existing project is refused without `force`. */
int New(ProjectStore& store, const std::string& system_file, const std::string& project, bool force);
/** One value, or all `KEY=VALUE` lines of the section where `key` is empty. */
int Get(ProjectStore& store, const std::string& project, const std::string& section, const std::string& key);
int Set(ProjectStore& store, const std::string& project, const std::string& section, const std::string& key,
        const std::string& value);
/** The send rows and the read plan of an exchange version. */
int ListSections(int version);

/** The project's text, or an error that says why it is none. */
Result<std::shared_ptr<const IniText>> OpenProject(ProjectStore& store, const std::string& project);

}  // namespace tarvok::ctl
