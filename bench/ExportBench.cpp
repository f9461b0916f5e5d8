#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "Benchmarks.h"

extern char** environ;

namespace zelkor::bench {
namespace {

constexpr int kRounds = 3;
constexpr const char* kLedger = "(部门、类别)明细账";

struct Cost {
  double cpuSeconds = 0;
  double megabytes = 0;  // at its largest
};

Cost costOf(std::vector<std::string> words) {
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  pid_t child = 0;
  if (posix_spawn(&child, argv[0], nullptr, nullptr, argv.data(), environ) != 0) {
    throw std::runtime_error("cannot start " + words[0]);
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || status != 0) {
    throw std::runtime_error("failed: " + words[0]);
  }
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return {seconds(usage.ru_utime) + seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) / 1024};
}

/// The least of several runs.
Cost exportCost(const LargeAccountSet& set, const std::string& format) {
  const auto file = std::filesystem::temp_directory_path() / ("zelkor-export-bench." + format);
  const std::string folder = std::filesystem::path(set.dataFile()).parent_path().string();
  Cost best{1e9, 1e9};
  for (int round = 0; round < kRounds; ++round) {
    const Cost one = costOf({ZELKORCTL, "report", kLedger, "--set", folder, "--format", format, "--out",
                             file.string(), "--force"});
    best = {std::min(best.cpuSeconds, one.cpuSeconds), std::min(best.megabytes, one.megabytes)};
  }
  std::filesystem::remove(file);
  return best;
}

}  // namespace

void benchExports(const LargeAccountSet& set) {
  const Cost plain = exportCost(set, "csv");
  for (const char* format : {"csv", "html", "xlsx", "pdf"}) {
    const Cost cost = exportCost(set, format);
    std::printf("export, %-4s      %7ld lines  %8.2f s of CPU  %6.0f MB  ratio to csv %5.2f\n", format,
                set.cards(), cost.cpuSeconds, cost.megabytes, cost.cpuSeconds / plain.cpuSeconds);
  }
}

}  // namespace zelkor::bench
