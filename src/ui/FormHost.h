#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QObject>
#include <QString>
#include <type_traits>
#include <utility>
#include <vector>

#include "startup/RunContext.h"

class QEventLoop;

namespace zelkor {

class Form;

/// Calls a member function of `owner`, or a lambda, with the arguments if it takes any.
template <typename Owner, typename Result, typename Self, typename... Parameters, typename... Arguments>
void callRoutine(Owner& owner, Result (Self::*routine)(Parameters...), const Arguments&... arguments) {
  Self& self = static_cast<Self&>(owner);
  if constexpr (sizeof...(Parameters) == 0) {
    (self.*routine)();
  } else {
    (self.*routine)(arguments...);
  }
}
template <typename Owner, typename Routine, typename... Arguments>
void callRoutine(Owner& /*owner*/, const Routine& routine, const Arguments&... arguments) {
  if constexpr (std::is_invocable_v<Routine, const Arguments&...>) {
    routine(arguments...);
  } else {
    routine();
  }
}

/// What the forms of a process stand on: the run context, the guard around every event routine, and the forms
/// that are shown.
class FormHost {
 public:
  /// `endProcess` is told the exit status once, when the program has ended inside an event routine; it must
  /// see to it that the event loop is left.
  FormHost(RunContext& context, std::function<void(int)> endProcess);
  FormHost(const FormHost&) = delete;
  FormHost& operator=(const FormHost&) = delete;
  ~FormHost();

  RunContext& run() { return context_; }

  /// Runs an event routine, or the program's entry routine: nothing that it throws gets out, what it has
  /// written is made durable. A runtime error is reported and ends the process with status 1. After the end
  /// of the program nothing runs any more: a routine in whose course another one has ended the program gets
  /// no further than to its next statement, box or form.
  void dispatch(const std::function<void()>& routine);
  /// Connects an event to a routine of `owner` (a member function or a lambda), which gets the event's
  /// arguments if it takes them, by way of `dispatch`. The connection ends with `context`.
  template <typename Sender, typename Signal, typename Owner, typename Routine>
  void connect(Sender* sender, Signal signal, QObject& context, Owner& owner, Routine routine) {
    QObject::connect(sender, signal, &context, [this, &owner, routine](const auto&... arguments) {
      dispatch([&] { callRoutine(owner, routine, arguments...); });
    });
  }
  /// Exit status, once the program has ended inside an event routine.
  std::optional<int> endStatus() const { return endStatus_; }

  /// Creates a form and shows it modeless. The host keeps it.
  template <typename FormType, typename... Arguments>
  FormType& show(Arguments&&... arguments) {
    auto form = std::make_unique<FormType>(*this, std::forward<Arguments>(arguments)...);
    FormType& shown = *form;
    keepAndShow(std::move(form));
    return shown;
  }
  /// The next modal form that can be searched begins with that text; the empty text takes the word back.
  void seek(const QString& text) { sought_ = text; }
  /// Shows a form modal, in front of the window from which it is opened, and returns when it is closed;
  /// throws EndProgram when the program ended meanwhile.
  void showModal(Form& form);

 private:
  void keepAndShow(std::unique_ptr<Form> form);
  static void openInFront(Form& form);
  void end(int status);
  void endServices(std::optional<int> status);

  RunContext& context_;
  std::function<void(int)> endProcess_;
  std::optional<int> endStatus_;
  QString sought_;
  int running_ = 0;  // event routines that are under way, one inside the other
  std::vector<std::unique_ptr<Form>> forms_;
  std::vector<QEventLoop*> modalLoops_;  // innermost last
};

}  // namespace zelkor
