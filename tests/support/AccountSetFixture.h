#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "startup/RunContext.h"
#include "support/AccountSetCopy.h"
#include "support/Rows.h"
#include "support/ScriptedDialogs.h"
#include "support/Support.h"

namespace zelkor::test {

/// A fresh account set with a run context on it: operator 陈会计, account 001, operating date 2020-05-15.
class AccountSetTest : public testing::Test {
 protected:
  AccountSetTest() {
    context.gstrZtFile = (directory / "ZkData.Mdb").string();
    context.gstrZkSysFile = (directory / "ZkSystem.Mdb").string();
    context.gstrAccountId = "001";
    context.gstrUser = "陈会计";
    context.gdOpDate = day("2020-5-15");
    context.gstrDeprStates = {"", "正常计提", "总提折旧", "总不提折旧"};
    context.dbZKData = engine.OpenDatabase(context.gstrZtFile);
    context.dbZKSystem = engine.OpenDatabase(context.gstrZkSysFile);
  }

  Database& db() { return context.dbZKData; }
  void execute(const std::string& statement) { db().Execute(statement); }
  std::vector<std::string> rows(const std::string& query) { return rowsOf(db().OpenRecordset(query)); }
  std::string row(const std::string& query) {
    const auto all = rows(query);
    return all.empty() ? "(none)" : all.front();
  }
  std::string missingFile() const { return (directory / "Missing.Mdb").string(); }

  TempDir directory;
  AccountSetCopy files{directory.path()};
  DbEngine engine;
  ScriptedDialogs dialogs;
  FixedClock clock{day("2020-6-1 8:30:00")};
  RunContext context{engine, dialogs, clock};
};

}  // namespace zelkor::test
