#include "faults/Program.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <thread>

namespace zelkor::test {
namespace {

[[noreturn]] void become(const std::vector<std::string>& arguments, unsigned long largestFile) {
  const int nothing = ::open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nothing, stream);
  if (largestFile > 0) {
    const rlimit limit{largestFile, largestFile};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::signal(SIGXFSZ, SIG_IGN);
  }
  std::vector<char*> words{const_cast<char*>(ZELKORCTL)};
  for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  ::execv(ZELKORCTL, words.data());
  ::_exit(127);
}

struct Closer {
  void operator()(sqlite3* handle) const { sqlite3_close(handle); }
};

std::vector<std::vector<std::string>> query(const std::string& dataFile, const std::string& sql) {
  sqlite3* handle = nullptr;
  sqlite3_open(dataFile.c_str(), &handle);
  const std::unique_ptr<sqlite3, Closer> owner(handle);
  std::vector<std::vector<std::string>> rows;
  const auto take = [](void* target, int columns, char** cells, char**) {
    std::vector<std::string> row;
    for (int i = 0; i < columns; ++i) row.emplace_back(cells[i] == nullptr ? "~" : cells[i]);
    static_cast<std::vector<std::vector<std::string>>*>(target)->push_back(std::move(row));
    return 0;
  };
  sqlite3_exec(handle, sql.c_str(), take, &rows, nullptr);
  return rows;
}

}  // namespace

Program::Program(const std::vector<std::string>& arguments, unsigned long largestFile) {
  process_ = ::fork();
  if (process_ == 0) become(arguments, largestFile);
}

Program::~Program() {
  if (process_ <= 0) return;
  ::kill(process_, SIGKILL);
  wait();
}

int Program::wait() {
  int status = 0;
  ::waitpid(process_, &status, 0);
  process_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool Program::killAfter(std::chrono::microseconds delay) {
  std::this_thread::sleep_for(delay);
  ::kill(process_, SIGKILL);
  return wait() == -1;
}

int runProgram(const std::vector<std::string>& arguments) {
  return Program(arguments).wait();
}

namespace {

std::string columnsOf(const std::string& dataFile, const std::string& table) {
  std::string columns;
  for (const auto& column :
       query(dataFile, "SELECT name FROM pragma_table_info('" + table + "') WHERE pk = 0"))
    columns += (columns.empty() ? "\"" : ", \"") + column[0] + "\"";
  return columns;
}

}  // namespace

std::vector<std::string> contentOf(const std::string& dataFile, const std::vector<std::string>& without) {
  std::vector<std::string> lines;
  for (const auto& table :
       query(dataFile, "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'")) {
    if (std::ranges::find(without, table[0]) != without.end()) continue;
    for (const auto& row :
         query(dataFile, "SELECT " + columnsOf(dataFile, table[0]) + " FROM \"" + table[0] + "\"")) {
      std::string line = table[0] + ":";
      for (const std::string& cell : row) line += " " + cell + " |";
      lines.push_back(std::move(line));
    }
  }
  std::ranges::sort(lines);
  return lines;
}

std::string differenceOf(const std::vector<std::string>& a, const std::vector<std::string>& b) {
  constexpr std::size_t most = 6;
  std::vector<std::string> lines;
  std::ranges::set_symmetric_difference(a, b, std::back_inserter(lines));
  std::string text;
  for (std::size_t i = 0; i < lines.size() && i < most; ++i) text += lines[i] + "\n";
  return text;
}

bool isIntact(const std::string& dataFile) {
  const auto answer = query(dataFile, "PRAGMA integrity_check");
  return answer.size() == 1 && answer[0][0] == "ok";
}

}  // namespace zelkor::test
