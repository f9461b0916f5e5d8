#include "ui/Guide.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <sstream>
#include <string_view>

#include "startup/RunContext.h"
#include "ui/Texts.h"
#include "ui/WindowPlace.h"

namespace zelkor {
namespace {

constexpr const char* kWindowName = "Guide";
constexpr QSize kSize(860, 680);
constexpr qreal kMargin = 20;
constexpr qreal kCellPadding = 4;
constexpr QRgb kRule = 0xffd5dbe1;

struct Chapter {
  std::string_view screen;
  int number;
};

/// The first chapter is about what is the same on all screens, the pickers among it.
constexpr int kCommonChapter = 1;
constexpr Chapter kChapters[] = {
    {"FrmInit", 2},
    {"FrmXUANXIANG", 3},
    {"FrmDepartment", 4},
    {"FrmAllPerson", 4},
    {"FrmDepartPzCode", 4},
    {"FrmFLBMB", 5},
    {"FrmZJFFCZ", 5},
    {"frmUseStatus", 6},
    {"FrmAddCards", 7},
    {"FrmManageCards", 8},
    {"frmAssetsAlteration", 9},
    {"FrmFABalance", 9},
    {"FrmBalanType", 9},
    {"frmCardDetail", 9},
    {"frmCards", 9},
    {"frmDepart", 9},
    {"frmMoreDep", 9},
    {"frmProject", 9},
    {"frmGZL", 10},
    {"frmZJQD", 12},
    {"FrmZJFPB", 12},
    {"FrmBatBill", 13},
    {"frmPZFill", 13},
    {"frmPZDigest", 13},
    {"frmPZType", 13},
    {"FrmQueryPZ", 14},
    {"FrmEditPZType", 14},
    {"FrmSetPZType", 14},
    {"frmDelZC", 15},
    {"frmReduceBLL", 15},
    {"frmYMJZ", 16},
    {"FrmBB", 17},
    {"FrmBBTJ", 17},
    {"FrmBBXS", 17},
    {"FrmHome", 22},
    {"FrmAccountSets", 22},
    {"FrmNewAccountSet", 22},
    {"FrmLogin", 22},
    {"FrmConfirmName", 22},
    {"FrmEndDetail", 22},
    {"FrmImport", 22},
    {"FrmImportJet", 22},
    {"FrmRestore", 22},
    {"FrmFindings", 16},
    {"FrmPreview", 11},
    {"FrmPlan", 11},
};

/// Where the package puts the guide, and where it lies in a checkout.
std::filesystem::path guideFile(const std::filesystem::path& programs) {
  if (programs.empty()) return {};
  for (const char* place : {"../share/zelkor/user-guide.md", "../../docs/user-guide.md"}) {
    if (std::filesystem::is_regular_file(programs / place)) return programs / place;
  }
  return {};
}

/// The guide's text without its pictures, which are not installed.
QString textOf(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file).rdbuf();
  static const QRegularExpression picture("^ *!\\[.*\\]\\(.*\\)$", QRegularExpression::MultilineOption);
  return toQt(text.str()).remove(picture);
}

/// A window of its own beside the screen, which can be worked in meanwhile.
class GuideWindow final : public QTextBrowser {
 public:
  explicit GuideWindow(QWidget& screen) : QTextBrowser(&screen) {
    setObjectName(kWindowName);
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle("使用手册");
    setAccessibleName(windowTitle());
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { goTo(link.fragment().section('-', 0, 0).toInt()); });
    resize(kSize);
    fitToScreen(*this);
    placeOver(*this, screen);
  }

  void read(const QString& text) {
    document()->setDocumentMargin(kMargin);
    document()->setMarkdown(text);
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
      if (auto* table = qobject_cast<QTextTable*>(frame)) rule(*table);
    }
  }

  void goTo(int chapter) {
    const QString start = QString::number(chapter) + ' ';
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
      if (block.blockFormat().headingLevel() != 2 || !block.text().startsWith(start)) continue;
      const QTextCursor heading(block);
      setTextCursor(heading);
      verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(heading).top());
    }
  }

 private:
  static void rule(QTextTable& table) {
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderBrush(QColor::fromRgb(kRule));
    format.setBorderCollapse(false);
    format.setCellSpacing(0);
    format.setCellPadding(kCellPadding);
    table.setFormat(format);
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Escape) return QTextBrowser::keyPressEvent(event);
    close();
  }
};

}  // namespace

int guideChapterOf(const char* screen) {
  const auto* found = std::ranges::find(kChapters, std::string_view(screen), &Chapter::screen);
  return found == std::end(kChapters) ? kCommonChapter : found->number;
}

void showGuide(RunContext& run, QWidget& screen) {
  const std::filesystem::path file = guideFile(run.programFolder);
  if (file.empty()) {
    run.dialogs.MsgBox("没有安装使用手册。", Buttons::Ok, Icon::Information, "固定资产");
    return;
  }
  auto* guide =
      dynamic_cast<GuideWindow*>(screen.findChild<QTextBrowser*>(kWindowName, Qt::FindDirectChildrenOnly));
  if (!guide) {
    guide = new GuideWindow(screen);
    guide->read(textOf(file));
  }
  guide->show();
  guide->raise();
  guide->activateWindow();
  guide->goTo(guideChapterOf(screen.objectName().toUtf8().constData()));
}

}  // namespace zelkor
