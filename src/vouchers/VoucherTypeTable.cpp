#include "vouchers/VoucherTypeTable.h"

#include <algorithm>
#include <utility>

#include "base/Conversion.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr const char* kLimitMissing = "凭证类别有限制，必须输入限制科目！";

std::string limitText(const Value& kind) {
  const double value = kind.numberOrZero();
  const bool known = value >= 0 && value < static_cast<double>(kLimitKinds.size());
  return known ? std::string(kLimitKinds[static_cast<std::size_t>(value)]) : std::string();
}

constexpr std::array<std::string_view, 4> kSeparators = {",", "，", "；", ";"};

struct FoundSeparator {
  std::size_t at;
  std::size_t length;
};

/// The end of the text, of no length, when there is none.
FoundSeparator firstSeparator(std::string_view text) {
  FoundSeparator first{text.size(), 0};
  for (const std::string_view separator : kSeparators) {
    const std::size_t at = text.find(separator);
    if (at < first.at) first = {at, separator.size()};
  }
  return first;
}

bool endsInSeparator(std::string_view text) {
  return std::any_of(kSeparators.begin(), kSeparators.end(),
                     [text](std::string_view separator) { return text.ends_with(separator); });
}

}  // namespace

int storedLimit(std::string_view text) {
  static constexpr std::array<std::string_view, 4> kStored = {"无限制", "借方必有", "贷方必有", "凭证必有"};
  for (std::size_t i = 0; i < kStored.size(); ++i) {
    if (text == kStored[i]) return static_cast<int>(i);
  }
  return 0;
}

std::vector<std::string> splitLimitCodes(std::string_view text) {
  std::vector<std::string> codes;
  while (!text.empty()) {
    const FoundSeparator separator = firstSeparator(text);
    codes.emplace_back(text.substr(0, separator.at));
    text.remove_prefix(separator.at + separator.length);
  }
  return codes;
}

std::string withLimitCode(std::string text, std::string_view code) {
  if (!text.empty() && !endsInSeparator(text)) text += ',';
  return text.append(code);
}

VoucherTypeTable::VoucherTypeTable(ClsBLLPZType& types) : types_(types), ids_{0} {
  static constexpr int kWidths[] = {1200, 2600, 1600, 4200};
  grid_.setHeader("类别字|类别名称|限制类型|限制科目");
  for (std::size_t column = 0; column < std::size(kWidths); ++column) {
    grid_.setColumnWidth(column, kWidths[column]);
  }
  Recordset stored = types.GetAllDsign();
  if (!stored.isOpen()) return;
  for (; !stored.Eof(); stored.MoveNext()) {
    const std::string sign = stored.TextOrEmpty("csign");
    grid_.addRow({sign, stored.TextOrEmpty("ctext"), limitText(stored.Fields("itype")),
                  types.GetDsignLimitCodes(sign)});
    ids_.push_back(CLng(stored.Fields("I_ID")));
  }
}

void VoucherTypeTable::setText(std::size_t row, std::size_t column, std::string text) {
  grid_.setText(row, column, std::move(text));
}

std::optional<std::string> VoucherTypeTable::checkCell(std::size_t row, std::size_t column,
                                                       std::string_view text) const {
  if (column == type_column::Codes) {
    const bool limited = grid_.text(row, type_column::Limit) != kLimitKinds.front();
    if (limited && Trim(text).empty()) return kLimitMissing;
    return std::nullopt;
  }
  if (column != type_column::Sign && column != type_column::Name) return std::nullopt;
  const std::string label = column == type_column::Sign ? "凭证类别字" : "类别名称";
  if (Trim(text).empty()) return label + "不能为空！";
  for (std::size_t other = 1; other < grid_.rows(); ++other) {
    if (other != row && grid_.text(other, column) == text) return label + "不能重复！";
  }
  return std::nullopt;
}

std::optional<std::string> VoucherTypeTable::checkRow(std::size_t row) const {
  return checkCell(row, type_column::Codes, grid_.text(row, type_column::Codes));
}

std::size_t VoucherTypeTable::add() {
  ids_.push_back(kNewDsign);
  return grid_.addRow({"", "", std::string(kLimitKinds.front()), ""});
}

void VoucherTypeTable::save(std::size_t row) {
  const std::string& sign = grid_.text(row, type_column::Sign);
  const DsignValues values{sign, static_cast<std::int32_t>(row), grid_.text(row, type_column::Name),
                           storedLimit(grid_.text(row, type_column::Limit))};
  types_.UpdateDsign(ids_.at(row), values);
  types_.UpdateDsigns(sign, splitLimitCodes(grid_.text(row, type_column::Codes)));
}

bool VoucherTypeTable::remove(std::size_t row) {
  if (ids_.at(row) != kNewDsign && !types_.DeleteDsign(ids_.at(row))) return false;
  grid_.removeRow(row);
  ids_.erase(ids_.begin() + static_cast<std::ptrdiff_t>(row));
  return true;
}

bool VoucherTypeTable::swapWith(std::size_t row, std::size_t other) {
  if (!isRow(row) || !isRow(other)) return false;
  for (std::size_t column = 0; column < grid_.columns(); ++column) {
    std::string text = grid_.text(row, column);
    grid_.setText(row, column, grid_.text(other, column));
    grid_.setText(other, column, std::move(text));
  }
  std::swap(ids_[row], ids_[other]);
  storeSequences();
  return true;
}

void VoucherTypeTable::storeSequences() {
  for (std::size_t row = 1; row < grid_.rows(); ++row) {
    if (!types_.UpdateDsignSeq(ids_[row], static_cast<std::int32_t>(row))) return;
  }
}

const std::array<VoucherTypePreset, 5>& voucherTypePresets() {
  static const std::array<VoucherTypePreset, 5> presets = {{
      {"记账凭证", {{"记", 1, "记账凭证", 0}}},
      {"收款凭证 付款凭证 转账凭证",
       {{"收", 1, "收款凭证", 0}, {"付", 2, "付款凭证", 0}, {"转", 3, "转账凭证", 0}}},
      {"现金凭证 银行凭证 转账凭证",
       {{"现", 1, "现金凭证", 0}, {"银", 2, "银行凭证", 0}, {"转", 3, "转账凭证", 0}}},
      {"现金收款凭证 现金付款凭证 银行收款凭证 银行付款凭证 转账凭证", {}},
      {"自定义", {}},
  }};
  return presets;
}

void addPreset(ClsBLLPZType& types, const VoucherTypePreset& preset) {
  for (const DsignValues& values : preset.types) {
    std::int32_t id = kNewDsign;
    types.UpdateDsign(id, values);
  }
}

}  // namespace zelkor
