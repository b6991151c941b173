#pragma once

#include <memory>
#include <string>

#include "programs/uses.h"
#include "store/project_store.h"

namespace tarvok::ctl {

// The commands that work only on a project file. Each returns the exit status. Arguments and output are
// UTF-8; the text of the project is in the user's code page.

/**
 * Creates a project from the template `system_file`. Refuses to replace an existing project without `force`.
 */
int New(ProjectStore& store, const std::string& system_file, const std::string& project, bool force);
/** Prints one value, or all `KEY=VALUE` lines of the section if `key` is empty. */
int Get(ProjectStore& store, const std::string& project, const std::string& section, const std::string& key);
int Set(ProjectStore& store, const std::string& project, const std::string& section, const std::string& key,
        const std::string& value);
/** Prints the send rows and the read plan of an exchange version. */
int ListSections(int version);

/** Returned by `Diff` if one of the files is not a project. */
inline constexpr int kNotComparable = 2;

// The commands that examine projects. They print one finding per line to standard output, in UTF-8.

/**
 * Prints every invalid value and every dangling reference as `SECTION KEY FIELD: what is wrong`. Returns done
 * if there are none, otherwise failed.
 */
int Check(ProjectStore& store, const std::string& project);

/**
 * Prints the differences between two projects as `ROW · FIELD: old → new`. Returns 0 if they are equivalent,
 * 1 if they differ, kNotComparable if one is not a project. Of passwords only the fact that they changed is
 * shown, unless `show_secrets` is set.
 */
int Diff(ProjectStore& store, const std::string& first, const std::string& second, bool show_secrets);

/** The project's text, or an error that says why it is not a project. */
Result<std::shared_ptr<const IniText>> OpenProject(ProjectStore& store, const std::string& project);

}  // namespace tarvok::ctl
