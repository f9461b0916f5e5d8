#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "store/accountset/DbEngine.h"
#include "store/catalogue/Revisions.h"
#include "store/engine/sqlite/SqliteEngine.h"
#include "support/Rows.h"
#include "support/Support.h"
#include "support/TestServer.h"

namespace zelkor::test {

inline std::string makeEmptySqliteFile(const std::filesystem::path& directory, const std::string& name) {
  const std::string path = (directory / name).string();
  sqlite3* handle = nullptr;
  sqlite3_open(path.c_str(), &handle);
  sqlite3_exec(handle, revisionStatement(currentRevision()).c_str(), nullptr, nullptr, nullptr);
  sqlite3_close(handle);
  return path;
}

inline std::string makeEmptyServerFile(const std::filesystem::path& directory, const std::string& name) {
  const std::string path = (directory / name).string();
  createServerSchema(testServer(), freshSchema(), path);
  return path;
}

/// Number and text of the error that the call ends with.
template <typename Call>
std::string refusalOf(Call call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return std::to_string(error.number()) + ' ' + error.what();
  }
  return "(none)";
}

/// A new data file without tables, on the server beside which the tests run if there is one.
inline std::string makeEmptyDataFile(const std::filesystem::path& directory,
                                     const std::string& name = "Test.Mdb") {
  return onServer() ? makeEmptyServerFile(directory, name) : makeEmptySqliteFile(directory, name);
}

/// One data file with a database open on it.
class StoreTest : public testing::Test {
 protected:
  std::vector<std::string> rows(const std::string& sql) { return rowsOf(db.OpenRecordset(sql)); }
  std::string cell(const std::string& sql) {
    const auto all = rows(sql);
    return all.empty() ? "(none)" : all.front();
  }

  TempDir directory;
  std::string path = makeEmptyDataFile(directory.path());
  DbEngine engine;
  Database db = engine.OpenDatabase(path);
};

}  // namespace zelkor::test
