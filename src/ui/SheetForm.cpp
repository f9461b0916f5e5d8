#include "ui/SheetForm.h"

#include <QBoxLayout>
#include <QFrame>

#include "ui/Layout.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kWidth = 860;
constexpr const char* kCaption = "固定资产变动单";

}  // namespace

SheetForm::SheetForm(FormHost& host, const char* name, const char* boxName)
    : Form(host, name, kCaption, Unload::EndsProgram),
      box(make<QLineEdit>(boxName)),
      editor(new SheetEditor(box)) {
  on(editor, &SheetEditor::seeking, [this](const QString& text) { this->host().seek(text); });
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
  arrangeScreen(this, tbToolBar,
                column({paper, stretch(),
                        note("回车键移到下一项，Esc 放弃输入，F2 打开参照，Ctrl+S 保存，Ctrl+N 增加。")}));
  resize(kWidth, sizeHint().height());
  return paper;
}

}  // namespace zelkor
