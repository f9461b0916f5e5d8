#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/engine/Database.h"

namespace zelkor {

// The module's own rows of AccInformation, by their names.

/// Writes a row's value; a row that is not there is passed over.
void setParameter(Database& data, std::string_view name, std::string_view value);
/// Writes the word that stands for yes or no.
void setYesNo(Database& data, std::string_view name, bool value);

/// A row's value; nothing when there is no such row. Null reads as the empty text.
std::optional<std::string> readParameter(Database& data, std::string_view name);
/// The statement by which the functions here read a row.
std::string parameterQuery(std::string_view name);
/// A row's default; empty when there is no such row.
std::string parameterDefault(Database& data, std::string_view name);
/// Whether the word in a row means yes.
bool isYes(std::string_view word);

/// Writes the subject in a field ("code,name" or a code) to a number row, and its name to a name row if the
/// chart has the subject.
void storeSubject(Database& data, std::string_view text, std::string_view numberRow,
                  std::string_view nameRow);

}  // namespace zelkor
