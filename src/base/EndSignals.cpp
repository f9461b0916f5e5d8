#include "base/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <utility>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

/// What a signal handler can reach is a variable of the process.
struct Noted {
  std::atomic<int> signal = 0;
  std::atomic<std::int64_t> since = 0;  // in seconds of a clock that runs on
  std::atomic<bool> isTaken = false;
  std::array<int, 2> pipe{-1, -1};
};
Noted noted;
static_assert(std::atomic<int>::is_always_lock_free);

void note(int signal) {
  const int keptError = errno;
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  int none = 0;
  if (!noted.signal.compare_exchange_strong(none, signal)) {
    // A log-off, or the end of a group of processes, sends several at once: those are one.
    if (now.tv_sec - noted.since > 1) ::_exit(kSignalStatus + signal);
    errno = keptError;
    return;
  }
  noted.since = now.tv_sec;
  const char mark = 0;
  const ssize_t ignored = ::write(noted.pipe[1], &mark, 1);
  (void)ignored;
  errno = keptError;
}

}  // namespace

void catchEndSignals() {
  if (::pipe2(noted.pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  for (const int signal : {SIGTERM, SIGHUP}) {
    struct sigaction before {};
    ::sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN) continue;
    struct sigaction action {};
    action.sa_handler = note;  // without SA_RESTART: who waits for an answer is woken
    ::sigaction(signal, &action, nullptr);
  }
}

std::optional<int> endSignalStatus() {
  const int signal = noted.signal;
  return signal == 0 ? std::nullopt : std::optional(kSignalStatus + signal);
}

std::optional<int> takeEndSignal() {
  const auto status = endSignalStatus();
  return status && !noted.isTaken.exchange(true) ? status : std::nullopt;
}

void goOnUnlessSignalled() {
  if (const auto status = takeEndSignal()) throw EndProgram{*status};
}

int endSignalDescriptor() {
  return noted.pipe[0];
}

}  // namespace zelkor
