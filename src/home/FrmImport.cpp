#include "home/FrmImport.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <QDesktopServices>
#include <QFileDialog>
#include <QUrl>
#include <utility>

#include "base/RuntimeError.h"
#include "home/FrmEndDetail.h"
#include "store/engine/Statement.h"
#include "ui/Focus.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr const char* kTitle = "固定资产工作台";
constexpr QSize kSize(940, 560);
constexpr std::chrono::milliseconds kBetweenLooks{200};
constexpr std::int16_t kOriginalCards = 5;
constexpr std::int16_t kNewCards = 6;
constexpr std::int16_t kSheets = 24;

const char* captionOf(ImportKind kind) {
  return kind == ImportKind::Cards ? "导入卡片" : "导入变动单";
}

std::int16_t runTypeOf(const ImportOrder& order) {
  if (order.kind == ImportKind::Sheets) return kSheets;
  return order.newType == 1 ? kOriginalCards : kNewCards;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "“" : "、“") + text + "”";
  return all;
}

/// The line of the import's sums, behind which only the place of the refused rows is told.
std::string sumsIn(const std::string& told) {
  constexpr std::string_view kBegin = "\n共 ";
  const std::string lines = "\n" + told;
  const std::size_t begin = lines.rfind(kBegin);
  return begin == std::string::npos ? std::string()
                                    : lines.substr(begin + 1, lines.find('\n', begin + 1) - begin - 1);
}

std::string sumsOf(const ImportPreview& preview) {
  const std::size_t good = preview.rows - preview.badRows - preview.savedBefore;
  std::string text = sql("共 ", preview.rows, " 行：可以导入 ", good, " 行");
  if (preview.savedBefore > 0) text += sql("，以前已保存 ", preview.savedBefore, " 行");
  if (preview.badRows == 0) return text + "。";
  return text + sql("，有问题 ", preview.badRows, " 行；有问题的行不导入，另存为一个 CSV 文件。");
}

}  // namespace

FrmImport::FrmImport(FormHost& host, ImportKind kind, OpenedSet opened, const std::string& tool)
    : ToolForm(host, "FrmImport", captionOf(kind), tool, "正在导入，请等它结束。"),
      opened_(std::move(opened)) {
  order_.kind = kind;
  fillChoices();
  arrangeControls();
  connectEvents();
  progress_.setInterval(kBetweenLooks);
  showPreview();
  GridColumns->fillWith(1);
  GridProblems->fillWith(2);
}

void FrmImport::fillChoices() {
  CmbNewType->addItem("原始卡片（启用以前的资产）", 1);
  CmbNewType->addItem("本月新增", 2);
  CmbCharset->addItem("自动识别", "");
  for (const char* charset : {"UTF-8", "GB18030"}) CmbCharset->addItem(charset, charset);
  CmbCharset->setToolTip("CSV 文件的字符集；xlsx 工作簿不用");
}

void FrmImport::arrangeControls() {
  dressPick(CmdFile, TxtFile);
  TxtFile->setPlaceholderText("CSV 文件或 xlsx 工作簿，第一行是列名");
  LblSource->setProperty("note", true);
  fillTabs(*TabsPreview, {{"前几行", column({wide(GridRows)})},
                          {"各列当作什么", column({wide(GridColumns)})},
                          {"有问题的行", column({wide(GridProblems)})}});
  const bool isCards = order_.kind == ImportKind::Cards;
  CmbNewType->setVisible(isCards);
  std::vector<Field> asked{{"文件(&F)：", row({wide(TxtFile), CmdFile})}};
  if (isCards) asked.push_back({"录入为(&N)：", row({CmbNewType, stretch()})});
  asked.push_back({"字符集(&C)：", row({CmbCharset, space(12), wide(LblSource)})});
  arrange(this, column({fields(asked), wide(TabsPreview), LblState,
                        row({CheckBackup, stretch(), CmdRefused, CmdDetail, CmdImport, CmdClose})}));
  CmdRefused->hide();
  CmdDetail->hide();
  setDefaultButton(CmdImport);
  resize(kSize);
}

