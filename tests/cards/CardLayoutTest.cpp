#include <gtest/gtest.h>

#include <algorithm>

#include "cards/CardLayout.h"

namespace zelkor::test {
namespace {

using enum CardField;

std::string placeOf(CardField field, CardLayout layout) {
  for (const CardFieldPlace& place : layOutCard(layout)) {
    if (place.field != field) continue;
    return std::to_string(place.left) + " " + std::to_string(place.top) + " " + std::to_string(place.width);
  }
  return "";
}

TEST(CardLayoutTest, placesFieldsByRowAndColumn) {
  const struct {
    CardField field;
    const char *ordinary, *workload;  // left, top, width
  } cases[] = {
      {CardNumber, "165 58 95", "165 58 95"},
      {AssetName, "355 77 285", "355 77 285"},
      {DepreciationMethod, "544 153 96", "544 153 96"},
      {StartDate, "165 172 96", "165 191 96"},
      {NetValue, "165 229 96", "165 248 96"},
      {EntryDate, "544 263 96", "544 301 96"},  // 58 + 19 * 10 + 15; 58 + 19 * 12 + 15
      {TotalWorkload, "", "165 172 96"},
      {DeductibleTax, "", "165 267 96"},  // row 12 is still close to what is above
  };
  for (const auto& c : cases) {
    EXPECT_EQ(placeOf(c.field, CardLayout::Ordinary), c.ordinary) << cardFieldLabel(c.field);
    EXPECT_EQ(placeOf(c.field, CardLayout::Workload), c.workload) << cardFieldLabel(c.field);
  }
  EXPECT_EQ(layOutCard(CardLayout::Ordinary).size(), 27u);
  EXPECT_EQ(layOutCard(CardLayout::Workload).size(), cardFieldCount);
}

TEST(CardLayoutTest, leadsThroughTheFieldsAsOneReads) {
  std::string order;
  for (const CardField field : entryOrder(layOutCard(CardLayout::Workload))) {
    order += std::to_string(static_cast<int>(field)) + " ";
  }
  EXPECT_EQ(order, "3 4 5 6 7 8 9 10 11 12 13 28 29 30 14 17 18 19 20 23 24 31 ");
  EXPECT_EQ(cardLayoutOfMethod("工作量法"), CardLayout::Workload);
  EXPECT_EQ(cardLayoutOfMethod("工作量法 "), CardLayout::Ordinary);
}

TEST(CardFieldsTest, haveNumbersInputsAndSizes) {
  std::string labels;
  std::string picked;
  std::string digits;
  std::string sizes;
  for (const CardFieldRow& field : cardFields()) {
    const std::string label(field.label);
    labels += label + (field.enabled() ? " " : "* ");
    if (field.hasReference()) picked += label + (field.isCode() ? " " : "* ");
    if (field.input == CardInput::Digits) digits += label + " ";
    if (field.size() > 0 && !field.hasReference()) sizes += label + std::to_string(field.size()) + " ";
    EXPECT_EQ(&cardField(field.field), &field) << label;
  }
  EXPECT_EQ(labels,
            "卡片编号* 日期* 固定资产编号 固定资产名称 类别编号 类别名称 规格型号 部门名称 增加方式 存放地点 "
            "使用状况 "
            "使用年限 折旧方法 开始使用日期 已计提月份* 币种 原值 净残值率 净残值 累计折旧 月折旧率* "
            "月折旧额* 净值 "
            "对应折旧科目 项目* 录入人* 录入日期* 工作总量 累计工作量 工作量单位 可抵扣税额 ");
  EXPECT_EQ(picked, "类别编号 类别名称 部门名称 增加方式 使用状况 折旧方法 币种* 对应折旧科目 ");
  EXPECT_EQ(digits, "使用年限 原值 净残值率 净残值 累计折旧 净值 ");
  EXPECT_EQ(sizes, "卡片编号20 固定资产编号40 固定资产名称200 存放地点200 项目100 录入人60 工作量单位20 ");
}

}  // namespace
}  // namespace zelkor::test
