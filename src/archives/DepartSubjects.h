#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/TextGrid.h"
#include "store/engine/Database.h"

namespace zelkor {

inline constexpr std::string_view kDepartSubjectUnknownText = "录入科目错误！\n科目不存在或科目非明细级！";

/// A department of the mirror with its depreciation subject.
struct DepartSubject {
  std::string code;
  std::string firstPart;  // of the code: its top level
  std::string name;
  std::string parentName;
  std::string subject;  // "code,name"; empty without a subject
};

/// Code, name and subject under one header row: the first level for the root ("&"), otherwise the department
/// with all below it.
TextGrid departSubjectList(Database& data, std::string_view selectedCode);

/// Nothing when the mirror has no such department.
std::optional<DepartSubject> readDepartSubject(Database& data, std::string_view code);

struct DetailSubject {
  std::string code;
  std::string name;
};
/// The subject with this code; nothing when there is none or it has subjects below it.
std::optional<DetailSubject> findDetailSubject(Database& data, std::string_view code);

/// Whether the mirror counts departments below this one. One that is not there counts as having some.
bool hasDepartsBelow(Database& data, std::string_view code);

/// The question whether all departments below take the subject as well.
std::string departSubjectQuestion(std::string_view departName, std::string_view subject);

enum class SubjectReach { DepartAlone, AllBelow };
void storeDepartSubject(Database& data, std::string_view code, const DetailSubject& subject,
                        SubjectReach reach);
void clearDepartSubject(Database& data, std::string_view code);

}  // namespace zelkor
