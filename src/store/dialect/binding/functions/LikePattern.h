#pragma once

#include <string_view>

namespace zelkor {

/// Whether the whole text meets a LIKE pattern: "*" any characters, "?" one, "#" a digit, "[a-z]" one of a
/// list,
/// "[!a-z]" one not in it; letters of either case are alike. A pattern with an unclosed bracket meets
/// nothing.
bool isLike(std::string_view text, std::string_view pattern);

}  // namespace zelkor
