#include "year/YearAssets.h"

#include <stdexcept>

#include "base/Text.h"

namespace zelkor::test {
namespace {

// In the order of YearAsset: number, asset number, name, category, department, status, life in months,
// method, in use since, months used, value, residual rate, residual value, depreciated, subject of the
// depreciation.
constexpr std::string_view kAssets =
    R"(00001|01100001|一车间厂房|011|301|11|240|平均年限法(一)|2015-06-01|54|2400000|0.05|120000|513000|410502,折旧费
00002|02100001|车床|021|301|11|120|平均年限法(一)|2018-03-15|21|123456.78|0.05|6172.84|20486.5|410502,折旧费
00003|02200001|柴油发电机|022|302|11|120|直线法|2017-06-20|30|88000.55|0.03|2640.02|21384|410502,折旧费
00004|04200001|测试仪|042|401|11|60|年数总和法|2018-12-05|12|45678.90|0.05|2283.95|13888.5|550202,折旧费
00005|03200001|叉车|032|6|11|48|工作量法|2019-01-10|11|95000|0.05|4750|13537.5|550202,折旧费
00006|03100001|商务轿车|031|5|11|48|平均年限法(二)|2016-08-25|40|286000|0.05|14300|226512|550102,折旧费
00007|01200001|旧办公楼|012|1|31|240|不提折旧|2001-01-01|0|600000|0.05|30000|0|550202,折旧费
00008|04100001|打印机|041|2|11|36|平均年限法(一)|2017-01-12|35|5999|0.05|299.95|5543.08|550202,折旧费
00009|02100002|数控铣床|021|302|11|120|平均年限法(一)|2020-02-10|0|350000|0.05|17500|0|410502,折旧费
00010|04100002|服务器|041|401|11|36|年数总和法|2020-04-15|0|48000.66|0.05|2400.03|0|550202,折旧费
00011|03100002|配送货车|031|501|11|48|平均年限法(一)|2020-07-05|0|158000.99|0.05|7900.05|0|550102,折旧费
00012|03200002|托盘搬运车|032|6|11|48|工作量法|2020-07-05|0|21000|0.05|1050|0|550202,折旧费
00013|06000001|误录资产|06|7|11|60|平均年限法(一)|2020-11-02|0|1000|0.05|50|0|550202,折旧费)";

}  // namespace

YearAsset asset(const std::string& number) {
  for (const std::string& line : Split(kAssets, '\n')) {
    const auto cells = Split(line, '|');
    if (cells.at(0) != number) continue;
    return {cells.at(0),  cells.at(1),  cells.at(2),  cells.at(3),  cells.at(4),
            cells.at(5),  cells.at(6),  cells.at(7),  cells.at(8),  cells.at(9),
            cells.at(10), cells.at(11), cells.at(12), cells.at(13), cells.at(14)};
  }
  throw std::invalid_argument("no asset " + number);
}

}  // namespace zelkor::test
