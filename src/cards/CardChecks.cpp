#include "cards/CardChecks.h"

#include "base/Conversion.h"
#include "base/NumberText.h"
#include "store/engine/Statement.h"

namespace zelkor {

using enum CardField;

double numberOf(const std::string& text) {
  return parseNumber(text).value_or(Val(text));
}

std::string startDateFault(CardMode mode, const std::string& text, DateTime operatingDate) {
  const auto date = parseDate(text);
  if (!date) return "所填写的日期型数据不正确!";
  const auto months = DateDiff("m", *date, operatingDate);
  if (mode == CardMode::Original && months <= 0) return "原始卡片的开始日期不能在本月或本月之后！";
  if (mode == CardMode::NewAsset && months != 0) return "新资产的开始使用日期必须在本月！";
  return {};
}

std::optional<ValueFault> valueFault(const CardValues& values) {
  const auto number = [&](CardField of) { return numberOf(values[of]); };
  if (number(NetValue) > number(OriginalValue)) return ValueFault{NetValue, "净值不能大于原值!"};
  if (number(AccumulatedDepreciation) > number(OriginalValue))
    return ValueFault{AccumulatedDepreciation, "累计折旧不能大于原值!"};
  if (number(ResidualValue) > number(OriginalValue)) return ValueFault{ResidualValue, "净残值不能大于原值!"};
  if (number(ResidualValue) > number(NetValue)) return ValueFault{ResidualValue, "净残值不能大于净值!"};
  return std::nullopt;
}

bool isDetailSubject(Database& data, std::string_view subject) {
  const Recordset row = data.OpenRecordset(sql("select * from code where ccode='", subject, "'"));
  return !row.Eof() && CBool(row.Fields("bend"));
}

std::string subjectRefusal(std::string_view subject) {
  return sql("此", subject, "在科目表中不存在，或非明细级！");
}

}  // namespace zelkor
