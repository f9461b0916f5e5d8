#include "store/engine/postgresql/PostgreSqlRows.h"

#include <libpq-fe.h>

namespace zelkor {
namespace {

constexpr std::size_t kMuchMemory = std::size_t{4} << 20U;

}  // namespace

void PostgreSqlRows::take(const pg_result* result) {
  const int columns = PQnfields(result);
  if (types_.size() != static_cast<std::size_t>(columns)) {
    types_.clear();
    for (int column = 0; column < columns; ++column) types_.push_back(PQftype(result, column));
  }
  for (int column = 0; column < columns; ++column) {
    const int length = PQgetisnull(result, 0, column) != 0 ? -1 : PQgetlength(result, 0, column);
    cells_.push_back({texts_.size(), length});
    if (length > 0) texts_.append(PQgetvalue(result, 0, column), static_cast<std::size_t>(length));
  }
}

void PostgreSqlRows::clear() {
  cells_.clear();
  texts_.clear();
  if (cells_.capacity() * sizeof(Cell) > kMuchMemory) cells_.shrink_to_fit();
  if (texts_.capacity() > kMuchMemory) texts_.shrink_to_fit();
}

std::string_view PostgreSqlRows::text(std::size_t row, int column) const {
  const Cell& place = cell(row, column);
  if (place.length < 0) return {};
  return std::string_view(texts_).substr(place.begin, static_cast<std::size_t>(place.length));
}

}  // namespace zelkor
