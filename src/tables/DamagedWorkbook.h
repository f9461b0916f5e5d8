#pragma once

#include <string>

namespace zelkor {

/// Raises error 3421: the workbook cannot be read, and why.
[[noreturn]] void refuseWorkbook(const std::string& reason);

}  // namespace zelkor
