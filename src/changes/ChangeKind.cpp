#include "changes/ChangeKind.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace zelkor {
namespace {

struct KindName {
  ChangeKind kind;
  std::string_view caption;
  int voucherType;
};

// The change of the depreciation method, which is not in this list, bears type 7 as the transfer does.
constexpr std::array<KindName, 6> kKinds = {{
    {ChangeKind::OriginalValue, "原值增加", 1},
    {ChangeKind::UsageStatus, "使用状况调整", 4},
    {ChangeKind::AccumulatedDepr, "累计折旧调整", 5},
    {ChangeKind::UsefulLife, "使用年限调整", 6},
    {ChangeKind::ResidualValue, "净残值调整", 0},
    {ChangeKind::Transfer, "部门转移", 7},
}};

const KindName& nameOf(ChangeKind kind) {
  return *std::ranges::find(kKinds, kind, &KindName::kind);
}

}  // namespace

std::string_view captionOf(ChangeKind kind) {
  return nameOf(kind).caption;
}

std::optional<ChangeKind> changeKindOf(std::string_view caption) {
  const auto* const found = std::ranges::find(kKinds, caption, &KindName::caption);
  if (found == kKinds.end()) return std::nullopt;
  return found->kind;
}

int voucherTypeOf(ChangeKind kind) {
  return nameOf(kind).voucherType;
}

}  // namespace zelkor
