#pragma once

#include <string>

#include "support/ProgramTest.h"

namespace zelkor::test {

/// Jobs of zelkorctl on files that a test writes.
class JobTest : public ProgramTest {
 protected:
  /// A file of the home folder with that text.
  std::string fileOf(const std::string& name, const std::string& text) const {
    writeFile(home / name, text);
    return home / name;
  }
  /// A register of lathes of these values, first used in March 2018.
  std::string registerOf(const Words& values) const {
    std::string csv =
        "固定资产名称,类别编号,部门名称,增加方式,使用状况,使用年限,折旧方法,开始使用日期,原值,净残值率,"
        "对应折旧科目\n";
    for (const std::string& value : values) {
      csv += "车床,021,301,101,11,120,平均年限法(一),2018-03-05," + value + ",0.05,410502\n";
    }
    return fileOf("register.csv", csv);
  }
};

}  // namespace zelkor::test
