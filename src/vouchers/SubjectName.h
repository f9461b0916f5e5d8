#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/Database.h"

namespace zelkor {

/// Name of the subject in the chart, empty where it has none; nothing without such a subject.
std::optional<std::string> subjectName(Database& data, std::string_view code);

}  // namespace zelkor