void FrmImport::connectEvents() {
  on(CmdFile, &QPushButton::clicked, &FrmImport::CmdFile_Click);
  onLeaving(TxtFile, &FrmImport::fileEntered);
  on(CmbNewType, qOverload<int>(&QComboBox::activated), &FrmImport::lookAgain);
  on(CmbCharset, qOverload<int>(&QComboBox::activated), &FrmImport::lookAgain);
  on(CmdImport, &QPushButton::clicked, &FrmImport::CmdImport_Click);
  on(CmdDetail, &QPushButton::clicked, &FrmImport::CmdDetail_Click);
  on(CmdRefused, &QPushButton::clicked, &FrmImport::CmdRefused_Click);
  on(CmdClose, &QPushButton::clicked, [this] { close(); });
  on(&progress_, &QTimer::timeout, &FrmImport::showProgress);
}

bool FrmImport::enterPressed(QObject* control) {
  if (control == TxtFile) lookAgain();  // also at a file that was mended meanwhile
  return false;                         // and on to the next field
}

void FrmImport::CmdFile_Click() {
  const QString file = QFileDialog::getOpenFileName(this, captionOf(order_.kind), TxtFile->text(),
                                                    "表格 (*.csv *.xlsx *.CSV *.XLSX);;所有文件 (*)");
  if (file.isEmpty()) return;
  TxtFile->setText(file);
  fileEntered();
}

/// Where the file lies, however it was typed.
std::string FrmImport::namedFile() const {
  const std::string file = trimmedTextOf(*TxtFile);
  return file.empty() ? file : std::filesystem::absolute(file).lexically_normal().string();
}

void FrmImport::fileEntered() {
  if (namedFile() != order_.file) lookAgain();
}

// A large register takes its time: the window stays free meanwhile.
void FrmImport::lookAgain() {
  order_.file = namedFile();
  order_.charset = fromQt(CmbCharset->currentData().toString());
  order_.newType = CmbNewType->currentData().toInt();
  reading_.reset();
  const std::size_t asked = ++*asked_;
  showPreview();
  if (order_.file.empty()) return;
  say("正在读文件…");
  worker_.start([this, asked, current = asked_, order = order_,
                 arguments = argumentString(runTypeOf(order_), opened_)]() -> frmWorker::Result {
    if (asked != *current) return {};  // another one was asked for meanwhile
    try {
      return [this, asked, reading = readImport(order, arguments)] {
        host().dispatch([&] {
          if (asked == *asked_) takeReading(reading);
        });
      };
    } catch (const std::exception& error) {
      return [this, asked, reason = std::string(error.what())] {
        host().dispatch([&] {
          if (asked == *asked_) readingFailed(reason);
        });
      };
    }
  });
}

/// Beside the caption, where it is seen among other windows, too.
void FrmImport::showInTitle(const std::string& state) {
  setWindowTitle(toQt(std::string(captionOf(order_.kind)) + (state.empty() ? "" : "　" + state)));
}

void FrmImport::takeReading(const ReadImport& reading) {
  reading_ = reading;
  showPreview();
  const ImportPreview& preview = reading.preview;
  if (!preview.missing.empty()) {
    say("不能导入：表头中缺少列" + joined(preview.missing) + "。", true);
    TabsPreview->setCurrentIndex(1);
  } else if (preview.rows == 0) {
    say("文件里只有表头，没有行。", true);
  } else {
    say(sumsOf(preview), preview.badRows > 0);
    if (preview.canBeImported()) showInTitle("可以导入");
    TabsPreview->setCurrentIndex(preview.badRows > 0 ? 2 : 0);
  }
}

void FrmImport::readingFailed(const std::string& reason) {
  say(reason, true);
}

void FrmImport::showPreview() {
  refused_.clear();
  told_.clear();
  say("");
  showInTitle("");
  LblSource->setText(reading_ ? toQt(reading_->source) : QString());
  showRows();
  showColumns();
  showProblems();
  for (FlexGrid* grid : {GridRows, GridColumns, GridProblems}) grid->fitColumns();
  lockControls();
}

void FrmImport::showRows() {
  std::string captions = "行";
  if (reading_)
    for (const auto& one : reading_->preview.columns) captions += "|" + one.caption;
  TextGrid grid;
  grid.setHeader(captions);
  if (reading_) {
    for (const CsvRecord& row : reading_->preview.firstRows) {
      std::vector<std::string> cells{std::to_string(row.line)};
      cells.insert(cells.end(), row.fields.begin(), row.fields.end());
      cells.resize(std::min(cells.size(), grid.columns()));
      grid.addRow(std::move(cells));
    }
  }
  GridRows->setGrid(std::move(grid));
}

