#pragma once

#include <string>

// What is made of the table of calls when the programs are built.
namespace zelkor {

/// The manual page as scdoc reads it.
std::string manualSource();

/// The completion of zelkorctl in bash.
std::string bashCompletion();

}  // namespace zelkor
