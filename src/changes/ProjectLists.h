#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/TextGrid.h"
#include "base/TreeRow.h"
#include "store/engine/Database.h"

namespace zelkor {

// The suite's projects, for the picker: classes, the groups of a class, the projects of a class. A class has
// its number as its tree row's tag, a group and the root have the marks below.
inline constexpr std::string_view kProjectRootMark = "R";
inline constexpr std::string_view kProjectGroupMark = "T";

/// Columns of `projectList`.
inline constexpr std::size_t kProjectCodeColumn = 0;
inline constexpr std::size_t kProjectNameColumn = 1;
inline constexpr std::size_t kProjectGroupColumn = 3;

/// The root and the classes below it.
std::vector<TreeRow> projectClassTree(Database& data);

/// Groups of a class, to be hung below it; the group's code is its key without the class's.
std::vector<TreeRow> projectGroups(Database& data, std::string_view classNumber);
/// Code of a group by its key and that of its class.
std::string_view projectGroupCode(std::string_view groupKey, std::string_view classKey);

/// Projects of a class under one header row; the direction only where a project has one.
TextGrid projectList(Database& data, std::string_view classNumber);

/// Where a text is looked for in a project's code and name.
enum class ProjectMatch { Whole, Content, Right, Left };
/// Row of the first project after `row`, going round at the end, whose code or name meets the text without
/// regard to case; 0 when none does.
std::size_t nextProject(const TextGrid& list, std::size_t row, std::string_view text, ProjectMatch match);

}  // namespace zelkor
