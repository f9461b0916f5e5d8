#include "apps/zelkorctl/Connections.h"

#include <memory>
#include <ostream>

#include "apps/zelkorctl/JobArguments.h"
#include "base/RuntimeError.h"
#include "store/accountset/DataFile.h"

namespace zelkor {

// Beside an account set the file is one of rows.
std::string booksOf(const Asked& asked) {
  const bool hasSet = !asked.set.empty() || !asked.arguments.empty();
  return hasSet ? setFilesOf(asked).data : asked.file;
}

void tellConnection(const Asked& asked, std::ostream& output) {
  try {
    const std::string file = booksOf(asked);
    if (!namesServer(file)) return;
    if (const std::string remark = openDataFile(file)->remark(); !remark.empty()) output << remark << '\n';
  } catch (const RuntimeError&) {
    // The call itself says what is wrong with its books.
  }
}

}  // namespace zelkor
