#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/engine/Database.h"

namespace zelkor {

/// The code in a subject field, which holds "code,name" or a code alone: what comes before the first comma.
/// A comma in the first place does not count.
std::string subjectCodeOf(std::string_view text);

/// The subject in a field as the field is to show it: its code, a comma, its name. Nothing when the chart has
/// no subject with that code.
std::optional<std::string> lookUpSubject(Database& data, std::string_view text);

/// The statement that reads the subject with this code.
std::string subjectQuery(std::string_view code);
/// Name of the subject with this code; nothing when the chart has none.
std::optional<std::string> subjectName(Database& data, std::string_view code);

}  // namespace zelkor
