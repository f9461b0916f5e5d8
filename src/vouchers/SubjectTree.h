#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/TreeRow.h"
#include "startup/PickedSubject.h"
#include "store/engine/Database.h"

namespace zelkor {

/// One box of the subject picker: its caption and the flag of the chart that shows in it; without a flag the
/// box filters nothing.
struct SubjectProperty {
  std::string_view caption;
  std::string_view flag;
};

inline constexpr std::array<SubjectProperty, 10> kSubjectProperties{{
    {"个人往来", "bperson"},
    {"供应商往来", "bsup"},
    {"项目核算", "bitem"},
    {"数量核算", ""},
    {"日记账", "br"},
    {"客户往来", "bcus"},
    {"部门核算", "bdept"},
    {"外币核算", ""},
    {"末级科目", "bend"},
    {"银行账", "be"},
}};

using SubjectFlags = std::array<bool, kSubjectProperties.size()>;

/// The condition that the ticked boxes make; empty when none with a flag is ticked.
std::string subjectFilter(const SubjectFlags& ticked);

/// The tree of subjects below their classes, the operator's frequently used ones first. Nothing when the
/// chart has no coding rule.
std::optional<std::vector<TreeRow>> subjectTree(Database& data, std::string_view user,
                                                std::string_view filter);

/// Properties of the subject that a node's text names; none for a class head.
SubjectFlags subjectFlags(Database& data, std::string_view nodeText);

/// What is picked with a node: its text is split at the first blank. A text without one picks nothing.
PickedSubject pickedSubject(std::string_view nodeText);

/// Keeps a subject among the operator's frequently used ones; true when it is new among them.
bool keepSubjectAsUsed(Database& data, std::string_view user, std::string_view code);

}  // namespace zelkor
