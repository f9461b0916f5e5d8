#pragma once

#include <filesystem>

#include "transfer/jet/JetLayout.h"

namespace zelkor::jet {

/// Looks at the beginning of a file, before anything is trusted to it, and says by which layout it is to be
/// read. Errors: 3024 not there, 3051 not readable, 3343 not Jet (the text says what it is) or of a version
/// that is not known.
Layout checkedLayout(const std::filesystem::path& path);

}  // namespace zelkor::jet
