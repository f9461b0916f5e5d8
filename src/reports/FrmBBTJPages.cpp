#include <algorithm>
#include <iterator>
#include <QBoxLayout>
#include <QGroupBox>

#include "reports/FrmBBTJ.h"
#include "ui/Twips.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr int kNameWidth = 150;

Field choice(QWidget* button) {
  return {"", button};
}

Field choices(const char* caption, std::span<QComboBox* const> lists, const char* between) {
  if (lists.size() == 1) return {caption, lists.front()};
  if (*between == '\0') return {caption, row({wide(lists.front()), wide(lists.back())})};
  return {caption, row({wide(lists.front()), new QLabel(between), wide(lists.back())})};
}

Field picked(const char* caption, QWidget* field, QPushButton* button) {
  return {caption, row({wide(field), button})};
}

}  // namespace

void FrmBBTJ::arrangePages() {
  std::size_t type = 0;
  std::size_t department = 0;
  for (std::size_t page = 0; page < kPageCount; ++page) {
    const PageConditions& asked = kConditionPages[page];
    std::vector<Field> list{choices("期间：", periodLists(page), asked.between)};
    if (asked.type) {
      list.push_back(picked("类别名称：", LblLBMC[type], CmdCXLBMC[type]));
      ++type;
    }
    if (asked.department) {
      list.push_back(picked("部门名称：", LblBMMC[department], CmdCXBMMC[department]));
      ++department;
    }
    if (asked.levels) list.push_back(choices(asked.levelsCaption, levelLists(page), asked.between));
    std::ranges::move(furtherFields(static_cast<ConditionPage>(page)), std::back_inserter(list));
    arrangePage(page, list);
  }
}

/// One list or two: the lists are numbered page by page.
FrmBBTJ::Lists FrmBBTJ::periodLists(std::size_t page) const {
  const auto listsOf = [](const PageConditions& asked) -> std::size_t { return asked.range ? 2 : 1; };
  std::size_t first = 0;
  for (std::size_t before = 0; before < page; ++before) first += listsOf(kConditionPages[before]);
  return Lists(Combo1).subspan(first, listsOf(kConditionPages[page]));
}

FrmBBTJ::Lists FrmBBTJ::levelLists(std::size_t page) const {
  const auto asksForLevels = [](const PageConditions& asked) { return asked.levels != nullptr; };
  const auto before = std::span(kConditionPages).first(page);
  return Lists(Combo2).subspan(2 * static_cast<std::size_t>(std::ranges::count_if(before, asksForLevels)), 2);
}

/// What no report reads but the options.
std::vector<Field> FrmBBTJ::furtherFields(ConditionPage page) {
  switch (page) {
    case ConditionPage::Composition:
      return {choice(Option1), choice(Option2)};
    case ConditionPage::Statistics:
      return {choice(Option3[0]),
              choice(Option3[1]),
              choice(Option3[2]),
              {"部门级次：", ComboBMJC},
              {"类别级次：", ComboLBJC}};
    case ConditionPage::RevaluationSummary:
      return {choices("汇总类别：", Combo3, conditionsOf(page).between)};
    case ConditionPage::CardLedger:
      return {picked("资产编号从：", TxtZCBH[0], CmdZCBH[0]), picked("至", TxtZCBH[1], CmdZCBH[1]),
              choice(Check1), choice(Check2)};
    default:
      return {};
  }
}

void FrmBBTJ::arrangePage(std::size_t page, const std::vector<Field>& asked) {
  QWidget* conditions = frame("", column({fields(asked), stretch()}), kConditionPages[page].frame);
  Picture1[page]->setLayout(column({wide(conditions), row({stretch(), CmdYes[page], CmdCancel[page]})}));
}

/// The dialog is as large as the page has it, or larger where the texts need it.
void FrmBBTJ::bringToFront(std::size_t page) {
  for (std::size_t i = 0; i < kPageCount; ++i) Picture1[i]->setVisible(i == page);
  arrange(this, column({Picture1[page]}));
  const auto& [height, width] = kConditionPages[page].size;
  const QSize told(pixelsOf(width, *this), pixelsOf(height, *this));
  setFixedSize(told.expandedTo(sizeHint()));
  Picture1[page]->findChild<QComboBox*>()->setFocus();
}

void FrmBBTJ::dressControls() {
  for (QPushButton* button : CmdYes) button->setText("确定");
  for (QPushButton* button : CmdCancel) button->setText("取消");
  const auto dress = [this](const auto& buttons, const auto& fields) {
    for (std::size_t i = 0; i < buttons.size(); ++i) {
      buttons[i]->setText("…");
      dressPick(buttons[i], fields[i]);
    }
  };
  dress(CmdCXLBMC, LblLBMC);
  dress(CmdCXBMMC, LblBMMC);
  dress(CmdZCBH, TxtZCBH);
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
