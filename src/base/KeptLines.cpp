#include "base/KeptLines.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <ostream>

#include "base/OutputFile.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostLines = 500;
constexpr mode_t kOwnersAlone = 0600;

bool isCarriable(const KeptLines::Line& line) {
  return std::ranges::none_of(
      line, [](const std::string& field) { return field.find_first_of("\t\n") != std::string::npos; });
}

}  // namespace

fs::path configurationFolder() {
  const char* named = std::getenv("XDG_CONFIG_HOME");
  if (named != nullptr && *named == '/') return named;
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home == '/') return fs::path(home) / ".config";
  const passwd* login = ::getpwuid(::geteuid());
  return fs::path(login == nullptr ? "/tmp" : login->pw_dir) / ".config";
}

std::vector<KeptLines::Line> KeptLines::read() const {
  std::vector<Line> lines;
  std::ifstream input(file_, std::ios::binary);
  for (std::string text; std::getline(input, text);) {
    if (text.starts_with('#') || !isValidUtf8(text)) continue;
    Line fields = Split(text, '\t');
    if (fields.size() == fields_) lines.push_back(std::move(fields));
  }
  return lines;
}

bool KeptLines::write(const std::vector<Line>& lines) const {
  try {
    std::error_code ignored;
    fs::create_directories(file_.parent_path(), ignored);
    OutputFile file(file_, {.replace = true, .access = {.mode = kOwnersAlone}});
    std::ostream& output = file.open();
    output << heading_ << '\n';
    for (std::size_t i = 0; i < std::min(lines.size(), kMostLines); ++i) {
      if (!isCarriable(lines[i])) continue;
      for (std::size_t field = 0; field < lines[i].size(); ++field)
        output << (field == 0 ? "" : "\t") << lines[i][field];
      output << '\n';
    }
    file.finish();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace zelkor
