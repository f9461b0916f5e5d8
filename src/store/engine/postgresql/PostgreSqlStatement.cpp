#include "store/engine/postgresql/PostgreSqlStatement.h"

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

PostgreSqlStatement::PostgreSqlStatement(std::shared_ptr<ServerStatement> statement)
    : statement_(std::move(statement)), values_(statement_->types.size()) {}

PostgreSqlStatement::~PostgreSqlStatement() {
  link().drop(stream_);
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

void PostgreSqlStatement::sendAhead() {
  next_ = 0;
  link().send(*statement_, values_, stream_);
  started_ = true;
}

bool PostgreSqlStatement::step() {
  if (!started_) sendAhead();
  readOn();
  if (stream_.passedOver) {
    sendAhead();
    readOn();
  }
  if (next_ < stream_.rows.count()) {
    row_ = next_++;
    return true;
  }
  if (stream_.failure) std::rethrow_exception(stream_.failure);
  return false;
}

void PostgreSqlStatement::readOn() {
  if (next_ < stream_.rows.count() || !stream_.open) return;
  next_ = 0;
  link().readOn(stream_);
}

void PostgreSqlStatement::reset() {
  link().drop(stream_);
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
