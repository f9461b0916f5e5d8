#include "JetAccounts.h"

#include <cstdint>
#include <utility>

namespace zelkor::bench {
namespace {

using test::JetCell;
using test::JetType;

std::vector<test::JetColumn> columns() {
  return {
      {"lID", JetType::Long, 0, true},  {"sCardNum", JetType::Text, 20},  {"sAssetName", JetType::Text, 200},
      {"sDeptNum", JetType::Text, 20},  {"sTypeNum", JetType::Text, 20},  {"sOperator", JetType::Text, 60},
      {"sSite", JetType::Text, 200},    {"iPeriod", JetType::Short},      {"iOptType", JetType::Short},
      {"lOptID", JetType::Long},        {"lLife", JetType::Long},         {"dblValue", JetType::Double},
      {"dblDepr", JetType::Double},     {"dblDeprRate", JetType::Double}, {"dblNetValueAct", JetType::Double},
      {"mAmount", JetType::Money},      {"dStartdate", JetType::Date},    {"dInputDate", JetType::Date},
      {"bMultiDept", JetType::Boolean}, {"memRemark", JetType::Memo},     {"sLockedBy", JetType::Text, 60}};
}

JetCell everyOther(long row, long distance, JetCell cell) {
  return row % distance == 0 ? std::move(cell) : JetCell();
}

std::string numbered(const char* text, long number) {
  return text + std::to_string(number);
}

std::string remark(long row) {
  std::string text;
  for (long i = 0; i <= row % 11; ++i) text += "经鉴定可以继续使用，下次检修日期待定。";
  return text;
}

std::vector<JetCell> cells(long row) {
  const auto number = static_cast<std::int64_t>(row);
  const double value = 1250.37 + 17.93 * static_cast<double>(row % 997);
  const double day = 38000 + static_cast<double>(row % 3650);
  return {number,
          numbered("C", 100000 + row),
          numbered("办公用电子计算机及网络设备", row % 100),
          numbered("0", 100 + row % 40),
          numbered("02", row % 30),
          std::string("王小明"),
          everyOther(row, 2, numbered("主楼三层南侧办公室", row % 60)),
          number % 12 + 1,
          number % 5,
          number + 70000,
          number % 240,
          value,
          value * 0.31,
          0.0079166 + static_cast<double>(row % 7) / 1000,
          value * 0.69,
          number * 123457,
          day,
          day + 0.375,
          row % 9 == 0,
          everyOther(row, 4, remark(row)),
          JetCell()};
}

}  // namespace

JetAccounts::JetAccounts(std::filesystem::path path, test::JetVersion version, int count, long rowsEach)
    : file(std::move(path)), rows(count * rowsEach) {
  test::JetFileWriter writer(file, version);
  for (int i = 1; i <= count; ++i) {
    tables.push_back(numbered("fa_book", i));
    test::JetTable& table = writer.table(tables.back(), columns(),
                                         {{"PrimaryKey", {"lID"}, true, true}, {"sCardNum", {"sCardNum"}}});
    for (long row = 1; row <= rowsEach; ++row) table.add(cells(row));
  }
  writer.close();
}

}  // namespace zelkor::bench
