#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Format.h"
#include "depreciation/DeprPlan.h"
#include "depreciation/RunPreview.h"
#include "store/engine/Statement.h"
#include "support/Rows.h"

namespace zelkor::test {

/// The month as it will be booked: the allocation rows, the staged lines, and each card's rate and amount.
inline std::vector<std::string> promisedLines(const RunPreview& preview) {
  std::vector<std::string> lines = preview.problems;
  for (const PreviewedCard& card : preview.cards) {
    const DeprPlace& p = card.place;
    lines.push_back(sql(p.department, "|", p.departmentName, "|", p.category, "|", p.categoryName, "|",
                        p.subject, "|", p.subjectName, "|", card.amount));
  }
  for (const PreviewedEntry& entry : preview.entries) {
    const DeprPlace& p = entry.place;
    lines.push_back(sql(entry.line, "|", p.subject.empty() ? "~" : p.subject, "|",
                        p.department.empty() ? "~" : p.department, "|", entry.debit, "|", entry.credit));
  }
  for (const PreviewedCard& card : preview.cards)
    lines.push_back(card.number + "|" + Format(card.rate, "0.0000") + "|" + Format(card.amount, "0.00"));
  return lines;
}

/// The month as the last run has booked it, in the same form. Of the cards those of the preview.
inline std::vector<std::string> bookedLines(RunContext& run, const RunPreview& preview) {
  Database& data = run.dbZKData;
  const int m = run.period();
  std::vector<std::string> lines = rowsOf(
      data.OpenRecordset("select sDeptNum,sDeptName,sTypeNum,sTypeName,sSubjectNum,sSubjectName,dblCredit "
                         "from fa_DeprVouchers"));
  const auto add = [&](const std::string& query) {
    for (std::string& line : rowsOf(data.OpenRecordset(query))) lines.push_back(std::move(line));
  };
  add(sql("select inid,ccode,cdept_id,md,mc from fa_ZWVouchers where coutsign='折旧计提' and ioutperiod=", m,
          " order by inid"));
  for (const PreviewedCard& card : preview.cards) {
    const Recordset row =
        data.OpenRecordset(sql("select dblDeprRate", m, ",dblDepr", m,
                               " from fa_DeprTransactions where sCardNum='", card.number, "'"));
    lines.push_back(card.number + "|" + (row.Eof() ? "" : Format(row.Fields(0), "0.0000")) + "|" +
                    (row.Eof() ? "" : Format(row.Fields(1), "0.00")));
  }
  return lines;
}

/// Each card's amount of the month in the preview, and in the plan's first month, where a card that the
/// preview does not have has none.
inline std::pair<std::map<std::string, std::string>, std::map<std::string, std::string>> firstMonths(
    const RunPreview& preview, const DeprPlan& plan) {
  std::map<std::string, std::string> inPreview;
  std::map<std::string, std::string> inPlan;
  for (const PreviewedCard& card : preview.cards) inPreview.emplace(card.number, card.amount.toText());
  for (std::size_t i = 0; i < plan.cards.size(); ++i) {
    const Currency amount = plan.amountOf(i, 0);
    if (inPreview.contains(plan.cards[i].number) || amount != Currency())
      inPlan.emplace(plan.cards[i].number, amount.toText());
  }
  return {inPreview, inPlan};
}

}  // namespace zelkor::test
