#include "audit/Movements.h"

#include <optional>

#include "audit/RulePieces.h"
#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

Currency amountIn(const Recordset& row, std::string_view column) {
  const Value value = row.Fields(column);
  return value.isNull() ? Currency() : CCur(value);
}

std::optional<DateTime> dateIn(const Recordset& row, std::string_view column) {
  const Value value = row.Fields(column);
  return value.isNull() ? std::nullopt : std::optional(CDate(value));
}

/// Goes through the versions of a card and keeps what they move in the year.
class CardHistory {
 public:
  CardHistory(int year, std::vector<Movement>& movements) : year_(year), movements_(movements) {}

  void take(const Recordset& version) {
    if (version.Text("sCardNum") != card_) {
      finish();
      begin(version);
    } else if (!disposed_ || dateIn(version, "dTransDate") <= disposed_) {
      change(version);  // what a sheet does to an asset that has left no longer counts
    }
    if (!disposed_) disposed_ = dateIn(version, "dDisposeDate");
  }
  void finish() {
    if (disposed_) move(disposed_, -value_, "资产减少");
  }

 private:
  void begin(const Recordset& version) {
    card_ = version.Text("sCardNum");
    disposed_.reset();
    value_ = amountIn(version, "dblValue");
    if (CInt(version.Fields("iNewType")) == 2) move(dateIn(version, "dInputDate"), value_, "新增资产");
  }
  void change(const Recordset& version) {
    const Currency value = amountIn(version, "dblValue");
    if (value != value_)
      move(dateIn(version, "dTransDate"), value - value_, "变动单 " + version.TextOrEmpty("sVoucherNum"));
    value_ = value;
  }
  void move(const std::optional<DateTime>& date, Currency amount, const std::string& detail) {
    if (date && date->year() == year_ && amount != Currency())
      movements_.push_back({date->month(), card_, "", amount, detail});
  }

  int year_;
  std::vector<Movement>& movements_;
  std::string card_;
  Currency value_;
  std::optional<DateTime> disposed_;
};

/// Only cards of which something may have moved in the year are gone through.
std::vector<Movement> valueMovements(Database& data, int year) {
  std::vector<Movement> movements;
  const std::string first = sql("#", year, "-1-1#");
  Recordset versions = data.OpenRecordset(
      sql("select c.sCardNum, c.iNewType, c.dblValue, c.dInputDate, c.dTransDate, c.dDisposeDate, "
          "c.sVoucherNum from "
          "fa_Cards c where c.sCardNum in (select sCardNum from fa_Cards where (iNewType=2 and dInputDate>=",
          first, ") or dTransDate>=", first, " or dDisposeDate>=", first,
          ") order by c.sCardNum, val(c.sCardID)"));
  CardHistory history(year, movements);
  for (; !versions.Eof(); versions.MoveNext()) history.take(versions);
  history.finish();
  return movements;
}

void addEach(Database& data, const std::string& query, const std::string& detail,
             std::vector<Movement>& movements) {
  for (Recordset rows = data.OpenRecordset(query); !rows.Eof(); rows.MoveNext())
    movements.push_back({CInt(rows.Fields("period")), rows.TextOrEmpty("card"), "", amountIn(rows, "amount"),
                         detail + rows.TextOrEmpty("place")});
}

std::string addedUntil(int month) {
  std::string sum = "t.dblInputDeprTotal";
  for (int n = 1; n <= 12; ++n) sum += sql("+iif(", n, "<=month(x.dDay),t.dblDepr", n, ",0)");
  return month == 0 ? "t.dblInputDeprTotal" : sum;
}

std::vector<Movement> accumulatedMovements(Database& data, const CheckPeriod& period) {
  std::vector<Movement> movements;
  addEach(
      data,
      sql("select month(c.dInputDate) as period, c.sCardNum as card, max(t.dblInputDeprTotal) as amount, '' "
          "as place "
          "from fa_Cards c inner join fa_DeprTransactions t on t.sCardNum=c.sCardNum where c.iNewType=2 and "
          "year(c.dInputDate)=",
          period.year, " and t.dblInputDeprTotal<>0 group by c.sCardNum, month(c.dInputDate)"),
      "新增资产", movements);
  addEach(data,
          sql("select month(dTransDate) as period, sCardNum as card, "
              "ccur(val(sAfterVoucher))-ccur(val(sBeforeVoucher)) as amount, "
              "sNum as place from fa_Vouchers where iVoucherType=5 and year(dTransDate)=",
              period.year),
          "变动单 ", movements);
  addEach(data,
          sql("select month(x.dDay) as period, x.sCardNum as card, -(", addedUntil(period.month),
              ") as amount, '' as place from (select sCardNum, min(dDisposeDate) as dDay from fa_Cards where "
              "dDisposeDate is not null group by sCardNum) x inner join fa_DeprTransactions t on "
              "t.sCardNum=x.sCardNum where year(x.dDay)=",
              period.year),
          "资产减少", movements);
  return movements;
}

}  // namespace

RegisterMovements registerMovements(Database& data, const CheckPeriod& period) {
  return {valueMovements(data, period.year), accumulatedMovements(data, period)};
}

MonthsDepreciation depreciationOfMonths(Database& data, const CheckPeriod& period) {
  MonthsDepreciation months;
  const Recordset row =
      data.OpenRecordset("select count(*) as lRows" + monthSums(period.run) + " from fa_DeprTransactions");
  Recordset runs = data.OpenRecordset(sql(
      "select distinct ioutperiod from fa_ZWVouchers where coutsign='折旧计提' and ioutyear=", period.year));
  for (; !runs.Eof(); runs.MoveNext()) {
    const int month = CInt(runs.Fields("ioutperiod"));
    if (month >= 1 && month <= period.run) months.amounts[month - 1] = amountIn(row, sql("d", month));
  }
  months.tolerance = Currency::fromScaled(50 * (1 + static_cast<std::int64_t>(CLng(row.Fields("lRows")))));
  return months;
}

std::vector<Movement> voucherMovements(Database& data, const CheckPeriod& period,
                                       const std::string& subject) {
  std::vector<Movement> movements;
  Recordset rows =
      data.OpenRecordset(sql("select iperiod, csign, ino_id, coutsign, iif(coutsign='卡片',coutno_id,'') as "
                             "sNumber, sum(md) as mDebit, sum(mc) as mCredit from "
                             "GL_accvouch where year(dbill_date)=",
                             period.year, " and iperiod>0 and ccode like '", subject,
                             "*' and (iflag<>1 or iflag is null) group by iperiod, csign, ino_id, coutsign, "
                             "iif(coutsign='卡片',coutno_id,'') order by iperiod, csign, ino_id"));
  for (; !rows.Eof(); rows.MoveNext()) {
    movements.push_back({CInt(rows.Fields("iperiod")), rows.TextOrEmpty("sNumber"),
                         "凭证 " + rows.TextOrEmpty("csign") + "--" + rows.TextOrEmpty("ino_id"),
                         amountIn(rows, "mDebit") - amountIn(rows, "mCredit"), rows.TextOrEmpty("coutsign")});
  }
  return movements;
}

}  // namespace zelkor
