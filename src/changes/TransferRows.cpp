#include "changes/TransferRows.h"

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

std::vector<CardVersion> versionsOf(Recordset rows) {
  std::vector<CardVersion> versions;
  for (; !rows.Eof(); rows.MoveNext()) versions.emplace_back(rows);
  return versions;
}

}  // namespace

CarriedRows::CarriedRows(const std::string& cardNum)
    : condition_(sql("sCardNum='", cardNum, "'")),
      lastShare_("select max(lOptID) as ch0 from fa_deptscale where " + condition_),
      lastDetail_("select max(lOptID) as ch from fa_cards_detail where " + condition_) {}

std::string CarriedRows::sharesOf(const Value& lOptID) const {
  return sql("select * from fa_deptscale where lOptID=", CLng(lOptID), " and ", condition_);
}

std::string CarriedRows::detailsOf(const Value& lOptID) const {
  return sql("select * from fa_cards_detail where lOptID =", CLng(lOptID), " and ", condition_);
}

void CarriedRows::addFound(const StatementGroup& group, std::vector<std::string>& statements) const {
  const auto add = [&](const std::string& last, auto statementOf) {
    const Recordset* found = group.foreseen(last);
    if (found == nullptr) return;
    const Value lOptID = found->Fields(std::size_t{0});
    if (!lOptID.isNull()) statements.push_back((this->*statementOf)(lOptID));
  };
  add(lastShare_, &CarriedRows::sharesOf);
  add(lastDetail_, &CarriedRows::detailsOf);
}

std::vector<CardVersion> CarriedRows::shares(StatementGroup& group) const {
  const Value last = group.rowsOf(lastShare_).Fields("ch0");
  if (last.isNull()) return {};
  return versionsOf(group.rowsOf(sharesOf(last)));
}

std::vector<CardVersion> CarriedRows::details(StatementGroup& group) const {
  const Value last = group.rowsOf(lastDetail_).Fields("ch");
  if (last.isNull()) return {};
  return versionsOf(group.rowsOf(detailsOf(last)));
}

}  // namespace zelkor
