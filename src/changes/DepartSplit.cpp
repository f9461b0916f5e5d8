#include "changes/DepartSplit.h"

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr std::size_t kFewestSplitDeparts = 2;
constexpr int kWholeAsset = 100;

MessageBox information(std::string text) {
  return {std::move(text), Buttons::Ok, Icon::Information, "固定资产"};
}

void append(DepartSplit& split, const SplitRow& row) {
  split.codes += row.departCode + "/";
  split.names += row.departName + "/";
  split.scales += row.scale + "/";
  split.subjects += row.subject + "/";
  split.itemClasses += row.itemClass + "/";
  split.projects += row.project + "/";
}

std::optional<MessageBox> fillSplit(const std::vector<SplitRow>& rows, DepartSplit& split) {
  std::int16_t total = 0;
  for (const SplitRow& row : rows) {
    if (row.departCode.empty()) return information("使用部门非末级部门或不存在，请重新录入或参照选择");
    if (Trim(row.scale).empty()) return information("请填写使用部门“" + row.departName + "”的使用比例！");
    append(split, row);
    total = CInt(total + static_cast<double>(CInt(Value(row.scale))));
  }
  if (total != kWholeAsset) return information("使用部门比例总和不等于100%，请调整使用比例数值！");
  return std::nullopt;
}

}  // namespace

std::optional<MessageBox> confirmSplit(const std::vector<SplitRow>& rows, DepartSplit& split) {
  split = {};
  if (rows.size() < kFewestSplitDeparts) {
    return information("资产多部门使用模式下，使用部门至少为两个");
  }
  try {
    return fillSplit(rows, split);
  } catch (const RuntimeError& error) {
    return information(error.what());  // a scale that is no number
  }
}

std::optional<MessageBox> departRepeated(const std::vector<SplitRow>& rows, std::size_t row,
                                         std::string_view departCode) {
  for (std::size_t other = 0; other < rows.size(); ++other) {
    if (other != row && equalsIgnoringCase(rows[other].departCode, departCode)) {
      return information("使用部门不允许重复，请重新录入或参照选择");
    }
  }
  return std::nullopt;
}

std::string withoutLastSlash(std::string_view joined) {
  if (joined.ends_with('/')) joined.remove_suffix(1);
  return std::string(joined);
}

}  // namespace zelkor
