#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <QKeySequence>
#include <QString>
#include <type_traits>
#include <utility>

namespace zelkor {

class Form;

/// What a command is called on the screen, and its name as a control, which is the same unless given.
struct CommandCaption {
  // NOLINTNEXTLINE(google-explicit-constructor): captions stand bare in the rows
  CommandCaption(const char* itsText) : text(itsText), name(itsText) {}
  CommandCaption(const char* itsText, const char* itsName) : text(itsText), name(itsName) {}

  QString text;
  QString name;
};

/// A command of a form, as one row: caption, routine, when it is enabled, key.
///
///   setCommands(Toolbar1, {{"增加", &FrmX::add, &FrmX::browsing}, {}, {"退出", &FrmX::close}});
///
/// Routine and condition are members of the form, or take nothing. On a toolbar the key comes with the
/// caption unless the row gives one. A row without a routine is shown locked, an empty row separates.
class Command {
 public:
  Command() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): rows stand bare in their table
  Command(CommandCaption caption) : caption_(std::move(caption)) {}
  template <typename Routine, typename Condition = std::nullptr_t>
  requires(!std::same_as<Routine, const char*>)
      Command(CommandCaption caption, Routine routine, Condition enabled = {}, QKeySequence key = {})
      : caption_(std::move(caption)),
        routine_(bound<void>(routine)),
        enabled_(bound<bool>(enabled)),
        key_(std::move(key)) {}

  bool isSeparator() const { return caption_.text.isEmpty(); }
  const QString& text() const { return caption_.text; }
  const QString& name() const { return caption_.name; }
  const QKeySequence& key() const { return key_; }
  bool hasRoutine() const { return static_cast<bool>(routine_); }
  bool hasCondition() const { return static_cast<bool>(enabled_); }
  bool isEnabled(Form& form) const { return !enabled_ || enabled_(form); }
  void run(Form& form) const {
    if (routine_) routine_(form);
  }

 private:
  template <typename Result, typename Routine>
  static std::function<Result(Form&)> bound(const Routine& routine) {
    if constexpr (std::is_null_pointer_v<Routine>) {
      return {};
    } else if constexpr (std::is_member_function_pointer_v<Routine>) {
      return boundMember<Result>(routine);
    } else {
      return [routine](Form&) -> Result { return static_cast<Result>(routine()); };
    }
  }
  template <typename Result, typename Given, typename Self>
  static std::function<Result(Form&)> boundMember(Given (Self::*routine)()) {
    return [routine](Form& form) -> Result {
      return static_cast<Result>((static_cast<Self&>(form).*routine)());
    };
  }
  template <typename Result, typename Given, typename Self>
  static std::function<Result(Form&)> boundMember(Given (Self::*routine)() const) {
    return [routine](Form& form) -> Result {
      return static_cast<Result>((static_cast<Self&>(form).*routine)());
    };
  }

  CommandCaption caption_ = "";
  std::function<void(Form&)> routine_;
  std::function<bool(Form&)> enabled_;
  QKeySequence key_;
};

}  // namespace zelkor
