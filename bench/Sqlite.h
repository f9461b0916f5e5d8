#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

// The bare engine, for the floors that the measurements are compared with.
namespace zelkor::bench {

/// A data file opened without the store, but with the store's own flags and journal settings.
class BareFile {
 public:
  explicit BareFile(const std::string& path) {
    sqlite3* handle = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(path.c_str(), &handle, flags, nullptr) != SQLITE_OK) {
      throw std::runtime_error("cannot open " + path);
    }
    handle_.reset(handle);
    run("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA cache_size=-65536; PRAGMA "
        "wal_autocheckpoint=32000");
  }

  void run(const std::string& sql) {
    if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail(sql);
  }
  /// Commits wait from now on until they are on the disk. What the other side writes is measured until it is.
  void forceCommits() { run("PRAGMA synchronous=FULL"); }
  [[noreturn]] void fail(std::string_view sql) const {
    throw std::runtime_error(std::string(sqlite3_errmsg(handle_.get())) + " in " + std::string(sql));
  }
  sqlite3* handle() const { return handle_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };
  std::unique_ptr<sqlite3, Closer> handle_;
};

/// A prepared statement. Parameters count from 1, columns from 0.
class BareStatement {
 public:
  BareStatement(const BareFile& file, std::string_view sql) : file_(file) {
    sqlite3_stmt* handle = nullptr;
    const int length = static_cast<int>(sql.size());
    if (sqlite3_prepare_v3(file.handle(), sql.data(), length, SQLITE_PREPARE_PERSISTENT, &handle, nullptr) !=
        SQLITE_OK) {
      file.fail(sql);
    }
    handle_.reset(handle);
  }

  BareStatement& bind(int parameter, double value) {
    sqlite3_bind_double(handle_.get(), parameter, value);
    return *this;
  }
  BareStatement& bind(int parameter, std::int64_t value) {
    sqlite3_bind_int64(handle_.get(), parameter, value);
    return *this;
  }
  BareStatement& bind(int parameter, std::string_view value) {
    sqlite3_bind_text(handle_.get(), parameter, value.data(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
    return *this;
  }
  bool step() {
    const int code = sqlite3_step(handle_.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) file_.fail(sqlite3_sql(handle_.get()));
    return code == SQLITE_ROW;
  }
  void reset() { sqlite3_reset(handle_.get()); }
  /// Runs an action once.
  void run() {
    while (step()) {
    }
    reset();
  }
  double number(int column) const { return sqlite3_column_double(handle_.get(), column); }
  std::string text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_.get(), column));
    return text ? text : "";
  }

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
  };
  const BareFile& file_;
  std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

}  // namespace zelkor::bench
