#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <functional>
#include <iostream>
#include <string>

#include "apps/zelkorctl/Commands.h"
#include "apps/zelkorctl/CopyCommand.h"
#include "apps/zelkorctl/ImportCommand.h"
#include "apps/zelkorctl/ReportCommands.h"
#include "apps/zelkorctl/VoucherCommands.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

/// The options of the command line and the call that they ask for.
class CommandLine {
 public:
  CommandLine();
  CLI::App& app() { return app_; }
  int call() const { return call_(); }

 private:
  void addCreate();
  void addRenew();
  void addCopy();
  void addImportJet();
  void addTransferOptions(CLI::App& command);
  void addSql();
  void addTranslate();
  void addImport();
  void addSheets();
  void addRun();
  void addDispose();
  void addVouchers();
  void addReport();
  void addMakeVouchers(CLI::App& vouchers);
  JobRun job() const;
  CLI::App* addJob(CLI::App& parent, const char* name, const char* description);

  CLI::App app_{"Zelkor 账套管理工具 / administrator's tool of the fixed-assets module", "zelkorctl"};
  std::function<int()> call_;
  std::string directory_, file_, statement_, arguments_, answers_, today_;
  std::string engine_ = "sqlite";
  AccountSetOptions accountSet_;
  std::string server_;
  TransferOptions transfer_;
  std::string charset_;
  MakeVouchersOptions makeVouchers_;
  ReportOptions report_;
  std::string voucherNumber_;
  int newType_ = 1;
  bool json_ = false;
  bool yes_ = false;
};

std::string checkedDate(const std::string& text) {
  return parseIsoDate(text) ? std::string() : "“" + text + "”不是 yyyy-mm-dd 形式的日期";
}

// An empty word would mean a file, where a server was asked for.
std::string checkedServer(const std::string& text) {
  return text.empty() ? "没有连接参数" : std::string();
}

std::string checkedAnswers(const std::string& text) {
  for (const std::string& word : Split(text, ',')) {
    if (!answerFromWord(word)) return "“" + word + "”不是 y、n、o 或 c";
  }
  return text.empty() ? "没有回答" : std::string();
}

TerminalDialogs::Options dialogOptions(const std::string& answers, bool yes) {
  TerminalDialogs::Options options;
  options.yesToAll = yes;
  if (answers.empty()) return options;
  options.answers.emplace();
  for (const std::string& word : Split(answers, ',')) options.answers->push_back(*answerFromWord(word));
  return options;
}

std::optional<DateTime> dayOf(const std::string& today) {
  return today.empty() ? std::nullopt : parseIsoDate(today);
}

CommandLine::CommandLine() {
  app_.require_subcommand(1);
  addCreate();
  addRenew();
  addCopy();
  addImportJet();
  addSql();
  addTranslate();
  addImport();
  addSheets();
  addRun();
  addDispose();
  addVouchers();
  addReport();
}

void CommandLine::addCreate() {
  CLI::App* command = app_.add_subcommand("create", "建立新账套 / create an account set");
  command->add_option("DIR", directory_, "目录：写入 ZkData.Mdb 和 ZkSystem.Mdb")->required();
  command->add_option("--account", accountSet_.account, "账套号")->capture_default_str();
  command->add_option("--year", accountSet_.year, "启用年")
      ->capture_default_str()
      ->check(CLI::Range(1900, 9998));
  command->add_option("--month", accountSet_.month, "启用月")
      ->capture_default_str()
      ->check(CLI::Range(1, 12));
  command->add_option("--server", server_, "建在 PostgreSQL 服务器上：连接参数，不含口令")
      ->type_name("CONNINFO")
      ->check(checkedServer);
  command->add_flag("--sample", accountSet_.sample, "加入示例档案并标为已初始化");
  command->callback(
      [this] { call_ = [this] { return createCommand(directory_, server_, accountSet_, std::cout); }; });
}

void CommandLine::addRenew() {
  CLI::App* command = app_.add_subcommand("renew", "更新服务器上的账套 / update an account set on a server");
  command->add_option("FILE", file_, "数据文件")->required();
  command->callback([this] { call_ = [this] { return renewCommand(file_, std::cout); }; });
}

