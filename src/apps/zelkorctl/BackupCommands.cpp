#include "apps/zelkorctl/BackupCommands.h"

#include <ostream>

#include "apps/zelkorctl/CallChecks.h"
#include "apps/zelkorctl/CommandLine.h"
#include "apps/zelkorctl/JobArguments.h"
#include "apps/zelkorctl/JobParameters.h"
#include "base/Clock.h"
#include "base/EndSignals.h"
#include "base/LoginName.h"
#include "base/Text.h"
#include "startup/OnlyJob.h"
#include "transfer/backup/Restore.h"

namespace zelkor {
namespace {

constexpr int kRefusedStatus = 2;

std::string textOfMonth(const BackupNote& note) {
  return note.month.empty() ? "没有未结账的月份" : note.month;
}

void print(const BackupNote& note, std::ostream& output) {
  output << "账套 " << note.account << ' ' << note.name << "，" << textOfMonth(note);
  if (note.value.empty()) {
    output << "，卡片、原值和累计折旧算不出来";
  } else {
    output << "，卡片 " << note.cards << " 张，原值 " << note.value << "，累计折旧 " << note.accumulated;
  }
}

/// Prints what could not be kept as it is; gives whether there is none of it.
bool print(const std::vector<TransferProblem>& problems, std::ostream& output) {
  for (const TransferProblem& problem : problems)
    output << "表 " << problem.table << (problem.column.empty() ? "" : "，列“" + problem.column + "”") << "："
           << problem.reason << '\n';
  return problems.empty();
}

bool print(const MadeBackup& made, std::ostream& output, std::ostream& problems) {
  output << "已备份到 " << made.folder.string() << "：";
  print(made.note, output);
  output << "，共 " << rowsOf(made.note.data) + rowsOf(made.note.system) << " 行\n";
  for (const auto& gone : made.pruned.gone) output << "已删除旧备份 " << gone.string() << '\n';
  if (!made.pruned.problem.empty()) problems << "旧备份没有全部删除：" << made.pruned.problem << std::endl;
  return print(made.problems, output) && made.pruned.problem.empty();
}

// The hour counts that it is, whatever day the set is worked on for.
BackupOrder orderOf(const SetFiles& files, const std::string& to, const std::string& label) {
  return {.data = files.data,
          .system = files.system,
          .account = files.account,
          .to = to,
          .label = label,
          .program = ZELKOR_VERSION,
          .now = SystemClock().now()};
}

int backup(const Asked& asked, std::ostream& output, std::ostream& problems) {
  catchEndSignals();
  BackupOrder order = orderOf(setFilesOf(asked), asked.to, asked.label);
  if (!asked.keep.empty()) order.keep = std::stoul(asked.keep);
  return print(backUp(order), output, problems) ? 0 : 1;
}

void printLine(const ListedBackup& one, std::ostream& output) {
  const BackupNote& note = one.note;
  output << one.folder.filename().string() << '\t';
  if (!note.account.empty())
    output << note.time.toIso() << '\t' << note.account << '\t' << note.name << '\t' << textOfMonth(note)
           << '\t' << note.cards << '\t' << note.value << '\t' << note.data.bytes + note.system.bytes << '\t'
           << note.label << '\t';
  output << (one.problem.empty() ? "正常" : one.problem) << '\n';
}

int backups(const Asked& asked, std::ostream& output, std::ostream&) {
  catchEndSignals();
  bool good = true;
  const std::vector<ListedBackup> listed =
      backupsIn(asked.directory, asked.check ? BackupCheck::Checksums : BackupCheck::Sizes);
  output << "备份\t时间\t账套\t名称\t月份\t卡片\t原值\t字节\t说明\t状态\n";
  for (const ListedBackup& one : listed) {
    printLine(one, output);
    good = good && one.problem.empty();
  }
  return good ? 0 : 1;
}

bool print(const Restored& restored, std::ostream& output, std::ostream& problems) {
  bool good = print(restored.problems, output);
  if (restored.kept) {
    output << "原来的账套";
    good = print(*restored.kept, output, problems) && good;
  }
  if (!restored.keptAsIs.empty())
    output << "原来的文件不能作为账套读出，已原样保留在 " << restored.keptAsIs.string() << '\n';
  output << "已恢复 " << restored.data.parent_path().string() << "：";
  print(restored.note, output);
  output << "，备份于 " << restored.note.time.toIso() << '\n';
  return good;
}

int restore(const Asked& asked, std::ostream& output, std::ostream& problems) {
  catchEndSignals();
  const RestoreOrder order{.backup = asked.file,
                           .target = asked.target,
                           .server = asked.server,
                           .keepIn = asked.to,
                           .keptLabel = "恢复前",
                           .renamed = asked.renamed,
                           .note = {.kind = static_cast<char>(OnlyJob::Restore),
                                    .since = SystemClock().now(),
                                    .user = loginName()},
                           .program = ZELKOR_VERSION};
  try {
    return print(restoreBackup(order), output, problems) ? 0 : 1;
  } catch (const BusyWithJob& busy) {
    problems << "zelkorctl: " << sentenceAboutJob(busy.holder) << std::endl;
    return kRefusedStatus;
  }
}

Call backupCall() {
  return {.name = "backup",
          .text = "备份账套：数据文件和系统文件取同一时刻的状态，别人可以照常工作；写好后读回核对",
          .parameters = {argumentStringParameter(),
                         setParameter(),
                         {.name = "--to",
                          .field = &Asked::to,
                          .text = "存放备份的目录；不给出时为账套所在目录下的 backups",
                          .value = "DIR"},
                         {.name = "--keep",
                          .field = &Asked::keep,
                          .text = "只保留最近的几个备份；每个月份的最后一个总是保留",
                          .value = "NUMBER",
                          .check = keepProblem},
                         {.name = "--label",
                          .field = &Asked::label,
                          .text = "一行说明，不超过 200 字",
                          .value = "TEXT",
                          .check = labelProblem}},
          .example = "zelkorctl backup --set books --to /backup --keep 14",
          .run = backup};
}

Call backupsCall() {
  return {.name = "backups",
          .text = "列出目录中的备份；有损坏的则状态为 1",
          .parameters = {{.name = "DIR", .field = &Asked::directory, .text = "存放备份的目录"},
                         {.name = "--check", .field = &Asked::check, .text = "读出全部内容，核对校验值"}},
          .example = "zelkorctl backups /backup --check",
          .run = backups};
}

Call restoreCall() {
  return {.name = "restore",
          .text = "从备份恢复账套：两个文件一并替换，原来的先备份；账套不能正被打开",
          .parameters = {{.name = "BACKUP", .field = &Asked::file, .text = "备份：backups 所列的目录"},
                         {.name = "TARGET",
                          .field = &Asked::target,
                          .text = "账套所在目录，或其数据文件；没有账套的目录则新建"},
                         {.name = "--to",
                          .field = &Asked::to,
                          .text = "原来的账套备份到这个目录；不给出时为 TARGET 下的 backups",
                          .value = "DIR"},
                         {.name = "--renamed",
                          .field = &Asked::renamed,
                          .text = "账套号相同而名称或使用单位不同时也恢复：账套改过名称"},
                         {.name = "--server",
                          .field = &Asked::server,
                          .text = "新建在 PostgreSQL 服务器上：连接参数，不含口令",
                          .value = "CONNINFO",
                          .check = serverProblem}},
          .example = "zelkorctl restore /backup/001_2020-01_20200131-173000 books",
          .run = restore};
}

}  // namespace

void backUpBefore(const JobRun& job, RunContext& run, const std::string& label, std::ostream& output) {
  if (job.backup.empty()) return;
  const MadeBackup made =
      backUp(orderOf({.data = run.gstrZtFile, .system = run.gstrZkSysFile, .account = run.gstrAccountId},
                     job.backup, label));
  print(made, output, output);
  output.flush();
}

void requireBackupFits(const JobRun& job) {
  if (job.backup.empty()) return;
  const std::vector<std::string> fields = Split(job.arguments, ',');
  const std::string runType = fields.size() > 3 ? Trim(fields[3]) : "";
  if (runType != "20" && runType != "23") throw WrongCall("--backup 用于运行类型 20 和 23");
}

std::vector<Call> backupCalls() {
  return {backupCall(), backupsCall(), restoreCall()};
}

}  // namespace zelkor
