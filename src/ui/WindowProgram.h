#pragma once

#include <functional>
#include <string>

namespace zelkor {

/// Runs a program with windows: signals, theme and application are ready when `work` is called, whose result
/// is the exit status. Without a display it tells so on standard error, with what can be done instead, and
/// gives 1.
int runWindowProgram(int argc, char** argv, const std::string& name, const std::string& instead,
                     const std::function<int()>& work);

}  // namespace zelkor
