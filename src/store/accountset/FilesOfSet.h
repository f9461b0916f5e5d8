#pragma once

#include <filesystem>

namespace zelkor {

/// True for a data file and for what an engine keeps beside it (its log, its journal), under whatever name.
bool isFileOfSet(const std::filesystem::path& candidate, const std::filesystem::path& dataFile);

}  // namespace zelkor
