#pragma once

#include <libpq-fe.h>

#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// The bare server, for the floors that the measurements are compared with.
namespace zelkor::bench {

struct BareResultClearer {
  void operator()(PGresult* result) const { PQclear(result); }
};
using BareResult = std::unique_ptr<PGresult, BareResultClearer>;

/// A session on a server without the store, in one of its schemas and with the store's own durability.
class BareServer {
 public:
  BareServer(const std::string& conninfo, const std::string& schema)
      : handle_(PQconnectdb(conninfo.c_str())) {
    if (PQstatus(handle()) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(handle()));
    run("SET search_path = \"" + schema + "\", public; SET synchronous_commit = off; SET jit = off");
  }

  void run(const std::string& sql) { check(PQexec(handle(), sql.c_str()), sql); }
  BareResult check(PGresult* result, std::string_view sql) const {
    BareResult owner(result);
    const ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
      throw std::runtime_error(std::string(PQerrorMessage(handle())) + " in " + std::string(sql));
    return owner;
  }
  PGconn* handle() const { return handle_.get(); }

 private:
  struct Closer {
    void operator()(PGconn* handle) const { PQfinish(handle); }
  };
  std::unique_ptr<PGconn, Closer> handle_;
};

/// A prepared statement: one round trip for each run. Parameters count from 1, columns and rows from 0; the
/// server infers the types of the parameters.
class BareServerStatement {
 public:
  BareServerStatement(const BareServer& server, std::string sql) : server_(server), sql_(std::move(sql)) {
    server_.check(PQprepare(server_.handle(), sql_.c_str(), sql_.c_str(), 0, nullptr), sql_);
  }

  BareServerStatement& bind(std::size_t parameter, std::string_view value) {
    if (values_.size() < parameter) values_.resize(parameter);
    values_[parameter - 1] = value;
    return *this;
  }
  BareServerStatement& bind(std::size_t parameter, double value) {
    std::array<char, 64> text{};
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return bind(parameter, std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
  }
  BareServerStatement& run() {
    pointers_.clear();
    for (const std::string& value : values_) pointers_.push_back(value.c_str());
    result_ = server_.check(PQexecPrepared(server_.handle(), sql_.c_str(), static_cast<int>(values_.size()),
                                           pointers_.data(), nullptr, nullptr, 0),
                            sql_);
    return *this;
  }
  int rows() const { return PQntuples(result_.get()); }
  std::string_view text(int row, int column) const { return PQgetvalue(result_.get(), row, column); }
  double number(int row, int column) const {
    double value = 0;
    const std::string_view cell = text(row, column);
    std::from_chars(cell.data(), cell.data() + cell.size(), value);
    return value;
  }

 private:
  const BareServer& server_;
  std::string sql_;  // its name as well
  std::vector<std::string> values_;
  std::vector<const char*> pointers_;
  BareResult result_;
};

}  // namespace zelkor::bench
