#include <QApplication>
#include <QFileDialog>
#include <utility>

#include "base/Format.h"
#include "home/FrmDeprPage.h"
#include "home/FrmFindings.h"
#include "home/FrmHome.h"
#include "home/FrmImport.h"
#include "home/OwnCommands.h"
#include "store/engine/Statement.h"
#include "ui/Layout.h"

// What the workbench does beside starting the module: checks, backups, what is still to come.
namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产工作台";
constexpr std::int16_t kMonthlyRun = 8;
constexpr std::int16_t kClosing = 20;
constexpr std::int16_t kReconciliation = 21;
constexpr int kFoundSomething = 1;

/// What the tool has told in its first line.
std::string firstLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

}  // namespace

void FrmHome::startOwn(std::string_view name) {
  if (name == own::kImportCards) importFile(ImportKind::Cards);
  if (name == own::kImportSheets) importFile(ImportKind::Sheets);
  if (name == own::kCheck) check();
  if (name == own::kBackup) backUp("", "");
  if (name == own::kBackupTo) backUpElsewhere();
  if (name == own::kReopen) reopen();
  if (name == own::kPreview) showPreview();
  if (name == own::kPlan) showPlan();
}

void FrmHome::importFile(ImportKind kind) {
  FrmImport form(host(), kind, opened_, programs_.tool);
  host().showModal(form);
  if (form.imported()) read();
}

void FrmHome::startTool(std::string_view command, const std::vector<std::string>& words, Ended afterwards) {
  startChild(programs_.tool, std::string(findOwnCommand(command)->caption), words, std::move(afterwards));
}

void FrmHome::check() {
  startTool(
      own::kCheck, {"check", argumentString(kReconciliation, opened_), "--json"},
      [this, of = opened_, work = reading_->month.work](const ChildEnd& end) { checked(of, work, end); });
}

void FrmHome::checked(const OpenedSet& of, const std::string& work, const ChildEnd& end) {
  auto findings = findingsOf(end.output);
  const std::string caption(findOwnCommand(own::kCheck)->caption);
  if (!findings || end.status > kFoundSomething) return ended(caption, end);
  focusedNext_ = false;
  const KeptCheck kept{run().clock.now(), findings->countOf("错误"), findings->countOf("警告"),
                       findings->countOf("说明"), work};
  checks_.keep(of.set.dataFile, of.set.account, of.date, kept);
  lastEnd_ =
      sql("检查完成：错误 ", kept.errors, " 项，警告 ", kept.warnings, " 项，说明 ", kept.notes, " 项");
  showStatus();
  lockCommands();
  read();
  if (!findings->all.empty() || !findings->notes.empty()) showFindings(std::move(*findings));
}

void FrmHome::showFindings(Findings findings) {
  FrmFindings form(host(), std::move(findings));
  host().showModal(form);
  if (form.asked()) start({.runType = *form.asked()});
}

void FrmHome::backUp(const std::string& folder, const std::string& label, std::function<void()> then) {
  std::vector<std::string> words{"backup", argumentString(kMonthlyRun, opened_)};
  if (!folder.empty()) words.insert(words.end(), {"--to", folder});
  if (!label.empty()) words.insert(words.end(), {"--label", label});
  startTool(own::kBackup, words, [this, then = std::move(then)](const ChildEnd& end) {
    ended(std::string(findOwnCommand(own::kBackup)->caption), end);
    if (end.failed()) return;
    lastEnd_ = firstLine(end.output);
    showStatus();
    if (then) then();
  });
}

void FrmHome::backUpElsewhere() {
  const QString folder = QFileDialog::getExistingDirectory(this, "备份到哪个文件夹");
  if (!folder.isEmpty()) backUp(fromQt(folder), "");
}

