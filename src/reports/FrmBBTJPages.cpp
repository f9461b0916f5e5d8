#include <algorithm>
#include <QBoxLayout>
#include <QGroupBox>

#include "reports/FrmBBTJ.h"
#include "ui/Twips.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr const char* kTo = "----";
constexpr int kNameWidth = 150;

QBoxLayout* pair(QComboBox* from, const char* between, QComboBox* to) {
  if (*between == '\0') return row({wide(from), wide(to)});
  return row({wide(from), new QLabel(between), wide(to)});
}

QBoxLayout* picked(QWidget* field, QPushButton* button) {
  return row({wide(field), button});
}

Field choice(QWidget* button) {
  return {"", button};
}

}  // namespace

Field FrmBBTJ::period(std::size_t list) {
  return {"期间：", Combo1[list]};
}

Field FrmBBTJ::periods(std::size_t from, const char* between) {
  return {"期间：", pair(Combo1[from], between, Combo1[from + 1])};
}

Field FrmBBTJ::levels(const char* caption, std::size_t from, const char* between) {
  return {caption, pair(Combo2[from], between, Combo2[from + 1])};
}

Field FrmBBTJ::type(std::size_t index) {
  return {"类别名称：", picked(LblLBMC[index], CmdCXLBMC[index])};
}

Field FrmBBTJ::department(std::size_t index) {
  return {"部门名称：", picked(LblBMMC[index], CmdCXBMMC[index])};
}

Field FrmBBTJ::cardNumber(const char* caption, std::size_t index) {
  return {caption, picked(TxtZCBH[index], CmdZCBH[index])};
}

void FrmBBTJ::arrangePages() {
  const struct {
    const char* frame;
    QLayout* conditions;
  } pages[pageCount] = {
      {"Frame21", fields({period(0), choice(Option1), choice(Option2)})},
      {"Frame22", fields({period(1)})},
      {"Frame1", fields({period(2), levels("汇总部门：", 0, kTo)})},
      {"Frame2", fields({period(3),
                         choice(Option3[0]),
                         choice(Option3[1]),
                         choice(Option3[2]),
                         {"部门级次：", ComboBMJC},
                         {"类别级次：", ComboLBJC}})},
      {"Frame3", fields({periods(4, kTo)})},
      {"Frame40", fields({periods(6, kTo), type(0)})},
      {"Frame41", fields({period(8), department(0), {"汇总类别：", pair(Combo3[0], kTo, Combo3[1])}})},
      {"Frame42", fields({period(9), type(1)})},
      {"Frame43", fields({periods(10, kTo), type(2), department(1)})},
      {"Frame44", fields({periods(12, kTo), type(3), department(2), cardNumber("资产编号从：", 0),
                          cardNumber("至", 1), choice(Check1), choice(Check2)})},
      {"Frame45", fields({periods(14, ""), type(4), department(3)})},
      {"Frame5", fields({periods(16, ""), type(5)})},
      {"Frame6", fields({period(18), department(4), levels("类别级次：", 2, "")})},
      {"Frame7", fields({periods(19, ""), levels("汇总类别：", 4, "")})},
  };
  for (std::size_t page = 0; page < pageCount; ++page) {
    arrangePage(page, pages[page].frame, pages[page].conditions);
  }
}

void FrmBBTJ::arrangePage(std::size_t page, const char* frameName, QLayout* conditions) {
  QLayout* body = column({wide(frame("", column({conditions, stretch()}), frameName)),
                          row({stretch(), CmdYes[page], CmdCancel[page]})});
  Picture1[page]->setLayout(body);
}

/// The dialog is as large as the kind of report has it, or larger where the texts need it.
void FrmBBTJ::bringToFront(std::size_t page) {
  for (std::size_t i = 0; i < pageCount; ++i) Picture1[i]->setVisible(i == page);
  arrange(this, column({Picture1[page]}));
  const QSize told(pixelsOf(kind_.width, *this), pixelsOf(kind_.height, *this));
  setFixedSize(told.expandedTo(sizeHint()));
  Picture1[page]->findChild<QComboBox*>()->setFocus();
}

void FrmBBTJ::dressControls() {
  for (QPushButton* button : CmdYes) button->setText("确定");
  for (QPushButton* button : CmdCancel) button->setText("取消");
  const auto dress = [](QPushButton* button) {
    button->setText("…");
    dressPick(button);
  };
  std::ranges::for_each(CmdCXLBMC, dress);
  std::ranges::for_each(CmdCXBMMC, dress);
  std::ranges::for_each(CmdZCBH, dress);
  for (QPushButton* button : CmdZCBH) button->setEnabled(false);  // picks nothing
  const auto dressName = [](QLabel* name) {
    name->setProperty("field", true);
    name->setTextFormat(Qt::PlainText);
    name->setMinimumWidth(kNameWidth);
  };
  std::ranges::for_each(LblLBMC, dressName);
  std::ranges::for_each(LblBMMC, dressName);
}

}  // namespace zelkor
