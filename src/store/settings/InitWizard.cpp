#include "store/settings/InitWizard.h"

#include <algorithm>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/Text.h"
#include "store/engine/Statement.h"
#include "store/settings/Parameters.h"

namespace zelkor {
namespace {

constexpr int kMonthsPerYear = 12;
constexpr std::string_view kRuler = "----------------------------------------------------------------";

// clang-format off
constexpr std::string_view kRules[] = {
    "1、本系统发生与折旧计算有关的变动后，加速折旧法在变动生效的当期以净值作为计提原值，以剩余使用年限为计提年限计算折旧；直线法还以原公式计算（因公式中已考虑了价值变动和年限调整）。以前修改的月折旧额或单位折旧的继承值无效。",
    "2、与折旧计算有关的变动是除了部门转移、类别调整、使用状况调整外的由变动单引起的变动。",
    "3、原值调整、累计折旧调整、净残值（率）调整下月有效。",
    "4、折旧方法调整、使用年限调整当月生效。",
    "5、使用状况调整下月有效。",
    "6、折旧分配：部门转移和类别调整当月计提的折旧分配分配到变动后部门和类别。",
    "7、本系统各种变动后计算折旧采用未来适用法，不自动调整以前的累计折旧，采用追溯适用法的企业只能手工调整累计折旧。",
    "8、报表统计：当月折旧和计提原值的汇总汇总到变动后部门和类别。",
};
// clang-format on

void storeCodes(Database& data, const InitChoices& choices) {
  setParameter(data, "sTypeNumType", choices.categoryCodingRule);
  setParameter(data, "iCardNumType", sql(choices.cardNumbering));
  setParameter(data, "iCardNumAutoType", sql(choices.cardNumbering));
}

void storeDepreciation(Database& data, const InitChoices& choices) {
  setYesNo(data, "bCalcDepr", choices.depreciates);
  if (!choices.depreciates) return;
  setParameter(data, "sDeprMethodNum", sql(choices.methodNumber));
  setYesNo(data, "bLastMonthMakeUpDepr", choices.depreciatesRestInLastMonth);
  setParameter(data, "iDeprSendPeriod", choices.allocationCycle);
}

void storeReconciliation(Database& data, const InitChoices& choices) {
  if (!choices.reconcilesWithLedger) return;
  setYesNo(data, "bAllowUnequality", choices.closesUnreconciled);
  storeSubject(data, choices.assetsSubject, "sFixedAssetsSubjectNum", "sFixedAssetsSubjectName");
  storeSubject(data, choices.depreciationSubject, "sDeprTotalSubjectNum", "sDeprTotalSubjectName");
}

}  // namespace

AccountHeader readAccountHeader(Database& system, std::string_view accountId) {
  const Recordset row = system.OpenRecordset(sql("select * from za_account where cAcc_id='", accountId, "'"));
  return {row.TextOrEmpty("cAcc_Name"),   row.TextOrEmpty("cUnitName"), row.TextOrEmpty("cCurName"),
          row.TextOrEmpty("cAcc_Master"), row.Fields("iYear"),          row.Fields("iMonth")};
}

std::string initTerms(std::string_view accountId, const AccountHeader& account) {
  std::string terms =
      sql("请您在进行初始化之前认真阅读如下条款：\n", kRuler,
          "\n您将要初始化的固定资产账套的基本信息如下：\n账套号：", accountId, "\n账套名称：", account.name,
          "\n使用单位：", account.unit, "\n本位币：", account.currency, "\n", kRuler,
          "\n资产管理的基本原则：\n本系统资产管理采用严格的序时管理，序时到日。"
          "\n各种变动变动后折旧计算和分配汇总原则：\n");
  for (const std::string_view rule : kRules) terms += sql(rule, "\n");
  return terms += kRuler;
}

std::vector<std::string> startMonths(const AccountHeader& account, int operatingMonth) {
  std::vector<std::string> months;
  const int year = CInt(account.year);
  for (int month = std::max<int>(CInt(account.month), operatingMonth); month <= kMonthsPerYear; ++month) {
    months.push_back(sql(year, ".", Format(month, "00")));
  }
  return months;
}

std::vector<std::string> depreciationMethodNames(Database& data) {
  std::vector<std::string> names;
  Recordset methods = data.OpenRecordset(kDepreciationMethods);
  for (; !methods.Eof(); methods.MoveNext()) names.push_back(methods.TextOrEmpty("sName"));
  return names;
}

void storeInitChoices(Database& data, const InitChoices& choices) {
  const std::string month = Right(choices.startMonth, 2);
  const std::string startDate = sql(Left(choices.startMonth, 4), "-", month, "-01");
  const int number = CInt(Value(month));
  storeCodes(data, choices);
  storeDepreciation(data, choices);
  setParameter(data, "dStartDate", startDate);
  setParameter(data, "dLastDeprTime", "0:00:00");
  setParameter(data, "dWritableDate", startDate);
  setYesNo(data, "bAutoZW", choices.reconcilesWithLedger);
  setParameter(data, "iLastPeriod", sql(number));
  setParameter(data, "iLastSendDeprPeriod", sql(number - 1));
  storeReconciliation(data, choices);
  setParameter(data, "iCardSequenceNumLength", choices.cardSequenceLength);
  setParameter(data, "bFirstTime", "0");
}

}  // namespace zelkor
