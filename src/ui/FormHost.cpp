#include "ui/FormHost.h"

#include <QEventLoop>

#include "base/RuntimeError.h"
#include "startup/ProgramEnd.h"
#include "ui/Form.h"

namespace zelkor {

FormHost::FormHost(RunContext& context, std::function<void(int)> endProcess)
    : context_(context), endProcess_(std::move(endProcess)) {}

FormHost::~FormHost() = default;

void FormHost::dispatch(const std::function<void()>& routine) {
  if (endStatus_) return;
  const auto status = runToEnd(context_, routine);
  // A routine that opened a modal form has seen the end already in there.
  if (!status || endStatus_) return;
  endStatus_ = status;
  for (QEventLoop* loop : modalLoops_) loop->quit();
  endProcess_(*status);
}

void FormHost::keepAndShow(std::unique_ptr<Form> form) {
  Form& shown = *form;
  forms_.push_back(std::move(form));
  shown.show();
}

void FormHost::showModal(Form& form) {
  context_.engine.flush();
  QEventLoop loop;
  modalLoops_.push_back(&loop);
  form.onClosed([&loop] { loop.quit(); });
  form.setWindowModality(Qt::ApplicationModal);
  form.show();
  loop.exec();
  form.onClosed({});
  modalLoops_.pop_back();
  if (endStatus_) throw EndProgram{*endStatus_};
}

}  // namespace zelkor
