#include <cstdio>
#include <filesystem>
#include <vector>

#include "base/FileAccess.h"
#include "Benchmarks.h"
#include "ScratchDirectory.h"
#include "Stopwatch.h"
#include "transfer/backup/Restore.h"

namespace zelkor::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 3;

void print(const char* what, const LargeAccountSet& set, const std::vector<double>& seconds,
           const std::vector<double>& floor) {
  std::printf("%-17s %7ld cards  %8.2f s        bare copy %8.2f s      ratio %5.2f\n", what, set.cards(),
              best(seconds), best(floor), best(seconds) / best(floor));
}

/// Both files, on disk.
double copyBare(const LargeAccountSet& set, const fs::path& to) {
  fs::create_directories(to);
  return secondsOf([&] {
    for (const std::string& file : {set.dataFile(), set.systemFile()}) {
      const fs::path copy = to / fs::path(file).filename();
      fs::copy_file(file, copy, fs::copy_options::overwrite_existing);
      forceToDisk(copy);
    }
  });
}

}  // namespace

void benchBackup(const LargeAccountSet& set) {
  const ScratchDirectory place;
  std::vector<double> bare;
  std::vector<double> backups;
  std::vector<double> restores;
  for (int round = 0; round < kRounds; ++round) {
    bare.push_back(copyBare(set, place / "bare"));
    MadeBackup made;
    backups.push_back(secondsOf([&] {
      made = backUp({.data = set.dataFile(), .system = set.systemFile(), .to = place / "backups", .keep = 1});
    }));
    const auto restore = [&] {
      restoreBackup({.backup = made.folder, .target = place / "restored", .keepIn = place / "kept"});
    };
    if (round == 0) restore();
    restores.push_back(secondsOf(restore));
  }
  print("backup", set, backups, bare);
  print("restore", set, restores, bare);
}

}  // namespace zelkor::bench
