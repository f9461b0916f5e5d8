#pragma once

#include <memory>
#include <utility>

namespace zelkor::dialect {

/// A value kept on the heap: copies deeply, is never empty (unless moved from). Lets the syntax tree be
/// made of plain value types although they contain each other.
template <typename T>
class Box {
 public:
  Box() : value_(std::make_unique<T>()) {}
  // NOLINTNEXTLINE(google-explicit-constructor): a value is boxed where it stands
  Box(T value) : value_(std::make_unique<T>(std::move(value))) {}
  Box(const Box& other) : value_(std::make_unique<T>(*other)) {}
  Box(Box&&) noexcept = default;
  Box& operator=(const Box& other) {
    *value_ = *other;
    return *this;
  }
  Box& operator=(Box&&) noexcept = default;
  ~Box() = default;

  T& operator*() { return *value_; }
  const T& operator*() const { return *value_; }
  T* operator->() { return value_.get(); }
  const T* operator->() const { return value_.get(); }

 private:
  std::unique_ptr<T> value_;
};

}  // namespace zelkor::dialect
