#include "home/frmModule.h"

#include <utility>

namespace zelkor {

void frmModule::start(const std::string& program, const std::string& caption,
                      const std::vector<std::string>& arguments, std::function<void(const ChildEnd&)> ended) {
  child_ = std::make_unique<ChildProgram>(program, arguments);
  caption_ = caption;
  ended_ = std::move(ended);
  end_ = std::make_unique<QSocketNotifier>(child_->endDescriptor(), QSocketNotifier::Read);
  QObject::connect(end_.get(), &QSocketNotifier::activated, end_.get(), [this] { finish(); });
}

void frmModule::finish() {
  end_->setEnabled(false);
  end_.release()->deleteLater();  // it is its own call that is under way
  const ChildEnd end = child_->finish();
  child_.reset();
  std::exchange(ended_, {})(end);
}

}  // namespace zelkor
