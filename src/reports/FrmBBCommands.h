#pragma once

#include <initializer_list>
#include <string_view>

namespace zelkor {

class Toolbar;

/// The commands that the screens of the reports show. Only those named act; the others are locked.
void setReportCommands(Toolbar& toolbar, std::initializer_list<std::string_view> acting);

}  // namespace zelkor
