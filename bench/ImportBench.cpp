#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

#include "Benchmarks.h"
#include "JetAccounts.h"
#include "ScratchDirectory.h"
#include "ServerDatabase.h"
#include "Sqlite.h"
#include "Stopwatch.h"

namespace zelkor::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kTables = 50;
constexpr long kRowsEach = 2000;
constexpr int kRounds = 7;
constexpr const char* kDates = "%Y-%m-%d %H:%M:%S";

bool areThere(std::initializer_list<const char*> tools) {
  for (const char* tool : tools) {
    if (std::system((std::string("command -v ") + tool + " >/dev/null").c_str()) == 0) continue;
    std::printf("import            %s is not installed: nothing to compare with\n", tool);
    return false;
  }
  return true;
}

std::string quoted(const std::string& text) {
  return "'" + text + "'";
}

void writeText(const fs::path& path, const std::string& text) {
  std::ofstream out(path);
  out << text;
  if (!out.flush()) throw std::runtime_error("cannot write " + path.string());
}

double secondsOfCommand(const std::string& command) {
  return secondsOf([&] {
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
  });
}

/// Our program, and mdbtools' with the engine's loader, for the same work from an empty target each time.
struct Sides {
  std::function<double()> ours;
  std::function<double()> pipes;
};

/// Takes turns and prints the medians.
void compare(const char* what, const JetAccounts& accounts, const Sides& sides) {
  std::vector<double> ours;
  std::vector<double> pipes;
  for (int round = 0; round < kRounds; ++round) {
    pipes.push_back(sides.pipes());
    ours.push_back(sides.ours());
  }
  std::printf("%-17s %7ld rows   %8.3f s        pipes %8.3f s         ratio %5.2f\n", what, accounts.rows,
              median(ours), median(pipes), median(ours) / median(pipes));
}

std::string import(const JetAccounts& accounts, const fs::path& target) {
  return quoted(ZELKORCTL) + " import " + quoted(accounts.file) + " " + quoted(target) + " >/dev/null";
}

/// One loader for all tables, in one transaction, and one exporter for each.
std::string loadAll(const JetAccounts& accounts, const std::function<std::string(const std::string&)>& line) {
  std::string script = "BEGIN;\n";
  for (const std::string& table : accounts.tables) script += line(table) + "\n";
  return script + "COMMIT;\n";
}

void requireAllRows(const fs::path& target, const JetAccounts& accounts) {
  const BareFile file(target.string());
  long rows = 0;
  for (const std::string& table : accounts.tables) {
    BareStatement count(file, "SELECT COUNT(*) FROM " + table);
    count.step();
    rows += static_cast<long>(count.number(0));
  }
  if (rows != accounts.rows) throw std::runtime_error("rows are missing in " + target.string());
}

void compareInFiles(const char* what, const JetAccounts& accounts, const ScratchDirectory& place) {
  const fs::path script = place / "load.sqlite";
  writeText(script, ".mode csv\n" + loadAll(accounts, [&](const std::string& table) {
                      return ".import --skip 1 \"|mdb-export -T " + quoted(kDates) + " " +
                             quoted(accounts.file) + " " + table + "\" " + table;
                    }));
  const fs::path target = place / "target.Mdb";
  const std::string pipes = "mdb-schema --no-indexes " + quoted(accounts.file) + " sqlite | sqlite3 " +
                            quoted(target) + " && sqlite3 " + quoted(target) + " <" + quoted(script);
  const auto timed = [&](const std::string& command) {
    const double seconds = secondsOfCommand(command);
    requireAllRows(target, accounts);
    for (const char* rest : {"", "-wal", "-shm"}) fs::remove(target.string() + rest);
    return seconds;
  };
  compare(what, accounts, {[&] { return timed(import(accounts, target)); }, [&] { return timed(pipes); }});
}

void compareOnServer(const JetAccounts& accounts, const ScratchDirectory& place, const std::string& server) {
  const fs::path script = place / "load.psql";
  writeText(script, loadAll(accounts, [&](const std::string& table) {
              return "\\copy " + table + " from program 'mdb-export -B -T \"" + kDates + "\" \"" +
                     accounts.file.string() + "\" " + table + "' csv header";
            }));
  const fs::path target = place / "server.Mdb";
  const auto timed = [&](const std::function<std::string(const std::string& conninfo)>& command) {
    const ServerDatabase database(server, "template0");
    const double seconds = secondsOfCommand(command(quoted(database.conninfo())));
    fs::remove(target);
    return seconds;
  };
  const auto pipes = [&](const std::string& conninfo) {
    const std::string psql = "psql -q -v ON_ERROR_STOP=1 -d " + conninfo;
    return "mdb-schema --no-indexes --no-relations " + quoted(accounts.file) + " postgres | " + psql +
           " && " + psql + " -f " + quoted(script);
  };
  const auto ours = [&](const std::string& conninfo) {
    return import(accounts, target) + " --server " + conninfo;
  };
  compare("import, server", accounts, {[&] { return timed(ours); }, [&] { return timed(pipes); }});
}

}  // namespace

void benchImport() {
  if (!areThere({"mdb-export", "mdb-schema", "sqlite3"})) return;
  const ScratchDirectory place;
  const JetAccounts jet4(place / "jet4.mdb", test::JetVersion::Jet4, kTables, kRowsEach);
  const JetAccounts jet3(place / "jet3.mdb", test::JetVersion::Jet3, kTables, kRowsEach);
  compareInFiles("import, Jet 4", jet4, place);
  compareInFiles("import, Jet 3", jet3, place);
  if (benchServer().empty()) {
    std::printf("import, server    no server: run it by tests/support/with-server\n");
  } else if (areThere({"psql"})) {
    compareOnServer(jet4, place, benchServer());
  }
}

}  // namespace zelkor::bench
