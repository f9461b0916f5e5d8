#include "closing/MonthEndOptions.h"

#include <array>
#include <string_view>

#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

struct Option {
  std::string_view cName;  // as the statement writes it: case and blanks at the end do not count
  std::string_view cValue;
};

/// What every closing sets whatever is there, in this order.
constexpr std::array kStandardValues = {
    Option{"sDeprMethodNum", "2"},
    Option{"bAutoZW", "True"},
    Option{"bAllowUnequality", "True"},
    Option{"bWriteZWBeforeEND", "True"},
    Option{"iYearsToDel", "5"},
    Option{"sTypeNumType", "2112"},
    Option{"iMaxTypeLevelExist", "0"},
    Option{"iMaxTypeLevelExistCount", "0"},
    Option{"iCardSequenceNumLength", "5"},
    Option{"bShowStandardToolbar ", "False"},
    Option{"bShowEditToolbar ", "False"},
    Option{"bShowFormatToolbar ", "False"},
    Option{"bShowToolbarCaption", "True"},
    Option{"bShowStatusbar", "True"},
    Option{"bShowQuickInfo", "False"},
    Option{"bShowDesktop", "True"},
    Option{"iNetRetryTime", "3"},
    Option{"bShowToolbarStandardWin", "False"},
    Option{"bShowToolbarEditWin", "False"},
    Option{"bShowToolbarFormatWin", "False"},
    Option{"bAddSuccession", "True"},
    Option{"bAutoDspTermTable", "False"},
    Option{"bCardFormatCurrency", "False"},
    Option{"sDefaultAssetSubjectNum", ""},
    Option{"sDefaultAssetSubjectName", ""},
    Option{"sDefaultDeprTotalSubjectNum", ""},
    Option{"sDefaultDeprTotalSubjectName", ""},
    Option{"bSendToZWAfterChange", "False"},
    Option{"iReportBackIndex", "1"},
    Option{"lPaperSize", "9"},
    Option{"iPaperDirection", "1"},
    Option{"lPaperTop", "1000"},
    Option{"lPaperBottom", "1000"},
    Option{"lPaperLeft", "500"},
    Option{"lPaperRight", "500"},
    Option{"lTablesSpace", "100"},
    Option{"lPaperWidth", "11904"},
    Option{"lPaperHeight", "16832"},
};

void editOption(Database& data, std::string_view name, const std::string& value) {
  Recordset row =
      data.OpenRecordset(sql("select * from accInformation  where cSysID = 'FA' and cName ='", name, "'"));
  if (row.Eof()) return;
  row.Edit();
  row.Collect("cValue", value);
  row.Update();
}

void updateOption(StatementGroup& group, std::string_view name, std::string_view value) {
  group.execute(
      sql("Update AccInformation set cValue = '", value, "' where cSysID = 'FA' and cName ='", name, "'"));
}

}  // namespace

void resetOptionsAtMonthEnd(RunContext& run) {
  Database& data = run.dbZKData;
  const int next = run.period() + 1;
  editOption(data, "dWritableDate", sql(run.gdOpDate.year(), "-", next, "-", "1"));
  editOption(data, "bNeedDepr", "True");
  editOption(data, "iAgentAct", "1");
  StatementGroup group(data);
  updateOption(group, "iCardNumType", "1");
  updateOption(group, "iLastPeriod", sql(next));
  for (const Option& option : kStandardValues) updateOption(group, option.cName, option.cValue);
  group.run();
}

}  // namespace zelkor
