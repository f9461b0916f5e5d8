#pragma once

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <memory>
#include <string>
#include <vector>

#include "store/engine/postgresql/PostgreSqlLink.h"
#include "store/engine/postgresql/ServerFile.h"
#include "support/Support.h"
#include "support/TestServer.h"
#include "transfer/EngineSource.h"
#include "transfer/NewTarget.h"
#include "transfer/Transfer.h"

namespace zelkor::test {

/// An SQLite file in the engine's own words.
class RawFile {
 public:
  explicit RawFile(const std::filesystem::path& path) {
    sqlite3* handle = nullptr;
    sqlite3_open(path.c_str(), &handle);
    handle_.reset(handle);
  }

  void run(const std::string& sql) {
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, &message), SQLITE_OK)
        << sql << ": " << (message == nullptr ? "" : message);
    sqlite3_free(message);
  }

  /// One line for each row, its cells joined by "|".
  std::vector<std::string> rows(const std::string& query) {
    std::vector<std::string> lines;
    const auto addRow = [](void* out, int count, char** cells, char**) {
      std::string line;
      for (int i = 0; i < count; ++i) line += std::string(i == 0 ? "" : "|") + (cells[i] ? cells[i] : "~");
      static_cast<std::vector<std::string>*>(out)->push_back(line);
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(handle_.get(), query.c_str(), addRow, &lines, nullptr), SQLITE_OK) << query;
    return lines;
  }

  /// A table's cells as SQLite would write them in a statement.
  std::vector<std::string> cells(const std::string& table) {
    std::string columns;
    for (const std::string& name : rows("SELECT name FROM pragma_table_info('" + table + "')"))
      columns += (columns.empty() ? "quote(\"" : ", quote(\"") + name + "\")";
    return rows("SELECT " + columns + " FROM \"" + table + "\" ORDER BY rowid");
  }

  std::vector<std::string> tables() {
    return rows("SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'sqlite_sequence'");
  }

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };
  std::unique_ptr<sqlite3, Closer> handle_;
};

inline std::string textOf(const TransferProblem& problem) {
  std::string place = problem.table;
  if (problem.row > 0) place += "[" + std::to_string(problem.row) + "]";
  if (!problem.column.empty()) place += "." + problem.column;
  return place + ": " + problem.reason;
}

inline std::vector<std::string> textsOf(const std::vector<TransferProblem>& problems) {
  std::vector<std::string> texts;
  for (const TransferProblem& problem : problems) texts.push_back(textOf(problem));
  return texts;
}

class TransferTest : public testing::Test {
 protected:
  /// Copies a file, and compares both; gives what could not be carried.
  std::vector<std::string> copy(const std::filesystem::path& from, const std::filesystem::path& to,
                                const std::string& conninfo = {}) {
    const auto source = openSource(from.string());
    const auto target = openTarget(to, conninfo, conninfo.empty() ? "" : freshSchema());
    const TransferReport report = carryTables(*source, *target);
    target->finish();
    EXPECT_THAT(textsOf(compareTables(*source, *openSource(to.string()))), testing::IsEmpty());
    for (const CarriedTable& table : report.tables) EXPECT_EQ(table.read, table.stored) << table.name;
    return textsOf(report.problems);
  }

  /// The same over the server, if there is one: the file `to` is a copy of the copy there.
  std::vector<std::string> copyThere(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (!onServer()) return copy(from, to);
    auto problems = copy(from, there_, testServer());
    const auto more = copy(there_, to);
    problems.insert(problems.end(), more.begin(), more.end());
    return problems;
  }

  /// Runs statements in the server's own words on the copy there.
  void runThere(const std::string& sql) const {
    const ServerFile place = ServerFile::read(there_);
    PostgreSqlLink server(place.conninfo);
    server.run("SET search_path = \"" + place.schema + "\"");
    server.run(sql);
  }

  TempDir directory_;
  std::filesystem::path file_ = directory_ / "Source.Mdb";
  std::filesystem::path there_ = directory_ / "Server.Mdb";
  std::filesystem::path copy_ = directory_ / "Copy.Mdb";
};

}  // namespace zelkor::test
