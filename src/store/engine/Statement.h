#pragma once

#include <charconv>
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/Conversion.h"
#include "base/Currency.h"
#include "base/DateTime.h"

// Statements are joined from literal text and values, unescaped: a value that holds a single quote breaks its
// statement, which is how the system behaves.
namespace zelkor {

/// One piece of a statement: text that lives elsewhere, or a number in the platform's text form.
class StatementPiece {
 public:
  // NOLINTBEGIN(google-explicit-constructor): pieces appear bare between the others
  StatementPiece(std::string_view text) : text_(text) {}
  StatementPiece(const std::string& text) : text_(text) {}
  StatementPiece(const char* text) : text_(text) {}
  template <std::integral Integer>
  StatementPiece(Integer number) {
    const auto end = std::to_chars(buffer_, buffer_ + sizeof buffer_, number).ptr;
    text_ = std::string_view(buffer_, static_cast<std::size_t>(end - buffer_));
  }
  StatementPiece(double number) { keep(textOfDouble(number)); }
  StatementPiece(Currency amount) { keep(amount.toText()); }
  // NOLINTEND(google-explicit-constructor)
  // True and False, characters and dates have several forms: the caller writes the one that is meant.
  StatementPiece(bool) = delete;
  StatementPiece(char) = delete;
  StatementPiece(DateTime) = delete;
  StatementPiece(const StatementPiece&) = delete;
  StatementPiece& operator=(const StatementPiece&) = delete;

  std::string_view text() const { return text_; }

 private:
  void keep(const std::string& number) {
    text_ = std::string_view(buffer_, number.copy(buffer_, sizeof buffer_));
  }

  char buffer_[32] = {};
  std::string_view text_;
};

/// The texts of the pieces in their order.
std::string joined(std::initializer_list<StatementPiece> pieces);

/// The pieces in their order as one statement: sql("Delete From FA_Cards Where sCardNum='", card, "'").
template <typename... Pieces>
std::string sql(const Pieces&... pieces) {
  return joined({StatementPiece(pieces)...});
}

/// The day as it is between the hash signs of a date literal: "2004-4-1", without leading zeros.
inline std::string dayText(DateTime date) {
  return sql(date.year(), "-", date.month(), "-", date.day());
}

}  // namespace zelkor
