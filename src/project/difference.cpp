#include "project/difference.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "project/row_matches.h"
#include "sections/registry.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/header_keys.h"

namespace tarvok::project {
namespace {

using Kind = Difference::Kind;

using AllMatches = std::map<const Table*, RowMatches>;

/** A row in one of the two projects. */
struct Side {
  const IniText& project;
  std::string_view value;
  RowFields fields;
};

/** The rows of one table in two projects. */
class TableDifference {
 public:
  TableDifference(const IniText& first, const IniText& second, const Table& table, const AllMatches& matches,
                  Secrets secrets, std::vector<Difference>& found)
      : first_(first),
        second_(second),
        table_(table),
        matches_(matches),
        rows_(matches.at(&table)),
        any_moved_(std::any_of(matches.begin(), matches.end(),
                               [](const auto& match) { return match.second.moved(); })),
        secrets_(secrets),
        found_(found) {}

  void Run() {
    ReportMoves();
    const int last = table_.single() ? table_.rows.first : table_.rows.last;
    for (int number = table_.rows.first; number <= last; ++number) {
      CompareRow(number, rows_.SecondOf(number));
      if (rows_.FirstOf(number) == 0) CompareRow(0, number);
    }
  }

 private:
  /** Reports moved rows by runs; a re-sort is reported once. */
  void ReportMoves() {
    constexpr std::size_t kMostRuns = 4;
    const std::vector<RowMatches::Run> runs = rows_.Runs();
    int rows = 0;
    for (const RowMatches::Run& run : runs) rows += run.rows;
    if (runs.size() > kMostRuns)
      return AddMove({runs.front().first, runs.back().last, rows, 0},
                     InOrder(runs) ? " rows moved and keep their order" : " rows in a different order");
    for (const RowMatches::Run& run : runs)
      AddMove(run, (run.by < 0 ? " rows moved up by " : " rows moved down by ") +
                       std::to_string(std::abs(run.by)));
  }

  /** True if the rows are still in their old order. */
  static bool InOrder(const std::vector<RowMatches::Run>& runs) {
    return std::is_sorted(runs.begin(), runs.end(), [](const RowMatches::Run& a, const RowMatches::Run& b) {
      return a.first + a.by < b.first + b.by;
    });
  }

  void AddMove(const RowMatches::Run& run, const std::string& way) {
    Difference move{.kind = Kind::kMoved, .row = RowLabel(first_, table_, run.first)};
    if (run.rows > 1) move.row += " to " + KeyOf(table_, run.last);
    move.after = run.rows > 1 ? std::to_string(run.rows) + way : "now " + KeyOf(table_, run.first + run.by);
    found_.push_back(std::move(move));
  }

  Side SideOf(const IniText& project, int number) const {
    const std::string_view value = number == 0 ? std::string_view() : RowValue(project, table_, number);
    return {project, value, RowFields(table_, value)};
  }

  /** Compares a row of each project; 0 means no such row. */
  void CompareRow(int of_first, int of_second) {
    const Side a = SideOf(first_, of_first);
    const Side b = SideOf(second_, of_second);
    if (a.value == b.value && !any_moved_) return;
    const bool a_unused = IsUnused(table_, a.value);
    const bool b_unused = IsUnused(table_, b.value);
    if (a_unused && b_unused) return;
    row_ = a_unused ? RowLabel(second_, table_, of_second) : RowLabel(first_, table_, of_first);
    if (a_unused != b_unused && !table_.single()) {
      found_.push_back(
          {b_unused ? Kind::kOnlyInFirst : Kind::kOnlyInSecond, row_, {}, Contents(a), Contents(b)});
    } else if (table_.repeats && !table_.members.numbered) {
      AddIfDifferent(table_.fields.back().name, Members(a), Members(b));
    } else if (table_.fields.front().kind == FieldKind::kColumns) {
      CompareColumns(a, b);
    } else {
      const int count = std::max(a.fields.count(), b.fields.count());
      for (int n = 1; n <= count; ++n) CompareField(a, b, n);
    }
  }

