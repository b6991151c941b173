#pragma once

#include <functional>

#include <QValidator>

#include "desktop/io/code_page.h"
#include "shell/editor/entry_rule.h"

namespace tarvok {

/** Holds a box to a rule of the core: what the rule refuses, typed or pasted, does not get in. A text that was
 * there before the rule was asked may stay, and be shortened. */
class RuleFilter : public QValidator {
 public:
  RuleFilter(const EntryRule& rule, const CodePage& page, const QString& text, QObject* parent)
      : QValidator(parent), last_(text), rule_(rule), page_(page) {}

  State validate(QString& input, int& cursor) const override {
    const std::optional<std::string> fitting = TypeWhole(rule_, page_.ToBytes(input));
    if (fitting) {
      input = page_.ToLetters(*fitting);
      cursor = qMin(cursor, static_cast<int>(input.size()));
    } else if (input.size() >= last_.size() && input != last_) {
      return Invalid;
    }
    last_ = input;
    return Acceptable;
  }

 private:
  mutable QString last_;  // what stands in the box
  EntryRule rule_;
  const CodePage& page_;
};

}  // namespace tarvok
