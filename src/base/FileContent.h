#pragma once

#include <string>

namespace zelkor {

/// The file's bytes. Error 3024 says why it cannot be read; 3421 that it is larger than 1 GB.
std::string contentOf(const std::string& path);

}  // namespace zelkor
