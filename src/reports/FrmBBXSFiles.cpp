#include <algorithm>
#include <array>
#include <optional>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrintPreviewDialog>
#include <QToolBar>

#include "base/RuntimeError.h"
#include "reports/FrmBBXS.h"
#include "reports/FrmBBXSPrint.h"
#include "reports/ReportExport.h"
#include "reports/ReportFile.h"
#include "reports/ReportPaper.h"
#include "ui/BusyCursor.h"
#include "ui/SaveDialog.h"

namespace zelkor {
namespace {

constexpr std::size_t kMostPreviewed = 500;  // pages; a preview of these takes two seconds and 60 MB

constexpr std::array<FileForm, 4> kForms{{{"xlsx", "工作簿 (*.xlsx)"},
                                          {"pdf", "PDF 文件 (*.pdf)"},
                                          {"csv", "CSV 文件 (*.csv)"},
                                          {"html", "网页 (*.html)"}}};

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

void FrmBBXS::saveReport() {
  const auto file = askWhereToSave(run().dialogs, *this, toQt(view_.title), kForms);
  if (!file) return;
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
