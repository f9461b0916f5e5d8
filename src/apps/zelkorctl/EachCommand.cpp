#include "apps/zelkorctl/EachCommand.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iomanip>
#include <map>
#include <ostream>
#include <sstream>
#include <thread>

#include "apps/zelkorctl/CallChecks.h"
#include "apps/zelkorctl/CalledProcesses.h"
#include "apps/zelkorctl/CallTable.h"
#include "apps/zelkorctl/CommandRun.h"
#include "base/Characters.h"
#include "base/EndSignals.h"
#include "base/FileContent.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/engine/Statement.h"
#include "transfer/backup/BackupFolder.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPlaceOfSet = "{}";
constexpr char kComment = '#';

[[noreturn]] void refuse(const std::string& reason) {
  throw RuntimeError(ErrorNumber::InvalidProcedureCall, reason);
}

const Call& callOf(const std::vector<std::string>& words) {
  const std::string first = words.front();
  const std::string both = words.size() > 1 ? first + " " + words[1] : first;
  const auto found =
      std::ranges::find_if(calls(), [&](const Call& one) { return one.name == first || one.name == both; });
  if (found == calls().end() || found->name == "each") refuse("没有“" + both + "”这个可以逐一执行的调用");
  return *found;
}

bool takesSet(const Call& call) {
  return std::ranges::any_of(call.parameters, [](const Parameter& one) { return one.name == "--set"; });
}

/// A backup is not worked on.
bool isAccountSet(const fs::path& folder) {
  std::error_code hidden;
  return !isBackup(folder) && fs::exists(folder / "ZkData.Mdb", hidden) &&
         fs::exists(folder / "ZkSystem.Mdb", hidden);
}

std::vector<std::string> setsBelow(const fs::path& folder) {
  std::vector<std::string> sets;
  if (isAccountSet(folder)) sets.push_back(folder);
  constexpr auto kReadable = fs::directory_options::skip_permission_denied;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, kReadable)) {
    std::error_code hidden;
    if (entry.is_directory(hidden) && isAccountSet(entry.path())) sets.push_back(entry.path());
  }
  std::ranges::sort(sets);
  return sets;
}

std::vector<std::string> setsInList(std::string_view list) {
  if (list.starts_with(kByteOrderMark)) list.remove_prefix(kByteOrderMark.size());
  std::vector<std::string> sets;
  for (const std::string& line : Split(list, '\n')) {
    std::string set = Trim(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
    if (!set.empty() && !set.starts_with(kComment)) sets.push_back(std::move(set));
  }
  return sets;
}

/// What tells a set from others, under whatever names and links: its data file.
std::string identityOf(const std::string& set) {
  struct stat file {};
  const fs::path data = fs::path(set) / "ZkData.Mdb";
  const bool isThere = ::stat(data.c_str(), &file) == 0 || ::stat(set.c_str(), &file) == 0;
  return isThere ? sql(file.st_dev, ":", file.st_ino) : set;
}

/// Leaves out, and tells, what is there a second time.
std::vector<std::string> eachOnce(const std::vector<std::string>& sets, std::ostream& problems) {
  std::map<std::string, std::string> firstNames;
  std::vector<std::string> once;
  for (const std::string& set : sets) {
    const auto [first, isNew] = firstNames.emplace(identityOf(set), set);
    if (isNew) {
      once.push_back(set);
    } else {
      problems << set << "：与 " << first->second << " 是同一账套，只执行一次\n";
    }
  }
  problems.flush();
  return once;
}

std::vector<std::string> setsOf(const std::string& place, std::ostream& problems) {
  return eachOnce(fs::is_directory(place) ? setsBelow(place) : setsInList(contentOf(place)), problems);
}

std::string withSet(std::string word, const std::string& set) {
  for (std::size_t at = 0; (at = word.find(kPlaceOfSet, at)) != std::string::npos; at += set.size())
    word.replace(at, kPlaceOfSet.size(), set);
  return word;
}

std::string indented(const std::string& text) {
  std::string lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines += "    " + line + '\n';
  return lines;
}

std::string secondsText(std::chrono::steady_clock::duration time) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(1) << std::chrono::duration<double>(time).count() << " 秒";
  return text.str();
}

