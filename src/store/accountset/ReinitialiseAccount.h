#pragma once

#include <string>

#include "store/accountset/DbEngine.h"

namespace zelkor {

/// Throws away all business data of the module and puts the module's tables and options back to what the
/// template tables hold; other modules' data stay, and so do the options with `cID` 601 to 603, which are
/// then copied into the template. No transaction: a failing statement leaves what went before.
///
/// `data` is re-opened from `path` and stays open.
void ReinitialiseAccount(DbEngine& engine, const std::string& path, Database& data);

}  // namespace zelkor
