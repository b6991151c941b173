#include "project/search.h"

#include <algorithm>
#include <utility>

#include "sections/registry.h"
#include "sections/row_fields.h"
#include "sections/rows.h"
#include "store/number_text.h"

namespace tarvok::project {
namespace {

enum class Match { kEqual, kBegins, kHolds, kNone };

std::string Folded(std::string_view text, const FoldTable& fold) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(),
                 [&](char c) { return static_cast<char>(fold[static_cast<unsigned char>(c)]); });
  return folded;
}

bool IsNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/** "3-04" as "3/4", the form in which references show card and channel; "" for any other text. */
std::string AsMarks(std::string_view text) {
  const std::size_t dash = text.find_first_of("-/");
  if (dash == std::string_view::npos) return {};
  const std::string_view first = text.substr(0, dash);
  const std::string_view second = text.substr(dash + 1);
  if (!IsNumber(first) || !IsNumber(second)) return {};
  return std::to_string(Val(first)).append("/").append(std::to_string(Val(second)));
}

class Search {
 public:
  Search(const IniText& project, std::string_view text, const FoldTable& fold)
      : project_(project), fold_(fold), wanted_(Folded(text, fold)), marks_(AsMarks(text)) {}

  void Walk(const Table& table) {
    const int last = table.single() ? table.rows.first : table.rows.last;
    for (int number = table.rows.first; number <= last; ++number) {
      const std::string_view value = RowValue(project_, table, number);
      if (IsUnused(table, value)) continue;
      const RowFields row(table, value);
      WalkRow(table, number, row);
    }
  }

  SearchResult Take(std::size_t most) {
    std::stable_sort(found_.begin(), found_.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    SearchResult result;
    result.more = found_.size() > most;
    if (result.more) found_.resize(most);
    for (auto& [match, found] : found_) result.found.push_back(std::move(found));
    return result;
  }

 private:
  Match Compare(std::string_view text) const {
    if (text.empty()) return Match::kNone;
    const std::string folded = Folded(text, fold_);
    const std::size_t at = folded.find(wanted_);
    if (folded == wanted_) return Match::kEqual;
    return at == 0 ? Match::kBegins : at == std::string::npos ? Match::kNone : Match::kHolds;
  }

  void WalkRow(const Table& table, int number, const RowFields& row) {
    std::string label;  // set once the row has a hit
    const auto add = [&](Match match, int field, std::string_view name, std::string value) {
      if (label.empty()) label = RowLabel(project_, table, number);
      Place place{std::string(table.section), KeyOf(table, number), table.single() ? 0 : number, field};
      found_.emplace_back(match, Found{std::move(place), label, std::string(name), std::move(value)});
    };
    const Match as_row = CompareRow(table, number, row);
    if (as_row != Match::kNone) add(as_row, 0, {}, {});
    for (int n = 1; n <= row.count(); ++n) {
      const Field* field = IsSearched(table, n, row) ? row.StatementOf(n) : nullptr;
      if (field == nullptr) continue;
      std::string shown = Shown(project_, *field, row[n]);
      Match match = std::min(Compare(shown), Compare(row[n]));
      if (field->kind == FieldKind::kRow && !marks_.empty() && shown == marks_) match = Match::kEqual;
      if (match == Match::kNone) continue;
      std::string name(field->name);
      if (table.repeats) name.append(" ").append(std::to_string(n));
      add(match, n, name, std::move(shown));
    }
  }

  bool IsSearched(const Table& table, int n, const RowFields& row) const {
    if ((n > static_cast<int>(table.fields.size()) && !table.repeats) || !row.IsSet(n)) return false;
    const Field* field = row.StatementOf(n);
    return field != nullptr && !field->secret && field->kind != FieldKind::kFlag &&
           field->kind != FieldKind::kColumns;
  }

  /** Compares with the row's label ("Port 12") and its identifying fields ("3-4"). */
  Match CompareRow(const Table& table, int number, const RowFields& row) const {
    if (table.single()) return Compare(table.row_name);
    std::string marks;
    for (const Mark& mark : table.marks) {
      if (row.IsSet(mark.field)) marks.append(marks.empty() ? "" : "/").append(row[mark.field]);
    }
    if (!marks_.empty() && AsMarks(marks) == marks_) return Match::kEqual;
    const std::int64_t shown_number = number - table.rows.base;
    std::string label(table.row_name);
    label.append(" ");
    const Match padded = Compare(label + Padded(shown_number, table.rows.width));
    const Match match = std::min(padded, Compare(label.append(std::to_string(shown_number))));
    // A bare number or part of the label would find every row.
    return match == Match::kEqual ? match : Match::kNone;
  }

  const IniText& project_;
  const FoldTable& fold_;
  std::string wanted_;
  std::string marks_;
  std::vector<std::pair<Match, Found>> found_;
};

}  // namespace

const FoldTable& AsciiFold() {
  static const FoldTable kFold = [] {
    FoldTable fold{};
    for (std::size_t i = 0; i < fold.size(); ++i) {
      fold[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i - 'A' + 'a' : i);
    }
    return fold;
  }();
  return kFold;
}

SearchResult SearchProject(const IniText& project, std::string_view text, std::size_t most,
                           const FoldTable& fold) {
  const std::string_view wanted = Trim(text);
  if (wanted.empty()) return {};
  Search search(project, wanted, fold);
  for (const Table* table : Tables()) search.Walk(*table);
  return search.Take(most);
}

}  // namespace tarvok::project
