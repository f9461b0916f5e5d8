#include "home/FrmFindings.h"

#include <QApplication>
#include <QClipboard>
#include <utility>

#include "home/frmSavedText.h"
#include "startup/RunTypes.h"
#include "store/engine/Statement.h"
#include "ui/Layout.h"
#include "ui/SaveDialog.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr QSize kSize(1040, 600);
constexpr int kRemedyHeight = 112;
constexpr std::size_t kMeaningColumn = 2;

std::string summaryOf(const Findings& findings) {
  std::string text = sql("错误 ", findings.countOf("错误"), " 项，警告 ", findings.countOf("警告"),
                         " 项，说明 ", findings.countOf("说明"), " 项。");
  if (findings.sound) text += "没有要处理的问题。";
  for (const std::string& note : findings.notes) text += "\n注意：" + note;
  return text;
}

}  // namespace

FrmFindings::FrmFindings(FormHost& host, Findings findings)
    : Form(host, "FrmFindings", "检查账套", Unload::Plain), findings_(std::move(findings)) {
  LblSummary->setText(toQt(summaryOf(findings_)));
  LblSummary->setWordWrap(true);
  arrangeControls();
  on(GridFindings, &FlexGrid::rowSelected, &FrmFindings::showCurrent);
  on(GridFindings, &FlexGrid::arranged, &FrmFindings::showCurrent);
  on(GridFindings, &FlexGrid::rowOpened, &FrmFindings::openCurrent);
  on(CmdShow, &QPushButton::clicked, &FrmFindings::openCurrent);
  on(CmdCopy, &QPushButton::clicked, &FrmFindings::copy);
  on(CmdSave, &QPushButton::clicked, &FrmFindings::save);
  on(CmdClose, &QPushButton::clicked, [this] { close(); });
  if (!findings_.all.empty()) GridFindings->selectGridRow(1);
  showCurrent();
}

void FrmFindings::arrangeControls() {
  GridFindings->fitColumns();
  GridFindings->makeSortable();
  GridFindings->setGrid(gridOf(findings_));
  GridFindings->fillWith(kMeaningColumn);
  find_ = new GridFindBar(
      *GridFindings, "查找",
      [this](std::size_t row) {
        const ToldFinding& one = findings_.all.at(row - 1);
        return one.code + " " + one.severity + " " + one.card + " " + one.place + " " + one.detail + " " +
               one.meaning;
      },
      this);
  TxtRemedy->setReadOnly(true);
  TxtRemedy->setFixedHeight(kRemedyHeight);
  TxtRemedy->setAccessibleName("含义与处理");
  arrange(this, column({LblSummary, find_, wide(GridFindings), TxtRemedy,
                        row({CmdShow, CmdCopy, CmdSave, stretch(), CmdClose})}));
  setDefaultButton(CmdClose);
  resize(kSize);
}

const ToldFinding* FrmFindings::current() const {
  const auto row = GridFindings->currentGridRow();
  return row && *row > 0 && *row <= findings_.all.size() ? &findings_.all[*row - 1] : nullptr;
}

void FrmFindings::showCurrent() {
  const ToldFinding* finding = current();
  TxtRemedy->setPlainText(finding == nullptr ? QString() : toQt(explanationOf(*finding)));
  const auto screen = finding == nullptr ? std::nullopt : screenAbout(*finding);
  CmdShow->setText(screen ? "打开" + toQt(findRunType(*screen)->caption) + "(&O)" : QString("打开(&O)"));
  CmdShow->setEnabled(screen.has_value());
  CmdCopy->setEnabled(finding != nullptr);
  CmdSave->setEnabled(!findings_.all.empty());
}

void FrmFindings::openCurrent() {
  const ToldFinding* finding = current();
  asked_ = finding == nullptr ? std::nullopt : screenAbout(*finding);
  if (asked_) close();
}

void FrmFindings::copy() {
  QStringList texts;
  for (const std::size_t row : GridFindings->selectedGridRows()) {
    const ToldFinding& one = findings_.all.at(row - 1);
    QStringList place;
    for (const std::string& text : {one.card, one.place, one.month, one.amount})
      if (!text.empty()) place << toQt(text);
    texts << toQt(explanationOf(one)) + (place.isEmpty() ? QString() : "\n位置：" + place.join("　"));
  }
  QApplication::clipboard()->setText(texts.join("\n\n"));
}

void FrmFindings::save() {
  static constexpr FileForm kForms[] = {{"csv", "CSV (*.csv)"}};
  if (const auto file = askWhereToSave(run().dialogs, *this, "检查结果", kForms))
    saveText(run().dialogs, file->name, csvOf(findings_));
}

}  // namespace zelkor
