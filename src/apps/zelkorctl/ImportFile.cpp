#include "apps/zelkorctl/ImportFile.h"

#include <filesystem>
#include <ostream>
#include <utility>

#include "base/FileContent.h"

namespace zelkor {
namespace {

/// There is no option that replaces it: rows that somebody was about to mend may be in it.
void requireNew(const std::string& file) {
  std::error_code ignored;
  if (std::filesystem::is_regular_file(file, ignored))
    cannotWrite(file, "文件已存在；请为拒绝的行指定一个新文件");
}

}  // namespace

ImportFile::ImportFile(const ImportOptions& options, std::vector<std::string_view> needed)
    : table_(
          readTableFile(contentOf(options.file), {.charset = options.charset, .needed = std::move(needed)})),
      rows_(*table_.rows),
      refusedName_(options.refused) {
  if (refusedName_.empty()) return;
  requireNew(refusedName_);
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
