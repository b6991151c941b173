#pragma once

#include <functional>

#include <QValidator>

#include "desktop/uses.h"
#include "editing/entry_rule.h"
#include "io/code_page.h"

namespace tarvok::desktop {

/** Applies an entry rule to a text field: what the rule refuses, typed or pasted, is dropped. The initial
 * text may stay, and be shortened, even if the rule refuses it. Keys are taken as they are pressed; pasted
 * text in either case if the rule makes capitals. */
class RuleFilter : public QValidator {
 public:
  RuleFilter(const EntryRule& rule, const CodePage& page, const QString& text, QObject* parent)
      : QValidator(parent), last_(text), rule_(rule), page_(page) {}

  State validate(QString& input, int& cursor) const override {
    const std::optional<std::string> fitting = TypeWhole(rule_, page_.ToBytes(input));
    if (fitting && TakesKey(input)) {
      input = page_.ToLetters(*fitting);
      cursor = qMin(cursor, static_cast<int>(input.size()));
    } else if (input.size() >= last_.size() && input != last_) {
      return Invalid;
    }
    last_ = input;
    return Acceptable;
  }

 private:
  /** False for one more character that is not a key of the rule. */
  bool TakesKey(const QString& input) const {
    if (input.size() != last_.size() + 1) return true;
    qsizetype at = 0;
    while (at < last_.size() && input[at] == last_[at]) ++at;
    if (input.mid(at + 1) != last_.mid(at)) return true;
    const std::string key = page_.ToBytes(input.mid(at, 1));
    const std::string before = page_.ToBytes(input.left(at));
    const auto takes = [&](bool first) {
      return TypeCharacter(rule_, before, false, key.front(), first).has_value();
    };
    return key.size() == 1 && (takes(false) || (last_.isEmpty() && takes(true)));
  }

  mutable QString last_;  // the text in the field
  EntryRule rule_;
  const CodePage& page_;
};

}  // namespace tarvok::desktop
