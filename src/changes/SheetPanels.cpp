#include "changes/SheetPanels.h"

#include <utility>

namespace zelkor {
namespace {

template <std::string ChangeSheet::*member>
std::string& text(ChangeSheet& sheet) {
  return sheet.*member;
}
template <ShownValue ChangeSheet::*member>
std::string& shown(ChangeSheet& sheet) {
  return (sheet.*member).text;
}

using enum SheetEntry;

// Labels into which the number of a card or of an asset can be typed.
enum EntryLabel : int {
  Lbl2 = 2,
  Lbl3 = 3,
  Lbl13 = 13,
  Lbl14 = 14,
  Lbl23 = 23,
  Lbl24 = 24,
  Lbl35 = 35,
  Lbl36 = 36,
  Lbl46 = 46,
  Lbl47 = 47,
  Lbl61 = 61,
  Lbl62 = 62,
};

/// Where the values stand that every kind has.
struct CommonLabels {
  int number;
  int date;
  int cardNum;
  int assetNum;
  int assetName;
  int style;
  int startDate;
  int reason;
  int operatorName;
};

SheetLabel amount(int number, const char* caption, std::string& (*value)(ChangeSheet&),
                  SheetEntry entry = Shown) {
  return {.number = number, .caption = caption, .text = value, .entry = entry, .isAmount = true};
}

/// The panel of a kind: `own` stands between the card and the reason, `besideStart` beside the start date.
SheetPanel panel(int picture, const CommonLabels& at, std::vector<SheetLabel> besideStart,
                 std::vector<SheetLabel> own) {
  SheetPanel panel{picture, {}, {}, {}};
  panel.head = {{at.number, "变动单编号：", text<&ChangeSheet::number>},
                {at.date, "变动日期：", text<&ChangeSheet::date>}};
  panel.table = {{at.cardNum, "卡片编号", text<&ChangeSheet::cardNum>, CardNumber},
                 {at.assetNum, "固定资产编号", text<&ChangeSheet::assetNum>, AssetNumber},
                 {at.assetName, "固定资产名称", text<&ChangeSheet::assetName>},
                 {at.style, "规格型号", text<&ChangeSheet::style>},
                 {at.startDate, "开始使用日期", text<&ChangeSheet::startDate>}};
  panel.table.back().wholeLine = besideStart.empty();
  for (auto* labels : {&besideStart, &own}) {
    for (SheetLabel& label : *labels) panel.table.push_back(label);
  }
  panel.table.push_back({at.reason, "变动原因", text<&ChangeSheet::reason>, Typed, false, true});
  panel.foot = {{at.operatorName, "经手人：", text<&ChangeSheet::operatorName>}};
  return panel;
}

SheetPanel statusPanel() {
  return panel(
      0, {0, 1, Lbl2, Lbl3, 5, 6, 4, 9, 10}, {},
      {{.number = 7, .caption = "变动前使用状况", .text = shown<&ChangeSheet::before>},
       {.number = 8, .caption = "变动后使用状况", .text = shown<&ChangeSheet::after>, .entry = Picked}});
}

SheetPanel accumulatedPanel() {
  return panel(1, {11, 12, Lbl13, Lbl14, 16, 17, 15, 20, 21}, {},
               {amount(18, "变动前累计折旧", shown<&ChangeSheet::before>),
                amount(19, "变动后累计折旧", shown<&ChangeSheet::after>, Typed)});
}

SheetPanel lifePanel() {
  return panel(
      2, {22, 25, Lbl23, Lbl24, 27, 28, 26, 31, 32}, {},
      {{.number = 29, .caption = "变动前使用年限", .text = shown<&ChangeSheet::before>},
       {.number = 30, .caption = "变动后使用年限", .text = shown<&ChangeSheet::after>, .entry = Life}});
}

SheetPanel residualPanel() {
  return panel(3, {33, 34, Lbl35, Lbl36, 38, 39, 37, 44, 45},
               {amount(40, "净残值率", text<&ChangeSheet::residualRate>)},
               {amount(42, "变动前净残值", shown<&ChangeSheet::before>),
                amount(43, "变动后净残值", shown<&ChangeSheet::after>, Typed)});
}

SheetPanel transferPanel() {
  return panel(
      4, {57, 58, Lbl46, Lbl47, 49, 50, 48, 55, 56}, {},
      {{.number = 51, .caption = "变动前部门", .text = shown<&ChangeSheet::before>},
       {.number = 52, .caption = "变动后部门", .text = shown<&ChangeSheet::after>, .entry = Picked},
       {.number = 53, .caption = "变动前存放地点", .text = text<&ChangeSheet::siteBefore>},
       {.number = 54, .caption = "变动后存放地点", .text = text<&ChangeSheet::siteAfter>, .entry = Typed}});
}

SheetPanel valuePanel() {
  return panel(5, {59, 60, Lbl61, Lbl62, 64, 65, 63, 75, 76},
               {{.number = 67, .caption = "币种", .text = text<&ChangeSheet::currency>}},
               {amount(68, "汇率", text<&ChangeSheet::exchangeRate>),
                amount(69, "净残值率", text<&ChangeSheet::residualRate>),
                amount(71, "变动前原值", shown<&ChangeSheet::before>),
                amount(73, "变动前净残值", text<&ChangeSheet::residualBefore>),
                amount(66, "增加金额", text<&ChangeSheet::increase>, Increase),
                amount(70, "增加净残值", text<&ChangeSheet::residualIncrease>),
                amount(72, "变动后原值", shown<&ChangeSheet::after>),
                amount(74, "变动后净残值", text<&ChangeSheet::residualAfter>)});
}

}  // namespace

const SheetPanel& panelOf(ChangeKind kind) {
  static const SheetPanel status = statusPanel();
  static const SheetPanel accumulated = accumulatedPanel();
  static const SheetPanel life = lifePanel();
  static const SheetPanel residual = residualPanel();
  static const SheetPanel transfer = transferPanel();
  static const SheetPanel value = valuePanel();
  switch (kind) {
    case ChangeKind::UsageStatus:
      return status;
    case ChangeKind::AccumulatedDepr:
      return accumulated;
    case ChangeKind::UsefulLife:
      return life;
    case ChangeKind::ResidualValue:
      return residual;
    case ChangeKind::Transfer:
      return transfer;
    case ChangeKind::OriginalValue:
      break;
  }
  return value;
}

}  // namespace zelkor
