#include "home/FrmRestore.h"

#include <filesystem>
#include <QFileDialog>
#include <utility>

#include "base/Format.h"
#include "home/FrmEndDetail.h"
#include "transfer/backup/Backup.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr const char* kTitle = "固定资产工作台";
constexpr const char* kCaption = "从备份恢复";
constexpr QSize kSize(900, 480);

namespace column_of {
enum : std::size_t { Cards = 4, Value = 5, Folder = 8 };
}

TextGrid gridOf(const std::vector<ListedBackup>& backups) {
  TextGrid grid;
  grid.setHeader("时间|账套号|账套名称|月份|卡片|原值|说明|状态|备份");
  for (const std::size_t figure : {column_of::Cards, column_of::Value})
    grid.setAlignment(figure, Align::Right);
  for (const ListedBackup& one : backups) {
    const BackupNote& note = one.note;
    const bool isKnown = !note.account.empty();
    grid.addRow({isKnown ? Format(note.time, "yyyy-mm-dd hh:nn") : "", note.account, note.name, note.month,
                 isKnown ? std::to_string(note.cards) : "", note.value, note.label,
                 one.problem.empty() ? "正常" : one.problem, one.folder.filename().string()});
  }
  return grid;
}

}  // namespace

FrmRestore::FrmRestore(FormHost& host, const std::string& setFolder, const std::string& tool)
    : ToolForm(host, "FrmRestore", kCaption, tool, "正在恢复，请等它结束。") {
  arrangeControls();
  on(CmdFrom, &QPushButton::clicked, [this] {
    pick(TxtFrom, "存放备份的文件夹");
    list();
  });
  on(CmdTarget, &QPushButton::clicked, [this] { pick(TxtTarget, "恢复到哪个文件夹"); });
  onLeaving(TxtFrom, [this] {
    if (trimmedTextOf(*TxtFrom) != listed_) list();
  });
  on(TxtTarget, &QLineEdit::textChanged, &FrmRestore::lockControls);
  on(GridBackups, &FlexGrid::rowSelected, &FrmRestore::showProblem);
  on(GridBackups, &FlexGrid::rowOpened, [this] {
    if (CmdRestore->isEnabled()) CmdRestore_Click();
  });
  on(CmdRestore, &QPushButton::clicked, &FrmRestore::CmdRestore_Click);
  on(CmdDetail, &QPushButton::clicked, [this] {
    FrmEndDetail form(this->host(), told_);
    this->host().showModal(form);
  });
  on(CmdClose, &QPushButton::clicked, [this] { close(); });
  if (!setFolder.empty()) {
    TxtFrom->setText(toQt(setFolder + "/backups"));
    TxtTarget->setText(toQt(setFolder));
  }
  takeList({});
  GridBackups->fillWith(column_of::Folder);
  list();
}

void FrmRestore::arrangeControls() {
  dressPick(CmdFrom, TxtFrom);
  dressPick(CmdTarget, TxtTarget);
  TxtTarget->setPlaceholderText("账套所在的文件夹，或一个新的文件夹");
  GridBackups->makeSortable();
  CmdDetail->hide();
  arrange(this, column({fields({{"备份的文件夹(&F)：", row({wide(TxtFrom), CmdFrom})}}), wide(GridBackups),
                        fields({{"恢复到文件夹(&T)：", row({wide(TxtTarget), CmdTarget})}}),
                        note("那里原来的账套先备份，再整个替换；账套不能正被打开。"), LblState,
                        row({stretch(), CmdDetail, CmdRestore, CmdClose})}));
  setDefaultButton(CmdRestore);
  resize(kSize);
}

bool FrmRestore::enterPressed(QObject* control) {
  if (control == TxtFrom) list();
  return false;  // and on to the next field
}

void FrmRestore::pick(QLineEdit* field, const char* title) {
  const QString folder = QFileDialog::getExistingDirectory(this, title, field->text());
  if (!folder.isEmpty()) field->setText(folder);
}

// A folder on a server may take its time.
void FrmRestore::list() {
  const std::string folder = trimmedTextOf(*TxtFrom);
  listed_ = folder;
  takeList({});
  if (folder.empty()) return;
  say("正在读…");
  worker_.start([this, folder]() -> frmWorker::Result {
    try {
      return [this, folder, found = backupsIn(folder, BackupCheck::Sizes)] {
        host().dispatch([&] {
          if (folder == listed_) takeList(found);
        });
      };
    } catch (const std::exception& error) {
      std::error_code ignored;
      const bool missing = !std::filesystem::exists(folder, ignored);
      return [this, folder,
              reason = missing ? "没有这个文件夹：还没有做过备份，或备份在别处，请另指文件夹。"
                               : std::string(error.what())] {
        host().dispatch([&] {
          if (folder == listed_) say(reason, true);
        });
      };
    }
  });
}

