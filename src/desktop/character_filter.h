#pragma once

#include <functional>
#include <utility>

#include <QLineEdit>
#include <QValidator>

namespace tarvok {

/** Drops the characters that a field does not take, typed or pasted, without a word. What stood in the field
 * when it was filled may stay: editing next to it must not eat it. */
class CharacterFilter : public QValidator {
 public:
  using Accepts = std::function<bool(QChar)>;

  CharacterFilter(QLineEdit* field, Accepts accepts)
      : QValidator(field), accepts_(std::move(accepts)), kept_(field->text()) {}

  /** Gives a field its filter; call it once the field is filled. */
  static void Set(QLineEdit* field, Accepts accepts) {
    field->setValidator(new CharacterFilter(field, std::move(accepts)));
  }

  State validate(QString& input, int& cursor) const override {
    QString passed;
    int before_cursor = 0;
    for (int i = 0; i < input.size(); ++i) {
      if (!accepts_(input[i]) && !kept_.contains(input[i])) continue;
      passed += input[i];
      if (i < cursor) ++before_cursor;
    }
    if (passed == input) return Acceptable;
    input = passed;
    cursor = before_cursor;
    return Acceptable;
  }

 private:
  Accepts accepts_;
  QString kept_;
};

}  // namespace tarvok
