#pragma once

#include <QWidget>

#include "base/Dialogs.h"

class QLabel;
class QProgressBar;

namespace zelkor {

/// The small window that shows how far a long job has come. It cannot be closed by hand.
class ProgressBox final : public QWidget {
 public:
  ProgressBox();

  /// Shows the state and lets the window system paint it; keys and clicks wait for the end of the job.
  void showState(const Progress& progress);

 private:
  QLabel* text_;
  QProgressBar* bar_;
};

}  // namespace zelkor
