#pragma once

#include <filesystem>
#include <string>

#include "base/Clock.h"
#include "base/TerminalDialogs.h"
#include "startup/RunContext.h"
#include "support/Widgets.h"

namespace zelkor {

using namespace test;

/// A sample account set in May 2020 with a host for its screens.
class Stage {
 public:
  Stage(const std::filesystem::path& set, std::filesystem::path pictures);

  FormHost& host() { return host_; }
  RunContext& run() { return context_; }
  Database& data() { return context_.dbZKData; }
  /// Empties the register and enters the sample's in the first month; reports read that month's columns.
  void enterRegister();
  template <typename FormType, typename... Arguments>
  FormType& open(Arguments&&... arguments) {
    return host_.show<FormType>(std::forward<Arguments>(arguments)...);
  }
  /// Keeps the picture of a form once what it has put off is done.
  void keep(QWidget& form, const std::string& name);

 private:
  std::filesystem::path pictures_;
  DbEngine engine_;
  TerminalDialogs dialogs_;
  FixedClock clock_{*parseDate("2020-5-15 9:30:00")};
  RunContext context_;
  FormHost host_{context_, [](int) {}};
};

}  // namespace zelkor
