#include "home/AccountSetList.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <ostream>
#include <thread>

#include "base/KeptLines.h"
#include "base/LockedFile.h"
#include "base/OutputFile.h"
#include "base/Text.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHeading = "# 固定资产工作台的账套列表 1";
constexpr std::size_t kFields = 7;
constexpr mode_t kOwnersAlone = 0600;
constexpr int kAttempts = 40;  // to become the only writer
constexpr std::chrono::milliseconds kBetweenAttempts{25};

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\\') result += "\\\\";
    if (c == '\t') result += "\\t";
    if (c == '\n') result += "\\n";
    if (c != '\\' && c != '\t' && c != '\n') result += c;
  }
  return result;
}

std::string plain(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape = text[i] == '\\' && i + 1 < text.size();
    if (isEscape) ++i;
    result += !isEscape ? text[i] : text[i] == 't' ? '\t' : text[i] == 'n' ? '\n' : text[i];
  }
  return result;
}

std::string lineOf(const KnownAccountSet& set) {
  std::string line;
  for (const std::string& field : {set.dataFile, set.systemFile, set.account, set.name, set.unit, set.user})
    line += escaped(field) + '\t';
  return line + set.lastUsed.toIso();
}

std::optional<KnownAccountSet> setOf(const std::string& line) {
  if (!isValidUtf8(line)) return std::nullopt;
  const std::vector<std::string> fields = Split(line, '\t');
  if (fields.size() != kFields) return std::nullopt;
  const auto lastUsed = parseIsoDate(fields.back());
  KnownAccountSet set{plain(fields[0]),
                      plain(fields[1]),
                      plain(fields[2]),
                      plain(fields[3]),
                      plain(fields[4]),
                      plain(fields[5]),
                      lastUsed.value_or(DateTime())};
  if (!lastUsed || !set.dataFile.starts_with('/') || !set.systemFile.starts_with('/')) return std::nullopt;
  return set;
}

}  // namespace

fs::path AccountSetList::usualFile() {
  return configurationFolder() / "zelkor" / "account-sets.tsv";
}

AccountSetList::AccountSetList(fs::path file) : file_(std::move(file)) {
  read();
}

void AccountSetList::read() {
  sets_.clear();
  unreadable_ = 0;
  std::ifstream input(file_, std::ios::binary);
  for (std::string line; std::getline(input, line);) {
    if (line.empty() || line.front() == '#') continue;
    if (auto set = setOf(line)) {
      sets_.push_back(std::move(*set));
    } else {
      ++unreadable_;
    }
  }
  sort();
}

void AccountSetList::sort() {
  std::ranges::stable_sort(sets_, std::ranges::greater(), &KnownAccountSet::lastUsed);
}

void AccountSetList::write() const {
  if (unreadable_ > 0) {
    std::error_code ignored;
    fs::copy_file(file_, file_.string() + ".damaged", fs::copy_options::overwrite_existing, ignored);
  }
  OutputFile file(file_, {.replace = true, .access = {.mode = kOwnersAlone}});
  std::ostream& output = file.open();
  output << kHeading << '\n';
  for (const KnownAccountSet& set : sets_) output << lineOf(set) << '\n';
  file.finish();
}

// Who does not become the only writer in time writes all the same: the worst that two at once can do is to
// forget one set.
void AccountSetList::change(const std::function<void()>& action) {
  std::error_code ignored;
  fs::create_directories(file_.parent_path(), ignored);
  std::unique_ptr<LockedFile> lock;
  for (int attempt = 0; attempt < kAttempts && !ignored; ++attempt) {
    lock = LockedFile::take(file_.string() + ".lock", kOwnersAlone, LockedFile::Afterwards::Goes);
    if (lock != nullptr) break;
    std::this_thread::sleep_for(kBetweenAttempts);
  }
  read();
  action();
  sort();
  write();
  unreadable_ = 0;
}

void AccountSetList::remember(const KnownAccountSet& set) {
  change([&] {
    std::erase_if(sets_, [&](const KnownAccountSet& known) { return known.isSame(set); });
    sets_.insert(sets_.begin(), set);
  });
}

void AccountSetList::forget(const KnownAccountSet& set) {
  change([&] { std::erase_if(sets_, [&](const KnownAccountSet& known) { return known.isSame(set); }); });
}

}  // namespace zelkor
