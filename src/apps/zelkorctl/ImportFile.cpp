#include "apps/zelkorctl/ImportFile.h"

#include <ostream>

#include "apps/zelkorctl/CommandRun.h"
#include "base/FileContent.h"

namespace zelkor {

ImportFile::ImportFile(const ImportOptions& options, std::vector<std::string_view> needed)
    : table_(
          readTableFile(contentOf(options.file), {.charset = options.charset, .needed = std::move(needed)})),
      rows_(*table_.rows),
      refusedName_(options.refused) {
  if (!refusedName_.empty())
    refused_ =
        std::make_unique<OutputFile>(refusedName_, OutputFile::Options{.access = accessOf(options.file)});
}

void ImportFile::writeRefused(std::ostream& output) {
  if (!refused_ || !rows_.refusedAny()) return;
  rows_.write(refused_->open());
  refused_->finish();
  output << "拒绝的行已存入 " << refusedName_ << '\n';
}

}  // namespace zelkor
