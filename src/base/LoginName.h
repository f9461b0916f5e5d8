#pragma once

#include <string>

namespace zelkor {

/// The name of whoever works at the machine; the number where it has none.
std::string loginName();

}  // namespace zelkor