void FrmImport::showColumns() {
  TextGrid grid;
  grid.setHeader("列|当作");
  if (reading_) {
    for (const std::string& caption : reading_->preview.missing) grid.addRow({caption, "缺少，必填"});
    for (const auto& one : reading_->preview.columns)
      grid.addRow({one.caption, one.takenFor.empty() ? "不认识，不导入" : one.takenFor});
  }
  GridColumns->setGrid(std::move(grid));
}

void FrmImport::showProblems() {
  TextGrid grid;
  grid.setHeader("行|列|问题");
  if (reading_) {
    for (const auto& one : reading_->preview.problems)
      grid.addRow({one.line > 0 ? std::to_string(one.line) : "", one.column, one.reason});
    if (reading_->preview.problems.size() == ImportPreview::kMostProblems)
      grid.addRow({"…", "", "其余的没有列出"});
  }
  GridProblems->setGrid(std::move(grid));
}

void FrmImport::CmdImport_Click() {
  const std::string arguments = argumentString(runTypeOf(order_), opened_);
  const auto folder = std::filesystem::path(opened_.set.dataFile).parent_path();
  refused_ = freeRefusedFile(order_.file);
  told_.clear();
  const std::string backup = CheckBackup->isChecked() ? (folder / "backups").string() : std::string();
  if (!startTool(captionOf(order_.kind), importWords(order_, arguments, refused_, backup),
                 [this](const ChildEnd& end) { ended(end); }))
    return;
  imported_ = true;
  say(backup.empty() ? "正在导入…" : "正在备份，然后导入…");
  showInTitle("正在导入");
  progress_.start();
}

void FrmImport::showProgress() {
  const std::string progress = progressIn(endOfErrors());
  if (!progress.empty()) say(progress);
}

void FrmImport::ended(const ChildEnd& end) {
  progress_.stop();
  const std::string errors = withoutProgress(end.errors);
  told_ = firstLines(errors + end.output);
  reading_.reset();  // the same rows are not imported twice
  std::error_code ignored;
  if (!std::filesystem::exists(refused_, ignored)) refused_.clear();
  const bool done = !end.failed() || !sumsIn(end.output).empty();
  say(done ? "导入完成。" + sumsIn(end.output) + aboutRefused(end)
           : sentenceAboutEnd(captionOf(order_.kind), {end.status, errors, end.output}) +
                 "\n在文件名处按回车重新检查" + (isOnce() ? "；以前已保存的行不会再保存。" : "。"),
      end.failed());
  showInTitle(done ? "导入完成" : "没有完成");
  lockControls();
  if (!done) return returnTo(*TxtFile);
  (!refused_.empty() ? CmdRefused : end.failed() ? CmdDetail : CmdClose)->setFocus();
}

/// Where they lie; or, where they could not be kept, what to do then: the other rows are stored.
std::string FrmImport::aboutRefused(const ChildEnd& end) const {
  if (!refused_.empty()) return "\n拒绝的行连同原因存在 " + refused_ + "，改正后可以再导入。";
  if (!end.failed()) return {};
  return "\n拒绝的行没能另存，各行的原因和没有另存的原因见“详情”。" +
         std::string(isOnce() ? "改正后可以再导入整个文件，以前已保存的行不会再保存。"
                              : "不要再导入整个文件，已保存的行会重复。");
}

void FrmImport::CmdDetail_Click() {
  FrmEndDetail form(host(), told_);
  host().showModal(form);
}

void FrmImport::CmdRefused_Click() {
  if (QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(refused_)))) return;
  run().dialogs.MsgBox("没有打开 CSV 文件的程序。文件在 " + refused_, Buttons::Ok, Icon::Information, kTitle);
}

void FrmImport::lockControls() {
  const bool runs = toolRuns();
  for (QWidget* control :
       {static_cast<QWidget*>(TxtFile), static_cast<QWidget*>(CmdFile), static_cast<QWidget*>(CmbNewType),
        static_cast<QWidget*>(CmbCharset), static_cast<QWidget*>(CheckBackup)})
    control->setEnabled(!runs);
  CmdImport->setEnabled(!runs && reading_ && reading_->preview.canBeImported());
  CmdRefused->setVisible(!runs && !refused_.empty());
  CmdDetail->setVisible(!runs && !told_.empty());
}

}  // namespace zelkor
