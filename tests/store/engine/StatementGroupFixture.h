#pragma once

#include <functional>
#include <string>
#include <vector>

#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"
#include "store/StoreFixture.h"

namespace zelkor::test {

using Lines = std::vector<std::string>;

/// On tables "t" and "u", alike, of which each has a row.
class StatementGroupTest : public StoreTest {
 protected:
  StatementGroupTest() {
    for (const char* table : {"t", "u"}) {
      db.Execute(std::string("CREATE TABLE ") + table + " (sNum TEXT(20), lN SHORT)");
      db.Execute(std::string("CREATE UNIQUE INDEX sNum ON ") + table + " (sNum)");
      db.Execute(std::string("insert into ") + table + " (sNum,lN) values ('taken',1)");
    }
  }

  /// What the statements leave in the table "t", and the error that they end with.
  Lines outcome(const Lines& statements, const std::function<void(const Lines&)>& carryOut) {
    Lines lines{refusalOf([&] { carryOut(statements); })};
    for (std::string& line : rows("select sNum,lN from t order by sNum")) lines.push_back(std::move(line));
    db.Execute("delete from t where sNum<>'taken'");
    return lines;
  }
  void together(const Lines& statements) {
    StatementGroup group(db);
    for (const std::string& statement : statements) group.execute(statement);
    group.run();
  }
  void oneByOne(const Lines& statements) {
    for (const std::string& statement : statements) db.Execute(statement);
  }

  /// By itself, inside a transaction, and kept together with what was written before.
  void inEachWay(const std::function<void()>& work) {
    work();
    engine.workspace().BeginTrans();
    work();
    engine.workspace().CommitTrans();
    const KeptTogether together = db.keepTogether();
    db.Execute("update u set lN=lN+1");
    work();
  }
};

}  // namespace zelkor::test
