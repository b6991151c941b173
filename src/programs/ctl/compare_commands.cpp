#include "programs/ctl/compare_commands.h"

#include <iostream>
#include <memory>

#include "programs/ctl/exit_status.h"
#include "programs/ctl/project_commands.h"
#include "programs/ctl/terminal_text.h"
#include "programs/uses.h"
#include "project/check.h"
#include "project/difference_line.h"

namespace tarvok::ctl {

int Check(ProjectStore& store, const std::string& project) {
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  const std::vector<Finding> findings = CheckProject(*text.value());
  for (const Finding& finding : findings) {
    std::cout << ToUtf8(finding.section + " " + finding.key + " " + finding.field + ": " + finding.what)
              << '\n';
  }
  return findings.empty() ? kDone : kFailed;
}

int Diff(ProjectStore& store, const std::string& first, const std::string& second, bool show_secrets) {
  const Result<std::shared_ptr<const IniText>> a = OpenProject(store, first);
  const Result<std::shared_ptr<const IniText>> b = OpenProject(store, second);
  for (const auto* project : {&a, &b}) {
    if (project->ok()) continue;
    Fail(project->status().message());
    return kNotComparable;
  }
  const std::vector<Difference> differences =
      CompareProjects(*a.value(), *b.value(), show_secrets ? Secrets::kShown : Secrets::kHidden);
  for (const Difference& difference : differences) std::cout << DifferenceLine(difference, ToUtf8) << '\n';
  return differences.empty() ? kDone : kFailed;
}

}  // namespace tarvok::ctl
