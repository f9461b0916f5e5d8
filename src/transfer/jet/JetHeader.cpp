#include "transfer/jet/JetHeader.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>

#include "base/RuntimeError.h"
#include "store/accountset/DataFile.h"
#include "store/engine/postgresql/ServerFile.h"

namespace zelkor::jet {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMarkPlace = 4;
constexpr std::size_t kVersionPlace = 0x14;
constexpr std::string_view kJetMark{"Standard Jet DB\0", 16};
constexpr std::string_view kAceMark{"Standard ACE DB\0", 16};
constexpr std::string_view kSqliteMark{"SQLite format 3\0", 16};

std::string beginningOf(const fs::path& path) {
  std::array<char, 256> buffer{};
  std::ifstream file(path, std::ios::binary);
  file.read(buffer.data(), buffer.size());
  return {buffer.data(), static_cast<std::size_t>(file.gcount())};
}

[[noreturn]] void refuse(const fs::path& path, const std::string& what) {
  throw RuntimeError(ErrorNumber::UnrecognizedFormat, "'" + path.string() + "' " + what + "。");
}

}  // namespace

Layout checkedLayout(const fs::path& path) {
  requireReadable(path);
  const std::string beginning = beginningOf(path);
  if (beginning.starts_with(kSqliteMark) || ServerFile::isServerFile(beginning))
    refuse(path, "已经是本系统的数据文件，不需要导入；要复制它，请用 zelkorctl copy");
  const std::string_view mark = std::string_view(beginning).substr(std::min(kMarkPlace, beginning.size()));
  if (mark.starts_with(kAceMark))
    refuse(path, "是 Access 2007 以后的 ACE（.accdb）文件；请在 Access 中另存为 .mdb（Jet 4）后再导入");
  if (!mark.starts_with(kJetMark) || beginning[0] != 0) refuse(path, "不是 Jet 数据库文件");
  if (beginning.size() <= kVersionPlace) refuse(path, "不完整：文件被截断");
  switch (beginning[kVersionPlace]) {
    case 0:
      return kJet3;
    case 1:
      return kJet4;
    default:
      refuse(path, "是不认识的 Jet 版本 " +
                       std::to_string(static_cast<unsigned char>(beginning[kVersionPlace])) +
                       "；只能导入 Jet 3 和 Jet 4 文件");
  }
}

}  // namespace zelkor::jet