/// The processes that are under way, and what is left to begin.
class Queue {
 public:
  Queue(const EachOptions& options, const Call& call, std::vector<std::string> sets)
      : words_(options.words),
        givesSet_(takesSet(call)),
        sets_(std::move(sets)),
        atOnce_(options.jobs.empty() ? std::max(1U, std::thread::hardware_concurrency())
                                     : static_cast<std::size_t>(std::stoi(options.jobs))) {}

  /// Returns how many failed.
  std::size_t run(std::ostream& output, std::ostream& problems);

 private:
  void begin();
  bool tell(const CalledResult& result, std::ostream& output, std::ostream& problems);

  const std::vector<std::string>& words_;
  bool givesSet_;
  std::vector<std::string> sets_;
  std::size_t atOnce_;
  std::size_t begun_ = 0;
  std::size_t ended_ = 0;
  CalledProcesses running_;
};

void Queue::begin() {
  const std::string& set = sets_[begun_++];
  std::vector<std::string> words;
  for (const std::string& word : words_) words.push_back(withSet(word, set));
  if (givesSet_) words.insert(words.end(), {"--set", set});
  running_.begin(set, words);
}

bool Queue::tell(const CalledResult& result, std::ostream& output, std::ostream& problems) {
  output << '[' << ++ended_ << '/' << sets_.size() << "] " << result.name << "  状态 " << result.status
         << "  " << secondsText(result.time) << '\n';
  if (result.status != 0) output << indented(result.output);
  output.flush();
  if (!result.errors.empty()) problems << result.name << "：\n" << indented(result.errors) << std::flush;
  return result.status == 0;
}

std::size_t Queue::run(std::ostream& output, std::ostream& problems) {
  std::size_t failed = 0;
  while (begun_ < sets_.size() || running_.count() > 0) {
    goOnUnlessSignalled();
    if (begun_ < sets_.size() && running_.count() < atOnce_) {
      begin();
    } else if (const auto result = running_.next()) {
      if (!tell(*result, output, problems)) ++failed;
    }
  }
  return failed;
}

int each(const Asked& asked, std::ostream& output, std::ostream& problems) {
  return eachCommand({.place = asked.place, .jobs = asked.jobs, .words = asked.words}, output, problems);
}

}  // namespace

int eachCommand(const EachOptions& options, std::ostream& output, std::ostream& problems) {
  catchEndSignals();
  const Call& call = callOf(options.words);
  std::vector<std::string> sets = setsOf(options.place, problems);
  if (sets.empty()) refuse("“" + options.place + "”中没有账套");
  const std::size_t all = sets.size();
  const auto start = std::chrono::steady_clock::now();
  const std::size_t failed = Queue(options, call, std::move(sets)).run(output, problems);
  output << "共 " << all << " 个账套：完成 " << all - failed << " 个，失败 " << failed << " 个，用时 "
         << secondsText(std::chrono::steady_clock::now() - start) << '\n';
  return failed == 0 ? 0 : 1;
}

Call eachCall() {
  return {.name = "each",
          .text = "对许多账套逐一执行同一个调用，几个同时进行",
          .parameters = {{.name = "PLACE",
                          .field = &Asked::place,
                          .text = "目录：其下的全部账套；或文本文件：每行一个账套所在目录"},
                         {.name = "CALL",
                          .field = &Asked::words,
                          .text = "写在 -- 之后的调用，不写 --set；其中的 {} 换成账套所在目录"},
                         {.name = "--jobs",
                          .field = &Asked::jobs,
                          .text = "同时进行的个数；不给出时为处理器的个数",
                          .value = "NUMBER",
                          .check = jobsProblem}},
          .example = "zelkorctl each /srv/books --jobs 4 -- run 8 --yes",
          .run = each};
}

}  // namespace zelkor
