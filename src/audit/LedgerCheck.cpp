#include "audit/LedgerCheck.h"

#include <algorithm>
#include <optional>
#include <set>

#include "audit/Movements.h"
#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"
#include "store/settings/Parameters.h"

namespace zelkor {
namespace {

std::string amountText(Currency amount) {
  return Format(amount.toDouble(), "0.00##");
}

Currency distance(Currency amount) {
  return amount < Currency() ? -amount : amount;
}

/// One of the two accounts.
struct Account {
  std::string_view code;  // of the rule
  std::string name;
  std::string subject;
  bool onCredit = false;  // its balance stands on the credit side
};

Currency totalOf(const std::vector<Movement>& movements, int month) {
  Currency total;
  for (const Movement& one : movements) total += one.month == month ? one.amount : Currency();
  return total;
}

/// What is left of both sides of a month when what agrees is taken away: first by card, then by amount.
class Matching {
 public:
  Matching(const std::vector<Movement>& books, const std::vector<Movement>& ledger, int month,
           Currency tolerance) {
    const auto isOfMonth = [month](const Movement& one) {
      return one.month == month && one.amount != Currency();
    };
    std::ranges::copy_if(books, std::back_inserter(register_), isOfMonth);
    std::ranges::copy_if(ledger, std::back_inserter(ledger_), isOfMonth);
    takeAway([](const Movement& a, const Movement& b) { return a.card == b.card && a.amount == b.amount; });
    takeAway(
        [&](const Movement& a, const Movement& b) { return distance(a.amount - b.amount) <= tolerance; });
  }
  const std::vector<Movement>& ofRegister() const { return register_; }
  const std::vector<Movement>& ofLedger() const { return ledger_; }

 private:
  template <typename Agree>
  void takeAway(Agree agree) {
    std::erase_if(register_, [&](const Movement& one) {
      const auto other = std::ranges::find_if(ledger_, [&](const Movement& two) { return agree(one, two); });
      if (other == ledger_.end()) return false;
      ledger_.erase(other);
      return true;
    });
  }

  std::vector<Movement> register_;
  std::vector<Movement> ledger_;
};

/// Compares an account with the register, month by month.
class Reconciliation {
 public:
  Reconciliation(const Account& account, const CheckPeriod& period, CheckResult& result)
      : account_(account), period_(period), result_(result) {}

  void compare(const std::vector<Movement>& books, const std::vector<Movement>& ledger, Currency tolerance) {
    Currency sum;
    for (int month = 1; month <= period_.month; ++month) {
      const Currency ours = totalOf(books, month);
      const Currency theirs = totalOf(ledger, month);
      sum += theirs - ours;
      if (distance(theirs - ours) <= tolerance) continue;
      add({.place = "科目 " + account_.subject,
           .period = month,
           .amount = theirs - ours,
           .detail = "账务 " + amountText(theirs) + "，登记簿 " + amountText(ours) + "，本年累计差额 " +
                     amountText(sum)});
      tellParts(Matching(books, ledger, month, tolerance));
    }
  }

 private:
  void tellParts(const Matching& rest) {
    for (const Movement& one : rest.ofRegister())
      add({.card = one.card,
           .period = one.month,
           .amount = one.amount,
           .detail = "登记簿有而账务没有：" + one.detail});
    for (const Movement& one : rest.ofLedger())
      add({.card = one.card,
           .place = one.place,
           .period = one.month,
           .amount = one.amount,
           .detail = "账务有而登记簿没有" + (one.detail.empty() ? "" : "：" + one.detail)});
  }
  void add(Finding finding) {
    finding.rule = findCheckRule(account_.code);
    if (finding.rule != nullptr) result_.findings.push_back(std::move(finding));
  }