void FrmRestore::takeList(std::vector<ListedBackup> found) {
  backups_ = std::move(found);
  GridBackups->setGrid(gridOf(backups_));
  GridBackups->fitColumns();
  if (!backups_.empty()) GridBackups->selectGridRow(backups_.size());  // the latest
  showProblem();
}

void FrmRestore::showProblem() {
  const ListedBackup* backup = chosen();
  if (backup != nullptr && !backup->problem.empty()) {
    say("这个备份不能恢复：" + backup->problem + "。请选别的备份。", true);
  } else {
    const std::string none =
        listed_.empty() ? "请指明备份所在的文件夹，通常是账套文件夹下的 backups。" : "这个文件夹里没有备份。";
    say(backups_.empty() ? none : "");
  }
  lockControls();
}

const ListedBackup* FrmRestore::chosen() const {
  const auto row = GridBackups->currentGridRow();
  return row && *row > 0 && *row <= backups_.size() ? &backups_[*row - 1] : nullptr;
}

void FrmRestore::CmdRestore_Click() {
  const ListedBackup* backup = chosen();
  const std::string target = trimmedTextOf(*TxtTarget);
  if (backup == nullptr) return;
  if (const std::string problem = problemOfSetFolder(target); !problem.empty())
    return refuse(problem, *TxtTarget);
  const std::string system = (std::filesystem::path(target) / kBackedUpSystem).string();
  if (!std::filesystem::exists(system)) return ask(*backup, target, {});
  looking_ = true;
  say("正在读…");
  lockControls();
  worker_.start([this, backup = *backup, target, system]() -> frmWorker::Result {
    return [this, backup, target, name = otherNameThan(backup.note, system)] {
      host().dispatch([&] {
        looking_ = false;
        say("");
        lockControls();
        ask(backup, target, name);
      });
    };
  });
}

void FrmRestore::ask(const ListedBackup& backup, const std::string& target, const std::string& otherName) {
  const bool replaces = std::filesystem::exists(std::filesystem::path(target) / "ZkData.Mdb");
  const std::string which = Format(backup.note.time, "yyyy-mm-dd hh:nn") + " 的备份（" + backup.note.name +
                            "，" + (backup.note.month.empty() ? "没有未结账的月份" : backup.note.month) +
                            "）";
  const std::string text =
      replaces ? "用 " + which + "替换 " + target + " 中的账套？备份以后的记录都不在其中；原来的账套先备份。"
               : "把 " + which + "恢复到 " + target + "？";
  const std::string remark = otherName.empty() ? "" : "\n\n" + remarkOnName(backup.note, otherName);
  const Answer answer =
      run().dialogs.MsgBox({.text = text + remark,
                            .buttons = Buttons::YesNo,
                            .icon = replaces ? Icon::Exclamation : Icon::Question,
                            .title = kTitle,
                            .defaultButton = replaces ? DefaultButton::Second : DefaultButton::First});
  if (answer != Answer::Yes) return;
  std::vector<std::string> words{"restore", backup.folder.string(), target};
  if (!otherName.empty()) words.emplace_back("--renamed");
  told_.clear();
  if (startTool(kCaption, words, [this, target](const ChildEnd& end) { ended(target, end); }))
    say("正在恢复…");
}

void FrmRestore::ended(const std::string& target, const ChildEnd& end) {
  told_ = end.output + end.errors;
  // Something that could not be kept as it is makes a status of 1, too.
  if (end.output.find("已恢复 ") != std::string::npos) {
    restored_ = target;
    say("已恢复到 " + target + "。" + (end.failed() ? "有要看的地方，见“详情”。" : ""), end.failed());
  } else {
    say(sentenceAboutEnd(kCaption, end), true);
  }
  lockControls();
  (restored_.empty() ? CmdDetail : CmdClose)->setFocus();
}

void FrmRestore::lockControls() {
  const bool runs = toolRuns() || looking_;
  for (QWidget* control :
       {static_cast<QWidget*>(TxtFrom), static_cast<QWidget*>(CmdFrom), static_cast<QWidget*>(GridBackups),
        static_cast<QWidget*>(TxtTarget), static_cast<QWidget*>(CmdTarget)})
    control->setEnabled(!runs);
  const ListedBackup* backup = chosen();
  CmdRestore->setEnabled(!runs && backup != nullptr && backup->problem.empty() &&
                         !TxtTarget->text().trimmed().isEmpty());
  CmdDetail->setVisible(!runs && !told_.empty());
}

}  // namespace zelkor
