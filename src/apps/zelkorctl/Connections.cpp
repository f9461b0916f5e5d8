#include "apps/zelkorctl/Connections.h"

#include <memory>
#include <ostream>
#include <string>

#include "apps/zelkorctl/JobArguments.h"
#include "base/RuntimeError.h"
#include "store/accountset/DataFile.h"

namespace zelkor {

void tellConnection(const Asked& asked, std::ostream& output) {
  try {
    const std::string file = asked.file.empty() ? setFilesOf(asked).data : asked.file;
    if (!namesServer(file)) return;
    if (const std::string remark = openDataFile(file)->remark(); !remark.empty()) output << remark << '\n';
  } catch (const RuntimeError&) {
    // The call itself says what is wrong with its books.
  }
}

}  // namespace zelkor
