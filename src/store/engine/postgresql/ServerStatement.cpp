#include "store/engine/postgresql/ServerStatement.h"

#include <algorithm>
#include <charconv>

#include "store/engine/postgresql/PostgreSqlLink.h"

namespace zelkor {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr unsigned kTextType = 25;  // the server's number of the type text

// The greatest $n outside of quotes. Numbers below it that the text does not name are declared all the same.
std::size_t parametersOf(std::string_view sql) {
  std::size_t most = 0;
  char quote = 0;
  for (std::size_t i = 0; i < sql.size(); ++i) {
    const char c = sql[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == '$' && i + 1 < sql.size() && isDigit(sql[i + 1])) {
      std::size_t number = 0;
      std::from_chars(sql.data() + i + 1, sql.data() + sql.size(), number);
      most = std::max(most, number);
    }
  }
  return most;
}

}  // namespace

ServerStatement::ServerStatement(std::shared_ptr<PostgreSqlLink> session, std::string_view text)
    : link(std::move(session)), sql(text), types(parametersOf(text), kTextType), name(link->newName()) {}

ServerStatement::~ServerStatement() {
  link->forget(*this);
}

}  // namespace zelkor
