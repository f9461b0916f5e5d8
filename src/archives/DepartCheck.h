#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "archives/ClsBLLDepart.h"

namespace zelkor {

inline constexpr std::string_view kDepartBoxTitle = "提示";
inline constexpr std::string_view kDepartNameEmptyText = "名称不能为空，请填写！";
inline constexpr std::string_view kDepartCodeTakenText = "已存在此分类编码，请重新输入！";
inline constexpr std::string_view kDepartCodeUnfitText = "此编码不符合分类编码规则，请重新编码！";
inline constexpr std::string_view kDepartParentMissingText = "不存在上级部门，请重新输入！";

struct DepartCheck {
  std::string_view refusal = {};  // the text to show; empty when the department may be stored
  int level = 0;                  // by the coding rule, once the code fits it
};

/// Checks a department before it is stored, in the order in which the user is told. `treeHolds` answers
/// whether the tree shows a department with that code.
DepartCheck checkDepart(const DepartRecord& depart, DepartSaving saving, std::string_view pattern,
                        const std::function<bool(const std::string&)>& treeHolds);

}  // namespace zelkor
