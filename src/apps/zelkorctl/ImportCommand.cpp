#include "apps/zelkorctl/ImportCommand.h"

#include <ostream>

#include "transfer/jet/JetSource.h"

namespace zelkor {

int importJetCommand(const std::string& file, const std::string& charset, const TransferOptions& options,
                     std::ostream& output) {
  JetSource source(file, charset);
  const int status = transferCommand(source, options, output);
  for (const std::string& note : source.notes()) output << "说明：" << note << '\n';
  return status;
}

}  // namespace zelkor
