#include "cards/CardValues.h"

#include <algorithm>
#include <iterator>

#include "base/RuntimeError.h"

namespace zelkor {

namespace {

constexpr std::array<std::string_view, cardFieldCount> labels = {
    "卡片编号",   "日期",       "固定资产编号", "固定资产名称", "类别编号", "类别名称", "规格型号",
    "部门名称",   "增加方式",   "存放地点",     "使用状况",     "使用年限", "折旧方法", "开始使用日期",
    "已计提月份", "币种",       "原值",         "净残值率",     "净残值",   "累计折旧", "月折旧率",
    "月折旧额",   "净值",       "对应折旧科目", "项目",         "录入人",   "录入日期", "工作总量",
    "累计工作量", "工作量单位", "可抵扣税额"};

}  // namespace

std::string_view cardFieldLabel(CardField field) {
  return labels.at(static_cast<std::size_t>(field) - 1);
}

std::optional<CardField> cardFieldOfLabel(std::string_view label) {
  const auto found = std::find(labels.begin(), labels.end(), label);
  if (found == labels.end()) return std::nullopt;
  return static_cast<CardField>(std::distance(labels.begin(), found) + 1);
}

const std::string& CardValues::at(std::size_t index) const {
  if (index < 1 || index > cardFieldCount) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return values_[index - 1];
}

std::string& CardValues::at(std::size_t index) {
  return const_cast<std::string&>(static_cast<const CardValues&>(*this).at(index));
}

}  // namespace zelkor
