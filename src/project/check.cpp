#include "project/check.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "project/check_header.h"
#include "project/field_check.h"
#include "project/places.h"
#include "sections/registry.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/field_list.h"
#include "store/header_keys.h"

namespace tarvok::project {
namespace {

constexpr std::string_view kRow = "row";

/** The table that decides the counts of a section, for sections with several tables of rows. */
const Table* FirstRowsOf(std::string_view section) {
  const auto tables = Tables();
  return *std::find_if(tables.begin(), tables.end(),
                       [&](const Table* table) { return table->section == section && !table->single(); });
}

/** Checks the rows of one table. Collects on the way what depends on all rows: the pool, unique values,
 * counts. */
class TableCheck {
 public:
  TableCheck(const IniText& project, const Table& table, std::vector<Finding>& findings)
      : project_(project), table_(table), findings_(findings), seen_(table.unique.size()) {}

  void Run() {
    const int last = table_.single() ? table_.rows.first : table_.rows.last;
    for (int number = table_.rows.first; number <= last; ++number) CheckRow(number);
    if (table_.ends_of != nullptr) CheckEnds();
    if (!table_.single()) CheckCounts();
  }

 private:
  void Add(std::string_view field, std::string what) {
    findings_.push_back({std::string(table_.section), key_, std::string(field), std::move(what)});
  }

  void CheckRow(int number) {
    key_ = KeyOf(table_, number);
    const std::string_view value = RowValue(project_, table_, number);
    if (value.empty()) return;
    const RowFields row(table_, value);
    if (!IsUnused(table_, value)) last_used_ = number;
    CheckShape(row);
    for (int n = 1; n <= row.count(); ++n) CheckField(row, n);
    if (table_.repeats) CheckMembers(row);
    CheckUnique(row);
  }

  /** Checks the number of fields, and that none is empty: reading skips empty fields. */
  void CheckShape(const RowFields& row) {
    if (row.has_gap()) Add(kRow, "has an empty field, so the fields after it move up");
    const int most = table_.repeats ? table_.members.most : static_cast<int>(table_.fields.size());
    const int fewest = !table_.repeats           ? (table_.fewest_fields > 0 ? table_.fewest_fields : most)
                       : table_.members.numbered ? most
                                                 : 0;
    if (row.count() >= fewest && (most == 0 || row.count() <= most)) return;
    if (row.has_gap() && row.count() < fewest) return;  // reported as a gap
    Add(kRow, "has " + std::to_string(row.count()) + " fields, not " + std::to_string(most));
  }

  std::string NameOf(const RowFields& row, int n) const {
    const Field* field = row.StatementOf(n);
    std::string name(field != nullptr ? field->name : table_.fields[static_cast<std::size_t>(n) - 1].name);
    if (table_.repeats) name.append(" ").append(std::to_string(n));
    return name;
  }

  void CheckField(const RowFields& row, int n) {
    if (!table_.repeats && n > static_cast<int>(table_.fields.size())) return;
    const std::string_view text = row[n];
    const Field* field = row.StatementOf(n);
    if (!row.IsSet(n)) {
      if (table_.repeats && !table_.members.numbered)
        Add(NameOf(row, n), std::string(text) + " is not a member");
      return;
    }
    if (field == nullptr) {
      const int decided_by = table_.fields[static_cast<std::size_t>(n) - 1].decided_by;
      Add(NameOf(row, n),
          std::string(text) + " is set, but must be empty with this " + NameOf(row, decided_by));
      return;
    }
    if (text.empty()) {
      Add(NameOf(row, n), "is empty");
      return;
    }
    std::string wrong = WrongValue(*field, text);
    if (wrong.empty()) wrong = WrongTarget(project_, *field, text);
    if (wrong.empty()) return;
    // The description quotes the value, so a secret one is hidden as a whole.
    Add(NameOf(row, n), field->secret ? std::string(kHiddenValue) + " is not valid" : std::move(wrong));
  }

  void CheckMembers(const RowFields& row) {
    const Members& rules = table_.members;
    std::set<std::string_view> once;
    for (int n = 1; n <= row.count(); ++n) {
      if (!row.IsSet(n)) continue;
      ++members_;
      const CodedParts parts = TakeApart(*row.StatementOf(n), row[n]);
      if (parts.entry != nullptr && parts.entry->once && !once.insert(row[n]).second) {
        Add(NameOf(row, n), std::string(row[n]) + " is in this row twice");
      }
      const int before = pool_used_;
      pool_used_ += rules.packed ? static_cast<int>(row[n].size() + 1) / 2 + 1 : 1;
      if (rules.pool > 0 && before <= rules.pool && pool_used_ > rules.pool) {
        Add(NameOf(row, n), std::string(row[n]) + " " + std::string(PoolFull(rules)));
      }
    }
  }

  void CheckUnique(const RowFields& row) {
    for (std::size_t i = 0; i < table_.unique.size(); ++i) {
      const Unique& rule = table_.unique[i];
      if (rule.only_field > 0 && row[rule.only_field] != rule.only_value) continue;
      if (rule.fields.empty()) {
        for (int n = 1; n <= row.count(); ++n) {
          if (row.IsSet(n)) Claim(i, rule, Canonical(*row.StatementOf(n), row[n]));
        }
        continue;
      }
      std::string claimed;
      bool all_set = true;
      for (const int field : rule.fields) {
        all_set = all_set && row.IsSet(field) && row.StatementOf(field) != nullptr;
        if (!all_set) break;
        claimed.append(claimed.empty() ? "" : "/").append(Canonical(*row.StatementOf(field), row[field]));
      }
      if (all_set) Claim(i, rule, claimed);
    }
  }

