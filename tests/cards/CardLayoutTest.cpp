#include <gtest/gtest.h>

#include <map>

#include "cards/CardLayout.h"
#include "store/catalogue/Catalogue.h"

namespace zelkor::test {
namespace {

using enum CardField;

std::map<CardField, CardFieldPlace> placesOf(CardLayout layout) {
  std::map<CardField, CardFieldPlace> places;
  for (const CardFieldPlace& place : layOutCard(layout)) places.emplace(place.field, place);
  return places;
}

TEST(CardLayoutTest, holdsTheFieldsInTheOrderOfTheValues) {
  EXPECT_EQ(layOutCard(CardLayout::Ordinary).size(), 27u);
  EXPECT_EQ(layOutCard(CardLayout::Workload).size(), cardFieldCount);
  for (const CardLayout layout : {CardLayout::Ordinary, CardLayout::Workload}) {
    for (const CardFieldPlace& place : layOutCard(layout))
      EXPECT_EQ(place.label, cardFieldLabel(place.field));
  }
}

TEST(CardLayoutTest, placesFieldsByRowAndColumn) {
  const struct {
    CardField field;
    int left, width;
    int ordinaryTop, workloadTop;
  } cases[] = {
      {CardNumber, 165, 95, 58, 58},           {CardDate, 544, 96, 58, 58},
      {AssetName, 355, 285, 77, 77},           {CategoryCode, 165, 96, 96, 96},
      {DepreciationMethod, 544, 96, 153, 153}, {StartDate, 165, 96, 172, 191},
      {ResidualValue, 544, 96, 191, 210},      {NetValue, 165, 96, 229, 248},
      {EntryDate, 544, 96, 263, 301},  // 58 + 19 * 10 + 15; 58 + 19 * 12 + 15
  };
  auto ordinary = placesOf(CardLayout::Ordinary);
  auto workload = placesOf(CardLayout::Workload);
  for (const auto& c : cases) {
    const auto label = cardFieldLabel(c.field);
    EXPECT_EQ(ordinary[c.field].left, c.left) << label;
    EXPECT_EQ(ordinary[c.field].width, c.width) << label;
    EXPECT_EQ(ordinary[c.field].top, c.ordinaryTop) << label;
    EXPECT_EQ(workload[c.field].left, c.left) << label;
    EXPECT_EQ(workload[c.field].top, c.workloadTop) << label;
  }
  EXPECT_EQ(workload[TotalWorkload].top, 172);
  EXPECT_EQ(workload[WorkloadUnit].left, 544);
  EXPECT_EQ(workload[DeductibleTax].top, 267) << "row 12 still stands close";
}

TEST(CardLayoutTest, tellsLockedFieldsReferencesAndTypes) {
  auto places = placesOf(CardLayout::Workload);
  std::string locked;
  std::string references;
  for (const auto& [field, place] : places) {
    if (!place.enabled) locked += place.label + " ";
    if (place.hasReference()) references += place.label + " ";
  }
  EXPECT_EQ(locked, "卡片编号 日期 已计提月份 月折旧率 月折旧额 项目 录入人 录入日期 ");
  EXPECT_EQ(references, "类别编号 类别名称 部门名称 增加方式 使用状况 折旧方法 币种 对应折旧科目 ");
  EXPECT_EQ(places[MonthlyRate].dataType, CardDataType::Cur);
  EXPECT_EQ(placesOf(CardLayout::Ordinary)[MonthlyRate].dataType, CardDataType::Per);
  EXPECT_EQ(places[StartDate].dataType, CardDataType::Date);
  EXPECT_EQ(places[MonthsDepreciated].dataType, CardDataType::Int);
}

TEST(CardLayoutTest, leadsThroughTheFieldsAsOneReads) {
  std::string order;
  for (const CardField field : entryOrder(layOutCard(CardLayout::Workload))) {
    order += std::to_string(static_cast<int>(field)) + " ";
  }
  EXPECT_EQ(order, "3 4 5 6 7 8 9 10 11 12 13 28 29 30 14 17 18 19 20 23 24 31 ");
}

TEST(CardLayoutTest, knowsTheArchivesOfItsLabels) {
  EXPECT_EQ(archiveOfLabel("类别名称"), ArchiveKind::AssetTypes);
  EXPECT_EQ(archiveOfLabel("使用状况"), ArchiveKind::Statuses);
  EXPECT_EQ(archiveOfLabel("币种"), std::nullopt);
  EXPECT_TRUE(isSubjectLabel("对应折旧科目"));
  EXPECT_EQ(cardLayoutOfMethod("工作量法"), CardLayout::Workload);
  EXPECT_EQ(cardLayoutOfMethod("工作量法 "), CardLayout::Ordinary);
  EXPECT_EQ(cardFieldSize(AssetName), 200u);
  EXPECT_EQ(cardFieldSize(StartDate), 0u);
}

}  // namespace
}  // namespace zelkor::test
