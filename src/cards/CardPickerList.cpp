#include "cards/CardPickerList.h"

#include <optional>
#include <set>
#include <string>

#include "cards/CardVersions.h"
#include "cards/ClsBLLCards.h"
#include "startup/Logs.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

TextGrid heading() {
  TextGrid grid;
  grid.setHeader("卡片编号|固定资产编号|固定资产名称|规格型号|开始使用日期|折旧方法|录入人|折旧方法编号");
  grid.setColumnHidden(card_column::MethodID, true);
  return grid;
}

/// The cards of the versions in force. A version also is among them for the number that it has in common
/// with another card's newest one: there its own card's newest version decides.
std::set<std::string> cardsOnOffer(RunContext& run) {
  const std::string date = dayText(run.gdOpDate);
  Recordset versions = run.dbZKData.OpenRecordset(sql(
      "SELECT fa_Cards.sCardNum, fa_Cards.sAssetNum , fa_Cards.sAssetName FROM fa_Cards  Where "
      "(fa_Cards.dDisposeDate Is null) And fa_Cards.iOptType<>8 And fa_Cards.iOptType<>6  AND "
      "cint(fa_Cards.sCardID) IN (SELECT Max(cint(sCardID)) From fa_Cards WHERE (((fa_Cards.dInputDate)<=#",
      date, "#) AND ((fa_Cards.dTransDate)<=#", date,
      "# Or (fa_Cards.dTransDate) Is Null) AND ((fa_Cards.dDisposeDate)<=#", date,
      "# Or (fa_Cards.dDisposeDate) Is Null)) GROUP BY fa_Cards.sCardNum) Order By fa_Cards.sCardNum"));
  const std::set<std::string> inForce = cardsInForce(run.dbZKData, run.gdOpDate);
  std::set<std::string> cards;
  for (; !versions.Eof(); versions.MoveNext()) {
    std::string card = versions.TextOrEmpty("sCardNum");
    if (inForce.contains(card)) cards.insert(std::move(card));
  }
  return cards;
}

/// Of each card the first row.
void addCards(Recordset rows, const std::set<std::string>& offered, TextGrid& grid) {
  std::optional<std::string> last;
  for (; !rows.Eof(); rows.MoveNext()) {
    std::string card = rows.TextOrEmpty("sCardNum");
    if (last == card || !offered.contains(card)) continue;
    grid.addRow({card, rows.TextOrEmpty("sAssetNum"), rows.TextOrEmpty("sAssetName"),
                 rows.TextOrEmpty("sStyle"), rows.TextOrEmpty("dStartdate"), rows.TextOrEmpty("sName"),
                 rows.TextOrEmpty("sOperator"), rows.TextOrEmpty("sID")});
    last = std::move(card);
  }
}

}  // namespace

TextGrid cardPickerList(RunContext& run) {
  ClsBLLCards cards(run.engine);
  cards.setZkDataPath(run.gstrZtFile);
  try {
    TextGrid grid = heading();
    const std::set<std::string> offered = cardsOnOffer(run);
    const Recordset rows = cards.rstGetCards();
    if (rows.isOpen()) addCards(rows, offered, grid);
    return grid;
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "frmCards.Form_Load");
    return heading();
  }
}

}  // namespace zelkor
