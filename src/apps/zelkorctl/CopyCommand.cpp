#include "apps/zelkorctl/CopyCommand.h"

#include "transfer/EngineSource.h"

namespace zelkor {

int copyCommand(const std::string& source, const TransferOptions& options, std::ostream& output) {
  const auto tables = openSource(source);
  return transferCommand(*tables, options, output);
}

}  // namespace zelkor
