#include "startup/RunTypes.h"

#include <algorithm>
#include <array>

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

/// What a person calls a run type, and where it is found.
struct Named {
  std::string_view caption;
  RunGroup group;
};

RunTypeRow screen(std::int16_t runType, Named named, std::string_view form,
                  PathFrom path = PathFrom::Nowhere) {
  RunTypeRow row;
  row.runType = runType;
  row.caption = named.caption;
  row.group = named.group;
  row.job = form;
  row.zkDataPath = path;
  return row;
}

RunTypeRow changeSheet(std::int16_t runType, std::string_view billType) {
  RunTypeRow row = screen(runType, {billType, RunGroup::Changes}, "frmAssetsAlteration");
  row.properties.BillType = billType;
  return row;
}

RunTypeRow wizard() {
  RunTypeRow row = screen(0, {"初始化向导", RunGroup::Account}, "FrmInit");
  row.prepare = endIfInitialised;
  row.questions = {question("这是第一次打开此账套,还未进行过初始化,是否进行初始化?", Icon::Information)};
  return row;
}

RunTypeRow departments() {
  RunTypeRow row = screen(2, {"部门档案", RunGroup::Archives}, "FrmDepartment");
  row.prepare = prepareDepartments;
  row.afterwards = "SyncDepartments";
  return row;
}

RunTypeRow departmentSubjects() {
  RunTypeRow row = screen(3, {"部门对应折旧科目", RunGroup::Archives}, "FrmDepartPzCode");
  row.prepare = useClockAndNoUser;
  return row;
}

RunTypeRow cardEditor(std::int16_t runType, std::string_view caption, std::int16_t frmType,
                      std::string cardId) {
  RunTypeRow row = screen(runType, {caption, RunGroup::Cards}, "FrmAddCards");
  row.properties.frmType = frmType;
  row.properties.CardID = std::move(cardId);
  return row;
}

RunTypeRow monthlyDepreciation() {
  RunTypeRow row = screen(8, {"计提本月折旧", RunGroup::Processing}, "RunMonthDepr");
  row.questions = {
      question("请您确定在继续操作之前,是否已正确输入了工作量!\n如果没有请退出(否),并进行工作量输入!\n继续?",
               Icon::Information, "")};
  return row;
}

RunTypeRow reinitialisation() {
  RunTypeRow row = screen(23, {"重新初始化账套", RunGroup::Account}, "ReinitialiseAccount");
  row.questions = {
      question("此操作将删除本账套中所有业务数据，并不能以任何方式恢复账套当前的所有数据，是否继续？",
               Icon::Question),
      question("此项操作对所有业务数据将造成不可恢复删除，请再次确认是否要继续？", Icon::Question)};
  row.closing = MessageBox{"已重新初始化账套！", Buttons::Ok, Icon::Information, std::string(kTitle)};
  return row;
}

std::vector<RunTypeRow> allRunTypes() {
  using enum RunGroup;
  return {
      wizard(),
      screen(1, {"选项", Account}, "FrmXUANXIANG"),
      reinitialisation(),

      departments(),
      departmentSubjects(),
      screen(4, {"资产类别", Archives}, "FrmFLBMB"),
      screen(13, {"使用状况", Archives}, "frmUseStatus"),

      cardEditor(5, "录入原始卡片", 1, "52"),
      cardEditor(6, "录入新增资产卡片", 2, ""),
      screen(7, {"卡片管理", Cards}, "FrmManageCards", PathFrom::OpArgs),
      screen(22, {"资产减少", Cards}, "frmDelZC", PathFrom::Globals),

      changeSheet(24, "原值增加"),
      changeSheet(14, "使用状况调整"),
      changeSheet(15, "累计折旧调整"),
      changeSheet(16, "使用年限调整"),
      changeSheet(17, "净残值调整"),
      changeSheet(18, "部门转移"),
      screen(11, {"折旧方法调整", Changes}, "FrmFABalance", PathFrom::Globals),

      monthlyDepreciation(),
      screen(9, {"折旧分配表", Processing}, "FrmZJFPB"),
      screen(19, {"折旧清单", Processing}, "frmZJQD"),
      screen(10, {"批量制单", Processing}, "FrmBatBill"),
      screen(12, {"凭证查询", Processing}, "FrmQueryPZ", PathFrom::Globals),
      screen(21, {"与账务对账", Processing}, "ShowReconciliation"),
      screen(20, {"月末结账", Processing}, "frmYMJZ"),

      screen(25, {"账簿与报表", Reports}, "FrmBB"),
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

std::span<const RunGroup> runGroups() {
  using enum RunGroup;
  static constexpr std::array kAll = {Account, Archives, Cards, Changes, Processing, Reports};
  return kAll;
}

std::string_view captionOf(RunGroup group) {
  static constexpr std::array<std::string_view, 6> kCaptions = {"账套", "档案", "卡片",
                                                                "变动", "处理", "报表"};
  return kCaptions.at(static_cast<std::size_t>(group));
}

std::span<const RunTypeRow> runTypes() {
  static const std::vector<RunTypeRow> rows = allRunTypes();
  return rows;
}

const RunTypeRow* findRunType(std::int32_t runType) {
  const auto row = std::ranges::find(runTypes(), runType, &RunTypeRow::runType);
  return row == runTypes().end() ? nullptr : &*row;
}

std::span<const ExtraScreenRow> extraScreens() {
  static constexpr std::array<ExtraScreenRow, 3> kScreens{
      {{"workload", "工作量", RunGroup::Processing, "frmGZL", 8},
       {"voucher-types", "凭证类别", RunGroup::Archives, "FrmEditPZType", 10},
       {"last-report", "最近的报表", RunGroup::Reports, "FrmBBXS", 25}}};
  return kScreens;
}

const ExtraScreenRow* findExtraScreen(std::string_view name) {
  const auto row = std::ranges::find(extraScreens(), name, &ExtraScreenRow::name);
  return row == extraScreens().end() ? nullptr : &*row;
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

bool IsAccountInitialised(Database& data) {
  const Recordset rows =
      data.OpenRecordset("select * from AccInformation where cSysID ='FA' And cName ='dStartDate'");
  return !rows.Eof() && !rows.TextOrEmpty("cValue").empty();
}

}  // namespace zelkor
