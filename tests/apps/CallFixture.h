#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "apps/ProgramRun.h"
#include "support/Paths.h"
#include "support/Support.h"

namespace zelkor::test {

/// Calls of the administrator's tool in an empty folder.
class CallTest : public testing::Test {
 protected:
  ProgramResult ctl(const std::vector<std::string>& call) const {
    return ProgramRun(test::zelkorctlProgram(), call, home.path()).finish();
  }
  /// Creates an account set of January 2020.
  void create(const std::string& set = "set", const std::vector<std::string>& more = {"--sample"}) const {
    std::vector<std::string> call{"create", home / set, "--year", "2020", "--month", "1"};
    call.insert(call.end(), more.begin(), more.end());
    const ProgramResult result = ctl(call);
    ASSERT_EQ(result.status, 0) << result.errors;
  }
  std::string file(const std::string& set, const std::string& name = "ZkData.Mdb") const {
    return home / (set + "/" + name);
  }
  std::string data() const { return file("set"); }
  std::string arguments(const std::string& runType, const std::string& set = "set",
                        const std::string& date = "2020-01-31") const {
    return file(set) + ",陈会计," + date + "," + runType + "," + file(set, "ZkSystem.Mdb") + ",001";
  }
  /// What the statement prints.
  std::string sql(const std::string& statement) const {
    const ProgramResult result = ctl({"sql", data(), statement});
    EXPECT_EQ(result.status, 0) << result.errors;
    return result.output;
  }
  /// A file of the home folder with that text.
  std::string fileOf(const std::string& name, const std::string& text) const {
    writeFile(home / name, text);
    return home / name;
  }
  /// A register of lathes of that value, first used in March 2018.
  std::string registerOf(const std::vector<std::string>& values) const {
    std::string csv =
        "固定资产名称,类别编号,部门名称,增加方式,使用状况,使用年限,折旧方法,开始使用日期,原值,净残值率,"
        "对应折旧科目\n";
    for (const std::string& value : values) {
      csv += "车床,021,301,101,11,120,平均年限法(一),2018-03-05," + value + ",0.05,410502\n";
    }
    return fileOf("register.csv", csv);
  }

  const TempDir home;
};

}  // namespace zelkor::test
