#pragma once

#include <memory>
#include <string>

#include "store/accountset/AccountSet.h"
#include "store/engine/postgresql/PostgreSqlLink.h"
#include "store/engine/postgresql/ServerFile.h"
#include "support/Support.h"
#include "support/TestServer.h"

namespace zelkor::test {

inline constexpr const char* kAccountSetFiles[] = {"ZkData.Mdb", "ZkSystem.Mdb"};

/// A database of the test server that goes with the object.
class TestDatabase {
 public:
  /// A copy of the database of that name.
  explicit TestDatabase(const std::string& original) : name_(freshSchema()) { create(original); }
  TestDatabase(const TestDatabase&) = delete;
  TestDatabase& operator=(const TestDatabase&) = delete;
  ~TestDatabase() {
    try {
      drop();
    } catch (const RuntimeError&) {
      // The server goes with everything in it when the tests are through.
    }
  }

  /// Becomes a copy of the other one; whoever works on it is cut off.
  void copyFrom(const TestDatabase& original) {
    drop();
    create(original.name());
  }

  const std::string& name() const { return name_; }
  std::string conninfo() const { return testServer() + " dbname=" + name_; }

 private:
  // A connection for each: a test may have the server restarted.
  static void runOnServer(const std::string& sql) { PostgreSqlLink(testServer()).run(sql); }
  void create(const std::string& original) const {
    runOnServer("CREATE DATABASE " + name_ + " TEMPLATE " + original + " STRATEGY file_copy");
  }
  void drop() const { runOnServer("DROP DATABASE " + name_ + " WITH (FORCE)"); }

  std::string name_;
};

/// A directory with a new account set: in files, or in a database beside a server.
struct PreparedAccountSet {
  explicit PreparedAccountSet(const AccountSetOptions& options) {
    if (!onServer()) {
      createAccountSet(directory.path(), options);
      return;
    }
    database = std::make_unique<TestDatabase>("template0");
    createServerAccountSet(database->conninfo(), directory.path(), options);
  }

  /// One that holds the sample archives, made once per test program.
  static const PreparedAccountSet& get() {
    static const PreparedAccountSet prepared({.account = "001", .year = 2020, .month = 1, .sample = true});
    return prepared;
  }

  TempDir directory;
  std::unique_ptr<TestDatabase> database;
};

/// Puts a fresh copy of the prepared account set into a directory; a server's part goes with the object.
class AccountSetCopy {
 public:
  explicit AccountSetCopy(const std::filesystem::path& directory) {
    const PreparedAccountSet& prepared = PreparedAccountSet::get();
    if (prepared.database) database_ = std::make_unique<TestDatabase>(prepared.database->name());
    for (const char* file : kAccountSetFiles) {
      if (database_) {
        const ServerFile original = ServerFile::read(prepared.directory / file);
        ServerFile{database_->conninfo(), original.schema}.write(directory / file);
      } else {
        std::filesystem::copy_file(prepared.directory / file, directory / file);
      }
    }
  }

  /// Its part on a server; null when it lies in files.
  TestDatabase* database() const { return database_.get(); }

 private:
  std::unique_ptr<TestDatabase> database_;
};

}  // namespace zelkor::test