/// Whether to go on at once: not after a refusal, and not while the backup is made, behind which it goes on.
bool FrmHome::offerBackup(const StepCommand& command) {
  const std::string caption(captionOf(command));
  std::string text = "“" + caption + "”做了以后不能撤消，只能恢复以前的备份。\n\n先备份账套？\n\n";
  const bool backedUp = reading_ && reading_->facts.backup;
  if (!backedUp) {
    text += "本月还没有备份。";
  } else {
    const std::string since = textOf(reading_->facts.sinceBackup);
    text += "上次备份：" + Format(*reading_->facts.backup, "yyyy-mm-dd hh:nn") + "，" +
            (since.empty() ? "以后没有新的记录。" : "以后又有：" + since + "。");
  }
  const bool isCurrent = backedUp && reading_->facts.sinceBackup.empty();
  const Answer answer =
      run().dialogs.MsgBox({.text = text,
                            .buttons = Buttons::YesNoCancel,
                            .icon = Icon::Question,
                            .title = kTitle,
                            .defaultButton = isCurrent ? DefaultButton::Second : DefaultButton::First});
  if (answer == Answer::Yes)
    backUp("", command.isRun(kClosing) ? "结账前" : "重新初始化前",
           [this, command] { startModule(command); });
  return answer == Answer::No;
}

void FrmHome::reopen() {
  worker_.start([this, place = opened_.place()]() -> frmWorker::Result {
    try {
      return [this, place, found = readReopening(place)] {
        takeFrom(place, [&] { askReopening(place, found); });
      };
    } catch (const std::exception& error) {
      return [this, place, reason = std::string(error.what())] {
        takeFrom(place, [&] { readingFailed(reason); });
      };
    }
  });
}

/// An answer that comes while another set is being chosen is dropped.
void FrmHome::askReopening(const BooksPlace& of, const std::optional<Reopening>& reopening) {
  if (!canStart() || QApplication::activeModalWidget() != nullptr) return;
  if (!reopening) {
    run().dialogs.MsgBox("没有结账前的备份，不能恢复：备份要在结账以前做，放在账套文件夹下的 backups 里。",
                         Buttons::Ok, Icon::Information, kTitle);
    return;
  }
  const Answer answer = run().dialogs.MsgBox({.text = reopening->question,
                                              .buttons = Buttons::YesNo,
                                              .icon = Icon::Exclamation,
                                              .title = kTitle,
                                              .defaultButton = DefaultButton::Second});
  if (answer != Answer::Yes || !canStart()) return;
  // What is being read has to be closed first.
  restoring_ = true;
  lockCommands();
  worker_.start([this, of, reopening = *reopening]() -> frmWorker::Result {
    return [this, of, reopening] { host().dispatch([&] { restore(of, reopening); }); };
  });
}

void FrmHome::restore(const BooksPlace& of, const Reopening& reopening) {
  const auto after = [this, reopening](const ChildEnd& end) {
    restoring_ = false;
    if (end.failed()) return ended(std::string(findOwnCommand(own::kReopen)->caption), end);
    OpenedSet other = opened_;
    other.date = reopening.day;
    logIn(std::move(other));
    lastEnd_ = sql("已恢复到", monthText(reopening.day.year(), reopening.day.month()), "结账以前。");
    showStatus();
    lockCommands();
  };
  std::vector<std::string> words{"restore", reopening.backup.string(), of.dataFile};
  if (reopening.renamed) words.emplace_back("--renamed");
  startTool(own::kReopen, words, after);
  if (module_.isRunning()) return;
  restoring_ = false;  // the tool could not be started
  lockCommands();
}

void FrmHome::showPreview() {
  FrmDeprPage page(host(), {.form = "FrmPreview",
                            .title = "预览计提",
                            .months = {},
                            .read = [place = opened_.place()](int) { return previewPage(place); },
                            .tool = programs_.tool,
                            .words =
                                [arguments = argumentString(kMonthlyRun, opened_)](int) {
                                  return std::vector<std::string>{"run", arguments, "--preview"};
                                }});
  host().showModal(page);
}

void FrmHome::showPlan() {
  FrmDeprPage page(
      host(), {.form = "FrmPlan",
               .title = "未来折旧",
               .months = {12, 24, 36, 60},
               .read = [place = opened_.place()](
                           int months) { return planPage(place, static_cast<std::size_t>(months)); },
               .tool = programs_.tool,
               .words =
                   [arguments = argumentString(kMonthlyRun, opened_)](int months) {
                     return std::vector<std::string>{"plan", arguments, "--months", std::to_string(months)};
                   }});
  host().showModal(page);
}

}  // namespace zelkor
