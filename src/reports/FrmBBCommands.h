#pragma once

#include <vector>

#include "ui/Command.h"

namespace zelkor {

/// The commands that the screens of the reports show, in their order. Those given act; the others are locked.
std::vector<Command> reportCommands(const std::vector<Command>& acting);

}  // namespace zelkor
