#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportView.h"
#include "store/engine/Recordset.h"

// What the ledgers share, above all those that list one line per version of a card.
namespace zelkor {

/// The caption lines of a ledger, for which the dialog's page of the general ledger names the period.
void setLedgerCaptions(ReportView& view, const ReportConditions& conditions);

/// The assets that a ledger is limited to.
AssetSet chosenAssets(const ReportConditions& conditions);

/// The condition on a version of a card that limits it to these assets; empty for all.
std::string assetCondition(const AssetSet& assets);

/// Query of the versions with their ledger rows: `columns`, then the rest by the assets chosen. Transfers are
/// left out only when all are.
std::string cardLinesQuery(std::string_view columns, const AssetSet& assets);

/// The kind of a version; 0 where the card has none.
int kindOf(const Recordset& card);

/// What a version of that kind is called in a ledger; empty for some.
std::string_view digestOf(int iOptType);

/// The columns that lines of cards begin with. Equal texts of an asset's lines are shown as one.
template <typename Report>
struct CardLineColumns : ReportColumns<Report> {
  using typename ReportColumns<Report>::Column;
  using ReportColumns<Report>::add;

  Column date = add({"日期", 1200});
  Column assetNumber = add({.caption = "资产编号", .width = 1200, .merged = true});
  Column documentNumber = add({.caption = "业务单号", .width = 1200, .merged = true});
  Column voucherNumber = add({.caption = "凭证号", .width = 750, .merged = true});
  Column digest = add({"摘要", 1200});
  Column assetName = add({.caption = "资产名称", .width = 1200, .merged = true});
};

/// Writes those columns but the digest. The card's number is that of the document.
template <typename Columns>
void writeCardHead(ReportGrid<Columns>& grid, const Columns& columns, std::size_t row,
                   const Recordset& card) {
  grid.put(row, columns.date, card.TextOrEmpty("dInputDate"));
  grid.put(row, columns.assetNumber, card.TextOrEmpty("sAssetNum"));
  grid.put(row, columns.documentNumber, card.TextOrEmpty("sCardNum"));
  grid.put(row, columns.voucherNumber, card.TextOrEmpty("sZWVoucherType"));
  grid.put(row, columns.assetName, card.TextOrEmpty("sAssetName"));
}

}  // namespace zelkor
