#include "apps/zelkorctl/CallTable.h"

#include <algorithm>
#include <iterator>

#include "apps/zelkorctl/BackupCommands.h"
#include "apps/zelkorctl/CallChecks.h"
#include "apps/zelkorctl/CheckCommand.h"
#include "apps/zelkorctl/Commands.h"
#include "apps/zelkorctl/CopyCommand.h"
#include "apps/zelkorctl/EachCommand.h"
#include "apps/zelkorctl/ImportCalls.h"
#include "apps/zelkorctl/ImportCommand.h"
#include "apps/zelkorctl/JobArguments.h"
#include "apps/zelkorctl/JobParameters.h"
#include "apps/zelkorctl/ReportCommands.h"
#include "apps/zelkorctl/RunCalls.h"
#include "apps/zelkorctl/StatusCommand.h"
#include "apps/zelkorctl/VoucherCommands.h"

namespace zelkor {
namespace {

TransferOptions transferOf(const Asked& asked) {
  return {.source = asked.file,
          .target = asked.target,
          .server = asked.server,
          .schema = asked.schema,
          .check = asked.check};
}

int create(const Asked& asked, std::ostream& output, std::ostream&) {
  return createCommand(asked.directory, asked.server,
                       {.account = asked.account,
                        .year = asked.year,
                        .month = asked.month,
                        .sample = asked.sample,
                        .name = asked.name,
                        .unit = asked.unit,
                        .manager = asked.manager},
                       output);
}

int renew(const Asked& asked, std::ostream& output, std::ostream&) {
  return renewCommand(asked.file, output);
}

int copy(const Asked& asked, std::ostream& output, std::ostream&) {
  return copyCommand(asked.file, transferOf(asked), output);
}

int importJet(const Asked& asked, std::ostream& output, std::ostream&) {
  return importJetCommand(asked.file, asked.charset, transferOf(asked), output);
}

int pendingVouchers(const Asked& asked, std::ostream& output, std::ostream&) {
  return pendingVouchersCommand(jobOf(asked, 10), output);
}

int makeVouchers(const Asked& asked, std::ostream& output, std::ostream& problems) {
  return makeVouchersCommand(jobOf(asked, 10), {asked.merge, asked.subjects, asked.sign}, output, problems);
}

int listVouchers(const Asked& asked, std::ostream& output, std::ostream&) {
  return listVouchersCommand(jobOf(asked, 12), output);
}

int deleteVoucher(const Asked& asked, std::ostream& output, std::ostream& problems) {
  return deleteVoucherCommand(jobOf(asked, 12), asked.voucher, output, problems);
}

int report(const Asked& asked, std::ostream& output, std::ostream& problems) {
  return reportCommand(jobOf(asked, 25),
                       {.report = asked.report,
                        .conditions = asked.conditions,
                        .format = asked.format,
                        .file = asked.out,
                        .page = asked.page,
                        .money = asked.money,
                        .byteOrderMark = asked.bom,
                        .all = asked.all,
                        .force = asked.force},
                       output, problems);
}

int status(const Asked& asked, std::ostream& output, std::ostream& problems) {
  return statusCommand(jobOf(asked, 25), asked.json, output, problems);
}

int sql(const Asked& asked, std::ostream& output, std::ostream&) {
  return sqlCommand(asked.file, asked.statement, asked.json, output);
}

int translate(const Asked& asked, std::ostream& output, std::ostream&) {
  return translateCommand(asked.statement, asked.engine, output);
}

/// What the calls take that write a new data file.
Parameters transfer(Parameters own) {
  const Parameters common{{.name = "TARGET", .field = &Asked::target, .text = "要建立的数据文件"},
                          {.name = "--server",
                           .field = &Asked::server,
                           .text = "建在 PostgreSQL 服务器上：连接参数，不含口令",
                           .value = "CONNINFO",
                           .check = serverProblem},
                          {.name = "--schema",
                           .field = &Asked::schema,
                           .text = "服务器上 schema 的名称；不给出时按目标文件的名称",
                           .value = "NAME",
                           .needs = "--server"},
                          {.name = "--check", .field = &Asked::check, .text = "完成后逐行核对"}};
  own.insert(own.begin() + 1, common.begin(), common.end());
  return own;
}

Call createCall() {
  return {
      .name = "create",
      .text = "建立新账套：写入数据文件和系统文件",
      .parameters =
          {{.name = "DIR", .field = &Asked::directory, .text = "目录：写入 ZkData.Mdb 和 ZkSystem.Mdb"},
           {.name = "--account", .field = &Asked::account, .text = "账套号", .value = "NUMBER"},
           {.name = "--name", .field = &Asked::name, .text = "账套名称", .value = "TEXT"},
           {.name = "--unit", .field = &Asked::unit, .text = "使用单位", .value = "TEXT"},
           {.name = "--manager", .field = &Asked::manager, .text = "账套主管", .value = "TEXT"},
           {.name = "--year", .field = &Asked::year, .text = "启用年", .value = "YEAR", .check = yearProblem},
           {.name = "--month",
            .field = &Asked::month,
            .text = "启用月",
            .value = "MONTH",
            .check = monthProblem},
           {.name = "--server",
            .field = &Asked::server,
            .text = "建在 PostgreSQL 服务器上：连接参数，不含口令",
            .value = "CONNINFO",
            .check = serverProblem},
           {.name = "--sample", .field = &Asked::sample, .text = "加入示例档案并标为已初始化"}},
      .example = "zelkorctl create books --sample --year 2020 --month 1",
      .run = create};
}

Call renewCall() {
  return {.name = "renew",
          .text = "把旧账套的一个数据文件（或它所指的服务器部分）更新到本程序的版本",
          .parameters = {{.name = "FILE", .field = &Asked::file, .text = "数据文件"}},
          .example = "zelkorctl renew books/ZkData.Mdb",
          .run = renew};
}

Call copyCall() {
  return {.name = "copy",
          .text = "复制数据文件，本机文件与服务器之间均可",
          .parameters = transfer({{.name = "SOURCE", .field = &Asked::file, .text = "数据文件"}}),
          .example = "zelkorctl copy books/ZkData.Mdb copy/ZkData.Mdb --check",
          .run = copy};
}

Call importJetCall() {
  return {.name = "import",
          .text = "导入 Jet 数据文件",
          .parameters =
              transfer({{.name = "JETFILE", .field = &Asked::file, .text = "Jet 3 或 Jet 4 文件（.mdb）"},
                        {.name = "--charset",
                         .field = &Asked::charset,
                         .text = "Jet 3 文件中文字的字符集；不指明则按 GBK",
                         .value = "NAME"}}),
          .example = "zelkorctl import old.mdb books/ZkData.Mdb --check",
          .run = importJet};
}

Call sqlCall() {
  return {.name = "sql",
          .text = "对数据文件执行一条语句",
          .parameters = {{.name = "FILE", .field = &Asked::file, .text = "数据文件"},
                         {.name = "STATEMENT", .field = &Asked::statement, .text = "语句"},
                         {.name = "--json", .field = &Asked::json, .text = "以 JSON 输出"}},
          .example = "zelkorctl sql books/ZkData.Mdb \"select sCardNum, dblValue from fa_Cards\"",
          .run = sql};
}

Call translateCall() {
  return {.name = "translate",
          .text = "显示语句的译文",
          .parameters = {{.name = "STATEMENT", .field = &Asked::statement, .text = "语句"},
                         {.name = "--engine",
                          .field = &Asked::engine,
                          .text = "引擎",
                          .value = "ENGINE",
                          .words = {"sqlite", "postgresql"}}},
          .example = "zelkorctl translate \"select * from fa_Cards where sAssetName like '车*'\"",
          .run = translate};
}

std::vector<Call> setCalls() {
  return {createCall(), renewCall(), copyCall(), importJetCall(), sqlCall(), translateCall()};
}

Call statusCall() {
  return {.name = "status",
          .text = "显示本月各步骤做到哪里、下一步是什么，以及原值、累计折旧、净值、本月折旧",
          .parameters = jobParameters({{.name = "--json", .field = &Asked::json, .text = "以 JSON 输出"}}),
          .example = "zelkorctl status --set books",
          .run = status};
}

std::vector<Call> voucherCalls() {
  return {{.name = "vouchers pending",
           .text = "列出本月待制单的业务",
           .parameters = jobParameters({}),
           .example = "zelkorctl vouchers pending --set books",
           .run = pendingVouchers},
          {.name = "vouchers make",
           .text = "逐项生成凭证",
           .parameters = jobParameters(
               {{.name = "--merge", .field = &Asked::merge, .text = "合并科目及辅助项相同的分录"},
                {.name = "--subjects",
                 .field = &Asked::subjects,
                 .text = "无科目的分录所用科目：CSV 文件，列为业务类型、方向（借或贷）、科目",
                 .value = "FILE"},
                {.name = "--sign", .field = &Asked::sign, .text = "凭证类别字", .value = "SIGN"}}),
           .example = "zelkorctl vouchers make --set books --subjects subjects.csv",
           .run = makeVouchers},
          {.name = "vouchers list",
           .text = "列出本月凭证",
           .parameters = jobParameters({}),
           .example = "zelkorctl vouchers list --set books",
           .run = listVouchers},
          {.name = "vouchers delete",
           .text = "删除凭证",
           .parameters = jobParameters(
               {{.name = "VOUCHER", .field = &Asked::voucher, .text = "凭证号，如 list 所列：记--1"}}),
           .example = "zelkorctl vouchers delete 记--1 --set books",
           .run = deleteVoucher}};
}

Call checkCall() {
  return {.name = "check",
          .text = "检查账套：文件、卡片、月份、凭证，并与账务核对；只读不写",
          .parameters = jobParameters({{.name = "--json", .field = &Asked::json, .text = "以 JSON 输出"},
                                       {.name = "--csv", .field = &Asked::csv, .text = "以 CSV 输出"}}),
          .example = "zelkorctl check --set books",
          .run = checkCommand};
}

Call reportCall() {
  return {
      .name = "report",
      .text = "计算一张报表，或本月的全部报表",
      .parameters = jobParameters(
          {{.name = "NAME",
            .field = &Asked::report,
            .text = "报表名称，如 固定资产总账；用 --all 时省去",
            .optional = true},
           {.name = "--all",
            .field = &Asked::all,
            .text = "全部报表，期间为操作日期所在的月：xlsx 每张一个工作表，pdf 带目录；--out "
                    "是目录时每张一个文件"},
           {.name = "--condition",
            .field = &Asked::conditions,
            .text = "条件=值，可给出多个：period、period-to、department、category、from-level、to-level、"
                    "composition、layout、department-level、category-level",
            .value = "KEY=VALUE"},
           {.name = "--format",
            .field = &Asked::format,
            .text = "形式",
            .value = "FORMAT",
            .words = {"text", "csv", "html", "xlsx", "pdf"}},
           {.name = "--page",
            .field = &Asked::page,
            .text = "pdf 的纸张和方向",
            .value = "PAGE",
            .words = {"a4-landscape", "a4-portrait", "a3-landscape", "a3-portrait"}},
           {.name = "--money",
            .field = &Asked::money,
            .text = "pdf、html、xlsx 中金额带千位分隔符和两位小数；不给出时照报表原样"},
           {.name = "--bom", .field = &Asked::bom, .text = "csv 以 UTF-8 的字节序标记开头，供电子表格识别"},
           {.name = "--out", .field = &Asked::out, .text = "写入的文件；xlsx 和 pdf 必需", .value = "FILE"},
           {.name = "--force", .field = &Asked::force, .text = "替换已有的文件", .needs = "--out"}}),
      .example = "zelkorctl report 固定资产总账 --set books --format pdf --out ledger.pdf",
      .run = report};
}

std::vector<Call> allCalls() {
  std::vector<Call> all = setCalls();
  const auto add = [&all](std::vector<Call> calls) { std::ranges::move(calls, std::back_inserter(all)); };
  add(backupCalls());
  all.push_back(eachCall());
  add(importCalls());
  add(runCalls());
  all.push_back(statusCall());
  add(voucherCalls());
  all.push_back(checkCall());
  all.push_back(reportCall());
  return all;
}

}  // namespace

std::span<const Call> calls() {
  static const std::vector<Call> all = allCalls();
  return all;
}

std::span<const CallGroup> callGroups() {
  static constexpr CallGroup kGroups[] = {
      {"cards", "固定资产卡片"}, {"sheets", "变动单"}, {"workload", "工作量"}, {"vouchers", "凭证"}};
  return kGroups;
}

std::string defaultOf(const Parameter& parameter) {
  const Asked asked;
  if (const auto* text = std::get_if<std::string Asked::*>(&parameter.field)) return asked.**text;
  if (const auto* number = std::get_if<int Asked::*>(&parameter.field); number && parameter.isOption()) {
    return std::to_string(asked.**number);
  }
  return {};
}

}  // namespace zelkor
