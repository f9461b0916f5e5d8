#pragma once

#include "store/engine/Engine.h"
#include "store/engine/postgresql/PostgreSqlLink.h"

namespace zelkor {

/// A prepared statement of a PostgreSQL server. The first step fetches a short result as a whole, so that the
/// statement holds nothing on the server while its rows are walked; a long one comes piece by piece.
class PostgreSqlStatement final : public EngineStatement {
 public:
  explicit PostgreSqlStatement(std::shared_ptr<ServerStatement> statement);
  PostgreSqlStatement(const PostgreSqlStatement&) = delete;
  PostgreSqlStatement& operator=(const PostgreSqlStatement&) = delete;
  ~PostgreSqlStatement() override;

  void bindNull(int parameter) override;
  void bindInteger(int parameter, std::int64_t value) override;
  void bindReal(int parameter, double value) override;
  void bindText(int parameter, std::string_view value) override;
  void bindBytes(int parameter, std::string_view value) override;
  void sendAhead() override;
  bool step() override;
  void reset() override;
  CellKind kind(int column) const override;
  std::int64_t integer(int column) const override;
  double real(int column) const override;
  std::string_view text(int column) const override;
  std::string bytes(int column) const override;

 private:
  void bind(int parameter, std::optional<std::string> value);
  void readOn();

  PostgreSqlLink& link() const { return *statement_->link; }

  std::shared_ptr<ServerStatement> statement_;
  PgValues values_;
  PostgreSqlStream stream_;
  bool started_ = false;
  std::size_t row_ = 0;
  std::size_t next_ = 0;  // among the rows that the stream holds
};

}  // namespace zelkor
