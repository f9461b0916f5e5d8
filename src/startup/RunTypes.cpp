#include "startup/RunTypes.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr std::string_view kTitle = "固定资产";

MessageBox question(std::string text, Icon icon, std::string_view title = kTitle) {
  return {std::move(text), Buttons::YesNo, icon, std::string(title)};
}

void endIfInitialised(RunContext& context) {
  if (IsAccountInitialised(context)) throw EndProgram{};
}

/// The archive screens work on the system date and for no operator, whatever the argument string says.
void useClockAndNoUser(RunContext& context) {
  context.gOpArgs.setZkDataPath(context.gstrZtFile);
  context.gOpArgs.setZkSystemPath(context.gstrZkSysFile);
  context.gOpArgs.setOpDate(context.clock.now());
  context.gOpArgs.setUser("");
}

void prepareDepartments(RunContext& context) {
  useClockAndNoUser(context);
  context.gOpArgs.setRunType(3);
}

RunTypeRow screen(std::int16_t runType, std::string_view form, PathFrom path = PathFrom::Nowhere) {
  RunTypeRow row;
  row.runType = runType;
  row.job = form;
  row.zkDataPath = path;
  return row;
}

RunTypeRow changeSheet(std::int16_t runType, std::string billType) {
  RunTypeRow row = screen(runType, "frmAssetsAlteration");
  row.properties.BillType = std::move(billType);
  return row;
}

RunTypeRow wizard() {
  RunTypeRow row = screen(0, "FrmInit");
  row.prepare = endIfInitialised;
  row.questions = {question("这是第一次打开此账套,还未进行过初始化,是否进行初始化?", Icon::Information)};
  return row;
}

RunTypeRow departments() {
  RunTypeRow row = screen(2, "FrmDepartment");
  row.prepare = prepareDepartments;
  row.afterwards = "SyncDepartments";
  return row;
}

RunTypeRow departmentSubjects() {
  RunTypeRow row = screen(3, "FrmDepartPzCode");
  row.prepare = useClockAndNoUser;
  return row;
}

RunTypeRow cardEditor(std::int16_t runType, std::int16_t frmType, std::string cardId) {
  RunTypeRow row = screen(runType, "FrmAddCards");
  row.properties.frmType = frmType;
  row.properties.CardID = std::move(cardId);
  return row;
}

RunTypeRow monthlyDepreciation() {
  RunTypeRow row = screen(8, "RunMonthDepr");
  row.questions = {
      question("请您确定在继续操作之前,是否已正确输入了工作量!\n如果没有请退出(否),并进行工作量输入!\n继续?",
               Icon::Information, "")};
  return row;
}

RunTypeRow reinitialisation() {
  RunTypeRow row = screen(23, "ReinitialiseAccount");
  row.questions = {
      question("此操作将删除本账套中所有业务数据，并不能以任何方式恢复账套当前的所有数据，是否继续？",
               Icon::Question),
      question("此项操作对所有业务数据将造成不可恢复删除，请再次确认是否要继续？", Icon::Question)};
  row.closing = MessageBox{"已重新初始化账套！", Buttons::Ok, Icon::Information, std::string(kTitle)};
  return row;
}

std::vector<RunTypeRow> allRunTypes() {
  return {
      wizard(),
      screen(1, "FrmXUANXIANG"),
      departments(),
      departmentSubjects(),
      screen(4, "FrmFLBMB"),
      cardEditor(5, 1, "52"),
      cardEditor(6, 2, ""),
      screen(7, "FrmManageCards", PathFrom::OpArgs),
      monthlyDepreciation(),
      screen(9, "FrmZJFPB"),
      screen(10, "FrmBatBill"),
      screen(11, "FrmFABalance", PathFrom::Globals),
      screen(12, "FrmQueryPZ", PathFrom::Globals),
      screen(13, "frmUseStatus"),
      changeSheet(14, "使用状况调整"),
      changeSheet(15, "累计折旧调整"),
      changeSheet(16, "使用年限调整"),
      changeSheet(17, "净残值调整"),
      changeSheet(18, "部门转移"),
      screen(19, "frmZJQD"),
      screen(20, "frmYMJZ"),
      screen(21, "ShowReconciliation"),
      screen(22, "frmDelZC", PathFrom::Globals),
      reinitialisation(),
      changeSheet(24, "原值增加"),
      screen(25, "FrmBB"),
  };
}

const Job& jobOf(RunContext& context, const RunTypeRow& row, std::string_view name, const RunTypeJobs& jobs) {
  if (const Job* job = jobs.find(name)) return *job;
  context.dialogs.report(
      {"本程序中没有“" + std::string(name) + "”，运行类型" + std::to_string(row.runType) + "不能在此执行！",
       Buttons::Ok, Icon::Exclamation, std::string(kTitle)});
  throw EndProgram{1};
}

ScreenProperties propertiesOf(const RunTypeRow& row, const RunContext& context) {
  ScreenProperties properties = row.properties;
  if (row.zkDataPath == PathFrom::Globals) properties.ZkDataPath = context.gstrZtFile;
  if (row.zkDataPath == PathFrom::OpArgs) properties.ZkDataPath = context.gOpArgs.ZkDataPath();
  return properties;
}

}  // namespace

const RunTypeRow* findRunType(std::int32_t runType) {
  static const std::vector<RunTypeRow> rows = allRunTypes();
  const auto row = std::ranges::find(rows, runType, &RunTypeRow::runType);
  return row == rows.end() ? nullptr : &*row;
}

void startRunType(RunContext& context, const RunTypeRow& row, const RunTypeJobs& jobs) {
  if (row.prepare) row.prepare(context);
  for (const MessageBox& box : row.questions) {
    if (context.dialogs.MsgBox(box) != Answer::Yes) throw EndProgram{};
  }
  jobOf(context, row, row.job, jobs)(context, propertiesOf(row, context));
  if (!row.afterwards.empty()) jobOf(context, row, row.afterwards, jobs)(context, {});
  if (row.closing) context.dialogs.MsgBox(*row.closing);
}

bool IsAccountInitialised(RunContext& context) {
  const Recordset rows = context.dbZKData.OpenRecordset(
      "select * from AccInformation where cSysID ='FA' And cName ='dStartDate'");
  return !rows.Eof() && !rows.TextOrEmpty("cValue").empty();
}

}  // namespace zelkor
