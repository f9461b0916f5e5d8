#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "store/accountset/ServerAccountSet.h"

namespace zelkor::test {

/// How the server is reached beside which the tests run (tests/support/with-server), empty without one. The
/// switch between the engines: with a server, account sets lie there.
inline std::string testServer() {
  const char* conninfo = std::getenv("ZELKOR_TEST_SERVER");
  return conninfo == nullptr ? "" : conninfo;
}

inline bool onServer() {
  return !testServer().empty();
}

/// Has the server stopped or started, in pg_ctl's words: "restart -m immediate". True when that is done.
inline bool controlTestServer(const std::string& words) {
  const char* command = std::getenv("ZELKOR_TEST_SERVER_CONTROL");
  return command != nullptr &&
         std::system((std::string(command) + " " + words + " >/dev/null 2>&1").c_str()) == 0;
}

/// SQL that ends the sessions of this program whose last statement names the table, and waits until they are
/// gone. Programs beside one server are told apart by PGAPPNAME (tests/support/each): a session of another
/// one may name a table or an alias alike.
inline std::string endingSessionsOn(const std::string& table) {
  return "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE pid <> pg_backend_pid() AND "
         "application_name = current_setting('application_name') AND query LIKE '%\"" +
         table + "\"%'";
}

/// A schema name that no other test has.
inline std::string freshSchema() {
  static int number = 0;
  return "t" + std::to_string(::getpid()) + "_" + std::to_string(++number);
}

/// Known difference: a query that has to be sorted is computed as a whole before its first row, so that a row
/// that cannot be read fails its opening and not the move that reaches it.
inline bool failsAsAWhole() {
  return onServer();
}

/// Known difference: the file only names the server; nothing is lost with it.
inline bool writesWithoutItsFile() {
  return onServer();
}

/// Known difference: a file has one writer at a time, who keeps it until his transaction ends.
inline bool writersWaitForTransactions() {
  return !onServer();
}

}  // namespace zelkor::test
