#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

struct pg_result;

namespace zelkor {

/// Rows of a result in the server's texts, closely packed. Rows and columns count from 0.
class PostgreSqlRows {
 public:
  /// Appends the row of a result that holds one; all results have the same columns.
  void take(const pg_result* result);
  /// Gives up the rows; what they took up is kept for others unless it is much.
  void clear();

  std::size_t count() const { return types_.empty() ? 0 : cells_.size() / types_.size(); }
  bool isNull(std::size_t row, int column) const { return cell(row, column).length < 0; }
  std::string_view text(std::size_t row, int column) const;
  /// The server's number of the column's type.
  unsigned type(int column) const { return types_[static_cast<std::size_t>(column)]; }

 private:
  struct Cell {
    std::size_t begin;
    std::int32_t length;  // negative: Null
  };
  const Cell& cell(std::size_t row, int column) const {
    return cells_[row * types_.size() + static_cast<std::size_t>(column)];
  }

  std::vector<unsigned> types_;
  std::vector<Cell> cells_;
  std::string texts_;
};

/// The rows of a statement as far as they have been read from the server.
struct PostgreSqlStream {
  PostgreSqlRows rows;
  bool open = false;           // the server has more to say
  bool passedOver = false;     // the server has not carried the statement out, as one before it has failed
  std::exception_ptr failure;  // of the row after them

  void begin() {
    end();
    open = true;
  }
  void end() {
    rows.clear();
    open = passedOver = false;
    failure = nullptr;
  }
};

}  // namespace zelkor
