#include "cards/CardFinder.h"

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/Text.h"
#include "store/engine/Foresight.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kAmountPicture = "#,##0.00";
constexpr std::string_view kBetween = "　　";
constexpr std::string_view kDepartments = "fa_Departments";
constexpr std::string_view kCategories = "fa_AssetTypes";

std::string namesQuery(std::string_view table) {
  return sql("Select sNum,sName From ", table);
}

std::string nameBehind(const std::unordered_map<std::string, std::string>& names, const std::string& code) {
  const auto found = names.find(code);
  return found == names.end() ? std::string() : found->second;
}

}  // namespace

std::string summaryLine(const CardSummary& card) {
  std::string line;
  const auto add = [&line](std::string_view caption, const std::string& text) {
    if (!text.empty()) line += sql(line.empty() ? "" : kBetween, caption, text);
  };
  add("名称：", card.name);
  add("类别：", card.category);
  add("部门：", card.department);
  add("净值：", card.netValue);
  return line;
}

void CardFinder::forget() {
  archives_.reset();
  texts_.reset();
}

const std::string& CardFinder::textOf(std::string_view cardNum) {
  static const std::string kUnknown;
  if (!texts_) readTexts();
  const auto found = texts_->find(std::string(cardNum));
  return found == texts_->end() ? kUnknown : found->second;
}

/// The versions come in no order; of each card the one with the highest number counts.
void CardFinder::readTexts() {
  texts_.emplace();
  attempt("readTexts", 0, [this] {
    std::unordered_map<std::string, double> newest;
    Recordset rows =
        zkData().OpenRecordset("Select sCardNum,sCardID,sAssetName,sDeptNum,sTypeNum From fa_Cards");
    for (; !rows.Eof(); rows.MoveNext()) {
      std::string card = rows.TextOrEmpty("sCardNum");
      const double version = Val(rows.TextOrEmpty("sCardID"));
      const auto [known, isFirst] = newest.try_emplace(card, version);
      if (!isFirst && version < known->second) continue;
      known->second = version;
      (*texts_)[std::move(card)] =
          sql(rows.TextOrEmpty("sAssetName"), " ", departmentNames(rows.TextOrEmpty("sDeptNum")), " ",
              categoryName(rows.TextOrEmpty("sTypeNum")));
    }
    return 0;
  });
}

std::optional<CardSummary> CardFinder::summaryOf(std::string_view cardNum) {
  if (cardNum.find('\'') != std::string_view::npos) return std::nullopt;  // no statement can hold it
  return attempt("summaryOf", std::optional<CardSummary>(), [&]() -> std::optional<CardSummary> {
    const std::string cardQuery =
        sql("Select sAssetName,sDeptNum,sTypeNum,dblValue From fa_Cards Where sCardNum='", cardNum,
            "' order by clng(sCardID) desc");
    const std::string ledgerQuery =
        sql("Select dblInputDeprTotal From fa_DeprTransactions Where sCardNum='", cardNum, "'");
    std::vector<std::string> queries{cardQuery, ledgerQuery};
    if (!archives_) queries.insert(queries.end(), {namesQuery(kDepartments), namesQuery(kCategories)});
    const Foresight ahead(zkData(), queries);
    const Recordset card = zkData().OpenRecordset(cardQuery);
    if (card.Eof()) return std::nullopt;
    const Recordset ledger = zkData().OpenRecordset(ledgerQuery);
    const double depreciated = ledger.Eof() ? 0 : ledger.Fields("dblInputDeprTotal").numberOrZero();
    return CardSummary{card.TextOrEmpty("sAssetName"), categoryName(card.TextOrEmpty("sTypeNum")),
                       departmentNames(card.TextOrEmpty("sDeptNum")),
                       Format(card.Fields("dblValue").numberOrZero() - depreciated, kAmountPicture)};
  });
}

const CardFinder::Archives& CardFinder::archives() {
  if (!archives_) archives_ = Archives{namesIn(kDepartments), namesIn(kCategories)};
  return *archives_;
}

CardFinder::Names CardFinder::namesIn(std::string_view table) {
  Names names;
  Recordset rows = query("namesIn", namesQuery(table));
  for (; rows.isOpen() && !rows.Eof(); rows.MoveNext()) {
    names.emplace(rows.TextOrEmpty("sNum"), rows.TextOrEmpty("sName"));
  }
  return names;
}

std::string CardFinder::categoryName(const std::string& code) {
  return nameBehind(archives().categories, code);
}

std::string CardFinder::departmentNames(std::string_view codes) {
  if (codes.find('/') == std::string_view::npos) {
    return nameBehind(archives().departments, std::string(codes));
  }
  std::string names;
  for (const std::string& code : Split(codes, '/')) {
    names += sql(names.empty() ? "" : "/", nameBehind(archives().departments, code));
  }
  return names;
}

}  // namespace zelkor
