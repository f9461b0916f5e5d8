#include "cards/CardRow.h"

#include <algorithm>
#include <bitset>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <utility>

#include "archives/ArchiveTrees.h"
#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cards/CardChecks.h"
#include "cards/CardFigures.h"
#include "cards/CardLayout.h"

namespace zelkor {
namespace {

/// The entries of an archive; without its root, of which `root` is the code.
CardArchive archiveOf(ClsBLLAssentTypes& types, ArchiveKind kind, const std::string& root) {
  const std::vector<TreeRow> tree = archiveTree(types, kind);
  if (const auto failure = types.takeFailure()) throw *failure;
  CardArchive archive{.codes = {}, .heads = codesOfHeads(tree)};
  for (const TreeRow& row : tree) archive.codes.insert(row.tag);
  archive.codes.erase(root);
  return archive;
}

/// The methods by their names.
CardArchive methodsOf(ClsBLLAssentTypes& types) {
  CardArchive methods;
  for (const TreeRow& row : archiveTree(types, ArchiveKind::Methods)) methods.codes.insert(row.text);
  if (const auto failure = types.takeFailure()) throw *failure;
  return methods;
}

/// Collects what is wrong with the cells of one row.
class RowCheck {
 public:
  RowCheck(CardValues& card, std::vector<CellProblem>& problems) : card_(card), problems_(problems) {}

  void refuse(CardField field, std::string reason) {
    problems_.push_back({std::string(cardFieldLabel(field)), std::move(reason)});
  }
  void needed();
  /// That the archive holds the code, and nothing below it.
  void known(CardField field, const std::string& code, const CardArchive& archive, const char* name);
  std::optional<double> number(CardField field, const char* blank);
  /// A number of 0 or more; blank is 0.
  std::optional<double> amount(CardField field);
  std::optional<double> whole(CardField field, const char* blank);
  void date(CardField field, std::optional<DateTime> blank);
  /// The fields that are saved as they are given, by their types and the sizes of their columns.
  void others(bool workload);

 private:
  void other(const CardFieldRow& field);

  CardValues& card_;
  std::vector<CellProblem>& problems_;
  std::bitset<kCardFieldCount + 1> checked_;  // the fields with a check of their own
};

void RowCheck::known(CardField field, const std::string& code, const CardArchive& archive, const char* name) {
  if (!archive.codes.contains(code)) {
    refuse(field, std::string(name) + "中没有“" + code + "”");
  } else if (archive.heads.contains(code)) {
    refuse(field, std::string(name) + "“" + code + "”不是末级，应填其下级的编码");
  }
}

void RowCheck::needed() {
  for (const CardFieldRow& field : cardFields()) {
    if (field.inRegister && card_[field.field].empty()) refuse(field.field, "不能为空");
  }
}

void RowCheck::others(bool workload) {
  for (const CardFieldRow& field : cardFields()) {
    const bool counts = workload || !field.withWorkload || field.type == CardDataType::Str;
    if (field.isSaved() && counts && !field.isCode() && !checked_[static_cast<std::size_t>(field.field)])
      other(field);
  }
}

void RowCheck::other(const CardFieldRow& field) {
  std::string& text = card_[field.field];
  switch (field.type) {
    case CardDataType::Str:
      if (const std::size_t size = field.size(); size > 0 && Len(text) > size) {
        refuse(field.field, "超过" + std::to_string(size) + "个字符");
      }
      break;
    case CardDataType::Date:
      date(field.field, std::nullopt);
      break;
    case CardDataType::Int:
      whole(field.field, "0");
      break;
    default:
      number(field.field, "0");
  }
  if (text.empty()) text = field.initial.empty() ? field.blank : field.initial;
}

std::optional<double> RowCheck::number(CardField field, const char* blank) {
  checked_.set(static_cast<std::size_t>(field));
  std::string& text = card_[field];
  if (text.empty()) text = blank;
  const auto value = parseNumber(text);
  if (!value || !std::isfinite(*value)) {
    refuse(field, "“" + text + "”不是数字");
    return std::nullopt;
  }
  constexpr double kLargest = 922337203685477.0;  // what a currency value can hold
  if (std::abs(*value) > kLargest) {
    refuse(field, "“" + text + "”超出范围");
    return std::nullopt;
  }
  text = textOfDouble(*value);
  return value;
}

std::optional<double> RowCheck::amount(CardField field) {
  const auto value = number(field, "0");
  if (!value || *value >= 0) return value;
  refuse(field, "不能为负数");
  return std::nullopt;
}

std::optional<double> RowCheck::whole(CardField field, const char* blank) {
  const auto value = number(field, blank);
  if (!value) return std::nullopt;
  if (*value < 0) {
    refuse(field, "不能为负数");
  } else if (*value != std::floor(*value)) {
    refuse(field, "应为整数");
  } else if (*value > std::numeric_limits<std::int32_t>::max()) {
    refuse(field, "超出范围");
  } else {
    return value;
  }
  return std::nullopt;
}

void RowCheck::date(CardField field, std::optional<DateTime> blank) {
  checked_.set(static_cast<std::size_t>(field));
  std::string& text = card_[field];
  const auto value = text.empty() ? blank : parseDate(text);
  if (value) {
    constexpr std::size_t kDay = 10;
    text = value->toIso().substr(0, kDay);
  } else if (!text.empty()) {
    refuse(field, "“" + text + "”不是日期");
  }
}

void refuseQuotes(const RegisterColumns& columns, const std::vector<std::string>& cells,
                  std::vector<CellProblem>& problems) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (cells[i].find('\'') != std::string::npos) {
      problems.push_back({columns.caption(i), "值中有单引号（'），会打断保存卡片的语句"});
    }
  }
}