/// Where an account set's file is carried to.
void CommandLine::addTransferOptions(CLI::App& command) {
  command.add_option("TARGET", transfer_.target, "要建立的数据文件")->required();
  CLI::Option* server =
      command.add_option("--server", transfer_.server, "建在 PostgreSQL 服务器上：连接参数，不含口令")
          ->type_name("CONNINFO")
          ->check(checkedServer);
  command.add_option("--schema", transfer_.schema, "服务器上 schema 的名称；不给出时按目标文件的名称")
      ->needs(server);
  command.add_flag("--check", transfer_.check, "完成后逐行核对");
}

void CommandLine::addCopy() {
  CLI::App* command = app_.add_subcommand("copy", "复制数据文件 / copy a data file to either engine");
  command->add_option("SOURCE", file_, "数据文件")->required();
  addTransferOptions(*command);
  command->callback([this] { call_ = [this] { return copyCommand(file_, transfer_, std::cout); }; });
}

void CommandLine::addImportJet() {
  CLI::App* command = app_.add_subcommand("import", "导入 Jet 数据文件 / bring over a Jet file");
  command->add_option("JETFILE", file_, "Jet 3 或 Jet 4 文件（.mdb）")->required();
  addTransferOptions(*command);
  command->add_option("--charset", charset_, "Jet 3 文件中文字的字符集；不指明则按 GBK")->type_name("NAME");
  command->callback(
      [this] { call_ = [this] { return importJetCommand(file_, charset_, transfer_, std::cout); }; });
}

void CommandLine::addSql() {
  CLI::App* command = app_.add_subcommand("sql", "执行一条语句 / run one statement");
  command->add_option("FILE", file_, "数据文件")->required();
  command->add_option("STATEMENT", statement_, "语句")->required();
  command->add_flag("--json", json_, "以 JSON 输出");
  command->callback([this] { call_ = [this] { return sqlCommand(file_, statement_, json_, std::cout); }; });
}

void CommandLine::addTranslate() {
  CLI::App* command = app_.add_subcommand("translate", "显示语句的译文 / print a statement's translation");
  command->add_option("STATEMENT", statement_, "语句")->required();
  command->add_option("--engine", engine_, "引擎")
      ->capture_default_str()
      ->check(CLI::IsMember({"sqlite", "postgresql"}));
  command->callback([this] { call_ = [this] { return translateCommand(statement_, engine_, std::cout); }; });
}

CLI::App* CommandLine::addJob(CLI::App& parent, const char* name, const char* description) {
  CLI::App* command = parent.add_subcommand(name, description);
  command->add_option("ARGSTRING", arguments_, "参数串：数据文件,操作员,操作日期,运行类型,系统文件,账套号")
      ->required();
  command->add_option("--today", today_, "当作今天的日期 yyyy-mm-dd")->check(checkedDate);
  return command;
}

void CommandLine::addImport() {
  CLI::App* cards = app_.add_subcommand("cards", "固定资产卡片 / asset cards");
  cards->require_subcommand(1);
  CLI::App* command = addJob(*cards, "import", "导入卡片 / import a register");
  command->add_option("FILE", file_, "UTF-8 编码的 CSV 文件")->required();
  command->add_option("--new-type", newType_, "1 原始卡片，2 本月新增")
      ->capture_default_str()
      ->check(CLI::Range(1, 2));
  command->callback([this] {
    call_ = [this] { return importCardsCommand(job(), file_, newType_, std::cout, std::cerr); };
  });
}

void CommandLine::addSheets() {
  CLI::App* sheets = app_.add_subcommand("sheets", "变动单 / change sheets");
  sheets->require_subcommand(1);
  CLI::App* command = addJob(*sheets, "import", "成批保存变动单 / save changes in bulk");
  command
      ->add_option("FILE", file_, "UTF-8 编码的 CSV 文件：变动类型,卡片编号,变动后内容,变动后地点,变动原因")
      ->required();
  command->callback([this] { call_ = [this] { return importSheetsCommand(job(), file_, std::cout); }; });
}

void CommandLine::addRun() {
  CLI::App* command = addJob(app_, "run", "在终端中执行批处理运行类型 / run a batch run type");
  command->add_option("--answers", answers_, "依次的回答：y 是，n 否，o 确定，c 取消")->check(checkedAnswers);
  command->add_flag("--yes", yes_, "其余问题一律回答“是”");
  command->callback([this] {
    call_ = [this] {
      return runCommand({arguments_, dayOf(today_), dialogOptions(answers_, yes_)}, std::cout);
    };
  });
}

