#pragma once

#include <optional>
#include <string>
#include <utility>

namespace tarvok::store {

/** The kinds of failure that callers distinguish. */
enum class ErrorKind { kNone, kNotFound, kNoPermission, kNoSpace, kExists, kInputOutput, kBadData };

/** The outcome of an operation that can fail: success, or a kind and a one-line message for the user. */
class [[nodiscard]] Status {
 public:
  Status() = default;
  Status(ErrorKind kind, std::string message) : kind_(kind), message_(std::move(message)) {}

  bool ok() const { return kind_ == ErrorKind::kNone; }
  ErrorKind kind() const { return kind_; }
  const std::string& message() const { return message_; }

 private:
  ErrorKind kind_ = ErrorKind::kNone;
  std::string message_;
};

/** A value, or the Status that says why there is none. */
template <typename T>
class [[nodiscard]] Result {
 public:
  Result(T value) : value_(std::move(value)) {}          // NOLINT(google-explicit-constructor)
  Result(Status status) : status_(std::move(status)) {}  // NOLINT(google-explicit-constructor)

  bool ok() const { return value_.has_value(); }
  const Status& status() const { return status_; }
  T& value() & { return *value_; }
  const T& value() const& { return *value_; }
  T&& value() && { return *std::move(value_); }

 private:
  std::optional<T> value_;
  Status status_;
};

}  // namespace tarvok::store
