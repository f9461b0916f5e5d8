#pragma once

#include <string>
#include <vector>

#include "store/accountset/DataFile.h"
#include "store/accountset/DbEngine.h"
#include "support/Support.h"
#include "support/TestServer.h"

namespace zelkor::test {

/// What takes the data file of an account set one revision back, in the dialect: the opposite of the steps
/// that lead to it.
struct StepBack {
  int to;
  std::vector<std::string> statements;
};

/// One for each revision but the present one, the newest first.
inline const std::vector<StepBack>& stepsBack() {
  static const std::vector<StepBack> steps{
      {1,
       {"drop index sCardNum on fa_Cards", "drop index lOptID on fa_DeptScale",
        "drop index sID on fa_DeptScale"}},
  };
  return steps;
}

/// Makes new account set `directory` one that a program of an earlier revision has created. The first ones
/// kept no number, and called the versions of a server's functions 1, 2 and 3.
inline void makeOlder(const std::filesystem::path& directory, int revision) {
  const std::string data = (directory / "ZkData.Mdb").string();
  for (const StepBack& step : stepsBack())
    if (step.to >= revision)
      for (const std::string& statement : step.statements) DbEngine().OpenDatabase(data).Execute(statement);
  for (const std::string& file : {data, (directory / "ZkSystem.Mdb").string()}) {
    const auto engine = openDataFile(file);
    engine->setBooksRevision(revision == 1 ? 0 : revision);
    if (onServer()) engine->run("COMMENT ON FUNCTION zk_describe(text, text[]) IS '3'");
  }
}

}  // namespace zelkor::test
