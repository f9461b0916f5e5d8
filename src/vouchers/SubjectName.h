#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/engine/Database.h"

namespace zelkor {

/// Name of the subject whose code was entered into a line, empty where it has none; nothing without such a
/// subject.
std::optional<std::string> enteredSubjectName(Database& data, std::string_view code);

}  // namespace zelkor
