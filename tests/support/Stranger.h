#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "support/Support.h"
#include "support/TestServer.h"

namespace zelkor::test {

/// Another process's view of a data file: a connection of its own, in the engine's words, that does not wait.
class Stranger {
 public:
  virtual ~Stranger() = default;
  virtual bool run(const std::string& sql) = 0;
  virtual int count(const std::string& table) = 0;
};

class SqliteStranger final : public Stranger {
 public:
  explicit SqliteStranger(const std::string& path) { sqlite3_open(path.c_str(), &handle_); }
  SqliteStranger(const SqliteStranger&) = delete;
  SqliteStranger& operator=(const SqliteStranger&) = delete;
  ~SqliteStranger() override { sqlite3_close(handle_); }

  bool run(const std::string& sql) override {
    return sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  int count(const std::string& table) override {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(handle_, ("SELECT count(*) FROM " + table).c_str(), -1, &statement, nullptr);
    sqlite3_step(statement);
    const int count = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    return count;
  }

 private:
  sqlite3* handle_ = nullptr;
};

class ServerStranger final : public Stranger {
 public:
  explicit ServerStranger(const std::string& path) : engine_(ServerFile::read(path)) {
    engine_.run("SET lock_timeout = '100ms'");
  }
  bool run(const std::string& sql) override {
    return errorOf([&] { engine_.run(sql); }) == 0;
  }
  int count(const std::string& table) override {
    const auto statement = engine_.prepare("SELECT count(*) FROM " + table);
    statement->step();
    return static_cast<int>(statement->integer(0));
  }

 private:
  PostgreSqlEngine engine_;
};

inline std::unique_ptr<Stranger> strangerAt(const std::string& path) {
  if (onServer()) return std::make_unique<ServerStranger>(path);
  return std::make_unique<SqliteStranger>(path);
}

}  // namespace zelkor::test
