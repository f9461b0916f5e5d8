#include <algorithm>
#include <array>
#include <optional>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrintPreviewDialog>
#include <QStandardPaths>
#include <QToolBar>

#include "base/RuntimeError.h"
#include "reports/FrmBBXS.h"
#include "reports/FrmBBXSPrint.h"
#include "reports/ReportExport.h"
#include "reports/ReportFile.h"
#include "reports/ReportPaper.h"
#include "ui/BusyCursor.h"

namespace zelkor {
namespace {

constexpr std::size_t kMostPreviewed = 500;  // pages; a preview of these takes two seconds and 60 MB

struct FileForm {
  const char* format;
  const char* filter;
};
constexpr std::array<FileForm, 4> kForms{{{"xlsx", "工作簿 (*.xlsx)"},
                                          {"pdf", "PDF 文件 (*.pdf)"},
                                          {"csv", "CSV 文件 (*.csv)"},
                                          {"html", "网页 (*.html)"}}};

struct ChosenFile {
  QString name;
  QString format;
};

QString formatOf(const QString& filter) {
  return std::ranges::find(kForms, filter, &FileForm::filter)->format;
}

bool isFormat(const QString& suffix) {
  return std::ranges::find(kForms, suffix, &FileForm::format) != kForms.end();
}

/// What the name ends in counts, or else the form that was chosen.
ChosenFile chosenFile(const QString& name, const QString& filter) {
  const QString suffix = QFileInfo(name).suffix().toLower();
  if (isFormat(suffix)) return {name, suffix};
  return {name + "." + formatOf(filter), formatOf(filter)};
}

std::optional<ChosenFile> askForFile(QWidget& over, const QString& title) {
  QFileDialog dialog(&over, "另存为");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);  // the name may not be complete yet
  QStringList filters;
  for (const FileForm& form : kForms) filters << form.filter;
  dialog.setNameFilters(filters);
  dialog.setDefaultSuffix(kForms.front().format);
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                   [&dialog](const QString& filter) { dialog.setDefaultSuffix(formatOf(filter)); });
  dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  dialog.selectFile(title);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return chosenFile(dialog.selectedFiles().front(), dialog.selectedNameFilter());
}

/// The preview's last command opens the system's dialog.
QAction* printing(const QPrintPreviewDialog& preview) {
  const QToolBar* commands = preview.findChild<QToolBar*>();
  return commands && !commands->actions().isEmpty() ? commands->actions().last() : nullptr;
}

}  // namespace

void FrmBBXS::arrangeMenu() {
  addCommands(mnuPop,
              {{{"复制\tCtrl+C", "mnuPopCopy"}, &FrmBBXS::copyRows},
               {},
               {{"打印…", "mnuPopPrint"}, &FrmBBXS::printReport, {}, QKeySequence(Qt::CTRL | Qt::Key_P)},
               {{"另存为…", "mnuPopSave"},
                &FrmBBXS::saveReport,
                {},
                QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)}});
  MSFlexGrid1->setContextMenuPolicy(Qt::CustomContextMenu);
  on(MSFlexGrid1, &FlexGrid::customContextMenuRequested,
     [this](const QPoint& at) { mnuPop->popup(MSFlexGrid1->viewport()->mapToGlobal(at)); });
}

void FrmBBXS::copyRows() {
  if (const QString rows = MSFlexGrid1->selectedText(); !rows.isEmpty()) {
    QApplication::clipboard()->setText(rows);
  }
}

FinishedReport FrmBBXS::finished() {
  ReportView view = view_;
  view.grid = MSFlexGrid1->grid();
  replaceUnwritable(view);
  return finishedReport(run(), std::move(view));
}

/// Where a file or a printer takes nothing, the report is still there.
void FrmBBXS::attempt(const std::function<void()>& routine) {
  try {
    routine();
  } catch (const RuntimeError& error) {
    if (!error.is(ErrorNumber::DeviceIo)) throw;
    run().dialogs.MsgBox(error.what(), Buttons::Ok, Icon::Exclamation, "查看报表");
  }
}

bool FrmBBXS::mayReplace(const QString& file) {
  if (!QFileInfo::exists(file)) return true;
  const std::string question = "文件“" + fromQt(file) + "”已存在，是否替换？";
  return run().dialogs.MsgBox(question, Buttons::YesNo, Icon::Question, "另存为") == Answer::Yes;
}

void FrmBBXS::saveReport() {
  const auto file = askForFile(*this, toQt(view_.title));
  if (!file || !mayReplace(file->name)) return;
  attempt([&] {
    const BusyCursor busy;
    const auto out = reportFile(run(), fromQt(file->name), true);
    writeReport(
        finished(),
        {.format = fromQt(file->format), .byteOrderMark = true, .progress = shownProgress(run().dialogs)},
        out->open());
    out->finish();
  });
}

void FrmBBXS::printReport() {
  attempt([this] {
    const PaperTable table = paperTable(finished(), false);
    TablePrinter pages(table);
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(toQt(table.title));
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Landscape);
    if (const std::size_t count = pages.pages(printer); count > kMostPreviewed) {
      printUnseen(pages, printer, count);
    } else {
      printSeen(pages, printer);
    }
  });
}

/// The preview prints by the system's dialog.
void FrmBBXS::printSeen(TablePrinter& pages, QPrinter& printer) {
  QPrintPreviewDialog preview(&printer, this, Qt::Window);
  preview.setWindowTitle("打印预览 - " + printer.docName());
  preview.resize(size().expandedTo(preview.sizeHint()));
  on(&preview, &QPrintPreviewDialog::paintRequested, [&](QPrinter* device) {
    attempt([&] {
      const BusyCursor busy;  // not over a box that tells of a failure
      pages.print(*device);
    });
  });
  if (QAction* print = printing(preview)) print->setShortcut(QKeySequence::Print);
  preview.exec();
}

/// A preview keeps all its pages in memory.
void FrmBBXS::printUnseen(TablePrinter& pages, QPrinter& printer, std::size_t count) {
  run().dialogs.MsgBox("报表共 " + std::to_string(count) + " 页，页数太多，不能预览；可在打印窗口中选页码。",
                       Buttons::Ok, Icon::Information, "查看报表");
  QPrintDialog dialog(&printer, this);
  dialog.setMinMax(1, static_cast<int>(count));
  if (dialog.exec() != QDialog::Accepted) return;
  const BusyCursor busy;
  pages.print(printer);
}

}  // namespace zelkor