  void AddIfDifferent(std::string_view field, const std::string& before, const std::string& after) {
    if (before == after) return;
    const auto shown = [](const std::string& text) { return text.empty() ? std::string(kShownBlank) : text; };
    found_.push_back({Kind::kField, row_, std::string(field), shown(before), shown(after)});
  }

  /** Describes a row that only one project has. */
  std::string Contents(const Side& side) const {
    if (table_.repeats) {
      const std::string members = Members(side);
      return members.empty() ? members : std::string(table_.fields.back().name).append(" ").append(members);
    }
    if (table_.whole_value()) return table_.marks.empty() ? ShownField(side, 1) : std::string();
    std::string text;
    for (int n = 1; n <= side.fields.count(); ++n) {
      const auto is_field = [&](const Mark& mark) { return mark.field == n; };
      const bool in_label = std::any_of(table_.marks.begin(), table_.marks.end(), is_field);
      if (in_label || !side.fields.IsSet(n)) continue;
      text.append(text.empty() ? "" : ", ").append(NameOf(side, n)).append(" ").append(ShownField(side, n));
    }
    return text;
  }

  std::string NameOf(const Side& side, int n) const {
    const Field* field =
        n > static_cast<int>(table_.fields.size()) && !table_.repeats ? nullptr : side.fields.StatementOf(n);
    std::string name(field != nullptr ? field->name : std::string_view("Field"));
    if (field == nullptr || table_.repeats) name.append(" ").append(std::to_string(n));
    return name;
  }

  /** "" if the field is not set. */
  std::string ShownField(const Side& side, int n) const {
    if (!side.fields.IsSet(n)) return {};
    const Field* field = side.fields.StatementOf(n);
    if (IsHidden(field)) return std::string(kShownSecret);
    return field == nullptr ? std::string(side.fields[n]) : Shown(side.project, *field, side.fields[n]);
  }

  bool IsHidden(const Field* field) const {
    return field != nullptr && field->secret && secrets_ == Secrets::kHidden;
  }

  /** What a field's value means. A reference means the row that it names, whatever that row now holds. */
  std::string MeaningOf(const Side& side, int n) const {
    if (!side.fields.IsSet(n)) return {};
    const Field* field = side.fields.StatementOf(n);
    return field == nullptr ? std::string(side.fields[n]) : Canonical(*field, side.fields[n]);
  }

  /** What field n of the first project would be in the second one: references follow rows that moved. */
  std::string MeaningThere(const Side& a, int n) const {
    std::string meaning = MeaningOf(a, n);
    const Field* field = meaning.empty() ? nullptr : a.fields.StatementOf(n);
    if (field == nullptr || field->kind != FieldKind::kRow) return meaning;
    const auto target = matches_.find(field->points_at);
    const auto row = static_cast<int>(Val(meaning));
    if (target == matches_.end() || std::to_string(row) != meaning) return meaning;  // or a named value
    const int there = target->second.SecondOf(row);
    return there == 0 ? meaning.insert(0, "gone ") : std::to_string(there);
  }

  void CompareField(const Side& a, const Side& b, int n) {
    if (MeaningThere(a, n) == MeaningOf(b, n)) return;
    const std::string before = ShownField(a, n);
    const std::string after = ShownField(b, n);
    if (before == kShownSecret && before == after)
      return AddIfDifferent(NameOf(a, n), before, std::string(kShownOtherSecret));
    const bool same_text = before == after;  // rows that look alike: show their numbers
    AddIfDifferent(NameOf(a.fields.IsSet(n) ? a : b, n), same_text ? MeaningOf(a, n) : before,
                   same_text ? MeaningOf(b, n) : after);
  }

