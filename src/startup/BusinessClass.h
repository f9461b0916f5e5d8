#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "store/accountset/DbEngine.h"

namespace zelkor {

/// The common frame of the business classes: a data file of their own, opened on first use. Whatever fails in
/// a method is handed to the error log, which keeps nothing, and the method returns its default: silently.
class BusinessClass {
 public:
  BusinessClass(const BusinessClass&) = delete;
  BusinessClass& operator=(const BusinessClass&) = delete;

  const std::string& ZkDataPath() const { return zkDataPath_; }
  /// To be set before anything else is called. A file that is open already stays in use until it is closed.
  void setZkDataPath(std::string path) { zkDataPath_ = std::move(path); }
  void CloseZkData() { zkData_.Close(); }
  /// The first failure since the last call, for whoever has to report more than that something failed.
  std::optional<RuntimeError> takeFailure() { return std::exchange(failure_, std::nullopt); }

 protected:
  /// `errorPrefix` comes before the routine names in the error log and ends in a point.
  BusinessClass(DbEngine& engine, std::string_view errorPrefix)
      : engine_(engine), errorPrefix_(errorPrefix) {}
  ~BusinessClass() = default;

  /// A closed recordset when the query fails.
  Recordset ExecuteQuery(std::string_view statement) { return query("ExecuteQuery", statement); }
  Recordset query(std::string_view routine, std::string_view statement);
  /// Field of the query's first row as text; empty when it is Null, without a row, or on failure.
  std::string firstText(std::string_view routine, std::string_view statement, std::string_view field);
  using UseOfRows = std::function<void(std::size_t query, Recordset& rows)>;
  /// The rows of each of many queries, which a server is asked together; those that fail give none.
  void eachQuery(std::string_view routine, std::span<const std::string> statements, const UseOfRows& use);
  /// The texts of the first rows of many queries, likewise.
  std::vector<std::string> firstTexts(std::string_view routine, std::span<const std::string> statements,
                                      std::string_view field);

  /// Runs `body` on the open file; `fallback` when there is no file or the body raises an error.
  template <typename Result, typename Body>
  Result attempt(std::string_view routine, Result fallback, Body&& body) {
    try {
      if (!OpenZkData()) return fallback;
      return std::forward<Body>(body)();
    } catch (const RuntimeError& error) {
      reportError(error.number(), error.what(), routine);
      return fallback;
    }
  }

  Database& zkData() { return zkData_; }

 private:
  bool OpenZkData();
  void reportError(std::int32_t level, const std::string& text, std::string_view routine);

  DbEngine& engine_;
  std::string_view errorPrefix_;
  std::string zkDataPath_;
  Database zkData_;
  std::optional<RuntimeError> failure_;
};

}  // namespace zelkor
