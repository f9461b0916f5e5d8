#include "home/FrmImportJet.h"

#include <filesystem>
#include <QFileDialog>
#include <utility>

#include "base/FileAccess.h"
#include "base/SystemError.h"
#include "base/Text.h"
#include "home/ImportReading.h"
#include "ui/Layout.h"
#include "ui/Reading.h"

namespace zelkor {

using namespace layout;

namespace {

namespace fs = std::filesystem;

constexpr const char* kCaption = "导入旧数据文件";
constexpr const char* kDataFile = "ZkData.Mdb";
constexpr const char* kSystemFile = "ZkSystem.Mdb";
constexpr QSize kSize(760, 560);

std::string textOf(const QLineEdit* field) {
  return trimmedTextOf(*field);
}

bool isFile(const std::string& path) {
  std::error_code ignored;
  return fs::is_regular_file(path, ignored);
}

/// The file of that name in the folder, however it is written; empty where there is none.
std::string fileIn(const fs::path& folder, std::string_view name) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder, ignored))
    if (equalsIgnoringCase(entry.path().filename().string(), name)) return entry.path().string();
  return {};
}

}  // namespace

FrmImportJet::FrmImportJet(FormHost& host, const std::string& tool)
    : ToolForm(host, "FrmImportJet", kCaption, tool, "正在导入，请等它结束。") {
  arrangeControls();
  connectEvents();
  lockControls();
}

void FrmImportJet::arrangeControls() {
  dressPick(CmdData, TxtData);
  dressPick(CmdSystem, TxtSystem);
  dressPick(CmdFolder, TxtFolder);
  CmbCharset->addItem("按 GBK 读（一般如此）", "");
  for (const char* charset : {"BIG5", "CP1252"}) CmbCharset->addItem(charset, charset);
  CmbCharset->setToolTip("Jet 3 文件中文字的字符集；Jet 4 的文字是 Unicode");
  TxtServer->setPlaceholderText("留空：建在文件夹里。例：host=pg dbname=zelkor");
  CheckCompare->setChecked(true);
  TxtTold->setReadOnly(true);
  TxtTold->setFocusPolicy(Qt::NoFocus);  // until there is something to read
  TxtTold->setAccessibleName("没有照原样导入的内容");
  arrange(this, column({fields({{"旧数据文件(&D)：", row({wide(TxtData), CmdData})},
                                {"旧系统文件(&Y)：", row({wide(TxtSystem), CmdSystem})},
                                {"字符集(&C)：", row({CmbCharset, stretch()})},
                                {"新账套的文件夹(&F)：", row({wide(TxtFolder), CmdFolder})},
                                {"服务器(&V)：", TxtServer},
                                {"", CheckCompare}}),
                        note("旧文件只读不改，导入时不要有人打开它们。没有照原样导入的内容列在下面。"),
                        LblState, wide(TxtTold), row({stretch(), CmdImport, CmdClose})}));
  setDefaultButton(CmdImport);
  resize(kSize);
}

void FrmImportJet::connectEvents() {
  on(CmdData, &QPushButton::clicked, [this] {
    pickFile(TxtData, "旧数据文件");
    offerSystemFile();
  });
  onLeaving(TxtData, &FrmImportJet::offerSystemFile);
  on(CmdSystem, &QPushButton::clicked, [this] { pickFile(TxtSystem, "旧系统文件"); });
  on(CmdFolder, &QPushButton::clicked, [this] {
    const QString folder = QFileDialog::getExistingDirectory(this, "新账套放在哪个文件夹", TxtFolder->text());
    if (!folder.isEmpty()) TxtFolder->setText(folder);
  });
  on(CmdImport, &QPushButton::clicked, &FrmImportJet::CmdImport_Click);
  on(CmdClose, &QPushButton::clicked, [this] { close(); });
}

bool FrmImportJet::enterPressed(QObject* control) {
  if (control == TxtData) offerSystemFile();
  return false;  // and on to the next field
}

void FrmImportJet::pickFile(QLineEdit* field, const char* title) {
  const QString file =
      QFileDialog::getOpenFileName(this, title, field->text(), "Jet 文件 (*.mdb *.Mdb *.MDB);;所有文件 (*)");
  if (!file.isEmpty()) field->setText(file);
}

