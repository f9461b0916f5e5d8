#pragma once

#include <functional>
#include <memory>
#include <QSocketNotifier>
#include <string>
#include <vector>

#include "home/ChildProgram.h"

namespace zelkor {

/// Programs beside this one, started for one command after the other.
class frmModule {
 public:
  bool isRunning() const { return child_ != nullptr; }
  /// What the command that runs is called.
  const std::string& caption() const { return caption_; }

  /// See ChildProgram; empty where none runs.
  std::string endOfErrors() const { return child_ ? child_->endOfErrors() : std::string(); }

  /// Starts it; `ended` is called once, by the event loop. Errors as ChildProgram.
  void start(const std::string& program, const std::string& caption,
             const std::vector<std::string>& arguments, std::function<void(const ChildEnd&)> ended);

 private:
  void finish();

  std::string caption_;
  std::unique_ptr<ChildProgram> child_;
  std::unique_ptr<QSocketNotifier> end_;
  std::function<void(const ChildEnd&)> ended_;
};

}  // namespace zelkor
