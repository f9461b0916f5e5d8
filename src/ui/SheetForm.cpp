#include "ui/SheetForm.h"

#include <QBoxLayout>
#include <QFrame>

#include "ui/Layout.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kWidth = 860;
constexpr const char* kCaption = "固定资产变动单";

constexpr const char* kSheetStyle = R"(
QFrame[sheet="paper"] { background: white; border: 1px solid #c6cfd8; }
QLabel[sheet="title"] { font-size: 21px; font-weight: bold; letter-spacing: 6px; color: #1f2933; border: none; }
QLabel[sheet="kind"] { font-size: 13px; color: #34568b; border: none; }
QLabel[sheet="open"] { color: #5b6773; border: none; }
QLabel[sheet="written"] { color: #1f2933; border: none; }
QFrame[sheet="table"] { background: #aeb9c5; border: none; }
QLabel[sheet="caption"] { background: #f1f4f7; color: #4a5663; border: none; padding: 0 10px; }
QLabel[sheet="value"] { background: white; color: #1f2933; border: none; padding: 0 10px; }
QLabel[sheet="value"][entry="true"] { background: #fffbe6; }
QLabel[sheet="value"][entry="true"]:hover { background: #fff6cc; }
QLabel[sheet="value"][entry="true"]:focus { background: #fff3b8; }
QLineEdit[over="true"], QLineEdit[over="true"]:read-only {
  background: white; color: #1f2933; border: 2px solid #2f6fb2; border-radius: 0; padding: 0 8px; min-height: 0;
}
QPushButton[pick="true"] { min-height: 0; padding: 0; }
)";

}  // namespace

SheetForm::SheetForm(FormHost& host, const char* name, const char* boxName,
                     std::initializer_list<ToolbarButton> commands)
    : Form(host, name, kCaption, Unload::EndsProgram),
      box(make<QLineEdit>(boxName)),
      editor(new SheetEditor(box)) {
  setStyleSheet(kSheetStyle);
  tbToolBar->setButtons(commands);
}

QLabel* SheetForm::placeValue(const std::string& name, SheetValue kind) {
  auto* value = make<QLabel>(name.c_str());
  sheetValue(value);
  if (kind == SheetValue::Amount) value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return value;
}

QFrame* SheetForm::arrangeSheet(const QString& kind, std::span<const SheetCell> head,
                                std::span<const SheetCell> table, std::span<const SheetCell> foot) {
  QFrame* paper = sheetPaper({kCaption, kind, head, table, foot});
  arrangeScreen(
      this, tbToolBar,
      column({paper, stretch(), note("回车键移到下一项，Esc 放弃输入，F2 打开参照，Ctrl+S 保存。")}));
  resize(kWidth, sizeHint().height());
  return paper;
}

}  // namespace zelkor
