#pragma once

#include <string>
#include <vector>

#include "store/StoreFixture.h"

namespace zelkor::test {

/// A data file and a part of the server beside it, which are given the same statements.
class BothEngines {
 public:
  /// Runs the statement on both; each is expected to come to the same: rows with the kinds of their values,
  /// rows touched, or the number of an error.
  void expectSame(const std::string& statement);
  /// How many statements have come to something else than an error.
  int succeeded() const { return succeeded_; }

  /// What the statement comes to: a line for each row, the rows touched, or the error.
  static std::string outcomeOf(Database& database, const std::string& statement);

 private:
  int succeeded_ = 0;
  TempDir directory_;
  DbEngine engine_;
  Database file_ = engine_.OpenDatabase(makeEmptySqliteFile(directory_.path(), "File.Mdb"));
  Database server_ = engine_.OpenDatabase(makeEmptyServerFile(directory_.path(), "Server.Mdb"));
};

}  // namespace zelkor::test
