#include "ServerDatabase.h"

#include <unistd.h>

#include <cstdlib>

#include "base/RuntimeError.h"
#include "store/catalogue/Catalogue.h"
#include "store/engine/postgresql/PostgreSqlLink.h"
#include "store/engine/postgresql/ServerFile.h"
#include "store/engine/postgresql/ServerLoad.h"
#include "store/engine/sqlite/SqliteEngine.h"

namespace zelkor::bench {
namespace {

namespace fs = std::filesystem;

std::string freshName() {
  static int number = 0;
  return "bench" + std::to_string(::getpid()) + "_" + std::to_string(++number);
}

void carryFile(PostgreSqlLink& server, const fs::path& file, const char* schema,
               const std::vector<TableDef>& tables) {
  createSchema(server, schema);
  SqliteEngine rows(file.string());
  loadTables(server, rows, tables);
}

}  // namespace

std::string benchServer() {
  const char* conninfo = std::getenv("ZELKOR_TEST_SERVER");
  return conninfo == nullptr ? "" : conninfo;
}

ServerDatabase::ServerDatabase(std::string server, const std::string& original)
    : server_(std::move(server)), name_(freshName()) {
  PostgreSqlLink(server_).run("CREATE DATABASE " + name_ + " TEMPLATE " + original + " STRATEGY file_copy");
}

ServerDatabase::~ServerDatabase() {
  try {
    PostgreSqlLink(server_).run("DROP DATABASE " + name_ + " WITH (FORCE)");
  } catch (const RuntimeError&) {
    // The server goes with everything in it when the benchmark is through.
  }
}

// The server's statistics are there as they are on one that has been running for a while.
void ServerDatabase::carry(const fs::path& from, const fs::path& to) const {
  PostgreSqlLink link(conninfo());
  link.run("BEGIN");
  carryFile(link, from / "ZkData.Mdb", kDataSchema, dataTables());
  carryFile(link, from / "ZkSystem.Mdb", kSystemSchema, systemTables());
  link.run("COMMIT");
  link.run("VACUUM ANALYZE");
  writeFiles(to);
}

void ServerDatabase::writeFiles(const fs::path& directory, const std::string& more) const {
  ServerFile{conninfo() + more, kDataSchema}.write(directory / "ZkData.Mdb");
  ServerFile{conninfo() + more, kSystemSchema}.write(directory / "ZkSystem.Mdb");
}

}  // namespace zelkor::bench
