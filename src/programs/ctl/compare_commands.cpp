#include "programs/ctl/compare_commands.h"

#include <iostream>
#include <memory>

#include "programs/ctl/exit_status.h"
#include "programs/ctl/project_commands.h"
#include "programs/ctl/windows_1252.h"
#include "sections/check.h"
#include "sections/difference.h"

namespace tarvok::ctl {
namespace {

constexpr std::string_view kFieldSign = " \u00B7 ";
constexpr std::string_view kChangeSign = " \u2192 ";

/** "(card 3)" for a row that only one of the projects has; a key that no statement knows has no words. */
std::string OnlyIn(std::string_view which, const std::string& contents) {
  std::string text(": only in the ");
  text.append(which);
  return contents.empty() ? text : text.append(" (").append(ToUtf8(contents)).append(")");
}

std::string LineOf(const Difference& difference) {
  std::string line = ToUtf8(difference.row);
  switch (difference.kind) {
    case Difference::Kind::kOnlyInFirst:
      return line.append(OnlyIn("first", difference.before));
    case Difference::Kind::kOnlyInSecond:
      return line.append(OnlyIn("second", difference.after));
    case Difference::Kind::kField:
      break;
  }
  if (!difference.field.empty()) line.append(kFieldSign).append(ToUtf8(difference.field));
  return line.append(": ")
      .append(ToUtf8(difference.before))
      .append(kChangeSign)
      .append(ToUtf8(difference.after));
}

}  // namespace

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

int Diff(ProjectStore& store, const std::string& first, const std::string& second) {
  const Result<std::shared_ptr<const IniText>> a = OpenProject(store, first);
  const Result<std::shared_ptr<const IniText>> b = OpenProject(store, second);
  for (const auto* project : {&a, &b}) {
    if (project->ok()) continue;
    Fail(project->status().message());
    return kNotComparable;
  }
  const std::vector<Difference> differences = CompareProjects(*a.value(), *b.value());
  for (const Difference& difference : differences) std::cout << LineOf(difference) << '\n';
  return differences.empty() ? kDone : kFailed;
}

}  // namespace tarvok::ctl
