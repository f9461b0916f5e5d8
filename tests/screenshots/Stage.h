#pragma once

#include <filesystem>
#include <QAbstractButton>
#include <QAction>
#include <QTreeWidget>
#include <string>

#include "base/Clock.h"
#include "base/TerminalDialogs.h"
#include "startup/RunContext.h"
#include "ui/FormHost.h"

namespace zelkor {

/// A sample account set in May 2020 with a host for its screens.
class Stage {
 public:
  Stage(const std::filesystem::path& set, std::filesystem::path pictures);

  FormHost& host() { return host_; }
  Database& data() { return context_.dbZKData; }
  template <typename FormType>
  FormType& open() {
    return host_.show<FormType>();
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

void click(QWidget& form, const char* name);
/// Presses a command of the toolbar.
void press(QWidget& form, const char* caption);
void selectNode(QWidget& form, const QString& text);

}  // namespace zelkor