  const Account& account_;
  const CheckPeriod& period_;
  CheckResult& result_;
};

/// Entries of the month that are still to be made into vouchers are no difference yet.
struct Pending {
  std::set<std::string> cards;
  bool depreciation = false;
};

Pending pendingOf(Database& data, const CheckPeriod& period) {
  Pending pending;
  Recordset rows = data.OpenRecordset(
      sql("select distinct coutsign, coutno_id from fa_ZWVouchers where ioutyear=", period.year,
          " and ioutperiod=", period.month, " and nz(cDefine1,'')=''"));
  for (; !rows.Eof(); rows.MoveNext()) {
    if (rows.TextOrEmpty("coutsign") == "折旧计提") {
      pending.depreciation = true;
    } else {
      pending.cards.insert(rows.TextOrEmpty("coutno_id"));
    }
  }
  return pending;
}

void leaveOut(std::vector<Movement>& movements, const Pending& pending, int month) {
  std::erase_if(movements,
                [&](const Movement& one) { return one.month == month && pending.cards.contains(one.card); });
}

void addDepreciation(std::vector<Movement>& movements, const MonthsDepreciation& months,
                     const CheckPeriod& period, const Pending& pending) {
  for (int month = 1; month <= period.month; ++month) {
    if (month == period.month && pending.depreciation) continue;
    movements.push_back({month, "", "", months.amounts[month - 1], "本月折旧"});
  }
}

/// The subject's balance before the year: of the subject itself, else of those below it that have none below
/// them. Nothing where the ledger has none.
std::optional<Currency> openingOf(Database& data, const CheckPeriod& period, const Account& account) {
  const std::string sum =
      "select sum(iif(s.cbegind_c='贷',-s.mb,s.mb)) as mOpening from GL_accsum s where s.iperiod=1 and s.mb "
      "is not null and ";
  Value opening = data.OpenRecordset(sql(sum, "s.ccode='", account.subject, "'")).Fields("mOpening");
  if (opening.isNull())
    opening = data.OpenRecordset(sql(sum, "s.ccode like '", account.subject,
                                     "*' and s.ccode in (select k.ccode from code k where k.bend=True)"))
                  .Fields("mOpening");
  const Value vouchers =
      data.OpenRecordset(
              sql("select sum(md)-sum(mc) as mOpening from GL_accvouch where iperiod=0 and ccode like '",
                  account.subject, "*' and year(dbill_date)=", period.year))
          .Fields("mOpening");
  if (opening.isNull() && vouchers.isNull()) return std::nullopt;
  const Currency balance =
      (opening.isNull() ? Currency() : CCur(opening)) + (vouchers.isNull() ? Currency() : CCur(vouchers));
  return account.onCredit ? -balance : balance;
}

Currency valueNow(Database& data) {
  const Value sum =
      data.OpenRecordset(
              "select sum(c.dblValue) as dblSum from fa_Cards c where c.dDisposeDate is null and not exists "
              "(select "
              "z.sCardID from fa_Cards z where z.sCardNum=c.sCardNum and val(z.sCardID)>val(c.sCardID))")
          .Fields("dblSum");
  return sum.isNull() ? Currency() : CCur(sum);
}

Currency accumulatedAtEntry(Database& data) {
  const Value sum =
      data.OpenRecordset(
              "select sum(t.dblInputDeprTotal) as dblSum from fa_DeprTransactions t where not exists "
              "(select c.sCardNum from fa_Cards c where c.sCardNum=t.sCardNum and c.iNewType=2)")
          .Fields("dblSum");
  return sum.isNull() ? Currency() : CCur(sum);
}

void compareOpening(const Account& account, std::optional<Currency> ledger, Currency books,
                    CheckResult& result) {
  const CheckRule* rule = findCheckRule("L03");
  if (!ledger || distance(*ledger - books) <= Currency::fromScaled(50) || rule == nullptr) return;
  result.findings.push_back(
      {.rule = rule,
       .place = "科目 " + account.subject,
       .amount = *ledger - books,
       .detail = account.name + "：账务 " + amountText(*ledger) + "，登记簿 " + amountText(books)});
}

std::vector<Movement> turned(std::vector<Movement> movements) {
  for (Movement& one : movements) one.amount = -one.amount;
  return movements;
}

}  // namespace

void checkLedger(ReadBooks& books, const CheckPeriod& period, CheckResult& result) {
  Database& data = books.data();
  const Account value{"L01", "原值", readParameter(data, "sFixedAssetsSubjectNum").value_or(""), false};
  const Account accumulated{"L02", "累计折旧", readParameter(data, "sDeprTotalSubjectNum").value_or(""),
                            true};
  if (value.subject.empty() || accumulated.subject.empty()) {
    result.notes.push_back("没有与账务核对：选项中没有设置固定资产对账科目和累计折旧对账科目");
    return;
  }
  RegisterMovements movements = registerMovements(data, period);
  Currency opening = valueNow(data);
  for (const Movement& one : movements.value) opening = opening - one.amount;
  compareOpening(value, openingOf(data, period, value), opening, result);
  if (period.isFirstYear)
    compareOpening(accumulated, openingOf(data, period, accumulated), accumulatedAtEntry(data), result);

  const Pending pending = pendingOf(data, period);
  leaveOut(movements.value, pending, period.month);
  leaveOut(movements.accumulated, pending, period.month);
  Reconciliation(value, period, result)
      .compare(movements.value, voucherMovements(data, period, value.subject), Currency::fromScaled(50));
  const MonthsDepreciation months = depreciationOfMonths(data, period);
  addDepreciation(movements.accumulated, months, period, pending);
  Reconciliation(accumulated, period, result)
      .compare(movements.accumulated, turned(voucherMovements(data, period, accumulated.subject)),
               months.tolerance);
}

}  // namespace zelkor
