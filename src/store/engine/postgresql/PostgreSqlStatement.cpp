#include "store/engine/postgresql/PostgreSqlStatement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>

#include "store/engine/postgresql/ByteaText.h"

namespace zelkor {
namespace {

// The server's numbers of the types that our tables and expressions have.
enum TypeNumber : unsigned {
  Bool = 16,
  Bytea = 17,
  Int8 = 20,
  Int2 = 21,
  Int4 = 23,
  Float4 = 700,
  Float8 = 701,
  Numeric = 1700,
};

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// The greatest $n outside of quotes. Numbers below it that the text does not name are declared all the same.
int parametersOf(std::string_view sql) {
  int most = 0;
  char quote = 0;
  for (std::size_t i = 0; i < sql.size(); ++i) {
    const char c = sql[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == '$' && i + 1 < sql.size() && isDigit(sql[i + 1])) {
      int number = 0;
      std::from_chars(sql.data() + i + 1, sql.data() + sql.size(), number);
      most = std::max(most, number);
    }
  }
  return most;
}

template <typename Number>
Number numberOf(std::string_view text) {
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

template <typename Number>
std::string textOf(Number number) {
  std::array<char, 64> buffer{};
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr};
}

}  // namespace

PostgreSqlStatement::PostgreSqlStatement(std::shared_ptr<PostgreSqlLink> link, std::string_view sql)
    : link_(std::move(link)), values_(static_cast<std::size_t>(parametersOf(sql))) {
  name_ = link_->prepare(std::string(sql), static_cast<int>(values_.size()));
}

PostgreSqlStatement::~PostgreSqlStatement() {
  link_->drop(stream_);
  link_->forget(name_);
}

void PostgreSqlStatement::bind(int parameter, std::optional<std::string> value) {
  const auto place = static_cast<std::size_t>(parameter - 1);
  if (place < values_.size()) values_[place] = std::move(value);
}

void PostgreSqlStatement::bindNull(int parameter) {
  bind(parameter, std::nullopt);
}

void PostgreSqlStatement::bindInteger(int parameter, std::int64_t value) {
  bind(parameter, textOf(value));
}

void PostgreSqlStatement::bindReal(int parameter, double value) {
  bind(parameter, textOf(value));
}

void PostgreSqlStatement::bindText(int parameter, std::string_view value) {
  bind(parameter, std::string(value));
}

void PostgreSqlStatement::bindBytes(int parameter, std::string_view value) {
  bind(parameter, byteaText(value));
}

bool PostgreSqlStatement::step() {
  if (!started_) {
    next_ = 0;
    link_->start(name_, values_, stream_);
    started_ = true;
  } else if (next_ == stream_.rows.count() && stream_.open) {
    next_ = 0;
    link_->readOn(stream_);
  }
  if (next_ < stream_.rows.count()) {
    row_ = next_++;
    return true;
  }
  if (stream_.failure) std::rethrow_exception(stream_.failure);
  return false;
}

void PostgreSqlStatement::reset() {
  link_->drop(stream_);
  started_ = false;
}

CellKind PostgreSqlStatement::kind(int column) const {
  if (stream_.rows.isNull(row_, column)) return CellKind::Null;
  switch (stream_.rows.type(column)) {
    case Bool:
    case Int2:
    case Int4:
    case Int8:
      return CellKind::Integer;
    case Float4:
    case Float8:
    case Numeric:
      return CellKind::Real;
    case Bytea:
      return CellKind::Bytes;
    default:
      return CellKind::Text;
  }
}

std::int64_t PostgreSqlStatement::integer(int column) const {
  const std::string_view cell = text(column);
  switch (stream_.rows.type(column)) {
    case Bool:
      return cell == "t" ? 1 : 0;
    case Float4:
    case Float8:
    case Numeric:
      return static_cast<std::int64_t>(real(column));
    default:
      return numberOf<std::int64_t>(cell);
  }
}

double PostgreSqlStatement::real(int column) const {
  return numberOf<double>(text(column));
}

std::string_view PostgreSqlStatement::text(int column) const {
  return stream_.rows.text(row_, column);
}

std::string PostgreSqlStatement::bytes(int column) const {
  return bytesOfBytea(text(column));
}

}  // namespace zelkor