  void Claim(std::size_t index, const Unique& rule, const std::string& claimed) {
    const auto [first, is_new] = seen_[index].try_emplace(claimed, key_);
    if (!is_new) Add(rule.name, claimed + " is also in row " + first->second);
  }

  /** Ends must not decrease, and every row before the last end must exist. */
  void CheckEnds() {
    std::int64_t highest = 1;
    for (int number = table_.rows.first; number <= table_.rows.last; ++number) {
      key_ = KeyOf(table_, number);
      const std::string_view value = RowValue(project_, table_, number);
      const std::int64_t end = std::max<std::int64_t>(Val(value), 1);
      if (end < highest) {
        Add(table_.fields.front().name, std::string(value.empty() ? "0" : value) +
                                            " is before the previous end, " + std::to_string(highest));
      }
      highest = std::max(highest, end);
    }
    const Table& rows = *table_.ends_of;
    for (int number = rows.rows.first; number <= rows.rows.last; ++number) {
      const bool is_there = !RowValue(project_, rows, number).empty();
      if (is_there == (number < highest)) continue;
      findings_.push_back({std::string(rows.section), KeyOf(rows, number), std::string(kRow),
                           is_there ? "is after the last " + std::string(table_.row_name)
                                    : "is missing in a " + std::string(table_.row_name)});
    }
  }

  void CheckCounts() {
    if (FirstRowsOf(table_.section) != &table_) return;
    for (const std::string_view count : table_.counts) {
      key_ = count;
      const std::string_view text = Trim(project_.Get(table_.section, count));
      std::string wrong = text.empty() ? std::string() : WrongValue(Number(kRow, 0, kMostCount), text);
      if (!wrong.empty()) Add(kRow, std::move(wrong));
    }
    key_ = kNowKey;
    const std::int64_t now = Val(project_.Get(table_.section, kNowKey));
    const std::string is = "is " + std::to_string(now);
    if (table_.now == NowCounts::kRows && now < last_used_) {
      Add(kRow, is + ", but row " + KeyOf(table_, last_used_) + " is in use");
    }
    if (table_.now == NowCounts::kMembers && now != members_) {
      Add(kRow, is + ", but there are " + std::to_string(members_) + " members");
    }
  }

  static constexpr int kMostCount = 65535;

  const IniText& project_;
  const Table& table_;
  std::vector<Finding>& findings_;
  std::string key_;
  int last_used_ = 0;
  int members_ = 0;
  int pool_used_ = 0;
  std::vector<std::map<std::string, std::string>> seen_;  // by rule: the key that claims each value
};

/** Reports values too long to be read in full. */
void CheckLengths(const IniText& project, std::vector<Finding>& findings) {
  for (const std::string_view name : project.Sections()) {
    const std::int32_t section = project.FindSection(name);
    if (project.section_text(section).size() <= kMaxIniValue) continue;
    for (const IniText::Line& line : project.lines(section)) {
      if (line.key < 0 || line.text.size() <= kMaxIniValue) continue;
      std::string_view value = line.text.substr(line.text.find('=') + 1);
      value = value.substr(0, value.find_last_not_of("\r\n\t ") + 1);
      value.remove_prefix(std::min(value.find_first_not_of("\t "), value.size()));
      const bool quoted =
          value.size() >= 2 && value.front() == value.back() && (value[0] == '\'' || value[0] == '"');
      if (value.size() <= kMaxIniValue + (quoted ? 2 : 0)) continue;
      const IniText::Key& key = project.key(section, line.key);
      if (project.FindKey(section, key.name) != line.key) continue;
      findings.push_back(
          {std::string(name), std::string(key.name), std::string(kRow),
           "is longer than " + std::to_string(kMaxIniValue) + " characters; the rest is not read"});
    }
  }
}

/** True if a statement defines this key of the section. */
bool IsStated(std::string_view section, std::string_view key) {
  if (FindRow(section, key)) return true;
  const auto tables = Tables();
  return std::any_of(tables.begin(), tables.end(), [&](const Table* table) {
    const auto is_key = [key](std::string_view count) { return SameName(count, key); };
    return SameName(table->section, section) && !table->single() &&
           std::any_of(table->counts.begin(), table->counts.end(), is_key);
  });
}

void CheckNames(const IniText& project, std::vector<Finding>& findings) {
  const auto tables = Tables();
  for (const std::string_view section : project.Sections()) {
    if (SameName(section, kHeaderSection)) continue;
    const auto is_section = [section](const Table* table) { return SameName(table->section, section); };
    if (std::none_of(tables.begin(), tables.end(), is_section)) {
      findings.push_back({std::string(section), "-", "section", "is not a section of a project"});
      continue;
    }
    for (const IniText::Key& key : project.Keys(section)) {
      if (IsStated(section, key.name)) continue;
      findings.push_back(
          {std::string(section), std::string(key.name), std::string(kRow), "is not a row of this section"});
    }
  }
}

}  // namespace

std::vector<Finding> CheckProject(const IniText& project) {
  std::vector<Finding> findings;
  CheckHeader(project, findings);
  CheckLengths(project, findings);
  for (const Table* table : Tables()) TableCheck(project, *table, findings).Run();
  CheckNames(project, findings);
  return findings;
}

}  // namespace tarvok::project
