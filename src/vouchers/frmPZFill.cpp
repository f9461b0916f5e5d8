#include "vouchers/frmPZFill.h"

#include <algorithm>
#include <string>

#include "ui/Layout.h"
#include "vouchers/frmPZCode.h"
#include "vouchers/frmPZDigest.h"
#include "vouchers/frmPZType.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstMove = 6;  // index of the button "首张" in the array

std::string toolKey(std::size_t index) {
  return "cmdTool" + std::to_string(index);
}

}  // namespace

frmPZFill::frmPZFill(FormHost& host, VoucherRequest request)
    : Form(host, "frmPZFill", "填制凭证", Unload::Plain),
      key_(request.scOutSign),
      fill_(run(), std::move(request), *editor) {
  arrangeControls();
  connectEditor();
  LoadVouch();
  editor->setFocus();
}

void frmPZFill::arrangeControls() {
  arrangeToolbar();
  arrangeMenus();
  StatusBar1->setSizeGripEnabled(false);
  layout::arrangeScreen(this, cmdTool, layout::column({layout::wide(editor), StatusBar1}));
  layout()->setMenuBar(menu);
  resize(1120, 660);
}

void frmPZFill::arrangeToolbar() {
  cmdTool->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  setCommands(cmdTool,
              {{{"打印", "cmdTool0"}},
               {{"预览", "cmdTool1"}},
               {{"输出", "cmdTool2"}},
               {},
               {{"增加", "cmdTool3"}},
               {{"保存", "cmdTool4"}, &frmPZFill::save},
               {{"放弃", "cmdTool5"}, &frmPZFill::close},
               {},
               {{"增行", "cmdTool12"}},
               {{"删行", "cmdTool13"}},
               {{"流量", "cmdTool14"}},
               {{"余额", "cmdTool15"}},
               {},
               {{"首张", "cmdTool6"}},
               {{"上张", "cmdTool7"}},
               {{"下张", "cmdTool8"}},
               {{"末张", "cmdTool9"}},
               {},
               {{"查询", "cmdTool10"}},
               {{"帮助", "cmdTool16"}},
               {{"退出", "cmdTool11"}, &frmPZFill::close}},
              [this] { fill_.walkUnbooked(); });
  cmdTool->button("cmdTool14").setToolTip("按现金流量项目拆分金额");
}

void frmPZFill::arrangeMenus() {
  QMenu* file = menu->addMenu("文件(&F)");
  file->setObjectName("MenuFile");
  addCommands(file, {{{"预览", "subMenuFileYL"}},
                     {{"打印", "subMenuFilePrint"}},
                     {{"输出", "subMenuFileOutput"}},
                     {},
                     {{"退出", "Exit"}, &frmPZFill::close}});

  QMenu* bill = menu->addMenu("制单(&E)");
  bill->setObjectName("MenuZD");
  addCommands(bill, {{{"保存", "subMenuZDSave"}, &frmPZFill::save},
                     {{"放弃", "subMenuZDGiveUp"}},
                     {{"增加凭证", "subMenuZDAdd"}},
                     {{"作废/恢复", "subMenuZDRestore"}},
                     {{"冲销凭证", "subMenuZDCXPZ"}},
                     {{"凭证删除/整理", "subMenuZDDelPZ"}},
                     {{"调用常用凭证", "subMenuZDUseful"}},
                     {{"生成常用凭证", "subMenuZDProduct"}},
                     {{"插入分录", "subMenuZDInsertSub"}},
                     {{"删除分录", "subMenuZDDelSub"}}});

  QMenu* view = menu->addMenu("查看(&V)");
  view->setObjectName("MenuView");
  addCommands(view, {{{"首张", "subMenuViewFirst"}},
                     {{"上张", "subMenuViewPre"}},
                     {{"下张", "subMenuViewNext"}},
                     {{"末张", "subMenuViewLast"}}});
  std::ranges::copy(view->actions(), viewMoves.begin());
}

void frmPZFill::connectEditor() {
  on(editor, &LocalPZ::EditRequest, [this](bool* granted) {
    *granted = false;
    *granted = fill_.EditRequest();
  });
  on(editor, &LocalPZ::SubjectEntered,
     [this](std::size_t line, const QString& code) { fill_.SubjectEntered(line, fromQt(code)); });
  on(editor, &LocalPZ::BrowseDigest, &frmPZFill::BrowseDigest);
  on(editor, &LocalPZ::BrowseSubject, [this] { BrowseSubject(); });
  on(editor, &LocalPZ::BrowseSign, &frmPZFill::BrowseSign);
}

void frmPZFill::LoadVouch() {
  const auto enabled = VoucherFill::moveEnabled(fill_.giPZCount());
  for (std::size_t i = 0; i < kMoves; ++i) cmdTool->enable(toolKey(kFirstMove + i), enabled[i]);
  MenuMoveEnabled();
  fill_.LoadVouch();
  editor->showVoucher();
  showStatus();
}

void frmPZFill::showStatus() {
  const QString number = fill_.ino_id() > 0
                             ? toQt(editor->VoucherSign) + "--" + QString::number(fill_.ino_id())
                             : QString("未编号");
  StatusBar1->showMessage("业务：" + toQt(key_) + "　　凭证号：" + number);
}

/// The menu follows the buttons.
void frmPZFill::MenuMoveEnabled() {
  for (std::size_t i = 0; i < kMoves; ++i) {
    viewMoves[i]->setEnabled(cmdTool->button(toolKey(kFirstMove + i)).isEnabled());
  }
}

void frmPZFill::save() {
  editor->endTyping();
  const bool saved = fill_.Save();
  editor->showVoucher();
  showStatus();
  if (!saved) editor->showIncompleteLine();
}

/// A digest that has a subject gives it to a line that has none.
void frmPZFill::BrowseDigest(std::size_t line) {
  const auto digest = pickDigest(host());
  if (!digest) return;
  editor->takeLookedUp(toQt(digest->text));
  const bool bare = line <= editor->RowCount() && editor->Row(line).SubjectCode.empty();
  if (!bare || digest->subject.empty()) return;
  fill_.SubjectEntered(line, digest->subject);
  editor->showVoucher();
}

void frmPZFill::BrowseSubject() {
  frmPZCode picker(host());
  picker.showSubject(editor->lookedUp());
  host().showModal(picker);
  if (!picker.picked().code.empty()) editor->takeLookedUp(toQt(picker.picked().code));
}

void frmPZFill::BrowseSign() {
  frmPZType picker(host(), data());
  host().showModal(picker);
  if (!picker.picked()) return;
  editor->VoucherSign = picker.picked()->sign;
  editor->Caption = picker.picked()->name;
  editor->SignSeq = picker.picked()->isignseq;
  editor->showVoucher();
}

void showVoucherWindow(FormHost& host, VoucherRequest request) {
  frmPZFill window(host, std::move(request));
  host.showModal(window);
}

}  // namespace zelkor
