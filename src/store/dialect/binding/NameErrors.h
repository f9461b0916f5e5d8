#pragma once

#include <string_view>

#include "base/RuntimeError.h"

namespace zelkor::dialect {

/// The errors 3078 and 3061 of a name that no table or column bears, in the same words whoever finds out:
/// the translator or an engine whose tables another process has changed.
RuntimeError unknownTable(std::string_view name);
RuntimeError unknownColumn(std::string_view name);

/// Error 3265 of a column that is asked for by a name or a number that a row does not have.
RuntimeError unknownItem(std::string_view nameOrNumber);

}  // namespace zelkor::dialect
