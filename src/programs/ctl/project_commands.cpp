#include "programs/ctl/project_commands.h"

#include <ctime>
#include <iostream>
#include <optional>
#include <string_view>

#include "programs/ctl/exit_status.h"
#include "programs/ctl/places.h"
#include "programs/ctl/terminal_text.h"
#include "programs/uses.h"
#include "project/check.h"
#include "project/difference_line.h"
#include "sections/registry.h"
#include "store/header_keys.h"
#include "store/history.h"
#include "store/new_project.h"
#include "store/whole_write.h"

namespace tarvok::ctl {
namespace {

/** True if the name can be stored in the file and found again. */
bool IsName(std::string_view name, std::string_view forbidden) {
  const bool blank_at_end =
      !name.empty() && (std::string_view(" \t").find(name.front()) != std::string_view::npos ||
                        std::string_view(" \t").find(name.back()) != std::string_view::npos);
  return !name.empty() && !blank_at_end && name.find_first_of(forbidden) == std::string_view::npos;
}

/** True if the reader returns the value as it was written. */
bool ReadsBack(const std::string& value) {
  return IniText("[s]\nk=" + value + "\n").Get("s", "k") == value;
}

/** Reports an argument that the project's code page cannot represent. */
int NotInPage(std::string_view argument, std::string_view text) {
  return Misused(std::string(argument) + ": \"" + std::string(text) +
                 "\" is not UTF-8, or has a letter that the project's code page lacks");
}

void PrintPlanRow(std::string_view kind, std::string_view step, std::string_view section,
                  std::string_view rest) {
  std::cout << kind << '\t';
  if (!step.empty()) std::cout << step << '\t';
  std::cout << section << '\t' << rest << '\n';
}

/** Adds the project to the history. A failure is only mentioned; the command continues. */
void KeepVersion(ProjectStore& store, const std::string& project, std::string_view reason) {
  History history(store.files(), DataFolder("history"), MakeFolder);
  const Status kept = history.Keep(project, reason, std::time(nullptr));
  if (!kept.ok()) Tell("the earlier version could not be kept: " + kept.message());
}

}  // namespace

Result<std::shared_ptr<const IniText>> OpenProject(ProjectStore& store, const std::string& project) {
  const Result<std::string> readable = store.files().Read(project);
  if (!readable.ok() && readable.status().kind() != ErrorKind::kNotFound) return readable.status();
  std::shared_ptr<const IniText> text = store.Snapshot(project);
  if (!readable.ok() || !IsProject(*text)) {
    return Status(ErrorKind::kBadData, project + ": " + std::string(kNotAProject));
  }
  return text;
}

int New(ProjectStore& store, const std::string& system_file, const std::string& project, bool force) {
  if (!force && store.files().Identify(project).exists) {
    return Fail(project + ": the file already exists; --force replaces it");
  }
  if (IsSameFile(store.files(), system_file, project)) {
    return Misused(project + ": is the system file, the template of all projects");
  }
  // Add nothing to the history unless the new project can be created.
  const Status usable = ReadSystemFile(store, system_file).status();
  if (!usable.ok()) return Fail(usable.message());
  if (const Status writable = CanWriteWhole(store.files(), project); !writable.ok())
    return Fail(writable.message());
  KeepVersion(store, project, kBeforeNew);
  const Status created = NewDefault(store, system_file, project);
  return created.ok() ? kDone : Fail(created.message());
}

int Get(ProjectStore& store, const std::string& project, const std::string& section, const std::string& key) {
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  const std::optional<std::string> section_bytes = BytesOf(section);
  const std::optional<std::string> key_bytes = BytesOf(key);
  if (!section_bytes) return NotInPage("SECTION", section);
  if (!key_bytes) return NotInPage("KEY", key);
  if (!text.value()->HasSection(*section_bytes)) return Fail(project + ": there is no section " + section);
  if (key.empty()) {
    for (const IniText::Key& entry : text.value()->Keys(*section_bytes))
      std::cout << ToUtf8(entry.name) << '=' << ToUtf8(entry.value) << '\n';
    return kDone;
  }
  if (!text.value()->HasKey(*section_bytes, *key_bytes))
    return Fail(project + ": section " + section + " has no key " + key);
  std::cout << ToUtf8(text.value()->Get(*section_bytes, *key_bytes)) << '\n';
  return kDone;
}

int Set(ProjectStore& store, const std::string& project, const std::string& section, const std::string& key,
        const std::string& value) {
  const std::optional<std::string> section_bytes = BytesOf(section);
  const std::optional<std::string> key_bytes = BytesOf(key);
  const std::optional<std::string> value_bytes = BytesOf(value);
  if (!section_bytes) return NotInPage("SECTION", section);
  if (!key_bytes) return NotInPage("KEY", key);
  if (!value_bytes) return NotInPage("VALUE", value);
  if (!IsName(*section_bytes, "]\r\n")) return Misused("SECTION: not a section name: \"" + section + "\"");
  if (!IsName(*key_bytes, "=\r\n") || key.front() == ';' || key.front() == '[') {
    return Misused("KEY: not a key name: \"" + key + "\"");
  }
  if (value_bytes->size() > kMaxIniValue) {
    return Fail("section " + section + ", key " + key + ": the value has " +
                std::to_string(value_bytes->size()) + " characters, at most " + std::to_string(kMaxIniValue) +
                " are read");
  }
  if (!ReadsBack(*value_bytes)) {
    return Fail("section " + section + ", key " + key +
                ": blanks or quotes around a value and line ends in it would not be read back");
  }
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  const Status written = store.SetIniValue(project, *section_bytes, *key_bytes, *value_bytes);
  return written.ok() ? kDone : Fail(written.message());
}

int ListSections(int version) {
  int step = 1;
  PrintPlanRow("send", std::to_string(step), "time",
               std::to_string(kTimeSize) + "\t" + std::string(kTimeProgress));
  // A section that is sent twice has a step for each. Step numbers also count the sections that this version
  // leaves out.
  for (const Section* section : Sections()) {
    for (int i = 0; section->send_from != kNever && i < section->times_sent; ++i) {
      ++step;
      if (section->send_from > version) continue;
      PrintPlanRow("send", std::to_string(step), std::to_string(section->number),
                   std::to_string(SizeAt(section->number, version, Direction::kSend)) + "\t" +
                       std::string(section->progress));
    }
  }
  for (const Section* section : ReadPlan(version)) {
    PrintPlanRow("load", {}, std::to_string(section->number), section->name);
  }
  return kDone;
}

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
