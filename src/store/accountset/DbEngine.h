#pragma once

#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "store/engine/Database.h"

namespace zelkor {

/// The default workspace: a transaction covers every file that is open in it.
///
/// A transaction takes no lock before its first write, so that one left open neither blocks others nor reads
/// old rows. BeginTrans inside an open transaction joins it.
class Workspace {
 public:
  void BeginTrans();
  /// What was written stays from here on; the next flush forces it to disk.
  void CommitTrans();
  void Rollback();
  bool inTransaction() const { return inTransaction_; }

 private:
  friend class DbEngine;
  template <typename Action>
  void forEachConnection(Action action);
  void leaveTransaction();

  std::map<std::string, std::weak_ptr<Connection>> connections_;
  bool inTransaction_ = false;
};

/// Opens data files and keeps one connection per file for as long as a database uses it.
class DbEngine {
 public:
  /// To `notices` goes what an administrator should know: once, that the books are older than the program.
  explicit DbEngine(std::ostream& notices);
  /// They go to standard error.
  DbEngine();
  DbEngine(const DbEngine&) = delete;
  DbEngine& operator=(const DbEngine&) = delete;
  ~DbEngine();

  /// Opens for shared read and write; errors as openDataFile.
  Database OpenDatabase(const std::string& path);
  Workspace& workspace() { return workspace_; }

  /// Writes out what the connections have gathered and forces it to disk: before anybody is told that it is
  /// saved, before a dialog, before waiting, before the end.
  void flush();

  /// Once the program has ended with a status no statement is run any more: who issues one gets EndProgram;
  /// until it is taken back. What was gathered before can still be written out.
  void setEnded(std::optional<int> status);

 private:
  std::shared_ptr<Connection> connect(const std::string& path);

  Workspace workspace_;
  std::optional<int> ended_;
  std::ostream& notices_;
  bool noticed_ = false;
};

}  // namespace zelkor
