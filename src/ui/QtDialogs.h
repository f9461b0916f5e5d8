#pragma once

#include <memory>

#include "base/Dialogs.h"

namespace zelkor {

class ProgressBox;

/// Message boxes and tables as windows. Needs a running QApplication.
class QtDialogs final : public Dialogs {
 public:
  QtDialogs();
  ~QtDialogs() override;

  void showProgress(const Progress& progress) override;
  void endProgress() override;
  bool tellsOnStandardError() const override;

 protected:
  Answer ask(const MessageBox& box) override;
  void present(const std::string& caption, const TextGrid& grid) override;

 private:
  std::unique_ptr<ProgressBox> progress_;
};

}  // namespace zelkor