void checkArchives(RowCheck& check, const CardValues& card, const CardArchives& archives) {
  const auto known = [&](CardField field, const CardArchive& archive, const char* name) {
    if (!card[field].empty()) check.known(field, card[field], archive, name);
  };
  known(CardField::CategoryCode, archives.categories, "固定资产类别");
  known(CardField::AdditionWay, archives.additionWays, "增加方式");
  known(CardField::UsageStatus, archives.statuses, "使用状况");
  known(CardField::DepreciationMethod, archives.methods, "折旧方法");
  const std::string& department = card[CardField::Department];
  if (!department.empty()) {
    check.known(CardField::Department, Trim(std::string_view(department).substr(0, department.find(','))),
                archives.departments, "部门");
  }
  const std::string& subject = card[CardField::DepreciationSubject];
  const std::string code = subject.substr(0, subject.find(','));
  if (!subject.empty() && !archives.isDetailSubject(code)) {
    check.refuse(CardField::DepreciationSubject, subjectRefusal(code));
  }
}

/// The column in which a register has the figure that is too large: it may leave out what follows from the
/// others.
CardField columnOf(const ValueFault& fault, bool residualGiven, bool isDepreciated) {
  if (fault.field == CardField::ResidualValue && residualGiven) return CardField::ResidualValue;
  return isDepreciated ? CardField::AccumulatedDepreciation : CardField::ResidualRate;
}

void checkFigures(RowCheck& check, CardValues& card) {
  const bool valueGiven = !card[CardField::OriginalValue].empty();
  const bool residualGiven = !card[CardField::ResidualValue].empty();
  const auto value = check.amount(CardField::OriginalValue);
  const auto rate = check.number(CardField::ResidualRate, "0");
  const bool isFraction = rate && *rate >= 0 && *rate <= 1;
  if (rate && !isFraction) check.refuse(CardField::ResidualRate, "应为 0 到 1 之间的小数，如 0.05");
  if (!residualGiven && value && isFraction) {
    card[CardField::ResidualValue] = residualValueText(*rate, *value);
  }
  const auto residual = check.amount(CardField::ResidualValue);
  const auto depreciated = check.amount(CardField::AccumulatedDepreciation);
  if (!value || !residual || !depreciated) return;
  card[CardField::NetValue] = netValueText(*value, *depreciated);
  // The screen looks at the figures when one of these two is entered.
  if (!valueGiven || (!residualGiven && *depreciated == 0)) return;
  if (const auto fault = valueFault(card)) {
    check.refuse(columnOf(*fault, residualGiven, *depreciated > 0), fault->message);
  }
}

/// Workload cards carry what one unit of work costs; it follows from the figures where it is not given.
void checkWorkload(RowCheck& check, CardValues& card) {
  const auto total = check.number(CardField::TotalWorkload, "0");
  check.number(CardField::DeductibleTax, "0");
  if (card[CardField::MonthlyRate].empty() && total && *total > 0) {
    card[CardField::MonthlyRate] =
        unitCostText(Val(card[CardField::NetValue]), Val(card[CardField::ResidualValue]), *total);
  }
  check.number(CardField::MonthlyRate, "0");
}

