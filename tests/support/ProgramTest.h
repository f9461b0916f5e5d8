#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Paths.h"
#include "support/ProgramRun.h"
#include "support/Support.h"

namespace zelkor::test {

/// Calls of zelkorctl in a directory of their own, where account sets of January 2020 lie in folders.
class ProgramTest : public testing::Test {
 protected:
  using Words = std::vector<std::string>;

  ProgramResult ctl(const Words& call) const {
    return ProgramRun(zelkorctlProgram(), call, home.path()).finish();
  }
  /// A call that must end well; what it has printed.
  std::string done(const Words& call) const {
    const ProgramResult result = ctl(call);
    EXPECT_EQ(result.status, 0) << result.output << result.errors;
    return result.output;
  }
  std::string file(const std::string& set = "set", const std::string& name = "ZkData.Mdb") const {
    return home / (set + "/" + name);
  }
  /// The argument string of a run type.
  std::string arguments(const std::string& runType, const std::string& set = "set",
                        const std::string& day = "2020-01-31") const {
    return file(set) + ",陈会计," + day + "," + runType + "," + file(set, "ZkSystem.Mdb") + ",001";
  }
  void create(const std::string& set = "set", const Words& more = {"--sample"}) const {
    Words call{"create", home / set, "--year", "2020", "--month", "1"};
    call.insert(call.end(), more.begin(), more.end());
    done(call);
  }
  std::string sql(const std::string& statement, const std::string& set = "set") const {
    return done({"sql", file(set), statement});
  }

  const TempDir home;
};

}  // namespace zelkor::test
