#include "archives/DepartCheck.h"

#include "archives/CodingRule.h"

namespace zelkor {

DepartCheck checkDepart(const DepartRecord& depart, DepartSaving saving, std::string_view pattern,
                        const std::function<bool(const std::string&)>& treeHolds) {
  if (depart.name.empty()) return {kDepartNameEmptyText};
  if (saving == DepartSaving::New && treeHolds(depart.code)) return {kDepartCodeTakenText};
  const auto level = ChkIsCodingRule(depart.code, pattern);
  if (!level) return {kDepartCodeUnfitText};
  if (!ChkParentDept(depart.code, level->parentLength, treeHolds))
    return {kDepartParentMissingText, level->level};
  return {{}, level->level};
}

}  // namespace zelkor
