#include "ui/FormHost.h"

#include <QEventLoop>

#include "base/RuntimeError.h"
#include "startup/ProgramEnd.h"
#include "ui/Form.h"
#include "ui/WindowPlace.h"

namespace zelkor {

FormHost::FormHost(RunContext& context, std::function<void(int)> endProcess)
    : context_(context), endProcess_(std::move(endProcess)) {}

FormHost::~FormHost() = default;

void FormHost::dispatch(const std::function<void()>& routine) {
  if (endStatus_) return;
  ++running_;
  const auto status = runToEnd(context_, routine);
  --running_;
  if (status && !endStatus_) end(*status);
  if (running_ == 0) endServices(std::nullopt);
}

/// An exception cannot pass through the window system to the routines around this one. They are stopped where
/// they turn to data or dialogs, which is before anything of theirs could be seen.
void FormHost::end(int status) {
  endStatus_ = status;
  endServices(status);
  for (QEventLoop* loop : modalLoops_) loop->quit();
  endProcess_(status);
}

void FormHost::endServices(std::optional<int> status) {
  context_.engine.setEnded(status);
  context_.dialogs.setEnded(status);
}

void FormHost::keepAndShow(std::unique_ptr<Form> form) {
  Form& shown = *form;
  forms_.push_back(std::move(form));
  fitToScreen(shown);
  shown.show();
}

void FormHost::openInFront(Form& form) {
  QWidget* behind = frontWindow();
  if (!form.isScreen()) makeDialog(form);
  fitToScreen(form);
  if (behind) placeOver(form, *behind);
  form.show();
}

void FormHost::showModal(Form& form) {
  if (endStatus_) throw EndProgram{*endStatus_};
  context_.engine.flush();
  QEventLoop loop;
  modalLoops_.push_back(&loop);
  form.onClosed([&loop] { loop.quit(); });
  form.setWindowModality(Qt::ApplicationModal);
  openInFront(form);
  if (!sought_.isEmpty() && form.beginSearch(sought_)) sought_.clear();
  // Showing it may have closed it or ended the program; a loop that begins then would never be left.
  if (!endStatus_ && form.isVisible()) loop.exec();
  form.onClosed({});
  modalLoops_.pop_back();
  if (endStatus_) throw EndProgram{*endStatus_};
}

}  // namespace zelkor
