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

constexpr std::size_t markPlace = 4;
constexpr std::size_t versionPlace = 0x14;
constexpr std::string_view jetMark{"Standard Jet DB\0", 16};
constexpr std::string_view aceMark{"Standard ACE DB\0", 16};
constexpr std::string_view sqliteMark{"SQLite format 3\0", 16};

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
  if (beginning.starts_with(sqliteMark) || ServerFile::isServerFile(beginning))
    refuse(path, "已经是本系统的数据文件，不需要导入；要复制它，请用 zelkorctl copy");
  const std::string_view mark = std::string_view(beginning).substr(std::min(markPlace, beginning.size()));
  if (mark.starts_with(aceMark))
    refuse(path, "是 Access 2007 以后的 ACE（.accdb）文件；请在 Access 中另存为 .mdb（Jet 4）后再导入");
  if (!mark.starts_with(jetMark) || beginning[0] != 0) refuse(path, "不是 Jet 数据库文件");
  if (beginning.size() <= versionPlace) refuse(path, "不完整：文件被截断");
  switch (beginning[versionPlace]) {
    case 0:
      return jet3;
    case 1:
      return jet4;
    default:
      refuse(path, "是不认识的 Jet 版本 " +
                       std::to_string(static_cast<unsigned char>(beginning[versionPlace])) +
                       "；只能导入 Jet 3 和 Jet 4 文件");
  }
}

}  // namespace zelkor::jet