  std::string Members(const Side& side) const {
    std::string text;
    for (int n = 1; n <= side.fields.count(); ++n) {
      if (!side.fields.IsSet(n)) continue;
      if (!text.empty()) text.append(", ");
      text.append(ShownField(side, n));
    }
    return text;
  }

  /** Compares the columns of a matrix one by one; the leftmost character is the highest column. */
  void CompareColumns(const Side& a, const Side& b) {
    const Field& field = table_.fields.front();
    if (a.value.size() != b.value.size()) {
      AddIfDifferent(field.name, std::string(a.value), std::string(b.value));
      return;
    }
    for (std::size_t i = 0; i < a.value.size(); ++i) {
      const auto column = static_cast<int>(a.value.size() - 1 - i) + field.low;
      AddIfDifferent("Column " + std::to_string(column), std::string(a.value.substr(i, 1)),
                     std::string(b.value.substr(i, 1)));
    }
  }

  const IniText& first_;
  const IniText& second_;
  const Table& table_;
  const AllMatches& matches_;
  const RowMatches& rows_;
  const bool any_moved_;
  const Secrets secrets_;
  std::vector<Difference>& found_;
  std::string row_;
};

/** Compares the keys that are no row and no single key of a statement, such as row counts. */
class OtherKeys {
 public:
  OtherKeys(const IniText& first, const IniText& second, Secrets secrets, std::vector<Difference>& found)
      : first_(first), second_(second), found_(found) {
    for (const Table* table : Tables()) {
      const bool has_secrets = std::ranges::any_of(table->fields, &Field::secret);
      if (has_secrets && secrets == Secrets::kHidden) hidden_.insert(FoldName(table->section));
      const int last = table->single() ? table->rows.first : table->rows.last;
      std::set<std::string>& keys = stated_[FoldName(table->section)];
      for (int number = table->rows.first; number <= last; ++number)
        keys.insert(FoldName(KeyOf(*table, number)));
    }
    stated_[FoldName(kHeaderSection)].insert(FoldName(kHeaderTag));
  }

  void Run() {
    for (const std::string_view section : first_.Sections()) CompareSection(first_, section);
    for (const std::string_view section : second_.Sections()) CompareSection(second_, section);
  }

 private:
  void CompareSection(const IniText& project, std::string_view section) {
    for (const IniText::Key& key : project.Keys(section)) {
      if (!stated_[FoldName(section)].insert(FoldName(key.name)).second) continue;  // stated or reported
      const bool in_first = first_.HasKey(section, key.name);
      const bool in_second = second_.HasKey(section, key.name);
      const std::string before(first_.Get(section, key.name));
      const std::string after(second_.Get(section, key.name));
      if (before == after) continue;
      // A row whose number is too high may still hold secrets.
      const bool hidden =
          hidden_.contains(FoldName(section)) && !SameName(key.name, kMaxKey) && !SameName(key.name, kNowKey);
      found_.push_back(
          {in_first && in_second ? Kind::kField
           : in_first            ? Kind::kOnlyInFirst
                                 : Kind::kOnlyInSecond,
           std::string(section).append(" ").append(key.name),
           {},
           hidden && in_first ? std::string(kShownSecret) : before,
           hidden && in_second ? std::string(in_first ? kShownOtherSecret : kShownSecret) : after});
    }
  }

  const IniText& first_;
  const IniText& second_;
  std::vector<Difference>& found_;
  std::map<std::string, std::set<std::string>> stated_;  // by section; all names are case-folded
  std::set<std::string> hidden_;                         // sections whose unknown keys are not shown
};

}  // namespace

std::vector<Difference> CompareProjects(const IniText& first, const IniText& second, Secrets secrets) {
  std::vector<Difference> found;
  AllMatches matches;
  for (const Table* table : Tables()) matches.try_emplace(table, first, second, *table);
  for (const Table* table : Tables()) TableDifference(first, second, *table, matches, secrets, found).Run();
  OtherKeys(first, second, secrets, found).Run();
  return found;
}

}  // namespace tarvok::project
