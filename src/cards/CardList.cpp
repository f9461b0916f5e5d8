#include "cards/CardList.h"

#include <array>
#include <utility>
#include <vector>

#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kAmountPicture = "##,###.00";
constexpr std::size_t kStartColumn = 2;
constexpr std::size_t kLifeColumn = 3;
constexpr std::size_t kAmountColumn = 4;
constexpr std::size_t kRateColumn = 6;
constexpr std::size_t kColumns = 8;

std::string_view filterCondition(CardFilter filter) {
  switch (filter) {
    case CardFilter::All:
      break;
    case CardFilter::InService:
      return "dDisposeDate is null";
    case CardFilter::Disposed:
      return "dDisposeDate is not null";
  }
  return {};
}

}  // namespace

std::string_view cardFilterName(CardFilter filter) {
  switch (filter) {
    case CardFilter::All:
      break;
    case CardFilter::InService:
      return "在役资产";
    case CardFilter::Disposed:
      return "已减少资产";
  }
  return "全部卡片";
}

std::string cardListCondition(std::string_view nodeCondition, CardFilter filter) {
  const std::string_view filtered = filterCondition(filter);
  const bool both = !nodeCondition.empty() && !filtered.empty();
  return sql(nodeCondition, both ? "  and  " : "", filtered);
}

std::string cardListCaption(std::string_view nodeName, CardFilter filter, std::size_t cards) {
  const std::string_view filterName = cardFilterName(filter);
  const bool root = nodeName.empty();
  return sql("卡片管理 卡片[", root ? filterName : nodeName, "  ", root ? "" : filterName, "](共计卡片",
             cards, "张)");
}

CardList::CardList(Recordset rows) : rows_(std::move(rows)) {
  rows_.keepStreaming();
}

TextGrid CardList::heading() {
  TextGrid grid;
  grid.setHeader("|卡片编号|开始使用日期|使用年限|原值|固定资产编号|净残值率|录入人");
  grid.setColumnHidden(0, true);
  constexpr std::array<int, kColumns> twips = {0, 1200, 1500, 2550, 1950, 2025, 1200, 1500};
  for (std::size_t column = 1; column < kColumns; ++column) grid.setColumnWidth(column, twips[column]);
  for (const std::size_t column : {kLifeColumn, kAmountColumn, kRateColumn}) {
    grid.setAlignment(column, Align::Right);
  }
  return grid;
}

TextGrid CardList::next(std::size_t limit) {
  TextGrid grid(0, kColumns);
  for (; grid.rows() < limit && !rows_.Eof(); rows_.MoveNext()) {
    std::string card = rows_.TextOrEmpty("sCardNum");
    if (lastCard_ == card) continue;
    addCard(grid);
    lastCard_ = std::move(card);
  }
  if (rows_.Eof()) addTotal(grid);
  return grid;
}

void CardList::addCard(TextGrid& grid) {
  const Value amount = rows_.Fields("原值");
  const std::size_t row = grid.addRow();
  grid.setText(row, kCardNumColumn, rows_.TextOrEmpty("卡片编号"));
  grid.setText(row, kStartColumn, rows_.TextOrEmpty("开始使用日期"));
  grid.setText(row, kLifeColumn, rows_.TextOrEmpty("使用年限") + "年" + "0月");
  grid.setText(row, kAmountColumn, Format(amount, kAmountPicture));
  grid.setText(row, kAssetNumColumn, rows_.TextOrEmpty("固定资产编号"));
  grid.setText(row, kRateColumn, Format(rows_.Fields("净残值率"), "0.##"));
  grid.setText(row, kOperatorColumn, rows_.TextOrEmpty("录入人"));
  total_ += amount.numberOrZero();
  ++cards_;
}

void CardList::addTotal(TextGrid& grid) {
  if (complete_) return;
  complete_ = true;
  const std::size_t row = grid.addRow();
  grid.setText(row, kCardNumColumn, "合计：");
  grid.setText(row, kAmountColumn, Format(static_cast<double>(total_), kAmountPicture));
  grid.setTotal(row);
}

}  // namespace zelkor
