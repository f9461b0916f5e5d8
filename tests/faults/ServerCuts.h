#pragma once

#include <stdexcept>
#include <string>

#include "faults/KeptAccountSet.h"

// What happens to a server while somebody works on it.
namespace zelkor::test {

enum class Cut { Kill, Term, Session, Restart, Crash };

// What a program says of it.
inline constexpr const char* kLostConnection = "实时错误 '57'";
inline constexpr const char* kNoConnection = "无法连接数据库服务器";

inline std::string nameOf(Cut cut) {
  constexpr const char* names[] = {"killed", "told to end", "session ended", "server restarted",
                                   "server crashed"};
  return names[static_cast<int>(cut)];
}

/// The sessions of others on the account set's database, as the rest of a query.
inline constexpr const char* kOtherSessions =
    " FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid()";

/// Ends the sessions on the account set, or all of them with their server, which then comes up again.
inline void cutOff(Cut cut, const KeptAccountSet& set) {
  if (cut == Cut::Session) {
    set.ask(std::string("SELECT count(pg_terminate_backend(pid))") + kOtherSessions);
  } else if (!controlTestServer(cut == Cut::Restart ? "restart -m fast" : "restart -m immediate")) {
    throw std::runtime_error("the server does not restart");
  }
}

}  // namespace zelkor::test
