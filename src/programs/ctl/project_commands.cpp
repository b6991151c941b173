#include "programs/ctl/project_commands.h"

#include <iostream>
#include <string_view>

#include "programs/ctl/exit_status.h"
#include "sections/registry.h"
#include "store/header_keys.h"
#include "store/new_project.h"

namespace tarvok::ctl {
namespace {

/** Whether a name can stand in the file and be found again. */
bool IsName(std::string_view name, std::string_view forbidden) {
  const bool blank_at_end =
      !name.empty() && (std::string_view(" \t").find(name.front()) != std::string_view::npos ||
                        std::string_view(" \t").find(name.back()) != std::string_view::npos);
  return !name.empty() && !blank_at_end && name.find_first_of(forbidden) == std::string_view::npos;
}

/** Whether the reader gives the value back as it was written. */
bool ReadsBack(const std::string& value) {
  return IniText("[s]\nk=" + value + "\n").Get("s", "k") == value;
}

void PrintPlanRow(std::string_view kind, std::string_view step, std::string_view section,
                  std::string_view rest) {
  std::cout << kind << '\t';
  if (!step.empty()) std::cout << step << '\t';
  std::cout << section << '\t' << rest << '\n';
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
    return Fail(project + ": the file exists already; --force replaces it");
  }
  const Status created = NewDefault(store, system_file, project);
  return created.ok() ? kDone : Fail(created.message());
}

int Get(ProjectStore& store, const std::string& project, const std::string& section, const std::string& key) {
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  if (!text.value()->HasSection(section)) return Fail(project + ": there is no section " + section);
  if (key.empty()) {
    for (const IniText::Key& entry : text.value()->Keys(section))
      std::cout << entry.name << '=' << entry.value << '\n';
    return kDone;
  }
  if (!text.value()->HasKey(section, key))
    return Fail(project + ": section " + section + " has no key " + key);
  std::cout << text.value()->Get(section, key) << '\n';
  return kDone;
}

int Set(ProjectStore& store, const std::string& project, const std::string& section, const std::string& key,
        const std::string& value) {
  if (!IsName(section, "]\r\n")) return Misused("SECTION: no name of a section: \"" + section + "\"");
  if (!IsName(key, "=\r\n") || key.front() == ';' || key.front() == '[') {
    return Misused("KEY: no name of a key: \"" + key + "\"");
  }
  if (value.size() > kMaxIniValue) {
    return Fail("section " + section + ", key " + key + ": the value has " + std::to_string(value.size()) +
                " characters, at most " + std::to_string(kMaxIniValue) + " are read");
  }
  if (!ReadsBack(value)) {
    return Fail("section " + section + ", key " + key +
                ": blanks or quotes around a value and line ends in it would not be read back");
  }
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  const Status written = store.SetIniValue(project, section, key, value);
  return written.ok() ? kDone : Fail(written.message());
}

int ListSections(int version) {
  int step = 1;
  PrintPlanRow("send", std::to_string(step), "time",
               std::to_string(kTimeSize) + "\t" + std::string(kTimeProgress));
  // A section that is sent twice has a step for each, and the steps of a version count on over those it
  // leaves out.
  for (const Section& section : Sections()) {
    for (int i = 0; section.send_from != kNever && i < section.times_sent; ++i) {
      ++step;
      if (section.send_from > version) continue;
      PrintPlanRow("send", std::to_string(step), std::to_string(section.number),
                   std::to_string(SizeAt(section.number, version, Direction::kSend)) + "\t" +
                       std::string(section.progress));
    }
  }
  for (const Section* section : ReadPlan(version)) {
    PrintPlanRow("load", {}, std::to_string(section->number), section->name);
  }
  return kDone;
}

}  // namespace tarvok::ctl