/// The system file usually lies beside the data file.
void FrmImportJet::offerSystemFile() {
  if (!textOf(TxtSystem).empty() || textOf(TxtData).empty()) return;
  TxtSystem->setText(toQt(fileIn(fs::path(textOf(TxtData)).parent_path(), kSystemFile)));
}

void FrmImportJet::CmdImport_Click() {
  if (!isFile(textOf(TxtData))) return refuse("请选择旧数据文件！", *TxtData);
  if (!isFile(textOf(TxtSystem))) return refuse("请选择旧系统文件！", *TxtSystem);
  folder_ = textOf(TxtFolder);
  if (const std::string problem = problemOfSetFolder(folder_); !problem.empty())
    return refuse(problem, *TxtFolder);
  const bool goesOn = carried_ == wanted() && isFile(folder_ + "/" + kDataFile);
  if ((!goesOn && !fileIn(folder_, kDataFile).empty()) || !fileIn(folder_, kSystemFile).empty())
    return refuse("这个文件夹里已有账套，请另选一个文件夹。", *TxtFolder);
  try {
    makeFolder(folder_);
  } catch (const fs::filesystem_error& error) {
    return refuse("不能建立文件夹“" + folder_ + "”：" + systemReason(error.code().value()), *TxtFolder);
  }
  if (goesOn) return carry(textOf(TxtSystem), folder_ + "/" + kSystemFile);
  TxtTold->clear();
  faultless_ = true;
  carry(textOf(TxtData), folder_ + "/" + kDataFile);
}

/// What makes one set of the two files: from where and to where the first one goes.
std::array<std::string, 3> FrmImportJet::wanted() const {
  return {textOf(TxtData), textOf(TxtFolder), textOf(TxtServer)};
}

void FrmImportJet::carry(const std::string& source, const std::string& target) {
  std::vector<std::string> words{"import", source, target};
  const auto add = [&words](const char* option, const std::string& value) {
    if (!value.empty()) words.insert(words.end(), {option, value});
  };
  add("--charset", fromQt(CmbCharset->currentData().toString()));
  add("--server", textOf(TxtServer));
  if (CheckCompare->isChecked()) words.emplace_back("--check");
  if (startTool(kCaption, words, [this, target](const ChildEnd& end) { ended(target, end); }))
    say("正在导入 " + source + "…");
}

// Where something could not be carried as it is the target is there all the same.
void FrmImportJet::ended(const std::string& target, const ChildEnd& end) {
  TxtTold->appendPlainText(toQt(target + "\n" + firstLines(end.output + end.errors)).trimmed() + "\n");
  TxtTold->setFocusPolicy(Qt::StrongFocus);
  tabAsOneReads(*this);
  lockControls();
  const bool isData = fs::path(target).filename() == kDataFile;
  if (!isFile(target)) return broken(end, isData);
  faultless_ = faultless_ && !end.failed();
  if (!isData) return finish();
  carried_ = wanted();
  carry(textOf(TxtSystem), folder_ + "/" + kSystemFile);
}

/// A target that could not be made is not there. What was carried before stays, and is not carried again.
void FrmImportJet::broken(const ChildEnd& end, bool isData) {
  say(sentenceAboutEnd(kCaption, end) +
          (isData ? "" : "\n数据文件已经导入；改正后再点“导入”，从系统文件接着做。"),
      true);
  (isData ? TxtData : TxtSystem)->setFocus();
}

void FrmImportJet::finish() {
  made_ = folder_;
  say(faultless_ ? "已导入到 " + made_ + "，全部照原样。"
                 : "已导入到 " + made_ + "；有些内容没有照原样导入，列在下面，请逐项查看。",
      !faultless_);
  lockControls();
  CmdClose->setFocus();
}

void FrmImportJet::lockControls() {
  const bool free = !toolRuns() && made_.empty();
  for (QWidget* control :
       {static_cast<QWidget*>(TxtData), static_cast<QWidget*>(CmdData), static_cast<QWidget*>(TxtSystem),
        static_cast<QWidget*>(CmdSystem), static_cast<QWidget*>(CmbCharset), static_cast<QWidget*>(TxtFolder),
        static_cast<QWidget*>(CmdFolder), static_cast<QWidget*>(TxtServer),
        static_cast<QWidget*>(CheckCompare), static_cast<QWidget*>(CmdImport)})
    control->setEnabled(free);
}

}  // namespace zelkor
