#pragma once

#include <functional>
#include <utility>

#include <QLineEdit>
#include <QValidator>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Silently drops characters that a field does not accept, typed or pasted. Characters of the initial text
 * may stay, and be entered again, so that editing next to them does not remove them; but never more of each
 * than there were. */
class CharacterFilter : public QValidator {
 public:
  using Accepts = std::function<bool(QChar)>;

  CharacterFilter(QLineEdit* field, Accepts accepts)
      : QValidator(field), accepts_(std::move(accepts)), kept_(field->text()), last_(kept_) {}

  /** Gives a field its filter. Call it after the field has its initial text. */
  static void Set(QLineEdit* field, Accepts accepts) {
    field->setValidator(new CharacterFilter(field, std::move(accepts)));
  }

  State validate(QString& input, int& cursor) const override {
    const qsizetype shorter = qMin(input.size(), last_.size());
    // The new text ends at the cursor.
    const qsizetype tail = qMin<qsizetype>(shorter, input.size() - cursor);
    qsizetype end = 0;
    while (end < tail && input[input.size() - 1 - end] == last_[last_.size() - 1 - end]) ++end;
    qsizetype front = 0;
    while (front < shorter - end && input[front] == last_[front]) ++front;
    QString passed = input.left(front);
    const QString rest = input.right(end);
    qsizetype before_cursor = qMin<qsizetype>(cursor, front);
    for (qsizetype i = front; i < input.size() - end; ++i) {
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
  mutable QString last_;  // the text in the field
};

}  // namespace tarvok::desktop
