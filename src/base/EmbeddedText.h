#pragma once

#include <string_view>

namespace zelkor {

/// The text of a file of data/ by its name, as it was when the program was built; empty for an unknown name.
std::string_view embeddedText(std::string_view name);

}  // namespace zelkor
