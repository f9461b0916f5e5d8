#pragma once

#include <optional>

namespace zelkor {

/// The exit status of who ends by a signal is this and the signal's number.
inline constexpr int kSignalStatus = 128;

// TERM and HUP (the user logs off, the machine goes down) end the program between two steps,
// with what it has written kept; another one, more than a second later, ends it at once.

/// From now on these signals are noted, unless whoever started the program has had them ignored.
void catchEndSignals();

/// After such a signal: the exit status that says which one it was, 143 or 129.
std::optional<int> endSignalStatus();

/// The same, once.
std::optional<int> takeEndSignal();

/// Where a step ends: after such a signal, ends the program by EndProgram.
void goOnUnlessSignalled();

/// Can be read from as soon as such a signal has come; for who waits for events. Nobody reads it.
int endSignalDescriptor();

}  // namespace zelkor
