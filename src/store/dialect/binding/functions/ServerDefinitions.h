#pragma once

#include <string>

#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor::dialect {

/// What a server calls the function.
std::string serverName(const SqlFunction& function);

/// The statements that define on a server what its rows' functions say, in place of older ones.
std::string serverDefinitions();

}  // namespace zelkor::dialect
