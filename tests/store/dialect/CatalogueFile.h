#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "store/Catalogue.h"
#include "store/engine/SqliteEngine.h"
#include "support/Support.h"

namespace zelkor::dialect::test {

/// A data file with the empty tables of the catalogue, opened by the engine alone.
class CatalogueFile {
 public:
  CatalogueFile() {
    engine_.begin();
    for (const auto* tables : {&dataTables(), &systemTables()})
      for (const TableDef& table : *tables)
        for (const std::string& sql : createStatements(table, EngineKind::Sqlite)) engine_.run(sql);
    engine_.commit();
  }

  SqliteEngine& engine() { return engine_; }

 private:
  static std::string emptyFile(const std::filesystem::path& path) {
    sqlite3* handle = nullptr;
    sqlite3_open(path.c_str(), &handle);
    sqlite3_exec(handle, "PRAGMA user_version = 1", nullptr, nullptr, nullptr);
    sqlite3_close(handle);
    return path.string();
  }

  zelkor::test::TempDir directory_;
  SqliteEngine engine_{emptyFile(directory_ / "ZkData.Mdb")};
};

}  // namespace zelkor::dialect::test
