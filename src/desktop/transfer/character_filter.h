#pragma once

#include <functional>
#include <utility>

#include <QLineEdit>
#include <QValidator>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Drops the characters that a field does not take, typed or pasted, without a word. What stood in the field
 * when it was filled may stay, and come back after it was deleted: editing next to it must not eat it. There are
 * never more of such a character than there were. */
class CharacterFilter : public QValidator {
 public:
  using Accepts = std::function<bool(QChar)>;

  CharacterFilter(QLineEdit* field, Accepts accepts)
      : QValidator(field), accepts_(std::move(accepts)), kept_(field->text()), last_(kept_) {}

  /** Gives a field its filter; call it once the field is filled. */
  static void Set(QLineEdit* field, Accepts accepts) {
    field->setValidator(new CharacterFilter(field, std::move(accepts)));
  }

  State validate(QString& input, int& cursor) const override {
    const qsizetype shorter = qMin(input.size(), last_.size());
    // What is new ends at the cursor.
    const qsizetype tail = qMin<qsizetype>(shorter, input.size() - cursor);
    qsizetype behind = 0;
    while (behind < tail && input[input.size() - 1 - behind] == last_[last_.size() - 1 - behind]) ++behind;
    qsizetype front = 0;
    while (front < shorter - behind && input[front] == last_[front]) ++front;
    QString passed = input.left(front);
    const QString rest = input.right(behind);
    qsizetype before_cursor = qMin<qsizetype>(cursor, front);
    for (qsizetype i = front; i < input.size() - behind; ++i) {
      const QChar each = input[i];
      if (!accepts_(each) && passed.count(each) + rest.count(each) >= kept_.count(each)) continue;
      passed += each;
      if (i < cursor) ++before_cursor;
    }
    last_ = passed + rest;
    if (last_ != input) {
      input = last_;
      cursor = static_cast<int>(before_cursor);
    }
    return Acceptable;
  }

 private:
  Accepts accepts_;
  QString kept_;
  mutable QString last_;  // what stands in the field
};

}  // namespace tarvok::desktop
