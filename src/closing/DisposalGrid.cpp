#include "closing/DisposalGrid.h"

#include <array>

namespace zelkor {
namespace {

using namespace disposal_column;

constexpr std::array kWidths = {1000, 1000, 1000, 1000, 1200, 1200, 1200, 1500};

bool holds(const TextGrid& list, const std::string& card) {
  for (std::size_t row = list.headerRows(); row < list.rows(); ++row) {
    if (list.text(row, cardNum) == card) return true;
  }
  return false;
}

}  // namespace

TextGrid emptyDisposalGrid() {
  TextGrid list;
  list.setHeader("卡片编号|资产编号|资产名称|减少日期|减少方式|清理收入|清理费用|清理原因");
  for (std::size_t column = 0; column < kWidths.size(); ++column) {
    list.setColumnWidth(column, kWidths[column]);
  }
  for (const std::size_t column : {revenue, cost}) list.setAlignment(column, Align::Right);
  return list;
}

void addDisposals(TextGrid& list, std::span<const PickedCard> cards, const std::string& day) {
  for (const PickedCard& card : cards) {
    if (holds(list, card.sCardNum)) return;
    list.addRow({card.sCardNum, card.sAssetNum, card.sAssetName, day});
  }
}

std::vector<DisposedAsset> listedDisposals(const TextGrid& list, const std::string& wayID) {
  std::vector<DisposedAsset> assets;
  for (std::size_t row = list.headerRows(); row < list.rows(); ++row) {
    assets.push_back({.sCardNum = list.text(row, cardNum),
                      .sAssetNum = list.text(row, assetNum),
                      .sAssetName = list.text(row, assetName),
                      .way = list.text(row, way),
                      .wayID = wayID,
                      .revenue = list.text(row, revenue),
                      .cost = list.text(row, cost),
                      .reason = list.text(row, reason)});
  }
  return assets;
}

}  // namespace zelkor