void CommandLine::addDispose() {
  CLI::App* command = addJob(app_, "dispose", "减少资产 / take assets off the books");
  command->add_option("FILE", file_, "CSV 文件：卡片编号,减少日期,减少方式,清理收入,清理费用,清理原因")
      ->required();
  command->callback(
      [this] { call_ = [this] { return disposeCommand(job(), file_, std::cout, std::cerr); }; });
}

JobRun CommandLine::job() const {
  return {.arguments = arguments_, .today = dayOf(today_)};
}

void CommandLine::addVouchers() {
  CLI::App* vouchers = app_.add_subcommand("vouchers", "凭证 / vouchers");
  vouchers->require_subcommand(1);
  addJob(*vouchers, "pending", "列出待制单的业务 / list the staged events")->callback([this] {
    call_ = [this] { return pendingVouchersCommand(job(), std::cout); };
  });
  addMakeVouchers(*vouchers);
  addJob(*vouchers, "list", "列出本月凭证 / list the month's vouchers")->callback([this] {
    call_ = [this] { return listVouchersCommand(job(), std::cout); };
  });
  CLI::App* removal = addJob(*vouchers, "delete", "删除凭证 / delete a voucher");
  removal->add_option("VOUCHER", voucherNumber_, "凭证号，如 list 所列：记--1")->required();
  removal->callback([this] {
    call_ = [this] { return deleteVoucherCommand(job(), voucherNumber_, std::cout, std::cerr); };
  });
}

void CommandLine::addMakeVouchers(CLI::App& vouchers) {
  CLI::App* command = addJob(vouchers, "make", "逐项生成凭证 / make a voucher of every staged event");
  command->add_flag("--merge", makeVouchers_.merge, "合并科目及辅助项相同的分录");
  command->add_option("--subjects", makeVouchers_.subjectsFile,
                      "无科目的分录所用科目：CSV 文件，列为业务类型、方向（借或贷）、科目");
  command->add_option("--sign", makeVouchers_.sign, "凭证类别字");
  command->callback(
      [this] { call_ = [this] { return makeVouchersCommand(job(), makeVouchers_, std::cout, std::cerr); }; });
}

void CommandLine::addReport() {
  CLI::App* command = addJob(app_, "report", "计算一张报表 / compute a report");
  command->add_option("NAME", report_.report, "报表名称，如 固定资产总账")->required();
  command->add_option("--condition", report_.conditions,
                      "条件=值：period、period-to、department、category、from-level、to-level、"
                      "composition、layout、department-level、category-level");
  command->add_option("--format", report_.format, "形式")
      ->capture_default_str()
      ->check(CLI::IsMember({"text", "csv", "html", "xlsx", "pdf"}));
  command->add_option("--out", report_.file, "写入的文件；xlsx 和 pdf 必需");
  command->callback(
      [this] { call_ = [this] { return reportCommand(job(), report_, std::cout, std::cerr); }; });
}

int parsed(CommandLine& line, int argc, char** argv) {
  try {
    line.app().parse(argc, argv);
    return 0;
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      line.app().exit(error);
      std::exit(0);
    }
    std::cerr << "用法错误 / wrong usage: " << error.what() << "\n用 zelkorctl --help 查看用法\n";
    return kWrongUsage;
  }
}

int failed(const std::string& text) {
  std::cerr << "zelkorctl: " << text << std::endl;
  return kFailed;
}

int called(const CommandLine& line) {
  try {
    const int status = line.call();
    std::cout.flush();
    return status;
  } catch (const EndProgram& end) {
    return end.status;
  } catch (const RuntimeError& error) {
    return failed("错误 " + std::to_string(error.number()) + "：" + error.what());
  } catch (const std::ios_base::failure&) {
    return failed("不能写出结果：输出已关闭");
  } catch (const std::exception& error) {
    return failed(std::string("内部错误：") + error.what());
  }
}

int runProgram(int argc, char** argv) {
  CommandLine line;
  if (const int status = parsed(line, argc, argv)) return status;
  std::cerr.tie(nullptr);  // an error is told even when the output is closed
  std::cout.exceptions(std::ios::badbit);
  const int status = called(line);
  std::cout.exceptions(std::ios::goodbit);  // what is left is written at exit, where nothing may be thrown
  return status;
}

}  // namespace
}  // namespace zelkor

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // a closed output is reported as a failed write
  return zelkor::runProgram(argc, argv);
}
