#pragma once

namespace zelkor {

/// How many rows of a file were stored, and how many not.
struct ImportResult {
  long stored = 0;
  long refused = 0;
};

}  // namespace zelkor
