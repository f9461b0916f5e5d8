#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "base/Currency.h"
#include "base/DateTime.h"

namespace zelkor {

/// What a field of a recordset or a cell of a condition holds: Null or one value of the platform's types.
/// A boolean counts as -1 and 0 in arithmetic.
class Value {
 public:
  enum class Kind : std::uint8_t { Null, Boolean, Short, Long, Double, Currency, Date, Text };

  Value() = default;  // Null
  // Implicit: a value stands wherever the platform would convert.
  // NOLINTBEGIN(google-explicit-constructor)
  Value(bool value) : data_(value) {}
  Value(std::int16_t value) : data_(value) {}
  Value(std::int32_t value) : data_(value) {}
  Value(double value) : data_(value) {}
  Value(Currency value) : data_(value) {}
  Value(DateTime value) : data_(value) {}
  Value(std::string value) : data_(std::move(value)) {}
  Value(std::string_view value) : data_(std::string(value)) {}
  Value(const char* value) : data_(std::string(value)) {}
  // NOLINTEND(google-explicit-constructor)

  Kind kind() const { return static_cast<Kind>(data_.index()); }
  bool isNull() const { return kind() == Kind::Null; }
  bool isText() const { return kind() == Kind::Text; }
  bool isNumber() const { return kind() >= Kind::Boolean && kind() <= Kind::Currency; }

  /// The held alternative; std::bad_variant_access when it is another (a programming error).
  template <typename T>
  const T& as() const {
    return std::get<T>(data_);
  }

  /// Text as the platform assigns the value to a string variable; Null is error 94.
  std::string text() const;
  /// The same, Null giving the empty text.
  std::string textOrEmpty() const;
  /// Number as the platform assigns the value to a double; Null is error 94, text that is none error 13.
  double number() const;
  /// The same, Null giving 0.
  double numberOrZero() const;
  /// Date; Null is error 94, what cannot be read as a date error 13.
  DateTime date() const;

  /// Same kind and same content (not the comparison of the dialect).
  bool operator==(const Value&) const = default;

 private:
  std::variant<std::monostate, bool, std::int16_t, std::int32_t, double, Currency, DateTime, std::string>
      data_;
};

}  // namespace zelkor
