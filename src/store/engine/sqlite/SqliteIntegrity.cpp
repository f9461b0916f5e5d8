#include "store/engine/sqlite/SqliteIntegrity.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace zelkor {

// It stops at 100 problems: a file that has them is not mended one by one.
IntegrityCheck sqliteIntegrity(Engine& engine) {
  IntegrityCheck check;
  try {
    const auto told = engine.prepare("PRAGMA integrity_check(100)");
    while (told->step()) {
      std::string line(told->text(0));
      std::ranges::replace(line, '\n', ' ');
      if (line != "ok") check.problems.push_back(std::move(line));
    }
  } catch (const RuntimeError& error) {
    check.problems.emplace_back(error.what());
  }
  return check;
}

}  // namespace zelkor
