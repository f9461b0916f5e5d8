#include "closing/DisposalImport.h"

#include "base/Csv.h"
#include "base/RuntimeError.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

/// The day on which the asset left the books, by its newest version, whatever day the books are worked on.
std::optional<std::string> disposalDay(Database& data, const std::string& card) {
  const Recordset newest = data.OpenRecordset(
      sql("select top 1 dDisposeDate from fa_Cards where sCardNum='", card, "' order by val(sCardID) desc"));
  if (newest.Eof() || newest.Fields(std::size_t{0}).isNull()) return std::nullopt;
  return dayText(newest.Fields(std::size_t{0}).date());
}

std::string textOf(const CsvTableRow& row) {
  std::string text;
  for (const std::string& cell : row.cells) text += (text.empty() ? "" : ",") + csvField(cell);
  return text;
}

}  // namespace

DisposalImport::DisposalImport(RunContext& context, std::span<const CsvTableRow> rows)
    : context_(context), log_(context, "导入资产减少") {
  DisposalTable table = listDisposals(context.dbZKData, rows);
  problems_ = std::move(table.problems);
  if (!problems_.empty()) return;
  for (std::size_t i = 0; i < rows.size(); ++i) add(rows[i], table.assets[i]);
}

void DisposalImport::add(const CsvTableRow& row, const DisposedAsset& asset) {
  Row added{row.line, textOf(row), asset, false};
  if (const auto day = disposalDay(context_.dbZKData, asset.sCardNum)) {
    added.before = log_.take(added.text).has_value();
    if (!added.before) problems_.push_back(csvCellText(row.line, "卡片编号", "卡片已于 " + *day + " 减少"));
  }
  rows_.push_back(std::move(added));
}

// The log's note is written after the disposal, which may end in an error before the asset has left.
bool DisposalImport::dispose(const Row& row, ImportedDisposal& told) {
  const KeptTogether together = context_.dbZKData.keepTogether();
  const auto note = [&] {
    told.offTheBooks = disposalDay(context_.dbZKData, row.asset.sCardNum).has_value();
    if (told.offTheBooks) log_.note(row.text, row.asset.sCardNum);
  };
  try {
    if (!disposeOfAssets(context_, std::span(&row.asset, 1))) return false;
  } catch (const RuntimeError&) {
    told.end = DisposalEnd::Broken;
    told.offTheBooks = false;
    note();
    throw;
  }
  note();
  return true;
}

bool DisposalImport::dispose(const std::function<void(const ImportedDisposal&)>& ended) {
  for (const Row& row : rows_) {
    ImportedDisposal told{.line = row.line,
                          .cardNum = row.asset.sCardNum,
                          .end = row.before ? DisposalEnd::Before : DisposalEnd::Disposed,
                          .offTheBooks = true};
    try {
      if (!row.before && !dispose(row, told)) return false;
    } catch (const RuntimeError&) {
      if (told.end == DisposalEnd::Broken) ended(told);
      throw;
    }
    ended(told);
  }
  return true;
}

}  // namespace zelkor
