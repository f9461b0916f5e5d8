#pragma once

#include "base/Dialogs.h"

namespace zelkor {

/// Message boxes and tables as windows. Needs a running QApplication.
class QtDialogs final : public Dialogs {
 protected:
  Answer ask(const MessageBox& box) override;
  void present(const std::string& caption, const TextGrid& grid) override;
};

}  // namespace zelkor