void checkDates(RowCheck& check, CardValues& card, const CardDefaults& defaults) {
  const DateTime operatingDate = defaults.operatingDate;
  check.date(CardField::StartDate, std::nullopt);
  check.date(CardField::CardDate, operatingDate);
  check.date(CardField::EntryDate, operatingDate);
  const auto start = parseDate(card[CardField::StartDate]);
  if (start) {
    std::string fault = startDateFault(defaults.mode, card[CardField::StartDate], operatingDate);
    if (!fault.empty()) check.refuse(CardField::StartDate, std::move(fault));
  }
  if (card[CardField::MonthsDepreciated].empty() && start) {
    const auto months = std::max<std::int64_t>(0, DateDiff("m", *start, operatingDate));
    card[CardField::MonthsDepreciated] = std::to_string(months);
  }
  check.whole(CardField::MonthsDepreciated, "0");
}

}  // namespace

CardArchives CardArchives::read(RunContext& context) {
  ClsBLLAssentTypes types(context.engine);
  types.setZkDataPath(context.gstrZtFile);
  CardArchives archives{.categories = archiveOf(types, ArchiveKind::AssetTypes, "&"),
                        .departments = archiveOf(types, ArchiveKind::Departments, "&"),
                        .additionWays = archiveOf(types, ArchiveKind::Origins, "0"),
                        .statuses = archiveOf(types, ArchiveKind::Statuses, "0"),
                        .methods = methodsOf(types),
                        .isDetailSubject = {}};
  archives.isDetailSubject = [&data = context.dbZKData,
                              known = std::map<std::string, bool>()](const std::string& code) mutable {
    const auto found = known.find(code);
    return found != known.end() ? found->second
                                : known.emplace(code, zelkor::isDetailSubject(data, code)).first->second;
  };
  return archives;
}

std::vector<std::string_view> registerCaptions() {
  std::vector<std::string_view> captions;
  for (const CardFieldRow& field : cardFields())
    if (field.inRegister) captions.push_back(field.label);
  return captions;
}

RegisterColumns::RegisterColumns(const std::vector<std::string>& header) {
  for (const std::string& cell : header) {
    captions_.push_back(Trim(cell));
    fields_.push_back(cardFieldOfLabel(captions_.back()));
    if (!fields_.back()) unknown_.push_back(captions_.back());
    if (std::ranges::count(captions_, captions_.back()) > 1) {
      throw RuntimeError(ErrorNumber::DataTypeConversion, "表头中列“" + captions_.back() + "”出现了不止一次");
    }
  }
  std::string missing;
  for (const std::string_view caption : registerCaptions()) {
    if (std::ranges::find(captions_, caption) != captions_.end()) continue;
    missing += missing.empty() ? "“" : "、“";
    missing.append(caption).append("”");
  }
  if (!missing.empty()) throw RuntimeError(ErrorNumber::DataTypeConversion, "表头中缺少列" + missing);
}

CardValues RegisterColumns::values(const std::vector<std::string>& cells) const {
  CardValues card;
  for (std::size_t i = 0; i < std::min(cells.size(), fields_.size()); ++i) {
    if (fields_[i]) card[*fields_[i]] = Trim(cells[i]);
  }
  return card;
}

std::vector<CellProblem> readCardRow(const RegisterColumns& columns, const std::vector<std::string>& cells,
                                     const CardArchives& archives, const CardDefaults& defaults,
                                     CardValues& card) {
  const auto widths = [&] {
    return "有" + std::to_string(cells.size()) + "列，表头有" + std::to_string(columns.count()) + "列";
  };
  if (cells.size() < columns.count()) return {{columns.caption(cells.size()), "缺少：本行只" + widths()}};
  if (cells.size() > columns.count())
    return {{columns.caption(columns.count() - 1), "其后多出列：本行" + widths()}};

  std::vector<CellProblem> problems;
  refuseQuotes(columns, cells, problems);
  if (!problems.empty()) return problems;

  card = columns.values(cells);
  RowCheck check(card, problems);
  check.needed();
  checkArchives(check, card, archives);
  check.whole(CardField::UsefulLife, "0");
  checkFigures(check, card);
  checkDates(check, card, defaults);
  if (isWorkloadCard(card)) checkWorkload(check, card);
  check.others(isWorkloadCard(card));
  if (card[CardField::EnteredBy].empty()) card[CardField::EnteredBy] = defaults.operatorName;
  return problems;
}

bool isWorkloadCard(const CardValues& card) {
  return cardLayoutOfMethod(card[CardField::DepreciationMethod]) == CardLayout::Workload;
}

}  // namespace zelkor
