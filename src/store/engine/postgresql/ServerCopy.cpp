#include "store/engine/postgresql/ServerCopy.h"

#include <array>
#include <charconv>

#include "store/catalogue/Catalogue.h"
#include "store/engine/postgresql/ByteaText.h"
#include "store/engine/postgresql/PostgreSqlWords.h"

namespace zelkor {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 18U;

// Rows of a table that nobody has seen yet need no marks of who may see them.
std::string copyStatement(const dialect::TableInfo& table) {
  std::string columns;
  for (const dialect::ColumnInfo& column : table.columns)
    columns += (columns.empty() ? "" : ", ") + postgreSqlWords().quoted(column.name);
  return "COPY " + postgreSqlWords().quoted(table.name) + " (" + columns + ") FROM STDIN (FREEZE)";
}

// The letter that comes after a backslash for a character that COPY takes for its own; 0 for others.
char letterFor(char c) {
  switch (c) {
    case '\\':
      return '\\';
    case '\t':
      return 't';
    case '\n':
      return 'n';
    case '\r':
      return 'r';
    default:
      return 0;
  }
}

template <typename Number>
void append(std::string& text, Number value) {
  std::array<char, 64> buffer{};
  text.append(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
}

}  // namespace

ServerCopy::ServerCopy(PostgreSqlLink& server, const dialect::TableInfo& table) : server_(server) {
  block_.reserve(kBlockSize + kBlockSize / 4);
  server_.beginCopy(copyStatement(table));
}

ServerCopy::~ServerCopy() {
  if (open_) server_.giveUpCopy();
}

std::string& ServerCopy::cell() {
  if (rowBegun_) block_ += '\t';
  rowBegun_ = true;
  return block_;
}

void ServerCopy::integer(std::int64_t value) {
  append(cell(), value);
}

void ServerCopy::real(double value) {
  append(cell(), value);
}

void ServerCopy::amount(Currency value) {
  cell() += value.toText();
}

void ServerCopy::text(std::string_view value) {
  std::string& block = cell();
  std::size_t plain = 0;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char letter = letterFor(value[i]);
    if (letter == 0) continue;
    block.append(value.substr(plain, i - plain)) += '\\';
    block += letter;
    plain = i + 1;
  }
  block.append(value.substr(plain));
}

void ServerCopy::bytes(std::string_view value) {
  text(byteaText(value));
}

void ServerCopy::endRow() {
  block_ += '\n';
  rowBegun_ = false;
  if (block_.size() < kBlockSize) return;
  server_.putCopy(block_);
  block_.clear();
}

std::int64_t ServerCopy::finish() {
  if (!block_.empty()) server_.putCopy(block_);
  open_ = false;
  return server_.endCopy();
}

}  // namespace zelkor
